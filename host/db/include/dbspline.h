#pragma once

/// AcDbSpline: a non-uniform rational B-spline, given by its control points or by points it passes through.

#include "dbcurve.h"
#include "gedblar.h"
#include "genurb3d.h"
#include "gept3dar.h"
#include "OwnedCopy.h"

/// Parameters are those of the knots. Points and tangents are in world coordinates; indices count from 0.
/// Members return eInvalidIndex for an index out of range, and eInvalidInput for data that make no spline;
/// nothing is changed then. A change of control points, weights or knots ends the description by fit points.
class AcDbSpline : public AcDbCurve
{
public:
    ACRX_DECLARE_MEMBERS(AcDbSpline);
    ACDB_STATE_MEMBERS(AcDbSpline)
    enum SplineType { kFitPoints = 0, kControlPoints = 1 };

    /// Without control points; see isNull. So are those that the other constructors cannot make.
    AcDbSpline() = default;
    /// A cubic through the points, without curvature at its ends; smooth all round when the last point is the
    /// first. The curve passes through the points exactly, whatever the tolerance; only order 4 is supported.
    AcDbSpline(const AcGePoint3dArray& fitPoints, int order = 4, double fitTolerance = 0.0);
    AcDbSpline(const AcGePoint3dArray& fitPoints, const AcGeVector3d& startTangent,
               const AcGeVector3d& endTangent, int order = 4, double fitTolerance = 0.0);
    AcDbSpline(const AcGePoint3dArray& fitPoints, bool tangentsExist, const AcGeVector3d& startTangent,
               const AcGeVector3d& endTangent, AcGe::KnotParameterization knotParam = AcGe::kChord,
               int degree = 3, double fitTolerance = 0.0);
    /// As setNurbsData.
    AcDbSpline(int degree, Adesk::Boolean rational, Adesk::Boolean closed, Adesk::Boolean periodic,
               const AcGePoint3dArray& controlPoints, const AcGeDoubleArray& knots,
               const AcGeDoubleArray& weights, double controlPtTol = 0.0, double knotTol = 0.0);
    /// An ellipse; the arguments are those of AcDbEllipse::set.
    AcDbSpline(const AcGePoint3d& center, const AcGeVector3d& unitNormal, const AcGeVector3d& majorAxis,
               double radiusRatio, double startAngle = 0.0, double endAngle = 6.28318530717958647692);

    bool isNull() const;
    Adesk::Boolean isRational() const { return !mWeights.empty(); }
    int degree() const { return mDegree; }
    /// The same curve with a higher degree, 25 at most.
    Acad::ErrorStatus elevateDegree(int newDegree);
    Acad::ErrorStatus insertKnot(double param);

    int numControlPoints() const { return static_cast<int>(mControlPoints.size()); }
    Acad::ErrorStatus getControlPointAt(int index, AcGePoint3d& point) const;
    Acad::ErrorStatus setControlPointAt(int index, const AcGePoint3d& point);
    /// 1 for a spline without weights, and -1 for an index out of range.
    double weightAt(int index) const;
    Acad::ErrorStatus setWeightAt(int index, double weight);
    /// `knots` are as many as control points + degree + 1.
    Acad::ErrorStatus getNurbsData(int& degree, Adesk::Boolean& rational, Adesk::Boolean& closed,
                                   Adesk::Boolean& periodic, AcGePoint3dArray& controlPoints,
                                   AcGeDoubleArray& knots, AcGeDoubleArray& weights, double& controlPtTol,
                                   double& knotTol) const;
    /// `closed` alone asks for nothing: whether the ends meet is seen from the points.
    Acad::ErrorStatus setNurbsData(int degree, Adesk::Boolean rational, Adesk::Boolean closed,
                                   Adesk::Boolean periodic, const AcGePoint3dArray& controlPoints,
                                   const AcGeDoubleArray& knots, const AcGeDoubleArray& weights,
                                   double controlPtTol, double knotTol);

    Adesk::Boolean hasFitData() const { return !mFitPoints.empty(); }
    SplineType type() const { return hasFitData() ? kFitPoints : kControlPoints; }
    /// To kControlPoints only.
    Acad::ErrorStatus setType(SplineType type);
    int numFitPoints() const { return static_cast<int>(mFitPoints.size()); }
    Acad::ErrorStatus getFitPointAt(int index, AcGePoint3d& point) const;
    Acad::ErrorStatus setFitPointAt(int index, const AcGePoint3d& point);
    /// Before the point at `index`; at the start for a negative one, at the end for one past the last.
    Acad::ErrorStatus insertFitPointAt(int index, const AcGePoint3d& point);
    /// eDegenerateGeometry when fewer than two points would be left.
    Acad::ErrorStatus removeFitPointAt(int index);
    double fitTolerance() const { return mFitTolerance; }
    Acad::ErrorStatus setFitTol(double tol);
    /// eNotApplicable without fit points or without tangents.
    Acad::ErrorStatus getFitTangents(AcGeVector3d& startTangent, AcGeVector3d& endTangent) const;
    Acad::ErrorStatus setFitTangents(const AcGeVector3d& startTangent, const AcGeVector3d& endTangent);
    AcGe::KnotParameterization knotParameterization() const;
    Acad::ErrorStatus setKnotParameterization(AcGe::KnotParameterization knotParam);
    Acad::ErrorStatus getFitData(AcGePoint3dArray& fitPoints, int& degree, double& fitTolerance,
                                 Adesk::Boolean& tangentsExist, AcGeVector3d& startTangent,
                                 AcGeVector3d& endTangent) const;
    Acad::ErrorStatus setFitData(const AcGePoint3dArray& fitPoints, int degree, double fitTolerance,
                                 const AcGeVector3d& startTangent, const AcGeVector3d& endTangent);
    /// The fit points are forgotten; the curve stays.
    Acad::ErrorStatus purgeFitData();
    /// Fits again through the points.
    Acad::ErrorStatus updateFitData();

    /// A polyline of chords: an AcDbPolyline when the spline is planar; eNonPlanarEntity otherwise. The
    /// caller owns it. Chords keep within a part of the curve's size that falls tenfold with every ten steps
    /// of `precision` (0 to 99).
    Acad::ErrorStatus toPoly(AcDbCurve*& curve, Adesk::UInt32 precision = 10) const;

    bool isPlanar() const override;
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    bool isPeriodic() const override { return mFlags & periodicFlag; }
    Acad::ErrorStatus reverseCurve() override;
    Acad::ErrorStatus setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal = nullptr,
                                       const AcGeTol& tol = AcGeContext::gTol) override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::unique_ptr<AcGeCurve3d> makeGeCurve() const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                        const AcGePoint3d& last, AcGePoint3dArray& points) const override;

private:
    struct Dxf;
    friend struct Dxf;
    static constexpr std::int16_t closedFlag = 1, periodicFlag = 2, rationalFlag = 4, planarFlag = 8,
                                  linearFlag = 16;
    static constexpr std::int16_t fitFlag =
        1024; ///< made of fit points; with the bits of the knots' spacing below
    static constexpr std::int16_t chordFlag = 32, rootFlag = 64, evenFlag = 128, ownKnotsFlag = 256;

    /// What splines made of fit points may be told.
    struct Tangents {
        AcGeVector3d start, end;
    };

    std::unique_ptr<AcGeNurbCurve3d> nurbs() const;
    std::unique_ptr<AcGeNurbCurve3d> fitted() const;
    void takeShape(const AcGeNurbCurve3d& curve);
    void setShapeFlags(const AcGeNurbCurve3d& curve);
    void forgetFit();
    Acad::ErrorStatus refit(std::vector<AcGePoint3d> points, const OwnedCopy<Tangents>& tangents);
    Acad::ErrorStatus changeShape(const AcGeNurbCurve3d& curve);

    std::vector<AcGePoint3d> mControlPoints, mFitPoints;
    std::vector<double> mKnots, mWeights;
    OwnedCopy<Tangents> mTangents;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    double mKnotTolerance = 1e-9, mControlTolerance = 1e-10, mFitTolerance = 1e-10;
    std::int16_t mFlags = 0;
    std::int16_t mDegree = 3;
    std::uint8_t mFileNames = 0; ///< which optional groups the file gave
};
