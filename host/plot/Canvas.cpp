#include "Canvas.h"

namespace plot
{
void drawHatch(Canvas& canvas, const Loops& loops, const std::vector<kernel::HatchFamily>& pattern,
               const Pen& pen)
{
    kernel::HatchLimits limits;
    limits.finest = canvas.finest();
    const kernel::HatchPieces pieces = kernel::hatchLoops(loops, pattern, limits);
    if (pieces.isTooDense) {
        Paint tint;
        tint.ink = {pen.ink.color, pen.ink.opacity * 0.5};
        canvas.fill(loops, FillRule::evenOdd, tint);
    }
    canvas.segments(pieces.lines, pen);
    canvas.dots(pieces.dots, pen);
}
} // namespace plot
