#include "PlaneFrame.h"

#include "CurveFactory.h"

#include <cmath>

namespace kernel
{
using namespace gecore;

AcGeMatrix3d frameOf(const AcGePoint3d& point, const AcGeVector3d& normal)
{
    const AcGeVector3d z = normal.normal();
    return AcGeMatrix3d::translation(z * point.asVector().dotProduct(z)) * AcGeMatrix3d::planeToWorld(z);
}

CurvePtr toPlane(const AcGeCurve3d& curve, const AcGeMatrix3d& worldToPlane)
{
    const std::unique_ptr<AcGeCurve3d> image(imageOf(curve, worldToPlane, AcGeContext::gTol));
    if (!image || image->form().kind == FormKind::kChain) return nullptr;
    return CurvePtr(curve2dOf(image->form()));
}

std::unique_ptr<AcGeCurve3d> toWorld(const AcGeCurve2d& curve, const AcGeMatrix3d& planeToWorld)
{
    std::unique_ptr<AcGeCurve3d> result(curve3dOf(curve.form()));
    result->transformBy(planeToWorld);
    return result;
}

AcGeVector3d upright(const AcGeVector3d& normal)
{
    for (const double c : {normal.z, normal.y, normal.x})
        if (std::fabs(c) > 1e-12) return c > 0 ? normal : -normal;
    return normal;
}
} // namespace kernel
