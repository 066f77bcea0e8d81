#include "genurb2d.h"

#include "DimensionNames.h"
#include "geell2d.h"
#include "gelnsg2d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(2d)
} // namespace

#include "AcGeNurbCurve.inl"

AcGeNurbCurve2d::AcGeNurbCurve2d(int degree, const AcGeKnotVector& knots, const AcGePoint2dArray& cntrlPnts,
                                 bool isPeriodic)
    : AcGeNurbCurve2d(degree, knots, cntrlPnts, AcGeDoubleArray(), isPeriodic)
{
}

AcGeNurbCurve2d::AcGeNurbCurve2d(int degree, const AcGeKnotVector& knots, const AcGePoint2dArray& cntrlPnts,
                                 const AcGeDoubleArray& weights, bool isPeriodic)
{
    AcGeSplineEnt2d::setSpline(splineOf(degree, knots, cntrlPnts, weights, isPeriodic));
}

AcGeNurbCurve2d::AcGeNurbCurve2d(const AcGePoint2dArray& fitPnts, const AcGeVector2d& startTangent,
                                 const AcGeVector2d& endTangent, bool startTangentDefined,
                                 bool endTangentDefined, const AcGeTol& fitTolerance,
                                 AcGe::KnotParameterization knotParam)
{
    fit(fitPnts, startTangentDefined ? &startTangent : nullptr, endTangentDefined ? &endTangent : nullptr,
        fitTolerance, knotParam, false);
}

AcGeNurbCurve2d::AcGeNurbCurve2d(const AcGePoint2dArray& fitPnts, const AcGeTol& fitTolerance,
                                 AcGe::KnotParameterization knotParam)
{
    const bool closed = fitPnts.length() > 3 && fitPnts.first().isEqualTo(fitPnts.last(), fitTolerance);
    fit(fitPnts, nullptr, nullptr, fitTolerance, knotParam, closed);
}

AcGeNurbCurve2d::AcGeNurbCurve2d(const AcGePoint2dArray& fitPnts, const AcGeVector2dArray& fitTangents,
                                 const AcGeTol& fitTolerance, bool isPeriodic)
{
    AcGeSplineEnt2d::setSpline(throughWithTangents(fitPnts, fitTangents, fitTolerance, isPeriodic));
}

AcGeNurbCurve2d::AcGeNurbCurve2d(const AcGeEllipArc2d& ellipse)
{
    AcGeSplineEnt2d::setSpline(splineOfConic(ellipse.form()));
}

AcGeNurbCurve2d::AcGeNurbCurve2d(const AcGeLineSeg2d& linSeg)
{
    AcGeSplineEnt2d::setSpline(straight(linSeg.startPoint(), linSeg.endPoint()));
}
