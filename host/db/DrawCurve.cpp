#include "DrawCurve.h"

#include "gearc3d.h"
#include "geell3d.h"
#include "geintrvl.h"
#include "genurb3d.h"

namespace
{
void drawArc(const AcGeCircArc3d& arc, AcGiGeometry& geometry)
{
    const double sweep = arc.endAng() - arc.startAng();
    if (arc.isClosed())
        geometry.circle(arc.center(), arc.radius(), arc.normal());
    else
        geometry.circularArc(arc.center(), arc.radius(), arc.normal(), arc.startPoint() - arc.center(),
                             sweep);
}

void drawChords(const AcGeCurve3d& curve, AcGiWorldDraw& draw)
{
    AcGeInterval range;
    curve.getInterval(range);
    if (!range.isBounded()) return;
    AcGePoint3dArray points;
    AcGeDoubleArray params;
    const double from = range.lowerBound();
    const double deviation = draw.deviation(kAcGiMaxDevForCurve, curve.evalPoint(from));
    curve.getSamplePoints(from, range.upperBound(), deviation, points, params);
    draw.geometry().polyline(static_cast<unsigned>(points.length()), points.asArrayPtr());
}
} // namespace

void drawCurve(const AcGeCurve3d& curve, AcGiWorldDraw& draw)
{
    switch (curve.type()) {
    case AcGe::kCircArc3d:
        drawArc(static_cast<const AcGeCircArc3d&>(curve), draw.geometry());
        break;
    case AcGe::kEllipArc3d:
        draw.geometry().ellipArc(static_cast<const AcGeEllipArc3d&>(curve));
        break;
    case AcGe::kNurbCurve3d:
        draw.geometry().nurbs(static_cast<const AcGeNurbCurve3d&>(curve));
        break;
    default:
        drawChords(curve, draw);
    }
}
