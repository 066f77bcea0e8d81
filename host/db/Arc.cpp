#include "dbarc.h"

#include "acgi.h"
#include "ClassRegistration.h"
#include "DxfFields.h"
#include "gearc3d.h"
#include "PlanarCoords.h"

ACDB_DXF_CLASS(AcDbArc, AcDbCurve, ARC)

const DxfClass AcDbArc::dxf("AcDbArc", &DbCircularCurve::dxf,
                            {
                                dxf::angle<&AcDbArc::mStartAngle>(50),
                                dxf::angle<&AcDbArc::mEndAngle>(51),
                            });

namespace
{
double usableAngle(double angle)
{
    return std::isfinite(angle) ? withinTurn(angle) : 0.0;
}
} // namespace

AcDbArc::AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle)
    : AcDbArc(center, AcGeVector3d::kZAxis, radius, startAngle, endAngle)
{
}

AcDbArc::AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
                 double endAngle)
    : DbCircularCurve(center, normal, radius), mStartAngle(usableAngle(startAngle)),
      mEndAngle(usableAngle(endAngle))
{
}

Acad::ErrorStatus AcDbArc::setStartAngle(double angle)
{
    if (!std::isfinite(angle)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mStartAngle = withinTurn(angle);
    return status;
}

Acad::ErrorStatus AcDbArc::setEndAngle(double angle)
{
    if (!std::isfinite(angle)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mEndAngle = withinTurn(angle);
    return status;
}

double AcDbArc::totalAngle() const
{
    double start = 0.0, end = 0.0;
    angleRange(start, end);
    return end - start;
}

// Files may hold angles of any size.
void AcDbArc::angleRange(double& start, double& end) const
{
    start = mStartAngle;
    const double total = withinTurn(mEndAngle - mStartAngle);
    end = start + (total > 0.0 ? total : kTwoPi);
}

bool AcDbArc::isClosed() const
{
    return kTwoPi - totalAngle() <= AcGeContext::gTol.equalVector();
}

Acad::ErrorStatus AcDbArc::extend(double param)
{
    double start = 0.0, end = 0.0;
    angleRange(start, end);
    if (!std::isfinite(param) || (param >= start && param <= end)) return Acad::eInvalidInput;
    if (param - end >= kTwoPi - (end - start) || start - param >= kTwoPi - (end - start))
        return Acad::eInvalidInput;
    return param < start ? setStartAngle(param) : setEndAngle(param);
}

Acad::ErrorStatus AcDbArc::extend(bool extendStart, const AcGePoint3d& toPoint)
{
    if (!isFinite(toPoint)) return Acad::eInvalidInput;
    return extendStart ? setStartAngle(angleOf(toPoint)) : setEndAngle(angleOf(toPoint));
}

Acad::ErrorStatus AcDbArc::setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal,
                                            const AcGeTol&)
{
    if (!curve.isKindOf(AcGe::kCircArc3d)) return Acad::eInvalidInput;
    const auto& arc = static_cast<const AcGeCircArc3d&>(curve);
    const bool turned = normal && normal->dotProduct(arc.normal()) < 0.0;
    const Acad::ErrorStatus status =
        setCircle(arc.center(), turned ? -arc.normal() : arc.normal(), arc.radius());
    if (status != Acad::eOk) return status;
    mStartAngle = angleOf(turned ? arc.endPoint() : arc.startPoint());
    const double total = arc.endAng() - arc.startAng();
    mEndAngle = withinTurn(mStartAngle + total);
    return status;
}

void AcDbArc::turnOver(const AcGeMatrix3d& xform, const AcGePoint3d& start, const AcGePoint3d& end)
{
    const double total = totalAngle();
    mStartAngle = angleOf(xform.det() < 0.0 ? end : start);
    mEndAngle = withinTurn(mStartAngle + total);
}

bool AcDbArc::subWorldDraw(AcGiWorldDraw* draw)
{
    double start = 0.0, end = 0.0;
    angleRange(start, end);
    const AcGeVector3d direction = ocsToWorld(normal()) * AcGeVector3d(std::cos(start), std::sin(start), 0.0);
    draw->geometry().circularArc(center(), radius(), normal(), direction, end - start);
    return true;
}

AcGePoint3d AcDbArc::middle() const
{
    return pointAtAngle(mStartAngle + totalAngle() / 2.0);
}

Acad::ErrorStatus AcDbArc::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    gripPoints.append(pointAtAngle(mStartAngle));
    gripPoints.append(pointAtAngle(mEndAngle));
    gripPoints.append(middle());
    gripPoints.append(center());
    return Acad::eOk;
}

// Moved ends and a moved middle define the arc anew; points that make none leave it as it is.
Acad::ErrorStatus AcDbArc::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    if (indices.contains(3)) return setCenter(center() + offset);
    const AcGeVector3d inPlane = offset.orthoProject(normal());
    const auto moved = [&](int index, const AcGePoint3d& p) {
        return indices.contains(index) ? p + inPlane : p;
    };
    AcGeCircArc3d arc;
    AcGeError error = AcGe::kOk;
    arc.set(moved(0, pointAtAngle(mStartAngle)), moved(2, middle()), moved(1, pointAtAngle(mEndAngle)),
            error);
    if (error != AcGe::kOk) return Acad::eDegenerateGeometry;
    const AcGeVector3d side = normal();
    return setFromAcGeCurve(arc, &side);
}

Acad::ErrorStatus AcDbArc::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                             const AcGePoint3d& last, AcGePoint3dArray& points) const
{
    if (mode == AcDb::kOsModeMid) {
        points.append(middle());
        return Acad::eOk;
    }
    if (mode != AcDb::kOsModeEnd) return DbCircularCurve::pointsToSnapTo(mode, pick, last, points);
    const AcGePoint3d start = pointAtAngle(mStartAngle), end = pointAtAngle(mEndAngle);
    points.append(pick.distanceTo(start) <= pick.distanceTo(end) ? start : end);
    return Acad::eOk;
}
