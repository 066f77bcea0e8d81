#pragma once

#include "PolylineInput.h"

#include "dbjig.h"
#include "dbpl.h"
#include "gemat3d.h"

namespace entity
{
/// Lets the user draw an area: the closed polyline through the points so far and the cursor has a band to the
/// last point and one to the first.
class AreaJig : public AcEdJig
{
public:
    AreaJig();

    DrawnPoints run();

    DragStatus sampler() override;
    Adesk::Boolean update() override;
    AcDbEntity* entity() const override;

private:
    enum Keyword { kUndo = kKW1, kClose = kKW2 };

    void ask();
    void take();
    /// Whether the user wants to end the area, with enough points or not.
    bool isEnd(DragStatus status) const;
    bool canClose() const { return m_points.length() > 2; }

    AcGeMatrix3d m_ucsToWorld;
    AcGePoint3dArray m_points; ///< of the user coordinate system
    AcGePoint3d m_cursor;      ///< of the world
    mutable AcDbPolyline m_shown;
};
} // namespace entity
