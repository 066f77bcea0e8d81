#include "dbcircle.h"

#include "acgi.h"
#include "ClassRegistration.h"
#include "gearc3d.h"
#include "PlanarCoords.h"

ACDB_DXF_CLASS(AcDbCircle, AcDbCurve, CIRCLE)

double AcDbCircle::circumference() const
{
    return kTwoPi * radius();
}

Acad::ErrorStatus AcDbCircle::setCircumference(double circumference)
{
    return setRadius(circumference / kTwoPi);
}

void AcDbCircle::angleRange(double& start, double& end) const
{
    start = 0.0;
    end = kTwoPi;
}

Acad::ErrorStatus AcDbCircle::setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal,
                                               const AcGeTol& tol)
{
    if (!curve.isKindOf(AcGe::kCircArc3d) || !curve.isClosed(tol)) return Acad::eInvalidInput;
    const auto& circle = static_cast<const AcGeCircArc3d&>(curve);
    const bool turned = normal && normal->dotProduct(circle.normal()) < 0.0;
    return setCircle(circle.center(), turned ? -circle.normal() : circle.normal(), circle.radius());
}

bool AcDbCircle::subWorldDraw(AcGiWorldDraw* draw)
{
    draw->geometry().circle(center(), radius(), normal());
    return true;
}

Acad::ErrorStatus AcDbCircle::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                               AcDbIntArray&) const
{
    gripPoints.append(center());
    for (int i = 0; i < 4; ++i)
        gripPoints.append(pointAtAngle(i * kTwoPi / 4));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    if (indices.contains(0)) return setCenter(center() + offset);
    const AcGePoint3d moved = pointAtAngle((indices.first() - 1) * kTwoPi / 4) + offset;
    return setRadius((moved - center()).orthoProject(normal()).length());
}
