#include "CurveSamples.h"

#include <memory>

namespace entity
{
namespace
{
/// How far chords may be from a curve.
double deviationFor(const AcDbCurve& curve)
{
    AcDbExtents box;
    if (curve.getGeomExtents(box) != Acad::eOk) return 1e-3;
    return 1e-3 * box.maxPoint().distanceTo(box.minPoint());
}
} // namespace

bool sampleCurve(const AcDbCurve& curve, AcGePoint3dArray& points)
{
    AcGeCurve3d* shape = nullptr;
    if (curve.getAcGeCurve(shape) != Acad::eOk) return false;
    const std::unique_ptr<AcGeCurve3d> owned(shape);
    AcGeInterval range;
    owned->getInterval(range);
    if (!range.isBounded()) return false;
    AcGePoint3dArray samples;
    AcGeDoubleArray params;
    owned->getSamplePoints(range.lowerBound(), range.upperBound(), deviationFor(curve), samples, params);
    points.append(samples);
    return !samples.isEmpty();
}
} // namespace entity
