#pragma once

/// AcDbArc: a part of a circle.

#include "dbcircular.h"

/// Parameters run from the start angle to the end angle, to which a full turn is added when it is not the
/// larger one.
class AcDbArc : public DbCircularCurve
{
public:
    ACRX_DECLARE_MEMBERS(AcDbArc);
    ACDB_STATE_MEMBERS(AcDbArc)
    AcDbArc() = default;
    /// The centre is in world coordinates. A zero normal counts as the Z axis, a negative radius as 0.
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle);
    AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
            double endAngle);

    /// Angles are in radians, 0 to 2 pi; others are brought there by full turns. eInvalidInput unless finite.
    double startAngle() const { return mStartAngle; }
    Acad::ErrorStatus setStartAngle(double angle);
    double endAngle() const { return mEndAngle; }
    Acad::ErrorStatus setEndAngle(double angle);
    /// From the start to the end, above 0; a full turn for equal angles.
    double totalAngle() const;
    double length() const { return radius() * totalAngle(); }

    bool isClosed() const override;
    bool isPeriodic() const override { return isClosed(); }
    /// Moves the nearer end to an angle; eInvalidInput when the arc would not be lengthened.
    Acad::ErrorStatus extend(double param) override;
    /// Moves an end to the angle of a point.
    Acad::ErrorStatus extend(bool extendStart, const AcGePoint3d& toPoint) override;
    Acad::ErrorStatus setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal = nullptr,
                                       const AcGeTol& tol = AcGeContext::gTol) override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    void angleRange(double& start, double& end) const override;
    void turnOver(const AcGeMatrix3d& xform, const AcGePoint3d& start, const AcGePoint3d& end) override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                        const AcGePoint3d& last, AcGePoint3dArray& points) const override;

private:
    AcGePoint3d middle() const;

    double mStartAngle = 0.0;
    double mEndAngle = 0.0;
};
