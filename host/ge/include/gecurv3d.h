#pragma once

#include "gedblar.h"
#include "geent3d.h"
#include "geintarr.h"
#include "geintrvl.h"
#include "gept3dar.h"
#include "gevc3dar.h"
#include "gevptar.h"

class AcGeBoundBlock3d;
class AcGePointOnCurve3d;

namespace gecore
{
struct CurveForm;
}

/// A curve in space, evaluated over an interval of parameters. Parameters of points are those of the closest
/// point of the curve; distances of a curve with NaN or infinite coordinates are infinite.
/// Pointers that calls hand out are new objects, which the caller deletes.
class AcGeCurve3d : public AcGeEntity3d
{
public:
    bool isKindOf(AcGe::EntityId entType) const override;

    void getInterval(AcGeInterval& interval) const;
    /// Also the end points; on an open side the point is left unchanged.
    void getInterval(AcGeInterval& interval, AcGePoint3d& start, AcGePoint3d& end) const;
    /// Turns the direction round.
    AcGeCurve3d& reverseParam();
    /// Back to the natural interval of the class, where there is one.
    AcGeCurve3d& setInterval();
    /// Cuts or, for lines and arcs, extends to the interval; points keep their parameters. False, and nothing
    /// changed, when the curve cannot have that interval.
    bool setInterval(const AcGeInterval& interval);

    double distanceTo(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const;
    double distanceTo(const AcGeCurve3d& crv, const AcGeTol& tol = AcGeContext::gTol) const;
    AcGePoint3d closestPointTo(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const;
    AcGePoint3d closestPointTo(const AcGeCurve3d& curve3d, AcGePoint3d& pntOnOtherCrv,
                               const AcGeTol& tol = AcGeContext::gTol) const;
    void getClosestPointTo(const AcGePoint3d& pnt, AcGePointOnCurve3d& pntOnCrv,
                           const AcGeTol& tol = AcGeContext::gTol) const;
    void getClosestPointTo(const AcGeCurve3d& curve3d, AcGePointOnCurve3d& pntOnThisCrv,
                           AcGePointOnCurve3d& pntOnOtherCrv, const AcGeTol& tol = AcGeContext::gTol) const;
    /// The point of the curve that is closest when both are seen along `projectDirection`.
    AcGePoint3d projClosestPointTo(const AcGePoint3d& pnt, const AcGeVector3d& projectDirection,
                                   const AcGeTol& tol = AcGeContext::gTol) const;
    /// The closest point whose tangent is perpendicular to the line from `pnt`; false when the closest point
    /// is an end where it is not.
    bool getNormalPoint(const AcGePoint3d& pnt, AcGePointOnCurve3d& pntOnCrv,
                        const AcGeTol& tol = AcGeContext::gTol) const;
    /// The closest point near the parameter that `approxPnt` has, within `nbhd` when given.
    void getLocalClosestPoints(const AcGePoint3d& point, AcGePointOnCurve3d& approxPnt,
                               const AcGeInterval* nbhd = nullptr,
                               const AcGeTol& tol = AcGeContext::gTol) const;

    /// The smallest box with edges along the world's axes.
    AcGeBoundBlock3d boundBlock() const;
    AcGeBoundBlock3d boundBlock(const AcGeInterval& range) const;
    AcGeBoundBlock3d orthoBoundBlock() const;
    AcGeBoundBlock3d orthoBoundBlock(const AcGeInterval& range) const;

    /// A new curve, the image on the plane; null when it would be a point or has no class of its own.
    AcGeEntity3d* project(const AcGePlane& projectionPlane, const AcGeVector3d& projectDirection,
                          const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeEntity3d* orthoProject(const AcGePlane& projectionPlane,
                               const AcGeTol& tol = AcGeContext::gTol) const;

    bool isOn(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const override;
    bool isOn(const AcGePoint3d& pnt, double& param, const AcGeTol& tol = AcGeContext::gTol) const;
    /// True when the parameter is in the interval, or no further than tol.equalPoint() outside of it.
    bool isOn(double param, const AcGeTol& tol = AcGeContext::gTol) const;
    double paramOf(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const;

    /// The curves at a distance, to the left (planeNormal x tangent) for positive distances. Lines, arcs and
    /// circles have one; an arc whose radius would not stay positive has none. Other curves leave the list as
    /// it is.
    void getTrimmedOffset(double distance, const AcGeVector3d& planeNormal,
                          AcGeVoidPointerArray& offsetCurveList,
                          AcGe::OffsetCrvExtType extensionType = AcGe::kFillet,
                          const AcGeTol& tol = AcGeContext::gTol) const;

    /// The ends are equal points.
    bool isClosed(const AcGeTol& tol = AcGeContext::gTol) const;
    /// True for curves in a plane, which is given; for lines one of the planes is chosen.
    bool isPlanar(AcGePlane& plane, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isLinear(AcGeLine3d& line, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isCoplanarWith(const AcGeCurve3d& curve3d, AcGePlane& plane,
                        const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPeriodic(double& period) const;

    /// Length of the arc, never negative; lines and circles exactly, others to 1e-12 relative.
    double length(double fromParam, double toParam, double tol = AcGeContext::gTol.equalPoint()) const;
    /// The parameter at a length from `datumParam`, with or against the direction; the end when it comes
    /// first.
    double paramAtLength(double datumParam, double length, bool posParamDir = true,
                         double tol = AcGeContext::gTol.equalPoint()) const;
    /// The area between the arc and its chord, never negative; false when the curve is not planar.
    bool area(double startParam, double endParam, double& value,
              const AcGeTol& tol = AcGeContext::gTol) const;
    /// True for a curve that is a point; the kind is then kPosition3d.
    bool isDegenerate(AcGe::EntityId& degenerateType, const AcGeTol& tol = AcGeContext::gTol) const;
    /// Both pieces; null pointers when the parameter is not inside of the interval.
    void getSplitCurves(double param, AcGeCurve3d*& piece1, AcGeCurve3d*& piece2) const;
    /// Copies of the parts of a composite or polyline, within the interval when given; the flags are 1.
    /// False, with nothing added, for curves without parts.
    bool explode(AcGeVoidPointerArray& explodedCurves, AcGeIntArray& newExplodedCurve,
                 const AcGeInterval* interval = nullptr) const;

    /// False, and the point unchanged, on an open side.
    bool hasStartPoint(AcGePoint3d& startPoint) const;
    bool hasEndPoint(AcGePoint3d& endPoint) const;

    AcGePoint3d evalPoint(double param) const;
    /// Also the derivatives 1 to numDeriv (3 at most).
    AcGePoint3d evalPoint(double param, int numDeriv, AcGeVector3dArray& derivArray) const;
    /// Points from one parameter to the other whose chords stay within approxEps of the curve (at most
    /// 100,000).
    void getSamplePoints(double fromParam, double toParam, double approxEps, AcGePoint3dArray& pointArray,
                         AcGeDoubleArray& paramArray, bool forceResampling = false) const;
    /// Evenly spaced parameters, both ends included; nothing for fewer than two or an unbounded curve.
    void getSamplePoints(int numSample, AcGePoint3dArray& pointArray) const;
    void getSamplePoints(int numSample, AcGePoint3dArray& pointArray, AcGeDoubleArray& paramArray) const;

    /// The curve as the numeric functions of the host see it; valid while this curve is unchanged.
    virtual gecore::CurveForm form() const = 0;

protected:
    virtual void turnRound() = 0;
    /// Bounds may be infinite. False, and nothing changed, when they do not suit the class.
    virtual bool setBounds(double lo, double hi) = 0;
    virtual void resetBounds() {}
};
