#include "geplin2d.h"

#include "DimensionNames.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(2d)
} // namespace

#include "AcGePolyline.inl"

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
