#include "Contact.h"
#include "CurveDistance.h"
#include "HarmonicRoots.h"

#include <algorithm>
#include <cmath>

namespace gecore
{
namespace
{
struct Radii {
    double least, most;
};

Radii radiiOf(const CurveForm& conic)
{
    const double a = conic.u.length(), b = conic.v.length();
    return {std::min(a, b), std::max(a, b)};
}

/// A place or a direction in the frame in which a conic is the unit circle.
struct Seen {
    double x, y;
    double dot(const Seen& other) const { return x * other.x + y * other.y; }
};

Seen seenFrom(const CurveForm& conic, const AcGeVector3d& v)
{
    return {v.dotProduct(conic.u) / conic.u.lengthSqrd(), v.dotProduct(conic.v) / conic.v.lengthSqrd()};
}

/// How far outside of a conic a point is, as x x + y y - 1 in its frame.
double heightOver(const CurveForm& conic, const AcGePoint3d& p)
{
    const Seen seen = seenFrom(conic, p - conic.origin);
    return seen.dot(seen) - 1;
}

AcGeVector3d unitNormalOf(const CurveForm& conic)
{
    return conic.u.crossProduct(conic.v).normal();
}

/// Where one curve, the rider, passes over a conic, the track: the height of its points over that is a
/// polynomial of the rider's parameter (for a line) or of its sine and cosine (for a conic).
class ConicMeet
{
public:
    ConicMeet(const CurveForm& first, const CurveForm& second, double tol, bool ridesFirst)
        : mFirst(first), mSecond(second), mRider(ridesFirst ? first : second),
          mTrack(ridesFirst ? second : first), mTol(tol), mRidesFirst(ridesFirst),
          mContact(first, second, tol), mRadii(radiiOf(mTrack))
    {
    }

    /// False for curves that are not in one plane or too thin for numbers of this precision, and for such as
    /// come so near to each other all along that they may be one curve.
    bool run(Meetings& found)
    {
        const bool canRun = mRider.kind == FormKind::kLine ? rideLine() : rideConic();
        if (!canRun) return false;
        addEnds();
        tidy(mFirst, mSecond, mTol, mFound);
        found = mFound;
        return true;
    }

private:
    static constexpr double kThinnest = 1e-5;

    /// Points no further off than the tolerance are no higher than this.
    static double heightOf(double tol, const Radii& radii) { return 4 * tol / radii.least; }

    bool rideLine()
    {
        const AcGeVector3d normal = unitNormalOf(mTrack);
        const double pace = mRider.u.length(), reach = mRadii.most + mTol;
        const double middle = (mTrack.origin - mRider.origin).dotProduct(mRider.u) / (pace * pace);
        const double off = (mRider.origin + mRider.u * middle - mTrack.origin).dotProduct(normal);
        const double slope = mRider.u.dotProduct(normal) / pace;
        if (!(pace > 0) || !(std::fabs(off) + std::fabs(slope) * reach <= mTol)) return false;
        if (!(std::max(mTol, kThinnest * mRadii.most) <= mRadii.least)) return false;
        // From the point next to the centre, so that a line far away loses nothing.
        const Seen at = seenFrom(mTrack, mRider.origin + mRider.u * middle - mTrack.origin);
        const Seen along = seenFrom(mTrack, mRider.u);
        const double a = along.dot(along), half = at.dot(along), vertex = -half / a, least = at.dot(at) - 1;
        const double rest = half * half - a * least;
        if (std::fabs(rest) <= a * heightOf(mTol, mRadii)) add(middle + vertex);
        if (rest > 0)
            for (const double side : {-1.0, 1.0})
                add(middle + vertex + side * std::sqrt(rest) / a);
        return true;
    }

    bool rideConic()
    {
        const AcGeVector3d between = mRider.origin - mTrack.origin;
        const Radii rider = radiiOf(mRider);
        const double reach = between.length() + rider.most + mRadii.most;
        const AcGeVector3d normal = unitNormalOf(mTrack), tilt = normal.crossProduct(unitNormalOf(mRider));
        if (!(tilt.length() * rider.most + std::fabs(between.dotProduct(normal)) <= mTol)) return false;
        if (!(std::max(mTol, kThinnest * reach) <= std::min(mRadii.least, rider.least))) return false;
        const Seen o = seenFrom(mTrack, between), u = seenFrom(mTrack, mRider.u),
                   v = seenFrom(mTrack, mRider.v);
        const double uu = u.dot(u), vv = v.dot(v);
        const Harmonics height{o.dot(o) - 1 + (uu + vv) / 2, 2 * o.dot(u), 2 * o.dot(v), (uu - vv) / 2,
                               u.dot(v)};
        const double near = heightOf(mTol, mRadii);
        if (!(height.size() > 1000 * near)) return false;
        const HarmonicRoots roots = rootsOf(height, near);
        for (int i = 0; i < roots.count; ++i)
            add(roots.angles[static_cast<std::size_t>(i)]);
        return true;
    }

    /// A stretch around a parameter, cut to a curve.
    Stretch around(const CurveForm& form, double t) const
    {
        const double reach = form.kind == FormKind::kLine ? 0.01 * mRadii.most / form.u.length() : 0.01;
        return {form.clamped(t - reach), form.clamped(t + reach)};
    }

    bool fit(const CurveForm& form, double& t) const
    {
        if (form.kind == FormKind::kConic) return fitTurn(form, t, mTol / radiiOf(form).least);
        const double slack = mTol / form.u.length();
        if (!(t >= form.lo - slack && t <= form.hi + slack)) return false;
        t = form.clamped(t);
        return true;
    }

    /// Takes a parameter of the rider for a meeting if it is one, within the bounds of both.
    void add(double onRider)
    {
        const Seen seen = seenFrom(mTrack, pointAt(mRider, onRider) - mTrack.origin);
        double onTrack = std::atan2(seen.y, seen.x);
        if (!fit(mRider, onRider) || !fit(mTrack, onTrack)) return;
        addNear(mRidesFirst ? onRider : onTrack, mRidesFirst ? onTrack : onRider);
    }

    void addNear(double s, double t)
    {
        Meeting found{s, t, {}, false};
        if (mContact.refine(around(mFirst, s), around(mSecond, t), found)) mFound.points.add(found);
    }

    bool mayBeOn(const CurveForm& form, const AcGePoint3d& p) const
    {
        return form.kind == FormKind::kLine ||
               std::fabs(heightOver(form, p)) <= heightOf(mTol, radiiOf(form));
    }

    /// Ends that lie on the other curve count even where the crossing itself is past the end.
    void addEnds()
    {
        for (const bool ofFirst : {true, false}) {
            const CurveForm &own = ofFirst ? mFirst : mSecond, &other = ofFirst ? mSecond : mFirst;
            for (const double end : {own.lo, own.hi}) {
                if (!std::isfinite(end) || !mayBeOn(other, pointAt(own, end))) continue;
                const Foot foot = closestTo(other, pointAt(own, end));
                const double s = ofFirst ? end : foot.t, t = ofFirst ? foot.t : end;
                if (foot.distance <= mTol)
                    mFound.points.add({s, t, pointAt(mFirst, s), mContact.isTangential(s, t)});
            }
        }
    }

    const CurveForm &mFirst, &mSecond, &mRider, &mTrack;
    const double mTol;
    const bool mRidesFirst;
    const Contact mContact;
    const Radii mRadii; ///< of the track
    Meetings mFound;
};

/// The rounder one of two conics is the better track; a line always rides.
bool ridesFirst(const CurveForm& first, const CurveForm& second)
{
    if (second.kind == FormKind::kLine || first.kind == FormKind::kLine) return first.kind == FormKind::kLine;
    return radiiOf(second).least >= radiiOf(first).least;
}
} // namespace

bool meetConics(const CurveForm& first, const CurveForm& second, double tol, Meetings& found)
{
    return ConicMeet(first, second, tol, ridesFirst(first, second)).run(found);
}
} // namespace gecore
