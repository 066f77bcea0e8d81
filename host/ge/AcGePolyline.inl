/// The members of AcGePolyline2d and AcGePolyline3d that are the same in the plane and in space.

#include "CurveForm.h"
#include "CurveSample.h"
#include "Spline.h"

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

void Polyline::setPoints(const Points& points, const double* knots)
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
    Polyline::setSpline(std::move(spline));
}

CurveForm Polyline::form() const
{
    return chainForm(*mLinks);
}

void Polyline::setSpline(Spline changed)
{
    SplineEnt::setSpline(std::move(changed));
    mLinks = std::make_shared<const std::vector<ChainLink>>(linksOf(spline()));
}
