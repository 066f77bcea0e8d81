#include "Contact.h"

#include "CurveDistance.h"

#include <algorithm>

namespace gecore
{
namespace
{
constexpr double kTangentSine = 1e-6;
constexpr int kSteps = 40;

/// The changes of s and t that make two linear functions of them vanish. False when they have no such point.
bool solve(double f, double fs, double ft, double g, double gs, double gt, double& ds, double& dt)
{
    const double det = fs * gt - ft * gs;
    if (det == 0 || !std::isfinite(det)) return false;
    ds = -(f * gt - ft * g) / det;
    dt = -(fs * g - f * gs) / det;
    return true;
}
} // namespace

bool Contact::refine(const Stretch& first, const Stretch& second, Meeting& meeting) const
{
    double s = meeting.s, t = meeting.t;
    approach(first, second, s, t);
    const double angle = sine(s, t);
    bool tangential = angle <= kTangentSine && gap(s, t) <= mTol;
    if (angle <= 1e-3) tangential = sharpen(s, t) || tangential;
    if (!(gap(s, t) <= mTol)) return false;
    meeting = {s, t, pointAt(mFirst, s), tangential};
    return true;
}

bool Contact::isTangential(double s, double t) const
{
    return sine(s, t) <= kTangentSine;
}

double Contact::gap(double s, double t) const
{
    return pointAt(mFirst, s).distanceTo(pointAt(mSecond, t));
}

double Contact::sine(double s, double t) const
{
    AcGeVector3d p[2], q[2];
    derivatives(mFirst, s, 1, p);
    derivatives(mSecond, t, 1, q);
    const double size = p[1].length() * q[1].length();
    return size > 0 ? p[1].crossProduct(q[1]).length() / size : 1;
}

/// Gauss-Newton on A(s) - B(t), kept within bounds.
void Contact::step(const Stretch& first, const Stretch& second, double& s, double& t) const
{
    for (int i = 0; i < kSteps; ++i) {
        AcGeVector3d p[2], q[2];
        derivatives(mFirst, s, 1, p);
        derivatives(mSecond, t, 1, q);
        const AcGeVector3d r = q[0] - p[0];
        const double ss = p[1].lengthSqrd(), tt = q[1].lengthSqrd(), st = p[1].dotProduct(q[1]);
        const double det = ss * tt - st * st, fs = r.dotProduct(p[1]), ft = r.dotProduct(q[1]);
        if (!(det > 1e-24 * ss * tt)) return;
        const double s1 = std::clamp(s + (fs * tt - ft * st) / det, first.lo, first.hi);
        const double t1 = std::clamp(t + (fs * st - ft * ss) / det, second.lo, second.hi);
        const bool still =
            std::fabs(s1 - s) <= 1e-16 * std::fabs(s) && std::fabs(t1 - t) <= 1e-16 * std::fabs(t);
        s = s1;
        t = t1;
        if (still) return;
    }
}

/// Newton's steps, then feet to and fro when those do not close the gap.
void Contact::approach(const Stretch& first, const Stretch& second, double& s, double& t) const
{
    step(first, second, s, t);
    for (int i = 0; i < kSteps && !(gap(s, t) <= mTol / 16); ++i) {
        const double before = gap(s, t);
        t = closestWithin(mSecond, pointAt(mFirst, s), second.lo, second.hi).t;
        s = closestWithin(mFirst, pointAt(mSecond, t), first.lo, first.hi).t;
        if (!(gap(s, t) < before)) return;
    }
}

/// Goes to where the foot condition (A - B) . v = 0 holds and the directions u and v are parallel, by
/// Newton's method; the turn between them is projected on its own change. False where that leads nowhere.
bool Contact::parallelNear(double& s, double& t) const
{
    for (int i = 0; i < kSteps; ++i) {
        AcGeVector3d p[3], q[3];
        derivatives(mFirst, s, 2, p);
        derivatives(mSecond, t, 2, q);
        const double pp = p[1].length(), qq = q[1].length();
        if (!(pp > 0 && qq > 0)) return false;
        const AcGeVector3d u = p[1] / pp, v = q[1] / qq, r = p[0] - q[0];
        const AcGeVector3d du = (p[2] - u * u.dotProduct(p[2])) / pp,
                           dv = (q[2] - v * v.dotProduct(q[2])) / qq;
        const AcGeVector3d ts = du.crossProduct(v), tt = u.crossProduct(dv);
        const AcGeVector3d axis = ts.lengthSqrd() > tt.lengthSqrd() ? ts : tt;
        double ds = 0, dt = 0;
        if (!solve(r.dotProduct(v), p[1].dotProduct(v), -qq + r.dotProduct(dv),
                   u.crossProduct(v).dotProduct(axis), ts.dotProduct(axis), tt.dotProduct(axis), ds, dt))
            return false;
        s = mFirst.clamped(s + ds);
        t = mSecond.clamped(t + dt);
        if (std::fabs(ds) <= 1e-15 * (1 + std::fabs(s)) && std::fabs(dt) <= 1e-15 * (1 + std::fabs(t)))
            return true;
    }
    return true;
}

/// Moves a contact to the middle of a touch. False, and nothing changed, when the curves are apart there:
/// then they cross at a small angle.
bool Contact::sharpen(double& s, double& t) const
{
    double a = s, b = t;
    if (!parallelNear(a, b) || !(gap(a, b) <= mTol) || !(sine(a, b) <= kTangentSine)) return false;
    const AcGePoint3d before = pointAt(mFirst, s);
    if (pointAt(mFirst, a).distanceTo(before) > 1e-2 * (1 + before.asVector().length())) return false;
    s = a;
    t = b;
    return true;
}
} // namespace gecore
