#pragma once

/// AcDbCircle: a whole circle.

#include "dbcircular.h"

/// Parameters run from 0 to 2 pi.
class AcDbCircle : public DbCircularCurve
{
public:
    ACRX_DECLARE_MEMBERS(AcDbCircle);
    ACDB_STATE_MEMBERS(AcDbCircle)
    AcDbCircle() = default;
    /// The centre is in world coordinates. A zero normal counts as the Z axis, a negative radius as 0.
    AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
        : DbCircularCurve(center, normal, radius)
    {
    }

    double diameter() const { return 2.0 * radius(); }
    Acad::ErrorStatus setDiameter(double diameter) { return setRadius(diameter / 2.0); }
    double circumference() const;
    Acad::ErrorStatus setCircumference(double circumference);

    bool isClosed() const override { return true; }
    bool isPeriodic() const override { return true; }
    /// A whole circle has no end to extend: eInvalidInput.
    Acad::ErrorStatus extend(double) override { return Acad::eInvalidInput; }
    Acad::ErrorStatus extend(bool, const AcGePoint3d&) override { return Acad::eInvalidInput; }
    /// From a whole circle.
    Acad::ErrorStatus setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal = nullptr,
                                       const AcGeTol& tol = AcGeContext::gTol) override;

protected:
    void angleRange(double& start, double& end) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
};
