#pragma once

/// What AcDbRay and AcDbXline have in common.

#include "dbcurve.h"

/// A line through a base point. Parameters are lengths from that point.
class DbEndlessLine : public AcDbCurve
{
public:
    AcGePoint3d basePoint() const { return mBase; }
    Acad::ErrorStatus setBasePoint(const AcGePoint3d& point);
    AcGeVector3d unitDir() const { return mDirection; }
    /// Any vector but zero, which is eInvalidInput.
    Acad::ErrorStatus setUnitDir(const AcGeVector3d& direction);
    AcGePoint3d secondPoint() const { return mBase + mDirection; }
    /// eInvalidInput for the base point.
    Acad::ErrorStatus setSecondPoint(const AcGePoint3d& point);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    /// eNotApplicable.
    Acad::ErrorStatus getArea(double& area) const override;

protected:
    DbEndlessLine() = default;
    std::unique_ptr<AcGeCurve3d> makeExtendedGeCurve() const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents&) const override { return Acad::eInvalidExtents; }
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

    AcGePoint3d mBase;
    AcGeVector3d mDirection = AcGeVector3d::kXAxis; ///< unit
};
