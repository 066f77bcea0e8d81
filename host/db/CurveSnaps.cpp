#include "CurveSnaps.h"

#include "genurb3d.h"
#include "geplane.h"
#include "gevc3dar.h"

#include <algorithm>
#include <vector>

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

constexpr int samplesPerSpan = 32;

/// How many pieces of a curve are looked at for one zero each.
int samplesOf(const AcGeCurve3d& curve)
{
    const int spans = curve.isKindOf(AcGe::kNurbCurve3d) ? static_cast<const AcGeNurbCurve3d&>(curve).numControlPoints() : 4;
    return samplesPerSpan * std::max(spans, 4);
}

/// By halving: functions of curves may be anything between.
template <class Function>
double zeroBetween(double low, double high, double lowValue, Function function)
{
    for (double middle = (low + high) / 2.0; middle > low && middle < high; middle = (low + high) / 2.0) {
        if ((function(middle) < 0.0) == (lowValue < 0.0)) {
            low = middle;
        } else {
            high = middle;
        }
    }
    return low;
}

/// The parameters where a function of them changes its sign, to the last bit.
template <class Function>
std::vector<double> zerosOf(const AcGeCurve3d& curve, Function function)
{
    AcGeInterval range;
    curve.getInterval(range);
    const int count = samplesOf(curve);
    const double first = range.lowerBound(), step = range.length() / count;
    std::vector<double> zeros;
    double low = first, lowValue = function(low);
    for (int i = 1; i <= count; ++i) {
        const double high = first + i * step, highValue = function(high);
        if (lowValue == 0.0) zeros.push_back(low);
        if (lowValue * highValue < 0.0) zeros.push_back(zeroBetween(low, high, lowValue, function));
        low = high;
        lowValue = highValue;
    }
    if (lowValue == 0.0 && !curve.isClosed()) zeros.push_back(low);
    return zeros;
}

/// Calls with the way from a point to the curve, and the curve's direction there.
template <class Product>
std::vector<double> zerosSeenFrom(const AcGePoint3d& from, const AcGeCurve3d& curve, Product product)
{
    return zerosOf(curve, [&](double param) {
        AcGeVector3dArray derivatives;
        const AcGePoint3d at = curve.evalPoint(param, 1, derivatives);
        return product(at - from, derivatives[0]);
    });
}

void appendPoints(const AcGeCurve3d& curve, const std::vector<double>& params, AcGePoint3dArray& points)
{
    for (const double param : params)
        points.append(curve.evalPoint(param));
}

void appendFeet(const AcGeCurve3d& curve, const AcGePoint3d& last, AcGePoint3dArray& points)
{
    const std::vector<double> feet = zerosSeenFrom(
        last, curve, [](const AcGeVector3d& way, const AcGeVector3d& tangent) { return way.dotProduct(tangent); });
    appendPoints(curve, feet, points);
    if (feet.empty()) points.append(curve.closestPointTo(last));
}

void appendTangents(const AcGeCurve3d& curve, const AcGePoint3d& last, AcGePoint3dArray& points)
{
    AcGePlane plane;
    if (!curve.isPlanar(plane)) return;
    const AcGeVector3d normal = plane.normal();
    const std::vector<double> touched =
        zerosSeenFrom(last, curve, [&](const AcGeVector3d& way, const AcGeVector3d& tangent) {
            return way.crossProduct(tangent).dotProduct(normal);
        });
    appendPoints(curve, touched, points);
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
        appendFeet(curve, last, points);
        break;
    case AcDb::kOsModeTan:
        appendTangents(curve, last, points);
        break;
    default:
        break;
    }
}
