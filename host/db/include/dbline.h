#pragma once

/// AcDbLine: a straight line between two points.

#include "dbcurve.h"

/// Parameters are lengths from the start.
class AcDbLine : public AcDbCurve
{
public:
    ACRX_DECLARE_MEMBERS(AcDbLine);
    ACDB_STATE_MEMBERS(AcDbLine)
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : mStart(start), mEnd(end) {}

    AcGePoint3d startPoint() const { return mStart; }
    /// eInvalidInput for coordinates that are not finite.
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    AcGePoint3d endPoint() const { return mEnd; }
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
    double thickness() const { return mThickness; }
    Acad::ErrorStatus setThickness(double thickness);
    /// The direction of the thickness; a unit vector.
    AcGeVector3d normal() const { return mNormal; }
    /// eInvalidInput for a zero vector.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getArea(double& area) const override;
    Acad::ErrorStatus reverseCurve() override;
    Acad::ErrorStatus extend(double param) override;
    Acad::ErrorStatus extend(bool extendStart, const AcGePoint3d& toPoint) override;
    Acad::ErrorStatus setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal = nullptr,
                                       const AcGeTol& tol = AcGeContext::gTol) override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::unique_ptr<AcDbCurve> makePiece(double from, double to) const override;
    std::unique_ptr<AcGeCurve3d> makeGeCurve() const override;
    std::unique_ptr<AcGeCurve3d> makeExtendedGeCurve() const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                        const AcGePoint3d& last, AcGePoint3dArray& points) const override;

private:
    double geParam(double param) const override;
    double dbParam(double geParam) const override;

    AcGePoint3d mStart, mEnd;
    double mThickness = 0.0;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
};
