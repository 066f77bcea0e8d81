#pragma once

#include "geent2d.h"

/// A box: a base point and two edges, along the world's axes unless made of other edges or transformed.
class AcGeBoundBlock2d : public AcGeEntity2d
{
public:
    AcGeBoundBlock2d() = default;
    AcGeBoundBlock2d(const AcGePoint2d& base, const AcGeVector2d& dir1, const AcGeVector2d& dir2);

    AcGe::EntityId type() const override { return AcGe::kBoundBlock2d; }
    AcGeBoundBlock2d* copy() const override { return new AcGeBoundBlock2d(*this); }
    bool isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGeBoundBlock2d& transformBy(const AcGeMatrix2d& xfm) override;
    bool isOn(const AcGePoint2d& pnt, const AcGeTol& tol = AcGeContext::gTol) const override;

    /// The corners of the smallest box along the world's axes that holds this.
    void getMinMaxPoints(AcGePoint2d& point1, AcGePoint2d& point2) const;
    void get(AcGePoint2d& base, AcGeVector2d& dir1, AcGeVector2d& dir2) const;
    AcGeBoundBlock2d& set(const AcGePoint2d& point1, const AcGePoint2d& point2);
    AcGeBoundBlock2d& set(const AcGePoint2d& base, const AcGeVector2d& dir1, const AcGeVector2d& dir2);
    /// Grows, as a box along the world's axes, to hold the point.
    AcGeBoundBlock2d& extend(const AcGePoint2d& point);
    /// Moves every edge outwards.
    AcGeBoundBlock2d& swell(double distance);
    bool contains(const AcGePoint2d& point) const;
    /// True when the boxes along the world's axes have no point in common.
    bool isDisjoint(const AcGeBoundBlock2d& block) const;
    bool isBox() const;
    AcGeBoundBlock2d& setToBox(bool toBox);

private:
    AcGePoint2d mBase;
    AcGeVector2d mEdge[2];
};
