#pragma once

/// Curves of every class, in the world's plane and in tilted ones, for tests of what all of them have in
/// common.

#include "db2dpl.h"
#include "db3dpl.h"
#include "dbarc.h"
#include "dbcircle.h"
#include "dbelipse.h"
#include "dbline.h"
#include "dbpl.h"
#include "dbspline.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

struct CurveSample {
    std::string name;
    std::function<std::unique_ptr<AcDbCurve>()> make;
};

inline void PrintTo(const CurveSample& sample, std::ostream* out)
{
    *out << sample.name;
}

inline const AcGeVector3d tiltedNormal = AcGeVector3d(1.0, -2.0, 2.0) / 3.0;

/// Lines and arcs of both senses, a flat arc, an arc of more than half a turn.
inline std::unique_ptr<AcDbPolyline> samplePolyline(bool closed, const AcGeVector3d& normal)
{
    auto polyline = std::make_unique<AcDbPolyline>();
    polyline->addVertexAt(0, {0.0, 0.0}, 0.5);
    polyline->addVertexAt(1, {4.0, 1.0}, 0.0);
    polyline->addVertexAt(2, {6.0, 5.0}, -1.6);
    polyline->addVertexAt(3, {3.0, 7.0}, 1e-7);
    polyline->addVertexAt(4, {-1.0, 4.0}, -0.25);
    polyline->setElevation(1.5);
    polyline->setNormal(normal);
    polyline->setClosed(closed);
    return polyline;
}

/// Through points, with a direction at the start; moved into the plane of a normal.
inline std::unique_ptr<AcDbSpline> sampleFit(const AcGeVector3d& normal)
{
    AcGePoint3dArray points;
    for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 1), AcGePoint3d(2, 3, 1), AcGePoint3d(5, 1, 1),
                                 AcGePoint3d(7, 6, 1), AcGePoint3d(1, 5, 1)})
        points.append(p);
    auto spline = std::make_unique<AcDbSpline>(points, AcGeVector3d(1, 1, 0), AcGeVector3d());
    spline->transformBy(AcGeMatrix3d::planeToWorld(normal));
    return spline;
}

/// A rational quadratic with four control points.
inline std::unique_ptr<AcDbSpline> sampleRational(const AcGeVector3d& normal)
{
    AcGePoint3dArray points;
    AcGeDoubleArray knots, weights;
    for (const AcGePoint3d& p :
         {AcGePoint3d(-1, 0, 1), AcGePoint3d(1, 6, 1), AcGePoint3d(5, 5, 1), AcGePoint3d(6, -2, 1)})
        points.append(p);
    for (const double knot : {0.0, 0.0, 0.0, 2.0, 5.0, 5.0, 5.0})
        knots.append(knot);
    for (const double weight : {1.0, 2.5, 0.7, 1.0})
        weights.append(weight);
    auto spline = std::make_unique<AcDbSpline>(2, true, false, false, points, knots, weights);
    spline->transformBy(AcGeMatrix3d::planeToWorld(normal));
    return spline;
}

/// The closed sample with its vertices in objects.
inline std::unique_ptr<AcDb2dPolyline> sampleOldPolyline(const AcGeVector3d& normal)
{
    const std::unique_ptr<AcDbPolyline> like = samplePolyline(true, normal);
    auto polyline = std::make_unique<AcDb2dPolyline>();
    for (unsigned i = 0; i < like->numVerts(); ++i) {
        AcGePoint2d point;
        double bulge = 0.0;
        like->getPointAt(i, point);
        like->getBulgeAt(i, bulge);
        polyline->appendVertex(new AcDb2dVertex({point.x, point.y, 0.0}, bulge));
    }
    polyline->makeClosed();
    polyline->setElevation(1.5);
    polyline->setNormal(normal);
    return polyline;
}

inline std::unique_ptr<AcDb3dPolyline> samplePolyline3d()
{
    AcGePoint3dArray points;
    for (const AcGePoint3d& p :
         {AcGePoint3d(0, 0, 0), AcGePoint3d(4, 0, 1), AcGePoint3d(5, 3, 4), AcGePoint3d(1, 6, 2)})
        points.append(p);
    return std::make_unique<AcDb3dPolyline>(AcDb::k3dSimplePoly, points);
}

inline std::vector<CurveSample> planarSamples(const std::string& where, const AcGeVector3d& normal)
{
    const AcGePoint3d center = AcGePoint3d(2.0, 3.0, 1.0) + normal;
    const AcGeVector3d major = 5.0 * normal.perpVector();
    return {
        {"Circle" + where, [=] { return std::make_unique<AcDbCircle>(center, normal, 3.5); }},
        {"Arc" + where, [=] { return std::make_unique<AcDbArc>(center, normal, 2.5, 4.0, 1.0); }},
        {"Ellipse" + where, [=] { return std::make_unique<AcDbEllipse>(center, normal, major, 0.4); }},
        {"EllipseArc" + where,
         [=] { return std::make_unique<AcDbEllipse>(center, normal, major, 0.6, 5.0, 2.0); }},
        {"OpenPolyline" + where, [=] { return samplePolyline(false, normal); }},
        {"ClosedPolyline" + where, [=] { return samplePolyline(true, normal); }},
        {"OldPolyline" + where, [=] { return sampleOldPolyline(normal); }},
        {"FitSpline" + where, [=] { return sampleFit(normal); }},
        {"RationalSpline" + where, [=] { return sampleRational(normal); }},
    };
}

inline std::vector<CurveSample> curveSamples()
{
    std::vector<CurveSample> all{
        {"Line", [] { return std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(-4, 6, 5)); }}};
    all.push_back({"Polyline3d", samplePolyline3d});
    for (const CurveSample& sample : planarSamples("", AcGeVector3d::kZAxis))
        all.push_back(sample);
    for (const CurveSample& sample : planarSamples("Tilted", tiltedNormal))
        all.push_back(sample);
    return all;
}
