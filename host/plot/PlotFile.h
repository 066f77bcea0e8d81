#pragma once

#include "AtomicFile.h"
#include "Canvas.h"

#include <cairo.h>

#include <memory>

namespace plot
{
enum class PlotFormat { png, svg, pdf };

/// A plot's file: a surface of cairo whose bytes appear under the file's name when all are there.
class PlotFile
{
public:
    PlotFile(std::wstring path, PlotFormat format);
    ~PlotFile();
    PlotFile(const PlotFile&) = delete;
    PlotFile& operator=(const PlotFile&) = delete;

    /// Begins a page; only a PDF file has more than one.
    PlotStatus begin(const Page& page);
    /// Writes what is left and puts the file in its place.
    PlotStatus finish();
    /// Gives the plot up; the file is what it was.
    void discard();

    /// What to draw on; null when no page was begun.
    cairo_t* context() const { return mContext; }
    /// Device units (pixels, or points of 1/72 inch) in a millimetre, and the page's size in them.
    double unitsPerMillimetre() const { return mScale; }
    double width() const { return mWidth; }
    double height() const { return mHeight; }
    /// The thinnest line, in device units.
    double thinnest() const { return mFormat == PlotFormat::png ? 1 : 0.25; }
    /// How many lines one path takes: in a picture few, since the rows between them are walked for each path; in
    /// other files many, since each path has a head there.
    std::size_t linesAtOnce() const { return mFormat == PlotFormat::png ? 16 : 256; }

private:
    PlotStatus open();
    cairo_surface_t* newSurface();
    PlotStatus status() const;
    bool writeRest();

    std::wstring mPath;
    PlotFormat mFormat;
    std::unique_ptr<dxf::AtomicFile> mFile;
    cairo_surface_t* mSurface = nullptr;
    cairo_t* mContext = nullptr;
    double mScale = 1, mWidth = 0, mHeight = 0;
};
} // namespace plot
