#pragma once

#include "gecurv3d.h"

class AcGeLinearEnt3d;
class AcGePlanarEnt;

/// A circle or an arc of one. The parameter is the angle in radians from the reference vector, right-handed
/// about the normal; startAng() < endAng() <= startAng() + 2 pi.
class AcGeCircArc3d : public AcGeCurve3d
{
public:
    /// The unit circle about the origin in the world's XY plane.
    AcGeCircArc3d() = default;
    /// A circle whose reference vector is normal.perpVector().
    AcGeCircArc3d(const AcGePoint3d& cent, const AcGeVector3d& nrm, double radius) { set(cent, nrm, radius); }
    AcGeCircArc3d(const AcGePoint3d& cent, const AcGeVector3d& nrm, const AcGeVector3d& refVec, double radius,
                  double startAngle, double endAngle)
    {
        set(cent, nrm, refVec, radius, startAngle, endAngle);
    }
    /// The arc from the first point through the second to the third; its angles start at 0 at the first
    /// point.
    AcGeCircArc3d(const AcGePoint3d& startPoint, const AcGePoint3d& pnt, const AcGePoint3d& endPoint)
    {
        set(startPoint, pnt, endPoint);
    }

    AcGe::EntityId type() const override { return AcGe::kCircArc3d; }
    AcGeCircArc3d* copy() const override { return new AcGeCircArc3d(*this); }
    bool isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    /// The map must scale evenly. Another one yields the circle about the image of the centre through the
    /// image of the reference point.
    AcGeCircArc3d& transformBy(const AcGeMatrix3d& xfm) override;

    AcGePoint3d closestPointToPlane(const AcGePlanarEnt& plane, AcGePoint3d& pointOnPlane,
                                    const AcGeTol& tol = AcGeContext::gTol) const;
    /// The common points, two at most; false when there are none. Arcs of one circle that overlap have none.
    bool intersectWith(const AcGeLinearEnt3d& line, int& intn, AcGePoint3d& p1, AcGePoint3d& p2,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGeCircArc3d& arc, int& intn, AcGePoint3d& p1, AcGePoint3d& p2,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGePlanarEnt& plane, int& numOfIntersect, AcGePoint3d& p1, AcGePoint3d& p2,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    /// The tangent at the point of the arc that is closest to `pnt`, which must lie on the arc (kArg1TooBig
    /// else).
    bool tangent(const AcGePoint3d& pnt, AcGeLine3d& line, const AcGeTol& tol = AcGeContext::gTol) const;
    bool tangent(const AcGePoint3d& pnt, AcGeLine3d& line, const AcGeTol& tol, AcGeError& error) const;
    void getPlane(AcGePlane& plane) const;
    /// The point is in the circle's plane and not outside of the circle, within the tolerance.
    bool isInside(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const;

    AcGePoint3d center() const { return mCenter; }
    AcGeVector3d normal() const { return mNormal; }
    AcGeVector3d refVec() const { return mRef; }
    double radius() const { return mRadius; }
    double startAng() const { return mStart; }
    double endAng() const { return mEnd; }
    AcGePoint3d startPoint() const { return evalPoint(mStart); }
    AcGePoint3d endPoint() const { return evalPoint(mEnd); }

    AcGeCircArc3d& setCenter(const AcGePoint3d& center);
    /// `refVec` is made perpendicular to the normal. Vectors that allow none leave the axes as they are.
    AcGeCircArc3d& setAxes(const AcGeVector3d& normal, const AcGeVector3d& refVec);
    /// Negative radii count by their size.
    AcGeCircArc3d& setRadius(double radius);
    /// An end angle not above the start angle is moved up by full turns; equal angles are a full circle.
    AcGeCircArc3d& setAngles(double startAngle, double endAngle);
    AcGeCircArc3d& set(const AcGePoint3d& cent, const AcGeVector3d& nrm, double radius);
    AcGeCircArc3d& set(const AcGePoint3d& cent, const AcGeVector3d& nrm, const AcGeVector3d& refVec,
                       double radius, double startAngle, double endAngle);
    /// Unchanged when two points are equal or the three are in line; the flag says which.
    AcGeCircArc3d& set(const AcGePoint3d& startPoint, const AcGePoint3d& pnt, const AcGePoint3d& endPoint);
    AcGeCircArc3d& set(const AcGePoint3d& startPoint, const AcGePoint3d& pnt, const AcGePoint3d& endPoint,
                       AcGeError& error);

    gecore::CurveForm form() const override;

protected:
    void turnRound() override;
    bool setBounds(double lo, double hi) override;
    void resetBounds() override;

private:
    AcGePoint3d mCenter;
    AcGeVector3d mNormal{0, 0, 1}, mRef{1, 0, 0};
    double mRadius = 1, mStart = 0, mEnd = 6.28318530717958647692;
};
