#pragma once

/// DbPathCurve: what planar polylines have in common, whether their vertices are numbers or objects.

#include "dbcurve.h"
#include "gept2dar.h"

class BulgeSegment;
struct BulgePath;

/// Parameters count vertices: i + t is the point at the fraction t of the length of segment i. The last
/// parameter is the number of segments.
class DbPathCurve : public AcDbCurve
{
public:
    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;

    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const override;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
    Acad::ErrorStatus getParamAtDist(double dist, double& param) const override;
    using AcDbCurve::getFirstDeriv;
    Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& deriv) const override;
    using AcDbCurve::getSecondDeriv;
    Acad::ErrorStatus getSecondDeriv(double param, AcGeVector3d& deriv) const override;
    using AcDbCurve::getClosestPointTo;
    Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                        bool extend = false) const override;
    Acad::ErrorStatus getArea(double& area) const override;
    Acad::ErrorStatus extend(double param) override;
    Acad::ErrorStatus extend(bool extendStart, const AcGePoint3d& toPoint) override;
    Acad::ErrorStatus getProjectedCurve(const AcGePlane& plane, const AcGeVector3d& direction,
                                        AcDbCurve*& projected) const override;
    void intersectionCurves(Curves& curves, bool extended) const override;

    /// The path as it is drawn: for fitted polylines along the fitted vertices. It may refer to the entity's
    /// own memory and holds until the entity is changed.
    virtual BulgePath path() const = 0;

protected:
    virtual double pathThickness() const = 0;
    /// Takes another place for the first or last vertex, and another bulge for its segment.
    virtual Acad::ErrorStatus setEndVertex(bool start, const AcGePoint2d& point, double bulge) = 0;
    /// The entity of a part of the path, with the properties of this one that are not an entity's in general.
    virtual std::unique_ptr<AcDbCurve> makePath(const BulgePath& path) const = 0;

    std::unique_ptr<AcDbCurve> makePiece(double from, double to) const override;
    std::unique_ptr<AcDbCurve> makeLike(const AcGeCurve3d& curve, const AcGeVector3d& normal) const override;
    std::unique_ptr<AcGeCurve3d> makeGeCurve() const override;
    /// Arcs whose height is below 2e-7 of their chord become their chords.
    std::unique_ptr<AcGeCurve3d> makeGeCurveToOffset() const override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                        const AcGePoint3d& last, AcGePoint3dArray& points) const override;
};
