#include "CurveSnaps.h"

namespace
{
AcGePoint3d nearerEnd(const AcGeCurve3d& curve, const AcGePoint3d& pick)
{
    AcGePoint3d start, end;
    curve.hasStartPoint(start);
    curve.hasEndPoint(end);
    return start.distanceTo(pick) <= end.distanceTo(pick) ? start : end;
}

AcGePoint3d middleOf(const AcGeCurve3d& curve)
{
    AcGeInterval range;
    curve.getInterval(range);
    const double from = range.lowerBound(), to = range.upperBound();
    return curve.evalPoint(curve.paramAtLength(from, curve.length(from, to) / 2.0));
}
} // namespace

void appendSnaps(const AcGeCurve3d& curve, AcDb::OsnapMode mode, const AcGePoint3d& pick,
                 const AcGePoint3d& last, AcGePoint3dArray& points)
{
    switch (mode) {
    case AcDb::kOsModeEnd:
        points.append(nearerEnd(curve, pick));
        break;
    case AcDb::kOsModeMid:
        points.append(middleOf(curve));
        break;
    case AcDb::kOsModeNear:
        points.append(curve.closestPointTo(pick));
        break;
    case AcDb::kOsModePerp:
        points.append(curve.closestPointTo(last));
        break;
    default:
        break;
    }
}
