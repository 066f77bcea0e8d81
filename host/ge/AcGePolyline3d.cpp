#include "geplin3d.h"

#include "DimensionNames.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
} // namespace

#include "AcGePolyline.inl"

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
