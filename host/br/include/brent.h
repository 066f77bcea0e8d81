#pragma once

/// AcBrEntity: what parts of a boundary representation have in common.

#include "brgbl.h"
#include "dbsubeid.h"
#include "geblok3d.h"
#include "gegblge.h"
#include "gepnt3d.h"
#include "rxboiler.h"

#include <memory>

class AcBrBrep;

namespace br
{
struct Shape;

/// A place in a shape: numbers of a face, of a loop in it and of an edge in that.
struct Place {
    std::size_t face = 0, loop = 0, edge = 0;
    bool operator==(const Place& other) const
    {
        return face == other.face && loop == other.loop && edge == other.edge;
    }
};
} // namespace br

/// Parts share the shape that their brep was set to; later changes of the entity are not seen by them. A part
/// that was not set returns eUninitialisedObject.
class AcBrEntity : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcBrEntity);

    /// The same part of the same shape.
    bool isEqualTo(const AcRxObject* other) const override;
    bool isNull() const { return !mShape; }
    AcBr::ErrorStatus getBrep(AcBrBrep& owner) const;
    /// The box along the world's axes.
    virtual AcBr::ErrorStatus getBoundBlock(AcGeBoundBlock3d& block) const;
    /// Square units; of breps and faces, eNotApplicable for others. The result is exact, whatever the
    /// tolerance.
    virtual AcBr::ErrorStatus getSurfaceArea(double& area, double tolRequired = 0.0,
                                             double* tolAchieved = nullptr) const;
    /// The length of edges, loops, faces and breps (holes included).
    virtual AcBr::ErrorStatus getPerimeterLength(double& length, double tolRequired = 0.0,
                                                 double* tolAchieved = nullptr) const;
    /// Where a point lies for a brep or face; `container` is the part that it lies in or on (a new object
    /// that the caller deletes), null when it is outside.
    virtual AcBr::ErrorStatus getPointContainment(const AcGePoint3d& point,
                                                  AcGe::PointContainment& containment,
                                                  AcBrEntity*& container) const;

protected:
    friend struct BrAccess;
    AcBrEntity() = default;
    std::shared_ptr<const br::Shape> mShape;
    br::Place mPlace;
};
