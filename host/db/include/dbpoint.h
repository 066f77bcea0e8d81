#pragma once

/// AcDbPoint: a point of the drawing, shown as the drawing's point style says.

#include "dbentity.h"

class AcDbPoint : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbPoint);
    ACDB_STATE_MEMBERS(AcDbPoint)
    AcDbPoint() = default;
    explicit AcDbPoint(const AcGePoint3d& position) : mPosition(position) {}

    AcGePoint3d position() const { return mPosition; }
    /// eInvalidInput for coordinates that are not finite.
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    double thickness() const { return mThickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return mNormal; }
    /// eInvalidInput for a zero vector.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    /// Radians that the mark's X axis is turned by, about the normal.
    double ecsRotation() const { return mRotation; }
    Acad::ErrorStatus setEcsRotation(double rotation);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick, const AcGePoint3d& last,
                                        AcGePoint3dArray& points) const override;

private:
    AcGePoint3d mPosition;
    double mThickness = 0.0;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    double mRotation = 0.0;
};
