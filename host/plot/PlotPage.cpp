#include "PlotPage.h"

#include "dblayout.h"

#include <algorithm>
#include <cmath>

namespace plot
{
namespace
{
constexpr double millimetresPerInch = 25.4;

bool isEmpty(const AcDbExtents2d& box) { return box.minPoint().x > box.maxPoint().x; }

/// Millimetres of paper for a drawing unit; 0: as large as fits.
double scaleOf(const AcDbLayout& layout)
{
    double scale = 0, numerator = 0, denominator = 0;
    if (layout.useStandardScale()) {
        if (layout.stdScaleType() == AcDbPlotSettings::kScaleToFit) return 0;
        layout.getStdScale(scale);
    } else {
        layout.getCustomPrintScale(numerator, denominator);
        scale = denominator > 0 ? numerator / denominator : 0;
    }
    const double unit = layout.plotPaperUnits() == AcDbPlotSettings::kInches ? millimetresPerInch : 1;
    return scale > 0 && std::isfinite(scale) ? scale * unit : 0;
}

/// The paper around content at a scale, the content in the middle of what the margins leave.
AcDbExtents2d around(const Paper& paper, const AcDbExtents2d& content, double scale)
{
    const AcGePoint2d middle = content.minPoint() + (content.maxPoint() - content.minPoint()) * 0.5;
    const double freeWidth = paper.width - paper.left - paper.right;
    const double freeHeight = paper.height - paper.bottom - paper.top;
    const AcGePoint2d corner(middle.x - (paper.left + freeWidth / 2) / scale,
                             middle.y - (paper.bottom + freeHeight / 2) / scale);
    return {corner, corner + AcGeVector2d(paper.width, paper.height) / scale};
}

/// The layout's own coordinates begin at the corner of what the plotter reaches.
AcDbExtents2d sheetOf(const AcDbLayout& layout, const Paper& paper, double scale)
{
    double x = 0, y = 0;
    layout.getPlotOrigin(x, y);
    const AcGePoint2d corner(-(paper.left + x) / scale, -(paper.bottom + y) / scale);
    return {corner, corner + AcGeVector2d(paper.width, paper.height) / scale};
}

/// What a layout is to show; empty: its sheet.
AcDbExtents2d contentOf(const AcDbLayout& layout, const AcDbExtents2d& extents)
{
    AcGePoint2d min, max;
    switch (layout.plotType()) {
    case AcDbPlotSettings::kExtents:
        return extents;
    case AcDbPlotSettings::kLimits:
        layout.getLimits(min, max);
        break;
    case AcDbPlotSettings::kWindow:
        layout.getPlotWindowArea(min.x, min.y, max.x, max.y);
        break;
    default:
        return {};
    }
    return min.x < max.x && min.y < max.y ? AcDbExtents2d(min, max) : AcDbExtents2d();
}
} // namespace

AcDbExtents2d windowOn(const Paper& paper, const AcDbExtents2d& content)
{
    AcDbExtents2d box = isEmpty(content) ? AcDbExtents2d({0, 0}, {1, 1}) : content;
    AcGeVector2d size = box.maxPoint() - box.minPoint();
    if (!(size.x > 0) && !(size.y > 0)) {
        const AcGeVector2d half(0.5, 0.5);
        box = {box.minPoint() - half, box.maxPoint() + half};
        size.set(1, 1);
    }
    const double freeWidth = paper.width - paper.left - paper.right;
    const double freeHeight = paper.height - paper.bottom - paper.top;
    const double across = size.x > 0 ? freeWidth / size.x : HUGE_VAL;
    const double up = size.y > 0 ? freeHeight / size.y : HUGE_VAL;
    return around(paper, box, std::min(across, up));
}

Paper paperFor(const AcDbExtents2d& content)
{
    constexpr double margin = 10;
    const AcGeVector2d size = isEmpty(content) ? AcGeVector2d(1, 0) : content.maxPoint() - content.minPoint();
    const bool isUpright = size.y > size.x;
    return {isUpright ? 210.0 : 297.0, isUpright ? 297.0 : 210.0, margin, margin, margin, margin};
}

Paper paperOf(const AcDbLayout& layout)
{
    double width = 0, height = 0, left = 0, bottom = 0, right = 0, top = 0;
    layout.getPlotPaperSize(width, height);
    layout.getPlotPaperMargins(left, bottom, right, top);
    if (!(width > 0 && height > 0 && left + right < width && bottom + top < height)) return {};
    // The plot is turned counter-clockwise on the paper: its left edge comes to lie at the paper's bottom.
    switch (layout.plotRotation()) {
    case AcDbPlotSettings::k90degrees:
        return {height, width, bottom, right, top, left};
    case AcDbPlotSettings::k180degrees:
        return {width, height, right, top, left, bottom};
    case AcDbPlotSettings::k270degrees:
        return {height, width, top, left, bottom, right};
    default:
        return {width, height, left, bottom, right, top};
    }
}

AcDbExtents2d windowOf(const AcDbLayout& layout, const Paper& paper, const AcDbExtents2d& extents)
{
    const double scale = scaleOf(layout);
    const AcDbExtents2d content = contentOf(layout, extents);
    if (isEmpty(content)) return sheetOf(layout, paper, scale > 0 ? scale : 1);
    return scale > 0 ? around(paper, content, scale) : windowOn(paper, content);
}
} // namespace plot
