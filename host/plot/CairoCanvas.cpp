#include "CairoCanvas.h"

#include <cmath>

namespace plot
{
namespace
{
/// Takes the window to the middle of the page; y goes down on a page.
AcGeMatrix2d pageTransform(const Page& page, double unit, double width, double height)
{
    const AcGeVector2d window = page.windowMax - page.windowMin;
    const double free = 2 * page.margin * unit;
    // A window without a width is a line: the other side fits.
    const double across = window.x > 0 ? (width - free) / window.x : HUGE_VAL;
    const double up = window.y > 0 ? (height - free) / window.y : HUGE_VAL;
    const double scale = std::min(across, up);
    const AcGePoint2d middle = page.windowMin + window * 0.5;
    AcGeMatrix2d matrix;
    matrix(0, 0) = scale;
    matrix(1, 1) = -scale;
    matrix(0, 2) = width / 2 - middle.x * scale;
    matrix(1, 2) = height / 2 + middle.y * scale;
    return matrix;
}

bool isWindow(const Page& page)
{
    const AcGeVector2d window = page.windowMax - page.windowMin;
    const bool isBox = window.x >= 0 && window.y >= 0 && (window.x > 0 || window.y > 0);
    const bool hasRoom = page.margin >= 0 && 2 * page.margin < std::min(page.width, page.height);
    return isBox && hasRoom && std::isfinite(window.x + window.y + page.windowMin.x + page.windowMin.y);
}

/// How much longer lengths become, on the average of the directions.
double lengthScale(const AcGeMatrix2d& matrix)
{
    return std::sqrt(std::abs(matrix.det()));
}

double part(std::uint8_t color)
{
    return color / 255.0;
}

double opacity(const Ink& ink)
{
    return ink.opacity >= 0 && ink.opacity <= 1 ? ink.opacity : 1;
}

void addStop(cairo_pattern_t* pattern, double place, const Ink& ink)
{
    cairo_pattern_add_color_stop_rgba(pattern, place, part(ink.color.red), part(ink.color.green),
                                      part(ink.color.blue), opacity(ink));
}

void setInk(cairo_t* context, const Ink& ink)
{
    cairo_set_source_rgba(context, part(ink.color.red), part(ink.color.green), part(ink.color.blue),
                          opacity(ink));
}

void addPath(cairo_t* context, const Points& points)
{
    for (const AcGePoint2d& point : points)
        cairo_line_to(context, point.x, point.y);
}

cairo_line_cap_t capOf(Cap cap)
{
    return cap == Cap::butt    ? CAIRO_LINE_CAP_BUTT
           : cap == Cap::round ? CAIRO_LINE_CAP_ROUND
                               : CAIRO_LINE_CAP_SQUARE;
}

cairo_line_join_t joinOf(Join join)
{
    return join == Join::miter   ? CAIRO_LINE_JOIN_MITER
           : join == Join::round ? CAIRO_LINE_JOIN_ROUND
                                 : CAIRO_LINE_JOIN_BEVEL;
}
} // namespace

CairoCanvas::CairoCanvas(std::wstring path, PlotFormat format) : mFile(std::move(path), format) {}

PlotStatus CairoCanvas::begin(const Page& page)
{
    const PlotStatus status = isWindow(page) ? mFile.begin(page) : PlotStatus::badPage;
    if (status == PlotStatus::done)
        resetPage(page);
    else if (mTrouble == PlotStatus::done)
        mTrouble = status;
    return status;
}

void CairoCanvas::resetPage(const Page& page)
{
    while (mClips > 0)
        popClip();
    mTransforms = {pageTransform(page, mFile.unitsPerMillimetre(), mFile.width(), mFile.height())};
    // Wide pens reach in from outside the page.
    const double beyond = std::max(mFile.width(), mFile.height());
    mBox = {-beyond, -beyond, mFile.width() + beyond, mFile.height() + beyond};
    setInk(mFile.context(), {page.background, 1});
    cairo_paint(mFile.context());
}

PlotStatus CairoCanvas::finish()
{
    mTransforms.clear();
    while (mClips > 0)
        popClip();
    if (mTrouble == PlotStatus::done) return mFile.finish();
    mFile.discard();
    return mTrouble;
}

void CairoCanvas::pushTransform(const AcGeMatrix2d& transform)
{
    if (!mTransforms.empty()) mTransforms.push_back(mTransforms.back() * transform);
}

void CairoCanvas::popTransform()
{
    if (mTransforms.size() > 1) mTransforms.pop_back();
}

void CairoCanvas::pushClip(const Loops& loops, FillRule rule)
{
    if (mTransforms.empty()) return;
    cairo_save(mFile.context());
    ++mClips;
    addLoops(loops, rule);
    cairo_clip(mFile.context());
}

void CairoCanvas::image(cairo_surface_t* picture, const AcGePoint2d& corner, const AcGeVector2d& width,
                        const AcGeVector2d& height)
{
    if (mTransforms.empty()) return;
    const AcGeMatrix2d& map = mTransforms.back();
    const AcGePoint2d top = map * (corner + height);
    const AcGeVector2d across = map * (width / cairo_image_surface_get_width(picture));
    const AcGeVector2d down = map * (height / -cairo_image_surface_get_height(picture));
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, across.x, across.y, down.x, down.y, top.x, top.y);
    // A picture that is seen from its edge has no matrix back to its pixels.
    const double area = across.x * down.y - across.y * down.x;
    if (!std::isfinite(top.x + top.y) || !(std::fabs(area) > 1e-12) || !std::isfinite(area)) return;
    cairo_t* const context = mFile.context();
    cairo_save(context);
    cairo_transform(context, &matrix);
    cairo_set_source_surface(context, picture, 0, 0);
    // Pixels larger than those of the page show as they are.
    if (std::fabs(area) > 1.0) cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_NEAREST);
    cairo_paint(context);
    cairo_restore(context);
}

void CairoCanvas::popClip()
{
    if (mClips == 0) return;
    cairo_restore(mFile.context());
    --mClips;
}

void CairoCanvas::stroke(const Stroke& stroke, const Pen& pen)
{
    if (mTransforms.empty()) return;
    setPen(pen);
    const Points line = toDevice(stroke.points);
    if (pen.dashes.empty()) {
        strokeLine(line, stroke.isClosed);
        return;
    }
    const DashedLine dashed = dashLine(line, pen.dashes, dashOptions(stroke, pen));
    for (const Points& dash : dashed.dashes)
        strokeLine(dash, false);
    strokeDots(dashed.dots);
}

DashOptions CairoCanvas::dashOptions(const Stroke& stroke, const Pen& pen) const
{
    const bool isDrawing = pen.dashMeasure == Measure::drawingUnits;
    DashOptions options;
    options.scale = isDrawing ? lengthScale(mTransforms.back()) : mFile.unitsPerMillimetre();
    options.finest = mFile.thinnest();
    options.isClosed = stroke.isClosed;
    options.perSegment = stroke.dashPerSegment;
    return options;
}

void CairoCanvas::strokeLine(const Points& line, bool isClosed) const
{
    Points whole = line;
    if (isClosed && !line.empty()) whole.push_back(line.front());
    const std::vector<Points> parts = clipLine(whole, mBox);
    const bool isWhole = parts.size() == 1 && parts.front().size() == whole.size();
    for (const Points& part : parts) {
        cairo_new_sub_path(mFile.context());
        addPath(mFile.context(), part);
        // Joined at its first point, and not capped there.
        if (isClosed && isWhole) cairo_close_path(mFile.context());
    }
    cairo_stroke(mFile.context());
}

void CairoCanvas::segments(const std::vector<kernel::HatchPiece>& lines, const Pen& pen)
{
    if (mTransforms.empty()) return;
    setPen(pen);
    const std::size_t batch = mFile.linesAtOnce();
    std::size_t count = 0;
    for (const kernel::HatchPiece& line : lines) {
        addSegment(line);
        if (++count % batch == 0) cairo_stroke(mFile.context());
    }
    cairo_stroke(mFile.context());
}

void CairoCanvas::addSegment(const kernel::HatchPiece& line) const
{
    const AcGePoint2d start = mTransforms.back() * line.start, end = mTransforms.back() * line.end;
    // The most lie inside, and need no lists of points.
    if (isInside(start, mBox) && isInside(end, mBox)) {
        cairo_move_to(mFile.context(), start.x, start.y);
        cairo_line_to(mFile.context(), end.x, end.y);
        return;
    }
    for (const Points& part : clipLine(toDevice({line.start, line.end}), mBox)) {
        cairo_new_sub_path(mFile.context());
        addPath(mFile.context(), part);
    }
}

void CairoCanvas::dots(const Points& points, const Pen& pen)
{
    if (mTransforms.empty() || points.empty()) return;
    setPen(pen);
    strokeDots(toDevice(points));
}

void CairoCanvas::strokeDots(const Points& devicePoints) const
{
    cairo_t* context = mFile.context();
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    for (const AcGePoint2d& point : devicePoints) {
        if (clipPolygon({point}, mBox).empty()) continue;
        cairo_move_to(context, point.x, point.y);
        cairo_line_to(context, point.x, point.y);
    }
    cairo_stroke(context);
}

void CairoCanvas::fill(const Loops& loops, FillRule rule, const Paint& paint)
{
    if (mTransforms.empty()) return;
    setPaint(paint);
    addLoops(loops, rule);
    cairo_fill(mFile.context());
}

void CairoCanvas::addLoops(const Loops& loops, FillRule rule) const
{
    cairo_t* context = mFile.context();
    cairo_new_path(context);
    cairo_set_fill_rule(context,
                        rule == FillRule::evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    for (const Points& loop : loops) {
        const Points clipped = clipPolygon(toDevice(loop), mBox);
        if (clipped.size() < 3) continue;
        cairo_new_sub_path(context);
        addPath(context, clipped);
        cairo_close_path(context);
    }
}

Points CairoCanvas::toDevice(const Points& points) const
{
    Points device;
    device.reserve(points.size());
    for (const AcGePoint2d& point : points) {
        const AcGePoint2d place = mTransforms.back() * point;
        if (std::isfinite(place.x) && std::isfinite(place.y)) device.push_back(place);
    }
    return device;
}

void CairoCanvas::setPen(const Pen& pen) const
{
    cairo_t* context = mFile.context();
    const double width = pen.width * mFile.unitsPerMillimetre();
    cairo_new_path(context);
    cairo_set_line_width(context,
                         width > mFile.thinnest() && std::isfinite(width) ? width : mFile.thinnest());
    cairo_set_line_cap(context, capOf(pen.cap));
    cairo_set_line_join(context, joinOf(pen.join));
    setInk(context, pen.ink);
}

void CairoCanvas::setPaint(const Paint& paint) const
{
    const AcGePoint2d start = mTransforms.back() * paint.start, end = mTransforms.back() * paint.end;
    const double radius = paint.radius * lengthScale(mTransforms.back());
    const bool isPlace = std::isfinite(start.x + start.y + end.x + end.y) && radius > 0;
    if (paint.kind == PaintKind::solid || !isPlace) {
        setInk(mFile.context(), paint.ink);
        return;
    }
    cairo_pattern_t* pattern =
        paint.kind == PaintKind::linear
            ? cairo_pattern_create_linear(start.x, start.y, end.x, end.y)
            : cairo_pattern_create_radial(start.x, start.y, 0, start.x, start.y, radius);
    addStop(pattern, 0, paint.ink);
    addStop(pattern, 1, paint.endInk);
    cairo_set_source(mFile.context(), pattern);
    cairo_pattern_destroy(pattern);
}

double CairoCanvas::finest() const
{
    return mTransforms.empty() ? 0 : mFile.thinnest() / lengthScale(mTransforms.back());
}
} // namespace plot
