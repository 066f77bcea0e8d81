#pragma once

/// AcDbEllipse: an ellipse or a part of one.

#include "dbcurve.h"

/// The point at parameter t is center + cos t majorAxis + sin t minorAxis; the angle of a point is the one
/// between the major axis and the line from the centre to it. Both are in radians, right-handed about the
/// normal. Parameters run from the start to the end, to which a full turn is added when it is not the larger
/// one.
class AcDbEllipse : public AcDbCurve
{
public:
    ACRX_DECLARE_MEMBERS(AcDbEllipse);
    ACDB_STATE_MEMBERS(AcDbEllipse)
    AcDbEllipse() = default;
    /// As `set`; arguments that it refuses make an ellipse that isNull().
    AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& unitNormal, const AcGeVector3d& majorAxis,
                double radiusRatio, double startAngle = 0.0, double endAngle = 6.28318530717958647692);

    AcGePoint3d center() const { return mCenter; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    AcGeVector3d normal() const { return mNormal; }
    /// From the centre to the first end; its length is the larger radius.
    AcGeVector3d majorAxis() const { return mMajor; }
    AcGeVector3d minorAxis() const;
    double majorRadius() const { return mMajor.length(); }
    /// The minor radius stays; eInvalidInput when it would be the larger one.
    Acad::ErrorStatus setMajorRadius(double radius);
    double minorRadius() const { return mRatio * mMajor.length(); }
    /// eInvalidInput unless 0 < radius <= major radius.
    Acad::ErrorStatus setMinorRadius(double radius);
    /// Minor to major radius.
    double radiusRatio() const { return mRatio; }
    /// eInvalidInput unless 0 < ratio <= 1.
    Acad::ErrorStatus setRadiusRatio(double ratio);
    double startAngle() const;
    Acad::ErrorStatus setStartAngle(double angle);
    double endAngle() const;
    Acad::ErrorStatus setEndAngle(double angle);
    Acad::ErrorStatus setStartParam(double param);
    Acad::ErrorStatus setEndParam(double param);
    /// An angle and its parameter are in the same quarter of the same turn.
    Acad::ErrorStatus paramAtAngle(double angle, double& param) const;
    Acad::ErrorStatus angleAtParam(double param, double& angle) const;

    Acad::ErrorStatus get(AcGePoint3d& center, AcGeVector3d& unitNormal, AcGeVector3d& majorAxis,
                          double& radiusRatio, double& startAngle, double& endAngle) const;
    /// eInvalidInput for a zero axis or normal, axes that are not perpendicular, or a ratio outside of 0
    /// to 1.
    Acad::ErrorStatus set(const AcGePoint3d& center, const AcGeVector3d& unitNormal,
                          const AcGeVector3d& majorAxis, double radiusRatio, double startAngle = 0.0,
                          double endAngle = 6.28318530717958647692);
    bool isNull() const { return mMajor.isZeroLength() || mRatio == 0.0; }

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    bool isClosed() const override;
    bool isPeriodic() const override { return isClosed(); }
    Acad::ErrorStatus reverseCurve() override { return Acad::eNotApplicable; }
    Acad::ErrorStatus extend(double param) override;
    Acad::ErrorStatus extend(bool extendStart, const AcGePoint3d& toPoint) override;
    /// From an elliptic or circular arc; `normal` says on which side its normal lies.
    Acad::ErrorStatus setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal = nullptr,
                                       const AcGeTol& tol = AcGeContext::gTol) override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::unique_ptr<AcDbCurve> makePiece(double from, double to) const override;
    std::unique_ptr<AcGeCurve3d> makeGeCurve() const override;
    std::unique_ptr<AcGeCurve3d> makeExtendedGeCurve() const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                        const AcGePoint3d& last, AcGePoint3dArray& points) const override;

private:
    void paramRange(double& start, double& end) const;
    AcGePoint3d pointAt(double param) const;
    double paramOf(const AcGePoint3d& point) const;
    Acad::ErrorStatus setRadii(double major, double minor);

    AcGePoint3d mCenter;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    AcGeVector3d mMajor;
    double mRatio = 0.0;
    double mStart = 0.0;
    double mEnd = 6.28318530717958647692;
};
