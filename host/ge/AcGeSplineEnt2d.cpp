#include "gesent2d.h"

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

AcGeSplineEnt2d::AcGeSplineEnt2d() : mSpline(std::make_shared<Spline>()) {}

bool AcGeSplineEnt2d::isKindOf(AcGe::EntityId entType) const
{
    return entType == AcGe::kSplineEnt2d || AcGeCurve2d::isKindOf(entType);
}

bool AcGeSplineEnt2d::isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeSplineEnt2d&>(entity);
    if (degree() != other.degree() || numControlPoints() != other.numControlPoints()) return false;
    for (int i = 0; i < numControlPoints(); ++i) {
        if (!controlPointAt(i).isEqualTo(other.controlPointAt(i), tol)) return false;
        if (!(std::fabs(spline().weight(asSize(i)) - other.spline().weight(asSize(i))) <= tol.equalVector()))
            return false;
    }
    return knots().isEqualTo(other.knots());
}

AcGeSplineEnt2d& AcGeSplineEnt2d::transformBy(const AcGeMatrix2d& xfm)
{
    Spline moved = spline();
    for (Place& p : moved.points)
        p = lift(xfm * toPoint2d(p));
    setSpline(std::move(moved));
    return *this;
}

bool AcGeSplineEnt2d::isRational() const
{
    return spline().isRational();
}

int AcGeSplineEnt2d::degree() const
{
    return spline().degree;
}

int AcGeSplineEnt2d::numKnots() const
{
    return static_cast<int>(spline().knots.size());
}

const AcGeKnotVector AcGeSplineEnt2d::knots() const
{
    return {numKnots(), spline().knots.data()};
}

int AcGeSplineEnt2d::numControlPoints() const
{
    return static_cast<int>(spline().points.size());
}

int AcGeSplineEnt2d::continuityAtKnot(int idx, const AcGeTol&) const
{
    if (idx < 0 || idx >= numKnots()) return 0;
    const int left = degree() - spline().multiplicity(knotAt(idx));
    return left > 0 ? left : 0;
}

double AcGeSplineEnt2d::startParam() const
{
    return spline().lower();
}

double AcGeSplineEnt2d::endParam() const
{
    return spline().upper();
}

AcGePoint2d AcGeSplineEnt2d::startPoint() const
{
    return evalPoint(startParam());
}

AcGePoint2d AcGeSplineEnt2d::endPoint() const
{
    return evalPoint(endParam());
}

double AcGeSplineEnt2d::knotAt(int idx) const
{
    return idx >= 0 && idx < numKnots() ? spline().knots[asSize(idx)] : 0;
}

AcGeSplineEnt2d& AcGeSplineEnt2d::setKnotAt(int idx, double val)
{
    if (idx < 0 || idx >= numKnots()) return *this;
    Spline changed = spline();
    changed.knots[asSize(idx)] = val;
    if (changed.isValid()) setSpline(std::move(changed));
    return *this;
}

AcGePoint2d AcGeSplineEnt2d::controlPointAt(int idx) const
{
    return idx >= 0 && idx < numControlPoints() ? toPoint2d(spline().points[asSize(idx)])
                                                : AcGePoint2d::kOrigin;
}

AcGeSplineEnt2d& AcGeSplineEnt2d::setControlPointAt(int idx, const AcGePoint2d& pnt)
{
    if (idx < 0 || idx >= numControlPoints()) return *this;
    Spline changed = spline();
    changed.points[asSize(idx)] = lift(pnt);
    setSpline(std::move(changed));
    return *this;
}

void AcGeSplineEnt2d::setSpline(Spline spline)
{
    mSpline = std::make_shared<const Spline>(spline.isValid() ? std::move(spline) : Spline());
}

void AcGeSplineEnt2d::turnRound()
{
    Spline turned = spline();
    turned.reverse();
    setSpline(std::move(turned));
}

bool AcGeSplineEnt2d::setBounds(double lo, double hi)
{
    if (!(lo < hi) || lo < startParam() || hi > endParam()) return false;
    if (lo == startParam() && hi == endParam()) return true;
    Spline part = spline();
    part.trim(lo, hi);
    setSpline(std::move(part));
    return true;
}
