#pragma once

#include "gecurv2d.h"

class AcGeCircArc2d;
class AcGeLinearEnt2d;

/// An ellipse or an arc of one: center + cos t majorRadius majorAxis + sin t minorRadius minorAxis. The
/// parameter runs from the major to the minor axis; startAng() < endAng() <= startAng() + 2 pi.
class AcGeEllipArc2d : public AcGeCurve2d
{
public:
    /// The unit circle about the origin.
    AcGeEllipArc2d() = default;
    AcGeEllipArc2d(const AcGeCircArc2d& arc) { set(arc); }
    AcGeEllipArc2d(const AcGePoint2d& cent, const AcGeVector2d& majorAxis, const AcGeVector2d& minorAxis,
                   double majorRadius, double minorRadius)
    {
        set(cent, majorAxis, minorAxis, majorRadius, minorRadius);
    }
    AcGeEllipArc2d(const AcGePoint2d& cent, const AcGeVector2d& majorAxis, const AcGeVector2d& minorAxis,
                   double majorRadius, double minorRadius, double ang1, double ang2)
    {
        set(cent, majorAxis, minorAxis, majorRadius, minorRadius, ang1, ang2);
    }

    AcGe::EntityId type() const override { return AcGe::kEllipArc2d; }
    AcGeEllipArc2d* copy() const override { return new AcGeEllipArc2d(*this); }
    bool isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    /// Any affine map. Where the images of the axes are no longer perpendicular the axes are those of the new
    /// ellipse, and the parameters move with them.
    AcGeEllipArc2d& transformBy(const AcGeMatrix2d& xfm) override;

    /// The number of common points, and the points; false when there are none.
    bool intersectWith(const AcGeLinearEnt2d& line, int& intn, AcGePoint2d& p1, AcGePoint2d& p2,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    /// The radii differ by tol.equalPoint() at most.
    bool isCircular(const AcGeTol& tol = AcGeContext::gTol) const;
    /// The point is not outside of the ellipse, within the tolerance.
    bool isInside(const AcGePoint2d& pnt, const AcGeTol& tol = AcGeContext::gTol) const;

    AcGePoint2d center() const { return mCenter; }
    double majorRadius() const { return mMajor.length(); }
    double minorRadius() const { return mMinor.length(); }
    AcGeVector2d majorAxis() const;
    AcGeVector2d minorAxis() const;
    bool isClockWise() const { return mMajor.crossProduct(mMinor) < 0; }
    double startAng() const { return mStart; }
    double endAng() const { return mEnd; }
    AcGePoint2d startPoint() const { return evalPoint(mStart); }
    AcGePoint2d endPoint() const { return evalPoint(mEnd); }

    AcGeEllipArc2d& setCenter(const AcGePoint2d& cent);
    AcGeEllipArc2d& setMajorRadius(double rad);
    AcGeEllipArc2d& setMinorRadius(double rad);
    /// The minor axis is made perpendicular to the major one. Vectors that allow none change nothing.
    AcGeEllipArc2d& setAxes(const AcGeVector2d& majorAxis, const AcGeVector2d& minorAxis);
    /// An end angle not above the start angle is moved up by full turns; equal angles are a full ellipse.
    AcGeEllipArc2d& setAngles(double startAngle, double endAngle);
    AcGeEllipArc2d& set(const AcGePoint2d& cent, const AcGeVector2d& majorAxis, const AcGeVector2d& minorAxis,
                        double majorRadius, double minorRadius);
    AcGeEllipArc2d& set(const AcGePoint2d& cent, const AcGeVector2d& majorAxis, const AcGeVector2d& minorAxis,
                        double majorRadius, double minorRadius, double startAngle, double endAngle);
    AcGeEllipArc2d& set(const AcGeCircArc2d& arc);

    gecore::CurveForm form() const override;

protected:
    void turnRound() override;
    bool setBounds(double lo, double hi) override;
    void resetBounds() override;

private:
    AcGePoint2d mCenter;
    AcGeVector2d mMajor{1, 0}, mMinor{0, 1}; ///< as long as the radii
    double mStart = 0, mEnd = 6.28318530717958647692;
};
