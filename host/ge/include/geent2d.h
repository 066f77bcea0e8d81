#pragma once

#include "gemat2d.h"

class AcGeLine2d;

/// What all geometry in the plane has in common. Entities are values with a class: they are copied with
/// copy(), compared within a tolerance, and moved by matrices. A pointer to any of them may be deleted.
class AcGeEntity2d
{
public:
    virtual ~AcGeEntity2d() = default;

    virtual AcGe::EntityId type() const = 0;
    /// True when this is of the given class or of one derived from it.
    virtual bool isKindOf(AcGe::EntityId entType) const;
    /// A new entity that the caller deletes.
    virtual AcGeEntity2d* copy() const = 0;

    bool operator==(const AcGeEntity2d& entity) const { return isEqualTo(entity); }
    bool operator!=(const AcGeEntity2d& entity) const { return !isEqualTo(entity); }
    /// Same class and the same geometry within the tolerance.
    virtual bool isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol = AcGeContext::gTol) const = 0;

    virtual AcGeEntity2d& transformBy(const AcGeMatrix2d& xfm) = 0;
    AcGeEntity2d& translateBy(const AcGeVector2d& translateVec);
    AcGeEntity2d& rotateBy(double angle, const AcGePoint2d& wrtPoint = AcGePoint2d::kOrigin);
    AcGeEntity2d& mirror(const AcGeLine2d& line);
    AcGeEntity2d& scaleBy(double scaleFactor, const AcGePoint2d& wrtPoint = AcGePoint2d::kOrigin);

    /// True when the point is no further than tol.equalPoint() away.
    virtual bool isOn(const AcGePoint2d& pnt, const AcGeTol& tol = AcGeContext::gTol) const = 0;

protected:
    AcGeEntity2d() = default;
    AcGeEntity2d(const AcGeEntity2d&) = default;
    AcGeEntity2d& operator=(const AcGeEntity2d&) = default;
};
