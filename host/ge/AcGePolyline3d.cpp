#include "geplin3d.h"

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

AcGePolyline3d::AcGePolyline3d() : mLinks(std::make_shared<std::vector<ChainLink>>()) {}

AcGePolyline3d::AcGePolyline3d(const AcGePoint3dArray& points) : AcGePolyline3d()
{
    setPoints(points, nullptr);
}

AcGePolyline3d::AcGePolyline3d(const AcGeKnotVector& knots, const AcGePoint3dArray& points) : AcGePolyline3d()
{
    if (knots.length() == points.length()) setPoints(points, knots.asArrayPtr());
}

AcGePolyline3d::AcGePolyline3d(const AcGeCurve3d& crv, double apprEps) : AcGePolyline3d()
{
    const CurveForm form = crv.form();
    AcGePoint3dArray points;
    for (const double t : sampleParams(form, form.lo, form.hi, apprEps))
        points.append(toPoint3d(pointAt(form, t)));
    setPoints(points, nullptr);
}

AcGePolyline3d::AcGePolyline3d(const AcGePolyline3d& other) = default;
AcGePolyline3d& AcGePolyline3d::operator=(const AcGePolyline3d& other) = default;
AcGePolyline3d::~AcGePolyline3d() = default;

void AcGePolyline3d::setPoints(const AcGePoint3dArray& points, const double* knots)
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
    AcGePolyline3d::setSpline(std::move(spline));
}

CurveForm AcGePolyline3d::form() const
{
    return chainForm(*mLinks);
}

void AcGePolyline3d::setSpline(Spline changed)
{
    AcGeSplineEnt3d::setSpline(std::move(changed));
    mLinks = std::make_shared<const std::vector<ChainLink>>(linksOf(spline()));
}
