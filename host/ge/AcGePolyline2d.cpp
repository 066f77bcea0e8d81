#include "geplin2d.h"

#include "CurveForm.h"
#include "CurveSample.h"
#include "Dimension.h"
#include "Spline.h"

using namespace gecore;

namespace
{
std::vector<ChainLink> linksOf(const Spline& spline)
{
    std::vector<ChainLink> links;
    for (std::size_t i = 0; i + 1 < spline.points.size(); ++i)
        if (spline.knots[i + 2] > spline.knots[i + 1])
            links.push_back({lineForm(spline.points[i], spline.points[i + 1] - spline.points[i], 0, 1),
                             spline.knots[i + 1], spline.knots[i + 2]});
    return links;
}
} // namespace

AcGePolyline2d::AcGePolyline2d() : mLinks(std::make_shared<std::vector<ChainLink>>()) {}

AcGePolyline2d::AcGePolyline2d(const AcGePoint2dArray& points) : AcGePolyline2d()
{
    setPoints(points, nullptr);
}

AcGePolyline2d::AcGePolyline2d(const AcGeKnotVector& knots, const AcGePoint2dArray& points) : AcGePolyline2d()
{
    if (knots.length() == points.length()) setPoints(points, knots.asArrayPtr());
}

AcGePolyline2d::AcGePolyline2d(const AcGeCurve2d& crv, double apprEps) : AcGePolyline2d()
{
    const CurveForm form = crv.form();
    AcGePoint2dArray points;
    for (const double t : sampleParams(form, form.lo, form.hi, apprEps))
        points.append(toPoint2d(pointAt(form, t)));
    setPoints(points, nullptr);
}

AcGePolyline2d::AcGePolyline2d(const AcGePolyline2d& other) = default;
AcGePolyline2d& AcGePolyline2d::operator=(const AcGePolyline2d& other) = default;
AcGePolyline2d::~AcGePolyline2d() = default;

void AcGePolyline2d::setPoints(const AcGePoint2dArray& points, const double* knots)
{
    if (points.length() < 2) return;
    Spline spline;
    spline.degree = 1;
    for (int i = 0; i < points.length(); ++i) {
        spline.points.push_back(lift(points[i]));
        spline.knots.push_back(knots ? knots[i] : i);
    }
    spline.knots.insert(spline.knots.begin(), spline.knots.front());
    spline.knots.push_back(spline.knots.back());
    AcGePolyline2d::setSpline(std::move(spline));
}

CurveForm AcGePolyline2d::form() const
{
    return chainForm(*mLinks);
}

void AcGePolyline2d::setSpline(Spline changed)
{
    AcGeSplineEnt2d::setSpline(std::move(changed));
    mLinks = std::make_shared<const std::vector<ChainLink>>(linksOf(spline()));
}
