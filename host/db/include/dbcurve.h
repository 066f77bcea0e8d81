#pragma once

/// AcDbCurve: what lines, arcs, polylines, splines ... have in common: points by parameter and by length.
///
/// Each class says what its parameters are (angles, lengths, vertex numbers, knots). Lengths are in drawing
/// units from the start. On an endless or empty curve, and for parameters, points and lengths that are not on
/// the curve, members return eInvalidInput or the status they name, and outputs are unchanged.

#include "dbentity.h"
#include "gecurv3d.h"
#include "gedblar.h"

class AcDbSpline;
class AcGePlane;

class AcDbCurve : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbCurve);

    virtual bool isClosed() const;
    virtual bool isPeriodic() const { return false; }

    virtual Acad::ErrorStatus getStartParam(double& param) const;
    virtual Acad::ErrorStatus getEndParam(double& param) const;
    virtual Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const;
    virtual Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const;

    virtual Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const;
    /// ePointNotOnEntity for a point further than AcGeContext::gTol from the curve.
    virtual Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const;
    virtual Acad::ErrorStatus getDistAtParam(double param, double& dist) const;
    virtual Acad::ErrorStatus getParamAtDist(double dist, double& param) const;
    virtual Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& dist) const;
    virtual Acad::ErrorStatus getPointAtDist(double dist, AcGePoint3d& point) const;

    virtual Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& deriv) const;
    virtual Acad::ErrorStatus getFirstDeriv(const AcGePoint3d& point, AcGeVector3d& deriv) const;
    virtual Acad::ErrorStatus getSecondDeriv(double param, AcGeVector3d& deriv) const;
    virtual Acad::ErrorStatus getSecondDeriv(const AcGePoint3d& point, AcGeVector3d& deriv) const;

    /// The nearest point of the curve; with `extend` of the curve extended.
    virtual Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                                bool extend = false) const;
    /// The nearest point as seen along a direction.
    virtual Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& point, const AcGeVector3d& direction,
                                                AcGePoint3d& onCurve, bool extend = false) const;

    /// New curves that the caller owns.
    virtual Acad::ErrorStatus getOrthoProjectedCurve(const AcGePlane& plane, AcDbCurve*& projected) const;
    virtual Acad::ErrorStatus getProjectedCurve(const AcGePlane& plane, const AcGeVector3d& direction,
                                                AcDbCurve*& projected) const;
    /// Curves at a distance in the plane of the curve, with its properties: for arcs, circles and ellipses
    /// positive is outwards, for lines, polylines and splines to the right of their direction, seen against
    /// the normal. Lines and arcs stay such, corners are extended until they meet; ellipses and splines
    /// become splines that deviate by no more than 1e-6 of the distance. Appends AcDbCurve* that the caller
    /// owns, several where the curve pinches itself. eInvalidOffset when nothing is left, eNonPlanarEntity
    /// for a curve without a plane.
    virtual Acad::ErrorStatus getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const;
    /// The same seen against another normal, which the plane must have; a line takes the plane through it
    /// that is nearest to being perpendicular. eInvalidInput for another direction.
    virtual Acad::ErrorStatus getOffsetCurvesGivenPlaneNormal(const AcGeVector3d& normal, double offset,
                                                              AcDbVoidPtrArray& curves) const;
    /// The pieces between the parameters, which ascend. A closed curve is cut at the parameters alone, so its
    /// last piece runs over the start. eInvalidInput for parameters that are not on the curve or fall.
    virtual Acad::ErrorStatus getSplitCurves(const AcGeDoubleArray& params, AcDbVoidPtrArray& curves) const;
    virtual Acad::ErrorStatus getSplitCurves(const AcGePoint3dArray& points, AcDbVoidPtrArray& curves) const;

    /// Lengthens the curve to a parameter beyond one of its ends. eInvalidInput for one that is not beyond,
    /// eNotApplicable for a class without a natural way on.
    virtual Acad::ErrorStatus extend(double param);
    /// Moves an end to the place of the extended curve that is nearest to a point.
    virtual Acad::ErrorStatus extend(bool extendStart, const AcGePoint3d& toPoint);
    /// The area that the curve and the chord between its ends enclose; never negative.
    virtual Acad::ErrorStatus getArea(double& area) const;
    virtual Acad::ErrorStatus reverseCurve() { return Acad::eNotImplementedYet; }
    /// The same curve as a spline that the caller owns.
    virtual Acad::ErrorStatus getSpline(AcDbSpline*& spline) const;

    /// The curve as a free geometric curve that the caller owns, in world coordinates.
    virtual Acad::ErrorStatus getAcGeCurve(AcGeCurve3d*& curve, const AcGeTol& tol = AcGeContext::gTol) const;
    /// Takes the shape of a free curve of the suiting class; eInvalidInput for others.
    virtual Acad::ErrorStatus setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal = nullptr,
                                               const AcGeTol& tol = AcGeContext::gTol);
    /// A new entity of a free curve (line, arc, circle, ellipse, spline, polyline), which the caller owns.
    static Acad::ErrorStatus createFromAcGeCurve(const AcGeCurve3d& curve, AcDbCurve*& made,
                                                 const AcGeVector3d* normal = nullptr,
                                                 const AcGeTol& tol = AcGeContext::gTol);

    void intersectionCurves(Curves& curves, bool extended) const override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    /// The part between two parameters, with this curve's properties; `to` may pass the end of a closed
    /// curve. Null for a part without length.
    virtual std::unique_ptr<AcDbCurve> makePiece(double from, double to) const;
    /// The entity for a curve that lies beside this one: of the class that suits it, with this one's
    /// properties.
    virtual std::unique_ptr<AcDbCurve> makeLike(const AcGeCurve3d& curve, const AcGeVector3d& normal) const;
    /// The curve as a free one in world coordinates: what every member above works on unless a class does
    /// better. Null for a curve without shape (no vertices).
    virtual std::unique_ptr<AcGeCurve3d> makeGeCurve() const = 0;
    /// The curve as offsets are made of: without what is too flat to move.
    virtual std::unique_ptr<AcGeCurve3d> makeGeCurveToOffset() const { return makeGeCurve(); }
    /// The curve extended as far as its class can be: a whole line or circle. Null: it cannot.
    virtual std::unique_ptr<AcGeCurve3d> makeExtendedGeCurve() const { return nullptr; }
    /// The parameters of the free curve, where the entity's are others: a linear map.
    virtual double geParam(double param) const { return param; }
    virtual double dbParam(double geParam) const { return geParam; }

    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
};
