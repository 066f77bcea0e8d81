#pragma once

#include "gecurv2d.h"

class AcGeLinearEnt2d;

/// A circle or an arc of one. The parameter is the angle in radians from the reference vector, measured in
/// the direction of drawing: counter-clockwise, or clockwise when isClockWise(). startAng() < endAng() <=
/// startAng() + 2 pi.
class AcGeCircArc2d : public AcGeCurve2d
{
public:
    /// The unit circle about the origin.
    AcGeCircArc2d() = default;
    AcGeCircArc2d(const AcGePoint2d& cent, double radius) { set(cent, radius); }
    AcGeCircArc2d(const AcGePoint2d& cent, double radius, double startAngle, double endAngle,
                  const AcGeVector2d& refVec = AcGeVector2d::kXAxis, bool isClockWise = false)
    {
        set(cent, radius, startAngle, endAngle, refVec, isClockWise);
    }
    /// The arc from the first point through the second to the third; its angles start at 0 at the first
    /// point.
    AcGeCircArc2d(const AcGePoint2d& startPoint, const AcGePoint2d& point, const AcGePoint2d& endPoint)
    {
        set(startPoint, point, endPoint);
    }
    /// The arc between two points, counter-clockwise for a positive bulge: the greatest height of the arc
    /// above its chord or, when the flag is false, the tangent of a quarter of its angle. Angles start at 0
    /// at the first point.
    AcGeCircArc2d(const AcGePoint2d& startPoint, const AcGePoint2d& endPoint, double bulge,
                  bool bulgeFlag = true)
    {
        set(startPoint, endPoint, bulge, bulgeFlag);
    }

    AcGe::EntityId type() const override { return AcGe::kCircArc2d; }
    AcGeCircArc2d* copy() const override { return new AcGeCircArc2d(*this); }
    bool isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    /// The map must scale evenly. Another one yields the circle about the image of the centre through the
    /// image of the reference point.
    AcGeCircArc2d& transformBy(const AcGeMatrix2d& xfm) override;

    /// The common points, two at most; false when there are none. Arcs of one circle that overlap have none.
    bool intersectWith(const AcGeLinearEnt2d& line, int& intn, AcGePoint2d& p1, AcGePoint2d& p2,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGeCircArc2d& circarc, int& intn, AcGePoint2d& p1, AcGePoint2d& p2,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    /// The tangent at `pnt`, which must lie on the arc; the flag is kArg1TooBig when it does not.
    bool tangent(const AcGePoint2d& pnt, AcGeLine2d& line, const AcGeTol& tol = AcGeContext::gTol) const;
    bool tangent(const AcGePoint2d& pnt, AcGeLine2d& line, const AcGeTol& tol, AcGeError& error) const;
    /// The point is not outside of the circle, within the tolerance.
    bool isInside(const AcGePoint2d& pnt, const AcGeTol& tol = AcGeContext::gTol) const;

    AcGePoint2d center() const { return mCenter; }
    double radius() const { return mRadius; }
    double startAng() const { return mStart; }
    double endAng() const { return mEnd; }
    bool isClockWise() const { return mClockWise; }
    AcGeVector2d refVec() const { return mRef; }
    AcGePoint2d startPoint() const { return evalPoint(mStart); }
    AcGePoint2d endPoint() const { return evalPoint(mEnd); }

    AcGeCircArc2d& setCenter(const AcGePoint2d& cent);
    /// Negative radii count by their size.
    AcGeCircArc2d& setRadius(double radius);
    /// An end angle not above the start angle is moved up by full turns; equal angles are a full circle.
    AcGeCircArc2d& setAngles(double startAng, double endAng);
    /// Becomes the rest of the circle, in the same direction.
    AcGeCircArc2d& setToComplement();
    /// A zero vector leaves the reference as it is.
    AcGeCircArc2d& setRefVec(const AcGeVector2d& vec);
    AcGeCircArc2d& set(const AcGePoint2d& cent, double radius);
    AcGeCircArc2d& set(const AcGePoint2d& cent, double radius, double ang1, double ang2,
                       const AcGeVector2d& refVec = AcGeVector2d::kXAxis, bool isClockWise = false);
    /// Unchanged when two points are equal or the three are in line; the flag says which.
    AcGeCircArc2d& set(const AcGePoint2d& startPoint, const AcGePoint2d& pnt, const AcGePoint2d& endPoint);
    AcGeCircArc2d& set(const AcGePoint2d& startPoint, const AcGePoint2d& pnt, const AcGePoint2d& endPoint,
                       AcGeError& error);
    /// Unchanged when the points are equal or the bulge is 0.
    AcGeCircArc2d& set(const AcGePoint2d& startPoint, const AcGePoint2d& endPoint, double bulge,
                       bool bulgeFlag = true);

    gecore::CurveForm form() const override;

protected:
    void turnRound() override;
    bool setBounds(double lo, double hi) override;
    void resetBounds() override;

private:
    AcGePoint2d mCenter;
    AcGeVector2d mRef{1, 0};
    double mRadius = 1, mStart = 0, mEnd = 6.28318530717958647692;
    bool mClockWise = false;
};
