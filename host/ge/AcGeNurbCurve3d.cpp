#include "genurb3d.h"

#include "DimensionNames.h"
#include "geell3d.h"
#include "gelnsg3d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
} // namespace

#include "AcGeNurbCurve.inl"

AcGeNurbCurve3d::AcGeNurbCurve3d(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& cntrlPnts,
                                 bool isPeriodic)
    : AcGeNurbCurve3d(degree, knots, cntrlPnts, AcGeDoubleArray(), isPeriodic)
{
}

AcGeNurbCurve3d::AcGeNurbCurve3d(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& cntrlPnts,
                                 const AcGeDoubleArray& weights, bool isPeriodic)
{
    AcGeSplineEnt3d::setSpline(splineOf(degree, knots, cntrlPnts, weights, isPeriodic));
}

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGePoint3dArray& fitPnts, const AcGeVector3d& startTangent,
                                 const AcGeVector3d& endTangent, bool startTangentDefined,
                                 bool endTangentDefined, const AcGeTol& fitTolerance,
                                 AcGe::KnotParameterization knotParam)
{
    fit(fitPnts, startTangentDefined ? &startTangent : nullptr, endTangentDefined ? &endTangent : nullptr,
        fitTolerance, knotParam, false);
}

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGePoint3dArray& fitPnts, const AcGeTol& fitTolerance,
                                 AcGe::KnotParameterization knotParam)
{
    const bool closed = fitPnts.length() > 3 && fitPnts.first().isEqualTo(fitPnts.last(), fitTolerance);
    fit(fitPnts, nullptr, nullptr, fitTolerance, knotParam, closed);
}

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGePoint3dArray& fitPnts, const AcGeVector3dArray& fitTangents,
                                 const AcGeTol& fitTolerance, bool isPeriodic)
{
    AcGeSplineEnt3d::setSpline(throughWithTangents(fitPnts, fitTangents, fitTolerance, isPeriodic));
}

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGeEllipArc3d& ellipse)
{
    AcGeSplineEnt3d::setSpline(splineOfConic(ellipse.form()));
}

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGeLineSeg3d& linSeg)
{
    AcGeSplineEnt3d::setSpline(straight(linSeg.startPoint(), linSeg.endPoint()));
}
