#pragma once

#include "gecurv3d.h"

class AcGeCircArc3d;
class AcGeLinearEnt3d;
class AcGePlanarEnt;

/// An ellipse or an arc of one: center + cos t majorRadius majorAxis + sin t minorRadius minorAxis. The
/// parameter runs right-handed about the normal; startAng() < endAng() <= startAng() + 2 pi.
class AcGeEllipArc3d : public AcGeCurve3d
{
public:
    /// The unit circle about the origin in the world's XY plane.
    AcGeEllipArc3d() = default;
    AcGeEllipArc3d(const AcGeCircArc3d& arc) { set(arc); }
    AcGeEllipArc3d(const AcGePoint3d& cent, const AcGeVector3d& majorAxis, const AcGeVector3d& minorAxis,
                   double majorRadius, double minorRadius)
    {
        set(cent, majorAxis, minorAxis, majorRadius, minorRadius);
    }
    AcGeEllipArc3d(const AcGePoint3d& cent, const AcGeVector3d& majorAxis, const AcGeVector3d& minorAxis,
                   double majorRadius, double minorRadius, double ang1, double ang2)
    {
        set(cent, majorAxis, minorAxis, majorRadius, minorRadius, ang1, ang2);
    }

    AcGe::EntityId type() const override { return AcGe::kEllipArc3d; }
    AcGeEllipArc3d* copy() const override { return new AcGeEllipArc3d(*this); }
    bool isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    /// Any affine map. Where the images of the axes are no longer perpendicular the axes are those of the new
    /// ellipse, and the parameters move with them.
    AcGeEllipArc3d& transformBy(const AcGeMatrix3d& xfm) override;

    /// The number of common points, and the points; false when there are none.
    bool intersectWith(const AcGeLinearEnt3d& line, int& intn, AcGePoint3d& p1, AcGePoint3d& p2,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGePlanarEnt& plane, int& numOfIntersect, AcGePoint3d& p1, AcGePoint3d& p2,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    void getPlane(AcGePlane& plane) const;
    /// The radii differ by tol.equalPoint() at most.
    bool isCircular(const AcGeTol& tol = AcGeContext::gTol) const;
    /// The point is in the plane and not outside of the ellipse, within the tolerance.
    bool isInside(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const;

    AcGePoint3d center() const { return mCenter; }
    double majorRadius() const { return mMajor.length(); }
    double minorRadius() const { return mMinor.length(); }
    AcGeVector3d majorAxis() const;
    AcGeVector3d minorAxis() const;
    AcGeVector3d normal() const;
    double startAng() const { return mStart; }
    double endAng() const { return mEnd; }
    AcGePoint3d startPoint() const { return evalPoint(mStart); }
    AcGePoint3d endPoint() const { return evalPoint(mEnd); }

    AcGeEllipArc3d& setCenter(const AcGePoint3d& cent);
    AcGeEllipArc3d& setMajorRadius(double rad);
    AcGeEllipArc3d& setMinorRadius(double rad);
    /// The minor axis is made perpendicular to the major one. Vectors that allow none change nothing.
    AcGeEllipArc3d& setAxes(const AcGeVector3d& majorAxis, const AcGeVector3d& minorAxis);
    /// An end angle not above the start angle is moved up by full turns; equal angles are a full ellipse.
    AcGeEllipArc3d& setAngles(double startAngle, double endAngle);
    AcGeEllipArc3d& set(const AcGePoint3d& cent, const AcGeVector3d& majorAxis, const AcGeVector3d& minorAxis,
                        double majorRadius, double minorRadius);
    AcGeEllipArc3d& set(const AcGePoint3d& cent, const AcGeVector3d& majorAxis, const AcGeVector3d& minorAxis,
                        double majorRadius, double minorRadius, double startAngle, double endAngle);
    AcGeEllipArc3d& set(const AcGeCircArc3d& arc);

    gecore::CurveForm form() const override;

protected:
    void turnRound() override;
    bool setBounds(double lo, double hi) override;
    void resetBounds() override;

private:
    AcGePoint3d mCenter;
    AcGeVector3d mMajor{1, 0, 0}, mMinor{0, 1, 0}; ///< as long as the radii
    double mStart = 0, mEnd = 6.28318530717958647692;
};
