#include "DrawLettering.h"

namespace plot
{
namespace
{
Points rectangle(const lettering::TextBar& bar, double thickness)
{
    const AcGeVector2d half(0, thickness / 2);
    return {bar.start - half, bar.end - half, bar.end + half, bar.start + half};
}
} // namespace

void drawLettering(Canvas& canvas, const lettering::TextDrawing& drawing, double height, const Ink& ink)
{
    Loops loops = drawing.contours;
    for (const lettering::TextBar& bar : drawing.bars)
        loops.push_back(rectangle(bar, height / 15));
    Paint paint;
    paint.ink = ink;
    canvas.fill(loops, FillRule::nonZero, paint);
}
} // namespace plot
