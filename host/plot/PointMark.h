#pragma once

/// The marks of points.

#include "LineTypeDash.h"

namespace plot
{
/// How a drawing shows points.
struct PointStyle {
    /// PDMODE: 0 a dot, 1 nothing, 2 a plus, 3 a cross, 4 a tick; +32 a circle, +64 a square around it.
    int mode = 0;
    double size = 0; ///< PDSIZE: above 0 in drawing units; below, percent of the page's height; 0: 5 percent

    /// The size in the units of a page with this height, on which a drawing unit is `scale` long.
    double sizeOn(double pageHeight, double scale) const;
};

struct PointMark {
    bool hasDot = false;
    std::vector<Points> lines;
    bool hasCircle = false; ///< as wide as the size
};

/// The lines of a mark of a size around a place.
PointMark pointMark(const PointStyle& style, const AcGePoint2d& at, double size);
} // namespace plot
