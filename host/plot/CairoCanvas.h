#pragma once

#include "Canvas.h"
#include "DeviceClip.h"
#include "PlotFile.h"

namespace plot
{
/// Plots into a PNG, SVG or PDF file. A PDF file may have several pages. The file appears under its name when
/// finish() has succeeded; a canvas that is given up before leaves nothing behind.
class CairoCanvas final : public Canvas
{
public:
    /// `path` as CreateFileW takes it; nothing is opened before the first page.
    CairoCanvas(std::wstring path, PlotFormat format);

    PlotStatus begin(const Page& page) override;
    PlotStatus finish() override;
    void pushTransform(const AcGeMatrix2d& transform) override;
    void popTransform() override;
    void pushClip(const Loops& loops, FillRule rule) override;
    void popClip() override;
    void stroke(const Stroke& stroke, const Pen& pen) override;
    void segments(const std::vector<kernel::HatchPiece>& lines, const Pen& pen) override;
    void dots(const Points& points, const Pen& pen) override;
    void fill(const Loops& loops, FillRule rule, const Paint& paint) override;
    void image(cairo_surface_t* picture, const AcGePoint2d& corner, const AcGeVector2d& width,
               const AcGeVector2d& height) override;
    double finest() const override;

private:
    Points toDevice(const Points& points) const;
    void setPen(const Pen& pen) const;
    void setPaint(const Paint& paint) const;
    void addLoops(const Loops& loops, FillRule rule) const;
    void addSegment(const kernel::HatchPiece& line) const;
    void strokeLine(const Points& line, bool isClosed) const;
    void strokeDots(const Points& devicePoints) const;
    DashOptions dashOptions(const Stroke& stroke, const Pen& pen) const;
    void resetPage(const Page& page);

    PlotFile mFile;
    PlotStatus mTrouble = PlotStatus::done; ///< the first failure
    std::vector<AcGeMatrix2d> mTransforms;  ///< to device units; the last one holds
    int mClips = 0;
    DeviceBox mBox; ///< what is drawn outside of it cannot be seen
};
} // namespace plot
