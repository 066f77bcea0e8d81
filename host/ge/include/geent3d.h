#pragma once

#include "gemat3d.h"

class AcGeLine3d;

/// What all geometry in space has in common. Entities are values with a class: they are copied with
/// copy(), compared within a tolerance, and moved by matrices. A pointer to any of them may be deleted.
class AcGeEntity3d
{
public:
    virtual ~AcGeEntity3d() = default;

    virtual AcGe::EntityId type() const = 0;
    /// True when this is of the given class or of one derived from it.
    virtual bool isKindOf(AcGe::EntityId entType) const;
    /// A new entity that the caller deletes.
    virtual AcGeEntity3d* copy() const = 0;

    bool operator==(const AcGeEntity3d& entity) const { return isEqualTo(entity); }
    bool operator!=(const AcGeEntity3d& entity) const { return !isEqualTo(entity); }
    /// Same class and the same geometry within the tolerance.
    virtual bool isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol = AcGeContext::gTol) const = 0;

    virtual AcGeEntity3d& transformBy(const AcGeMatrix3d& xfm) = 0;
    AcGeEntity3d& translateBy(const AcGeVector3d& translateVec);
    AcGeEntity3d& rotateBy(double angle, const AcGeVector3d& vec,
                           const AcGePoint3d& wrtPoint = AcGePoint3d::kOrigin);
    AcGeEntity3d& mirror(const AcGePlane& plane);
    AcGeEntity3d& scaleBy(double scaleFactor, const AcGePoint3d& wrtPoint = AcGePoint3d::kOrigin);

    /// True when the point is no further than tol.equalPoint() away.
    virtual bool isOn(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const = 0;

protected:
    AcGeEntity3d() = default;
    AcGeEntity3d(const AcGeEntity3d&) = default;
    AcGeEntity3d& operator=(const AcGeEntity3d&) = default;
};
