#pragma once

#include "gemat3d.h"
#include "gepnt3d.h"

/// Makes the coordinate system of the grid the current one while it lives: its origin at a point of the
/// system before, turned about that one's Z axis.
class GridUcs
{
public:
    GridUcs(const AcGePoint3d& origin, double rotation);
    ~GridUcs();
    GridUcs(const GridUcs&) = delete;
    GridUcs& operator=(const GridUcs&) = delete;

    bool isSet() const { return m_isSet; }

    /// True when texts along a vector stand on their heads on the screen: not to be read from below or from
    /// the right.
    bool readsUpsideDown(const AcGeVector3d& along) const;

    AcGeVector3d toWorld(const AcGeVector3d& vector) const;

private:
    AcGeMatrix3d m_before, m_frame;
    bool m_isSet = false;
};
