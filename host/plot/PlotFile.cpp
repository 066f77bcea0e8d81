#include "PlotFile.h"
#include "PngImage.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <cmath>

namespace plot
{
namespace
{
constexpr double pointsPerMillimetre = 72 / 25.4;
/// What cairo's pictures take at a side, and what a plot may take of the memory (4 bytes a pixel).
constexpr double longestSide = 32000, mostPixels = 250e6;

cairo_status_t append(void* file, const unsigned char* data, unsigned int length)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), length);
    return static_cast<dxf::AtomicFile*>(file)->append(bytes) ? CAIRO_STATUS_SUCCESS
                                                              : CAIRO_STATUS_WRITE_ERROR;
}

PlotStatus statusOf(dxf::FileStatus status)
{
    switch (status) {
    case dxf::FileStatus::done:
        return PlotStatus::done;
    case dxf::FileStatus::notFound:
        return PlotStatus::notFound;
    case dxf::FileStatus::accessDenied:
        return PlotStatus::accessDenied;
    case dxf::FileStatus::diskFull:
        return PlotStatus::diskFull;
    default:
        return PlotStatus::failed;
    }
}

bool isSize(double width, double height)
{
    return width >= 1 && height >= 1 && width <= longestSide && height <= longestSide;
}
} // namespace

PlotFile::PlotFile(std::wstring path, PlotFormat format) : mPath(std::move(path)), mFormat(format) {}

PlotFile::~PlotFile()
{
    discard();
}

PlotStatus PlotFile::begin(const Page& page)
{
    if (mSurface && mFormat != PlotFormat::pdf) return PlotStatus::badPage;
    const bool isPicture = mFormat == PlotFormat::png;
    const double scale = isPicture ? page.dotsPerInch / 25.4 : pointsPerMillimetre;
    double width = page.width * scale, height = page.height * scale;
    if (isPicture) {
        width = std::round(width);
        height = std::round(height);
    }
    if (!isSize(width, height) || (isPicture && width * height > mostPixels)) return PlotStatus::badPage;
    mScale = scale;
    mWidth = width;
    mHeight = height;
    if (!mSurface) return open();
    cairo_show_page(mContext);
    cairo_pdf_surface_set_size(mSurface, mWidth, mHeight);
    return status();
}

PlotStatus PlotFile::open()
{
    mFile = std::make_unique<dxf::AtomicFile>(mPath);
    if (mFile->status() != dxf::FileStatus::done) return statusOf(mFile->status());
    mSurface = newSurface();
    mContext = cairo_create(mSurface);
    return status();
}

cairo_surface_t* PlotFile::newSurface()
{
    if (mFormat == PlotFormat::svg)
        return cairo_svg_surface_create_for_stream(append, mFile.get(), mWidth, mHeight);
    if (mFormat == PlotFormat::pdf)
        return cairo_pdf_surface_create_for_stream(append, mFile.get(), mWidth, mHeight);
    return cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(mWidth),
                                      static_cast<int>(mHeight));
}

PlotStatus PlotFile::status() const
{
    if (!mFile) return PlotStatus::failed;
    if (mFile->status() != dxf::FileStatus::done) return statusOf(mFile->status());
    return mContext && cairo_status(mContext) == CAIRO_STATUS_SUCCESS ? PlotStatus::done : PlotStatus::failed;
}

PlotStatus PlotFile::finish()
{
    PlotStatus result = status();
    if (result == PlotStatus::done && !writeRest()) {
        result = status();
        if (result == PlotStatus::done) result = PlotStatus::failed;
    }
    if (result == PlotStatus::done) result = statusOf(mFile->commit());
    discard();
    return result;
}

bool PlotFile::writeRest()
{
    if (mFormat == PlotFormat::png) return writePng(mSurface, mScale * 25.4, *mFile);
    cairo_surface_finish(mSurface);
    return cairo_surface_status(mSurface) == CAIRO_STATUS_SUCCESS;
}

void PlotFile::discard()
{
    // The surface may still hold bytes for the file, which goes last.
    if (mContext) cairo_destroy(mContext);
    if (mSurface) cairo_surface_destroy(mSurface);
    mContext = nullptr;
    mSurface = nullptr;
    mFile.reset();
}
} // namespace plot
