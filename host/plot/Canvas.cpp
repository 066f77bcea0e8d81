#include "Canvas.h"

namespace plot
{
void drawHatch(Canvas& canvas, const Loops& loops, const std::vector<HatchFamily>& pattern, const Pen& pen)
{
    HatchLimits limits;
    limits.finest = canvas.finest();
    const HatchPieces pieces = hatchLoops(loops, pattern, limits);
    if (pieces.isTooDense) {
        Paint tint;
        tint.ink = {pen.ink.color, pen.ink.opacity * 0.5};
        canvas.fill(loops, FillRule::evenOdd, tint);
    }
    canvas.segments(pieces.lines, pen);
    canvas.dots(pieces.dots, pen);
}
} // namespace plot
