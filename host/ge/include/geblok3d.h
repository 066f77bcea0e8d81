#pragma once

#include "geent3d.h"

/// A box: a base point and three edges, along the world's axes unless made of other edges or transformed.
class AcGeBoundBlock3d : public AcGeEntity3d
{
public:
    AcGeBoundBlock3d() = default;
    AcGeBoundBlock3d(const AcGePoint3d& base, const AcGeVector3d& dir1, const AcGeVector3d& dir2,
                     const AcGeVector3d& dir3);

    AcGe::EntityId type() const override { return AcGe::kBoundBlock3d; }
    AcGeBoundBlock3d* copy() const override { return new AcGeBoundBlock3d(*this); }
    bool isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGeBoundBlock3d& transformBy(const AcGeMatrix3d& xfm) override;
    bool isOn(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const override;

    /// The corners of the smallest box along the world's axes that holds this.
    void getMinMaxPoints(AcGePoint3d& point1, AcGePoint3d& point2) const;
    void get(AcGePoint3d& base, AcGeVector3d& dir1, AcGeVector3d& dir2, AcGeVector3d& dir3) const;
    AcGeBoundBlock3d& set(const AcGePoint3d& point1, const AcGePoint3d& point2);
    AcGeBoundBlock3d& set(const AcGePoint3d& base, const AcGeVector3d& dir1, const AcGeVector3d& dir2,
                          const AcGeVector3d& dir3);
    /// Grows, as a box along the world's axes, to hold the point.
    AcGeBoundBlock3d& extend(const AcGePoint3d& point);
    /// Moves every face outwards.
    AcGeBoundBlock3d& swell(double distance);
    bool contains(const AcGePoint3d& point) const;
    /// True when the boxes along the world's axes have no point in common.
    bool isDisjoint(const AcGeBoundBlock3d& block) const;
    bool isBox() const;
    AcGeBoundBlock3d& setToBox(bool toBox);

private:
    AcGePoint3d mBase;
    AcGeVector3d mEdge[3];
};
