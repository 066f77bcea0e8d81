#include "gesent3d.h"

#include "CurveForm.h"
#include "Dimension.h"
#include "Spline.h"

using namespace gecore;

namespace
{
std::size_t asSize(int n)
{
    return static_cast<std::size_t>(n);
}
} // namespace

AcGeSplineEnt3d::AcGeSplineEnt3d() : mSpline(std::make_shared<Spline>()) {}

bool AcGeSplineEnt3d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kSplineEnt3d || AcGeCurve3d::isKindOf(entType);
}

bool AcGeSplineEnt3d::isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeSplineEnt3d&>(entity);
    if (degree() != other.degree() || numControlPoints() != other.numControlPoints()) return false;
    for (int i = 0; i < numControlPoints(); ++i) {
        if (!controlPointAt(i).isEqualTo(other.controlPointAt(i), tol)) return false;
        if (!(std::fabs(spline().weight(asSize(i)) - other.spline().weight(asSize(i))) <= tol.equalVector()))
            return false;
    }
    return knots().isEqualTo(other.knots());
}

AcGeSplineEnt3d& AcGeSplineEnt3d::transformBy(const AcGeMatrix3d& xfm)
{
    Spline moved = spline();
    for (Place& p : moved.points)
        p = lift(xfm * toPoint3d(p));
    setSpline(std::move(moved));
    return *this;
}

bool AcGeSplineEnt3d::isRational() const
{
    return spline().isRational();
}

int AcGeSplineEnt3d::degree() const
{
    return spline().degree;
}

int AcGeSplineEnt3d::numKnots() const
{
    return static_cast<int>(spline().knots.size());
}

const AcGeKnotVector AcGeSplineEnt3d::knots() const
{
    return {numKnots(), spline().knots.data()};
}

int AcGeSplineEnt3d::numControlPoints() const
{
    return static_cast<int>(spline().points.size());
}

int AcGeSplineEnt3d::continuityAtKnot(int idx, const AcGeTol&) const
{
    if (idx < 0 || idx >= numKnots()) return 0;
    const int left = degree() - spline().multiplicity(knotAt(idx));
    return left > 0 ? left : 0;
}

double AcGeSplineEnt3d::startParam() const
{
    return spline().lower();
}

double AcGeSplineEnt3d::endParam() const
{
    return spline().upper();
}

AcGePoint3d AcGeSplineEnt3d::startPoint() const
{
    return evalPoint(startParam());
}

AcGePoint3d AcGeSplineEnt3d::endPoint() const
{
    return evalPoint(endParam());
}

double AcGeSplineEnt3d::knotAt(int idx) const
{
    return idx >= 0 && idx < numKnots() ? spline().knots[asSize(idx)] : 0;
}

AcGeSplineEnt3d& AcGeSplineEnt3d::setKnotAt(int idx, double val)
{
    if (idx < 0 || idx >= numKnots()) return *this;
    Spline changed = spline();
    changed.knots[asSize(idx)] = val;
    if (changed.isValid()) setSpline(std::move(changed));
    return *this;
}

AcGePoint3d AcGeSplineEnt3d::controlPointAt(int idx) const
{
    return idx >= 0 && idx < numControlPoints() ? toPoint3d(spline().points[asSize(idx)])
                                                : AcGePoint3d::kOrigin;
}

AcGeSplineEnt3d& AcGeSplineEnt3d::setControlPointAt(int idx, const AcGePoint3d& pnt)
{
    if (idx < 0 || idx >= numControlPoints()) return *this;
    Spline changed = spline();
    changed.points[asSize(idx)] = lift(pnt);
    setSpline(std::move(changed));
    return *this;
}

void AcGeSplineEnt3d::setSpline(Spline spline)
{
    mSpline = std::make_shared<const Spline>(spline.isValid() ? std::move(spline) : Spline());
}

void AcGeSplineEnt3d::turnRound()
{
    Spline turned = spline();
    turned.reverse();
    setSpline(std::move(turned));
}

bool AcGeSplineEnt3d::setBounds(double lo, double hi)
{
    if (!(lo < hi) || lo < startParam() || hi > endParam()) return false;
    if (lo == startParam() && hi == endParam()) return true;
    Spline part = spline();
    part.trim(lo, hi);
    setSpline(std::move(part));
    return true;
}
