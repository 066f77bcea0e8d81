#pragma once

/// Curves of every class, in the world's plane and in tilted ones, for tests of what all of them have in
/// common.

#include "dbarc.h"
#include "dbcircle.h"
#include "dbelipse.h"
#include "dbline.h"
#include "dbpl.h"

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
    };
}

inline std::vector<CurveSample> curveSamples()
{
    std::vector<CurveSample> all{
        {"Line", [] { return std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(-4, 6, 5)); }}};
    for (const CurveSample& sample : planarSamples("", AcGeVector3d::kZAxis))
        all.push_back(sample);
    for (const CurveSample& sample : planarSamples("Tilted", tiltedNormal))
        all.push_back(sample);
    return all;
}
