/// The members of AcGeSplineEnt2d and AcGeSplineEnt3d that are the same in the plane and in space.

#include "CurveForm.h"
#include "Spline.h"

namespace
{
std::size_t asSize(int n)
{
    return static_cast<std::size_t>(n);
}
} // namespace

bool SplineEnt::isEqualTo(const Entity& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const SplineEnt&>(entity);
    if (degree() != other.degree() || numControlPoints() != other.numControlPoints()) return false;
    for (int i = 0; i < numControlPoints(); ++i) {
        if (!controlPointAt(i).isEqualTo(other.controlPointAt(i), tol)) return false;
        if (!(std::fabs(spline().weight(asSize(i)) - other.spline().weight(asSize(i))) <= tol.equalVector()))
            return false;
    }
    return knots().isEqualTo(other.knots());
}

SplineEnt& SplineEnt::transformBy(const Matrix& xfm)
{
    Spline moved = spline();
    for (Place& p : moved.points)
        p = lift(xfm * toPoint(p));
    setSpline(std::move(moved));
    return *this;
}

bool SplineEnt::isRational() const
{
    return spline().isRational();
}

int SplineEnt::degree() const
{
    return spline().degree;
}

int SplineEnt::numKnots() const
{
    return static_cast<int>(spline().knots.size());
}

const AcGeKnotVector SplineEnt::knots() const
{
    return {numKnots(), spline().knots.data()};
}

int SplineEnt::numControlPoints() const
{
    return static_cast<int>(spline().points.size());
}

int SplineEnt::continuityAtKnot(int idx, const AcGeTol&) const
{
    if (idx < 0 || idx >= numKnots()) return 0;
    const int left = degree() - spline().multiplicity(knotAt(idx));
    return left > 0 ? left : 0;
}

double SplineEnt::startParam() const
{
    return spline().lower();
}

double SplineEnt::endParam() const
{
    return spline().upper();
}

Point SplineEnt::startPoint() const
{
    return evalPoint(startParam());
}

Point SplineEnt::endPoint() const
{
    return evalPoint(endParam());
}

double SplineEnt::knotAt(int idx) const
{
    return idx >= 0 && idx < numKnots() ? spline().knots[asSize(idx)] : 0;
}

SplineEnt& SplineEnt::setKnotAt(int idx, double val)
{
    if (idx < 0 || idx >= numKnots()) return *this;
    Spline changed = spline();
    changed.knots[asSize(idx)] = val;
    if (changed.isValid()) setSpline(std::move(changed));
    return *this;
}

Point SplineEnt::controlPointAt(int idx) const
{
    return idx >= 0 && idx < numControlPoints() ? toPoint(spline().points[asSize(idx)]) : Point::kOrigin;
}

SplineEnt& SplineEnt::setControlPointAt(int idx, const Point& pnt)
{
    if (idx < 0 || idx >= numControlPoints()) return *this;
    Spline changed = spline();
    changed.points[asSize(idx)] = lift(pnt);
    setSpline(std::move(changed));
    return *this;
}

void SplineEnt::setSpline(Spline spline)
{
    mSpline = std::make_shared<const Spline>(spline.isValid() ? std::move(spline) : Spline());
}

void SplineEnt::turnRound()
{
    Spline turned = spline();
    turned.reverse();
    setSpline(std::move(turned));
}

bool SplineEnt::setBounds(double lo, double hi)
{
    if (!(lo < hi) || lo < startParam() || hi > endParam()) return false;
    if (lo == startParam() && hi == endParam()) return true;
    Spline part = spline();
    part.trim(lo, hi);
    setSpline(std::move(part));
    return true;
}
