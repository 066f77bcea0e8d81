/// Arcs, circles and ellipses.

#include "CMakeEnt.h"

#include "CDatabase.h"
#include "CUcsWcs.h"
#include "dbcircle.h"
#include "dbelipse.h"
#include "NewEntity.h"

#include <cmath>

namespace
{
bool isPositive(double value)
{
    return value > 0.0 && std::isfinite(value);
}

std::unique_ptr<AcDbArc> arcThrough(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
{
    AcGeCircArc3d shape;
    AcGeError error = AcGe::kOk;
    shape.set(p1, p2, p3, error);
    if (error != AcGe::kOk || !isPositive(shape.radius())) return nullptr;
    // Arcs that are drawn clockwise are stored from their end to their start, as all planar entities face
    // their UCS.
    const AcGeVector3d up = shape.normal().z < 0.0 ? -shape.normal() : shape.normal();
    auto arc = entity::begin<AcDbArc>();
    return arc->setFromAcGeCurve(shape, &up) == Acad::eOk ? std::move(arc) : nullptr;
}

/// The arc in the plane through p1 with a normal, whose X axis runs from p1 to p2.
bool arcOnChord(const AcGePoint3d& p1, const AcGePoint3d& p2, double bulge, const AcGeVector3d& normal,
                AcGeCircArc3d& arc)
{
    const AcGeVector3d chord = p2 - p1;
    if (chord.isZeroLength() || normal.isZeroLength() || !chord.isPerpendicularTo(normal)) return false;
    if (bulge == 0.0 || !std::isfinite(bulge)) return false;
    // The bulge is the height of the arc over half of its chord; to the right of a chord that is run
    // counter-clockwise.
    const AcGeVector3d toTop = chord.crossProduct(normal).normal() * (bulge * chord.length() / 2.0);
    AcGeError error = AcGe::kOk;
    arc.set(p1, p1 + chord / 2.0 + toTop, p2, error);
    return error == AcGe::kOk && isPositive(arc.radius());
}
} // namespace

int CArxEntity::CMakeEnt::MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
{
    AcDbObjectId id;
    return MakeArc(p1, p2, p3, id);
}

int CArxEntity::CMakeEnt::MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                                  AcDbObjectId& id)
{
    return entity::add(arcThrough(p1, p2, p3), id);
}

int CArxEntity::CMakeEnt::MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                                  int color)
{
    AcDbObjectId id;
    return MakeArc(p1, p2, p3, L"", color, id);
}

int CArxEntity::CMakeEnt::MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                                  CString layer, int color, AcDbObjectId& id)
{
    auto arc = arcThrough(p1, p2, p3);
    if (!arc || !entity::setColor(*arc, color) || !entity::setLayer(*arc, layer)) return 0;
    return entity::add(std::move(arc), id);
}

int CArxEntity::CMakeEnt::MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                                  AcDbArc*& arc)
{
    arc = nullptr;
    auto made = arcThrough(p1, p2, p3);
    AcDbObjectId id;
    if (!CArxUtils::CUcsWcs::UcsToWcs(made.get()) || !entity::isWithinNumbers(*made)) return 0;
    if (!CArxUtils::CDatabase::AddToDb(made.get(), id)) return 0;
    arc = made.release();
    return 1;
}

int CArxEntity::CMakeEnt::MakeArc(const AcGePoint3d& center, double r, double startAngle, double endAngle,
                                  AcDbObjectId& id)
{
    auto arc = entity::begin<AcDbArc>();
    if (!isPositive(r) || arc->setCenter(center) != Acad::eOk || arc->setRadius(r) != Acad::eOk) return 0;
    if (arc->setStartAngle(startAngle) != Acad::eOk || arc->setEndAngle(endAngle) != Acad::eOk) return 0;
    return entity::add(std::move(arc), id);
}

int CArxEntity::CMakeEnt::MakeArc(const AcGePoint2d& p1, const AcGePoint2d& p2, double bulge,
                                  AcGeCircArc2d*& arc)
{
    AcGeCircArc3d inSpace;
    if (!arcOnChord({p1.x, p1.y, 0.0}, {p2.x, p2.y, 0.0}, bulge, AcGeVector3d::kZAxis, inSpace)) return 0;
    constexpr bool isHeight = false; // of the arc over its chord, instead of the tangent
    arc = new AcGeCircArc2d(p1, p2, bulge, isHeight);
    return 1;
}

int CArxEntity::CMakeEnt::MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, double bulge,
                                  AcGeVector3d normal, AcGeCircArc3d*& arc)
{
    AcGeCircArc3d made;
    if (!arcOnChord(p1, p2, bulge, normal, made)) return 0;
    arc = new AcGeCircArc3d(made);
    return 1;
}

int CArxEntity::CMakeEnt::MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, double bulge,
                                  AcGeVector3d normal, AcGeCircArc3d& arc)
{
    AcGeCircArc3d made;
    if (!arcOnChord(p1, p2, bulge, normal, made)) return 0;
    arc = made;
    return 1;
}

int CArxEntity::CMakeEnt::MakeCircle(const AcGePoint3d& center, double r, AcDbObjectId& id)
{
    auto circle = entity::begin<AcDbCircle>();
    if (!isPositive(r) || circle->setCenter(center) != Acad::eOk || circle->setRadius(r) != Acad::eOk)
        return 0;
    return entity::add(std::move(circle), id);
}

int CArxEntity::CMakeEnt::MakeEllipse(const AcGePoint3d& center, AcGeVector3d axis, double radius,
                                      double otherRadius, AcDbObjectId& id, double startAngle,
                                      double endAngle)
{
    constexpr double quarter = 1.5707963267948966;
    if (!isPositive(radius) || !isPositive(otherRadius) || axis.isZeroLength()) return 0;
    AcGeVector3d major = axis.normal() * radius;
    double ratio = otherRadius / radius;
    if (ratio > 1.0) {
        major = AcGeVector3d(-major.y, major.x, major.z) * ratio;
        ratio = 1.0 / ratio;
        startAngle -= quarter;
        endAngle -= quarter;
    }
    auto ellipse = entity::begin<AcDbEllipse>();
    if (ellipse->set(center, AcGeVector3d::kZAxis, major, ratio, startAngle, endAngle) != Acad::eOk) return 0;
    return entity::add(std::move(ellipse), id);
}
