#include "ViewGeometry.h"

#include "PictureFile.h"
#include "DrawLettering.h"
#include "TextLook.h"

#include <algorithm>
#include <cmath>

namespace plot
{
namespace
{
/// How much longer a map makes lengths in a block's plane, on the average of its axes.
double planeScale(const AcGeMatrix3d& map)
{
    const auto column = [&](int i) {
        return AcGeVector3d(map.entry[0][i], map.entry[1][i], map.entry[2][i]).length();
    };
    return (column(0) + column(1)) / 2;
}

bool areSame(const Pen& one, const Pen& other)
{
    return one.ink.color == other.ink.color && one.ink.opacity == other.ink.opacity && one.width == other.width;
}

/// Narrows a range of the line base + t way to what lies between two limits; false when nothing is left.
bool narrow(double base, double way, double low, double high, double& from, double& to)
{
    if (way == 0) return base >= low && base <= high;
    const double one = (low - base) / way, other = (high - base) / way;
    from = std::max(from, std::min(one, other));
    to = std::min(to, std::max(one, other));
    return from < to;
}
} // namespace

ViewGeometry::ViewGeometry(Canvas& canvas, PlotTraits& traits, const View& view)
    : mCanvas(canvas), mTraits(traits), mView(view), mTolerance(canvas.finest() / 4), mLevels{{view.toPlane, 1.0}}
{
}

bool ViewGeometry::pushModelTransform(const AcGeMatrix3d& matrix)
{
    mTraits.enterBlock();
    const Level& level = mLevels.back();
    mLevels.push_back({level.toPlane * matrix, level.scale * planeScale(matrix)});
    return true;
}

bool ViewGeometry::popModelTransform()
{
    if (mLevels.size() < 2) return false;
    mLevels.pop_back();
    mTraits.leaveBlock();
    return true;
}

AcGePoint2d ViewGeometry::place(const AcGePoint3d& point) const
{
    const AcGePoint3d placed = mLevels.back().toPlane * point;
    return {placed.x, placed.y};
}

AcGeVector2d ViewGeometry::place(const AcGeVector3d& vector) const
{
    const AcGeVector3d placed = mLevels.back().toPlane * vector;
    return {placed.x, placed.y};
}

Points ViewGeometry::place(unsigned count, const AcGePoint3d* points) const
{
    Points placed;
    placed.reserve(count);
    for (unsigned i = 0; i < count; ++i)
        placed.push_back(place(points[i]));
    return placed;
}

/// The map of the plane z = 0 of model coordinates.
AcGeMatrix2d ViewGeometry::planeMap(const AcGeMatrix3d& map) const
{
    const AcGeMatrix3d whole = mLevels.back().toPlane * map;
    AcGeMatrix2d plane;
    for (int row = 0; row < 2; ++row) {
        plane.entry[row][0] = whole.entry[row][0];
        plane.entry[row][1] = whole.entry[row][1];
        plane.entry[row][2] = whole.entry[row][3];
    }
    return plane;
}

double ViewGeometry::modelTolerance() const
{
    const double scale = planeScale(mLevels.back().toPlane);
    return scale > 0 ? mTolerance / scale : mTolerance;
}

Pen ViewGeometry::pen()
{
    const Look& look = mTraits.look();
    Pen pen;
    pen.ink = look.ink;
    pen.width = mView.hasWeights ? look.weight : 0;
    pen.dashes = *look.dashes;
    const double scale = mView.linetypeScale * look.dashScale * mLevels.back().scale;
    for (double& dash : pen.dashes)
        dash *= scale;
    return pen;
}

void ViewGeometry::begin(const Pen& pen)
{
    if (!mSegments.empty() && !areSame(pen, mPen)) flush();
}

void ViewGeometry::flush()
{
    if (!mSegments.empty()) mCanvas.segments(mSegments, mPen);
    mSegments.clear();
}

void ViewGeometry::stroke(Points points, bool isClosed)
{
    if (points.size() < 2 || !mTraits.look().isShown) return;
    const Pen now = pen();
    begin(now);
    if (points.size() == 2 && now.dashes.empty()) {
        mPen = now;
        mSegments.push_back({points[0], points[1]});
        return;
    }
    Stroke line;
    line.points = std::move(points);
    line.isClosed = isClosed;
    mCanvas.stroke(line, now);
}

void ViewGeometry::fill(const Loops& loops, FillRule rule)
{
    if (!mTraits.look().isShown) return;
    flush();
    Paint paint;
    paint.ink = mTraits.look().ink;
    mCanvas.fill(loops, rule, paint);
}

bool ViewGeometry::polyline(unsigned count, const AcGePoint3d* points)
{
    stroke(place(count, points), false);
    return true;
}

bool ViewGeometry::polygon(unsigned count, const AcGePoint3d* points)
{
    if (mTraits.isFilled()) {
        fill({place(count, points)}, FillRule::evenOdd);
    } else {
        stroke(place(count, points), true);
    }
    return true;
}

bool ViewGeometry::polyPolygon(unsigned count, const AcGiLoop* loops)
{
    Loops placed;
    for (unsigned i = 0; i < count; ++i)
        placed.push_back(place(loops[i].count, loops[i].points));
    fill(placed, FillRule::evenOdd);
    return true;
}

/// Lines without an end are drawn as far as they are seen.
void ViewGeometry::endless(const AcGePoint3d& base, const AcGePoint3d& through, bool isRay)
{
    const AcGePoint2d start = place(base);
    const AcGeVector2d way = place(through) - start;
    double from = isRay ? 0 : -HUGE_VAL, to = HUGE_VAL;
    const bool isSeen = narrow(start.x, way.x, mView.min.x, mView.max.x, from, to) &&
                        narrow(start.y, way.y, mView.min.y, mView.max.y, from, to);
    if (isSeen && std::isfinite(from) && std::isfinite(to)) stroke({start + from * way, start + to * way}, false);
}

bool ViewGeometry::xline(const AcGePoint3d& point, const AcGePoint3d& other)
{
    endless(point, other, false);
    return true;
}

bool ViewGeometry::ray(const AcGePoint3d& base, const AcGePoint3d& through)
{
    endless(base, through, true);
    return true;
}

bool ViewGeometry::text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                        const wchar_t* text, int length, bool raw, const AcGiTextStyle& style)
{
    if (!text || length <= 0 || !mTraits.look().isShown) return true;
    const TextLook look = textLookOf(style);
    AcGeMatrix3d frame;
    frame.setCoordSystem(position, direction.normal(), normal.crossProduct(direction).normal(), normal);
    const AcGeMatrix2d map = planeMap(frame);
    // Smaller than can be seen.
    if (look.look.height * map.scale() < mCanvas.finest() / 2) return true;
    const std::wstring_view view(text, static_cast<std::size_t>(length));
    std::vector<lettering::TextRun> runs;
    if (raw)
        runs = {{std::wstring(view), {style.isUnderlined, style.isOverlined, style.isStrikethrough}}};
    else
        runs = lettering::decodeTextCodes(view);
    flush();
    mCanvas.pushTransform(map);
    drawLettering(mCanvas, lettering::drawText(lettering::fontNamed(look.font), look.look, runs), look.look.height,
                  mTraits.look().ink);
    mCanvas.popTransform();
    return true;
}

bool ViewGeometry::imageFile(const AcGiImageFile& image)
{
    if (!mTraits.look().isShown) return true;
    const Picture picture = readPicture(image.path);
    if (!picture) return false;
    setTone(picture.get(), {image.brightness, image.contrast, image.fade, image.isTransparent});
    flush();
    mCanvas.pushClip({place(image.clip.count, image.clip.points)}, FillRule::evenOdd);
    mCanvas.image(picture.get(), place(image.origin), place(image.width), place(image.height));
    mCanvas.popClip();
    return true;
}
} // namespace plot
