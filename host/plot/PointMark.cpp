#include "PointMark.h"

namespace plot
{
double PointStyle::sizeOn(double pageHeight, double scale) const
{
    if (size > 0) return size * scale;
    return (size < 0 ? -size : 5) / 100 * pageHeight;
}

PointMark pointMark(const PointStyle& style, const AcGePoint2d& at, double size)
{
    PointMark mark;
    const auto line = [&](double x0, double y0, double x1, double y1) {
        mark.lines.push_back({at + size * AcGeVector2d(x0, y0), at + size * AcGeVector2d(x1, y1)});
    };
    switch (style.mode & 7) {
    case 0:
        mark.hasDot = true;
        break;
    case 2:
        line(-1, 0, 1, 0);
        line(0, -1, 0, 1);
        break;
    case 3:
        line(-1, -1, 1, 1);
        line(-1, 1, 1, -1);
        break;
    case 4:
        line(0, 0, 0, 0.5);
        break;
    default:
        break;
    }
    mark.hasCircle = (style.mode & 32) != 0;
    if (style.mode & 64) {
        line(-0.5, -0.5, 0.5, -0.5);
        line(0.5, -0.5, 0.5, 0.5);
        line(0.5, 0.5, -0.5, 0.5);
        line(-0.5, 0.5, -0.5, -0.5);
    }
    return mark;
}
} // namespace plot
