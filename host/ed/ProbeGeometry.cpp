#include "ProbeGeometry.h"

#include "BulgeSegment.h"
#include "geell3d.h"
#include "geintrvl.h"
#include "genurb3d.h"
#include "PlanarCoords.h"
#include "TextLook.h"

#include <cmath>

namespace ed
{
namespace
{
constexpr double fullTurn = 2.0 * 3.14159265358979323846;

/// The four corners of a box of text, mapped.
std::vector<AcGePoint3d> cornersOf(const lettering::InkBox& box, const AcGeMatrix3d& map)
{
    return {map * AcGePoint3d(box.min.x, box.min.y, 0.0), map * AcGePoint3d(box.max.x, box.min.y, 0.0),
            map * AcGePoint3d(box.max.x, box.max.y, 0.0), map * AcGePoint3d(box.min.x, box.max.y, 0.0)};
}

AcGePoint3d flat(const AcGePoint2d& point)
{
    return {point.x, point.y, 0.0};
}

BulgeSegment segmentOf(const AcDbPolyline& polyline, unsigned index)
{
    double bulge = 0.0;
    AcGePoint2d start, end;
    polyline.getPointAt(index, start);
    polyline.getPointAt((index + 1) % polyline.numVerts(), end);
    polyline.getBulgeAt(index, bulge);
    return {start, end, bulge};
}

/// The outline of a segment with widths, in the coordinates of the polyline; empty for a thin one.
std::vector<AcGePoint2d> outlineOf(const AcDbPolyline& polyline, unsigned index)
{
    double from = 0.0, to = 0.0;
    polyline.getWidthsAt(index, from, to);
    const BulgeSegment segment = segmentOf(polyline, index);
    if ((from <= 0.0 && to <= 0.0) || segment.isPoint()) return {};
    const int pieces = segment.isArc() ? 4 + static_cast<int>(std::fabs(segment.sweep()) / fullTurn * 256.0) : 1;
    std::vector<AcGePoint2d> left, right;
    for (int i = 0; i <= pieces; ++i) {
        const double t = static_cast<double>(i) / pieces, angle = segment.tangentAngleAt(t);
        const AcGeVector2d aside = (from + t * (to - from)) / 2.0 * AcGeVector2d(-std::sin(angle), std::cos(angle));
        left.push_back(segment.pointAt(t) + aside);
        right.push_back(segment.pointAt(t) - aside);
    }
    left.insert(left.end(), right.rbegin(), right.rend());
    return left;
}
} // namespace

void SelectionProbe::Geometry::start(ProbeQuestion question)
{
    mQuestion = question;
    mIsTouched = mIsOutside = mIsDrawn = false;
    mCrossings.clear();
}

double SelectionProbe::Geometry::modelTolerance() const
{
    const double scale = std::max(place(AcGeVector3d::kXAxis).length(), place(AcGeVector3d::kYAxis).length());
    return scale > 0.0 ? mTolerance / scale : mTolerance;
}

bool SelectionProbe::Geometry::pushModelTransform(const AcGeMatrix3d& matrix)
{
    mTraits.enterBlock();
    mToPlane.push_back(mToPlane.back() * matrix);
    return true;
}

bool SelectionProbe::Geometry::popModelTransform()
{
    if (mToPlane.size() < 2) return false;
    mToPlane.pop_back();
    mTraits.leaveBlock();
    return true;
}

bool SelectionProbe::Geometry::isSettled()
{
    const bool isKnown =
        mQuestion == ProbeQuestion::touches ? mIsTouched : mQuestion == ProbeQuestion::isInside && mIsOutside;
    return isKnown || !mTraits.isShown();
}

AcGePoint2d SelectionProbe::Geometry::place(const AcGePoint3d& point) const
{
    const AcGePoint3d placed = mToPlane.back() * point;
    return {placed.x, placed.y};
}

AcGeVector2d SelectionProbe::Geometry::place(const AcGeVector3d& vector) const
{
    const AcGeVector3d placed = mToPlane.back() * vector;
    return {placed.x, placed.y};
}

SelectionProbe::Geometry::Loop SelectionProbe::Geometry::place(unsigned count, const AcGePoint3d* points) const
{
    Loop placed;
    placed.reserve(count);
    for (unsigned i = 0; i < count; ++i) placed.push_back(place(points[i]));
    return placed;
}

template <class Piece>
void SelectionProbe::Geometry::judge(const Piece& piece)
{
    if (isSettled()) return;
    mIsDrawn = true;
    switch (mQuestion) {
    case ProbeQuestion::touches: mIsTouched = mArea.meets(piece); break;
    case ProbeQuestion::isInside: mIsOutside = !mArea.holds(piece); break;
    case ProbeQuestion::crossings: mArea.addCrossings(piece, mCrossings); break;
    }
}

void SelectionProbe::Geometry::judgeChain(const Loop& points, bool isClosed)
{
    const std::size_t count = points.size();
    if (count == 1) judge(PlaneSegment{points[0], points[0]});
    for (std::size_t i = 0; i + 1 < count; ++i) judge(PlaneSegment{points[i], points[i + 1]});
    if (isClosed && count > 2) judge(PlaneSegment{points.back(), points.front()});
}

void SelectionProbe::Geometry::judgeFill(const std::vector<Loop>& loops)
{
    if (isSettled()) return;
    for (const Loop& loop : loops) judgeChain(loop, true);
    if (mQuestion == ProbeQuestion::touches && !mIsTouched) mIsTouched = mArea.isIn(loops);
}

bool SelectionProbe::Geometry::circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal)
{
    const AcGeMatrix3d frame = ocsToWorld(normal);
    judge(PlaneArc{place(center), place(frame * AcGeVector3d(radius, 0.0, 0.0)),
                   place(frame * AcGeVector3d(0.0, radius, 0.0)), 0.0, fullTurn});
    return true;
}

bool SelectionProbe::Geometry::circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                                           const AcGeVector3d& start, double sweep, AcGiArcType type)
{
    const AcGeVector3d a = radius * start.normal(), b = normal.normal().crossProduct(a);
    const PlaneArc arc{place(center), place(a), place(b), 0.0, sweep};
    judge(arc);
    if (type == kAcGiArcSimple) return true;
    Loop straight{arc.startPoint(), arc.pointAt(sweep)};
    if (type == kAcGiArcSector) straight.push_back(arc.center);
    judgeChain(straight, true);
    return true;
}

bool SelectionProbe::Geometry::ellipArc(const AcGeEllipArc3d& arc)
{
    judge(PlaneArc{place(arc.center()), place(arc.majorRadius() * arc.majorAxis()),
                   place(arc.minorRadius() * arc.minorAxis()), arc.startAng(), arc.endAng() - arc.startAng()});
    return true;
}

bool SelectionProbe::Geometry::nurbs(const AcGeNurbCurve3d& curve)
{
    if (isSettled()) return true;
    AcGeInterval range;
    curve.getInterval(range);
    AcGePoint3dArray points;
    AcGeDoubleArray params;
    curve.getSamplePoints(range.lowerBound(), range.upperBound(), modelTolerance(), points, params);
    return polyline(static_cast<unsigned>(points.length()), points.asArrayPtr());
}

bool SelectionProbe::Geometry::polyline(unsigned count, const AcGePoint3d* points)
{
    if (!isSettled()) judgeChain(place(count, points), false);
    return true;
}

bool SelectionProbe::Geometry::polygon(unsigned count, const AcGePoint3d* points)
{
    if (mTraits.isFilled())
        judgeFill({place(count, points)});
    else
        judgeChain(place(count, points), true);
    return true;
}

bool SelectionProbe::Geometry::polyPolygon(unsigned count, const AcGiLoop* loops)
{
    std::vector<Loop> placed;
    for (unsigned i = 0; i < count; ++i) placed.push_back(place(loops[i].count, loops[i].points));
    judgeFill(placed);
    return true;
}

bool SelectionProbe::Geometry::pline(const AcDbPolyline& polyline)
{
    AcGeMatrix3d frame, up;
    polyline.getEcs(frame);
    up.setToTranslation({0.0, 0.0, polyline.elevation()});
    mToPlane.push_back(mToPlane.back() * frame * up);
    const unsigned count = polyline.numVerts(), last = polyline.isClosed() ? count : count - 1;
    for (unsigned i = 0; count > 1 && i < last && !isSettled(); ++i) {
        judgeBulge(segmentOf(polyline, i));
        if (!polyline.hasWidth()) continue;
        Loop outline = outlineOf(polyline, i);
        for (AcGePoint2d& point : outline) point = place(flat(point));
        if (!outline.empty()) judgeFill({outline});
    }
    mToPlane.pop_back();
    return true;
}

void SelectionProbe::Geometry::judgeBulge(const BulgeSegment& segment)
{
    if (!segment.isArc()) {
        judge(PlaneSegment{place(flat(segment.start())), place(flat(segment.end()))});
        return;
    }
    const AcGeVector2d a = segment.start() - segment.center();
    circularArc(flat(segment.center()), a.length(), AcGeVector3d::kZAxis, {a.x, a.y, 0.0}, segment.sweep(),
                kAcGiArcSimple);
}

void SelectionProbe::Geometry::judgeEndless(const AcGePoint3d& base, const AcGePoint3d& through, bool isRay)
{
    const AcGePoint2d start = place(base);
    const AcGeVector2d way = place(through) - start;
    if (way.isZeroLength() || isSettled()) return;
    mIsOutside = mIsDrawn = true;
    // Beyond both ends of this piece nothing of the area is left.
    const PlaneBox& box = mArea.box();
    const double reach =
        (box.max - box.min).length() + std::max((box.min - start).length(), (box.max - start).length());
    const AcGeVector2d far = reach * way.normal();
    judge(PlaneSegment{isRay ? start : start - far, start + far});
}

bool SelectionProbe::Geometry::xline(const AcGePoint3d& point, const AcGePoint3d& other)
{
    judgeEndless(point, other, false);
    return true;
}

bool SelectionProbe::Geometry::ray(const AcGePoint3d& base, const AcGePoint3d& through)
{
    judgeEndless(base, through, true);
    return true;
}

bool SelectionProbe::Geometry::pointMark(const AcGePoint3d& point)
{
    const AcGePoint2d at = place(point);
    judge(PlaneSegment{at, at});
    return true;
}

bool SelectionProbe::Geometry::text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                    const AcGeVector3d& direction, const wchar_t* text, int length, bool raw,
                                    const AcGiTextStyle& style)
{
    if (!text || length <= 0 || isSettled()) return true;
    const TextLook look = textLookOf(style);
    const std::wstring_view characters(text, static_cast<std::size_t>(length));
    const lettering::Font& font = lettering::fontNamed(look.font);
    const lettering::InkBox ink =
        raw ? lettering::measureText(font, look.look, characters).ink
            : lettering::measureText(font, look.look, lettering::decodeTextCodes(characters)).ink;
    if (ink.isEmpty()) return true;
    AcGeMatrix3d frame;
    frame.setCoordSystem(position, direction.normal(), normal.crossProduct(direction).normal(), normal);
    judgeFill({place(4, cornersOf(ink, frame).data())});
    return true;
}
} // namespace ed
