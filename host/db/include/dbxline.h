#pragma once

/// AcDbXline: a line without ends, for construction.

#include "dbcurve.h"

/// Parameters are lengths from the base point.
class AcDbXline : public AcDbCurve
{
public:
    ACRX_DECLARE_MEMBERS(AcDbXline);
    ACDB_STATE_MEMBERS(AcDbXline)
    AcDbXline() = default;

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
    Acad::ErrorStatus getArea(double& area) const override;
    Acad::ErrorStatus reverseCurve() override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::unique_ptr<AcGeCurve3d> makeGeCurve() const override;
    std::unique_ptr<AcGeCurve3d> makeExtendedGeCurve() const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents&) const override { return Acad::eInvalidExtents; }
    bool subWorldDraw(AcGiWorldDraw* draw) const override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

private:
    AcGePoint3d mBase;
    AcGeVector3d mDirection = AcGeVector3d::kXAxis;
};
