#include "CurveMeet.h"

#include "CurveDistance.h"

#include <algorithm>

namespace gecore
{
namespace
{
/// Directions whose angle has a sine below this are tangential at a meeting.
constexpr double kTangentSine = 1e-6;

bool alongEachOther(const CurveForm& first, double s, const CurveForm& second, double t)
{
    AcGeVector3d p[2], q[2];
    derivatives(first, s, 1, p);
    derivatives(second, t, 1, q);
    return p[1].crossProduct(q[1]).length() <= kTangentSine * p[1].length() * q[1].length();
}

/// Adds the meeting next to s on the first curve and t on the second, when it is one.
void addNear(const CurveForm& first, double s, const CurveForm& second, double t, double tol, Meetings& out)
{
    s = first.clamped(s);
    t = second.clamped(t);
    const AcGePoint3d p = pointAt(first, s);
    if (!(p.distanceTo(pointAt(second, t)) <= tol)) t = closestTo(second, p).t;
    if (!(p.distanceTo(pointAt(second, t)) <= tol)) {
        const Foot foot = closestTo(first, pointAt(second, t));
        if (!(foot.distance <= tol)) return;
        s = foot.t;
    }
    out.points.add({s, t, pointAt(first, s), alongEachOther(first, s, second, t)});
}

/// Ends that lie on the other curve count even where the crossing itself is past the end.
void addEnds(const CurveForm& first, const CurveForm& second, double tol, Meetings& out)
{
    for (const double s : {first.lo, first.hi})
        if (std::isfinite(s)) {
            const Foot foot = closestTo(second, pointAt(first, s));
            if (foot.distance <= tol) addNear(first, s, second, foot.t, tol, out);
        }
    for (const double t : {second.lo, second.hi})
        if (std::isfinite(t)) {
            const Foot foot = closestTo(first, pointAt(second, t));
            if (foot.distance <= tol) addNear(first, foot.t, second, t, tol, out);
        }
}

/// The stretch that two lines share within tol: the second's ends seen on the first. False when there is
/// none.
bool shareStretch(const CurveForm& first, const CurveForm& second, double tol, Meetings& out)
{
    const double uu = first.u.lengthSqrd(), vv = second.u.lengthSqrd(), uv = first.u.dotProduct(second.u);
    if (first.u.crossProduct(second.u).length() > 1e-4 * std::sqrt(uu * vv)) return false;
    const double rate = uv / uu, base = (second.origin - first.origin).dotProduct(first.u) / uu;
    const double a = base + rate * (uv > 0 ? second.lo : second.hi),
                 b = base + rate * (uv > 0 ? second.hi : second.lo);
    const double s0 = std::max(first.lo, a), s1 = std::min(first.hi, b);
    if (!((s1 - s0) * std::sqrt(uu) > tol)) return false;
    const auto onSecond = [&](double s) {
        return ((first.origin - second.origin).dotProduct(second.u) + s * uv) / vv;
    };
    const auto apart = [&](double s) {
        return pointAt(first, s).distanceTo(pointAt(second, onSecond(s))) > tol;
    };
    const double from = std::isfinite(s0) ? s0 : std::isfinite(s1) ? s1 - 1 : 0;
    const double to = std::isfinite(s1) ? s1 : from + 1;
    const bool endless = !std::isfinite(s0) || !std::isfinite(s1);
    if (endless && first.u.crossProduct(second.u).length() > 1e-12 * std::sqrt(uu * vv)) return false;
    if (apart(from) || apart(to)) return false;
    const double far = uv > 0 ? kInfinity : -kInfinity;
    out.overlaps.add({s0, s1, std::isfinite(s0) ? second.clamped(onSecond(s0)) : -far,
                      std::isfinite(s1) ? second.clamped(onSecond(s1)) : far});
    return true;
}

/// How far along the line, and how far off it, a point is.
struct LinePlace {
    double t, off;
};

LinePlace placeOn(const CurveForm& line, const AcGePoint3d& p)
{
    const double t = (p - line.origin).dotProduct(line.u) / line.u.lengthSqrd();
    return {t, (p - (line.origin + line.u * t)).length()};
}

double angleOn(const CurveForm& circle, const AcGePoint3d& p)
{
    const AcGeVector3d to = p - circle.origin;
    return std::atan2(to.dotProduct(circle.v), to.dotProduct(circle.u));
}

/// Adds the place of a line where it meets the whole circle, when it belongs to both within their bounds.
void addOnCircle(const CurveForm& line, double t, const CurveForm& circle, double tol, Meetings& out)
{
    const double pace = line.u.length(), radius = circle.u.length();
    if (!(t >= line.lo - tol / pace && t <= line.hi + tol / pace)) return;
    double angle = angleOn(circle, line.origin + line.u * t);
    if (fitTurn(circle, angle, tol / radius)) addNear(line, t, circle, angle, tol, out);
}

/// The parameters of a line in the plane of a circle where it meets it: none, one (touching) or two.
int crossCircle(const CurveForm& line, const CurveForm& circle, double tol, double (&t)[2])
{
    const double radius = circle.u.length();
    const LinePlace centre = placeOn(line, circle.origin);
    if (!(centre.off <= radius + tol)) return 0;
    t[0] = t[1] = centre.t;
    if (centre.off >= radius - tol) return 1;
    const double half = std::sqrt((radius - centre.off) * (radius + centre.off)) / line.u.length();
    t[0] -= half;
    t[1] += half;
    return 2;
}

AcGeVector3d normalOf(const CurveForm& circle)
{
    const AcGeVector3d n = circle.u.crossProduct(circle.v);
    return n / n.length();
}

/// Where two circles in one plane meet: on the line of their centres, or at both sides of it.
void crossCoplanar(const CurveForm& first, const CurveForm& second, double tol, Meetings& out)
{
    const AcGeVector3d between = second.origin - first.origin;
    const double d = between.length(), r = first.u.length(), q = second.u.length();
    if (!(d > 0) || d > r + q + tol || d < std::fabs(r - q) - tol) return;
    const AcGeVector3d along = between / d, aside = normalOf(first).crossProduct(along);
    const double x = (d + (r - q) * (r + q) / d) / 2;
    const bool touching = std::fabs(d - (r + q)) <= tol || std::fabs(d - std::fabs(r - q)) <= tol;
    const double y = touching ? 0 : std::sqrt(std::max(0.0, (r - x) * (r + x)));
    for (const double side : {y, -y}) {
        const AcGePoint3d p = first.origin + (touching ? along * (x < 0 ? -r : r) : along * x + aside * side);
        double s = angleOn(first, p), t = angleOn(second, p);
        if (fitTurn(first, s, tol / r) && fitTurn(second, t, tol / q)) addNear(first, s, second, t, tol, out);
        if (touching) break;
    }
}

/// Two arcs of one circle: what they share, turn by turn.
void shareArcs(const CurveForm& first, const CurveForm& second, double tol, Meetings& out)
{
    const double slack = tol / first.u.length();
    const bool against = normalOf(first).dotProduct(normalOf(second)) < 0;
    const double shift = angleOn(first, second.origin + second.u), sign = against ? -1 : 1;
    const double a = shift + sign * (against ? second.hi : second.lo), width = second.hi - second.lo;
    const double firstTurn = std::floor((first.lo - slack - a - width) / kTwoPi);
    for (int k = 0; k <= 3; ++k) {
        const double lo = a + kTwoPi * (firstTurn + k), s0 = std::max(first.lo, lo),
                     s1 = std::min(first.hi, lo + width);
        const auto onSecond = [&](double s) {
            return second.clamped(sign > 0 ? second.lo + (s - lo) : second.hi - (s - lo));
        };
        if (s1 - s0 > slack)
            out.overlaps.add({s0, s1, onSecond(s0), onSecond(s1)});
        else if (s1 - s0 >= -slack)
            addNear(first, s0, second, onSecond(s0), tol, out);
    }
}
} // namespace

Meetings meetLines(const CurveForm& first, const CurveForm& second, double tol)
{
    Meetings out;
    const double uu = first.u.lengthSqrd(), vv = second.u.lengthSqrd();
    const bool parallel = first.u.crossProduct(second.u).lengthSqrd() <= 1e-28 * uu * vv;
    if (uu > 0 && vv > 0 && shareStretch(first, second, tol, out)) return out;
    if (parallel && !(first.isBounded() && second.isBounded()) && first.lo == -kInfinity &&
        second.lo == -kInfinity && first.hi == kInfinity && second.hi == kInfinity)
        return out;
    const FootPair pair = closestBetween(first, second);
    if (pair.distance <= tol)
        out.points.add({pair.s, pair.t, pair.onFirst, alongEachOther(first, pair.s, second, pair.t)});
    return out;
}

Meetings meetLineCircle(const CurveForm& line, const CurveForm& circle, double tol)
{
    Meetings out;
    const double radius = circle.u.length(), pace = line.u.length();
    if (pace > 0 && radius > 0) {
        const AcGeVector3d n = normalOf(circle);
        const double height = (line.origin - circle.origin).dotProduct(n), slope = line.u.dotProduct(n);
        const double middle = placeOn(line, circle.origin).t, reach = (radius + tol) / pace;
        double t[2];
        if (std::fabs(height + slope * middle) + std::fabs(slope) * reach <= tol) {
            const int count = crossCircle(line, circle, tol, t);
            for (int i = 0; i < count; ++i)
                addOnCircle(line, t[i], circle, tol, out);
        } else if (slope != 0) {
            addOnCircle(line, -height / slope, circle, tol, out);
        }
    }
    addEnds(line, circle, tol, out);
    tidy(line, circle, tol, out);
    return out;
}

Meetings meetCircles(const CurveForm& first, const CurveForm& second, double tol)
{
    Meetings out;
    const double r = first.u.length(), q = second.u.length();
    if (r > 0 && q > 0) {
        const AcGeVector3d n = normalOf(first), m = normalOf(second), axis = n.crossProduct(m);
        const AcGeVector3d between = second.origin - first.origin;
        const bool coplanar = axis.length() * q + std::fabs(between.dotProduct(n)) <= tol;
        if (coplanar && between.length() + std::fabs(r - q) <= tol) {
            shareArcs(first, second, tol, out);
        } else if (coplanar) {
            crossCoplanar(first, second, tol, out);
        } else if (axis.lengthSqrd() > 0) {
            // Both planes' common line, through the point of the first plane closest to the second centre.
            const AcGeVector3d towards = axis.crossProduct(n);
            const AcGePoint3d on = first.origin + towards * (between.dotProduct(m) / towards.dotProduct(m));
            const Meetings crossed =
                meetLineCircle(lineForm(on, axis / axis.length(), -kInfinity, kInfinity), first, tol);
            for (std::size_t i = 0; i < crossed.points.size(); ++i) {
                double t = angleOn(second, crossed.points[i].point);
                if (fitTurn(second, t, tol / q)) addNear(first, crossed.points[i].t, second, t, tol, out);
            }
        }
    }
    addEnds(first, second, tol, out);
    tidy(first, second, tol, out);
    return out;
}
} // namespace gecore
