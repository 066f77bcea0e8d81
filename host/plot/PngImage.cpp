#include "PngImage.h"

#include <png.h>

#include <cmath>

namespace plot
{
namespace
{
void append(png_structp png, png_bytep data, png_size_t length)
{
    auto& file = *static_cast<dxf::AtomicFile*>(png_get_io_ptr(png));
    if (!file.append({reinterpret_cast<const char*>(data), length})) png_error(png, "not written");
}

void ignoreFlush(png_structp) {}
void ignoreWarning(png_structp, png_const_charp) {}
/// Without the library's own line on the standard error output.
void leave(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

struct PngHandles {
    png_structp png = nullptr;
    png_infop info = nullptr;

    PngHandles() : png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, leave, ignoreWarning))
    {
        if (png) info = png_create_info_struct(png);
    }
    ~PngHandles() { png_destroy_write_struct(&png, &info); }
    PngHandles(const PngHandles&) = delete;
    PngHandles& operator=(const PngHandles&) = delete;
};

void writeHeader(const PngHandles& to, cairo_surface_t* picture, double dotsPerInch)
{
    const auto width = static_cast<png_uint_32>(cairo_image_surface_get_width(picture));
    const auto height = static_cast<png_uint_32>(cairo_image_surface_get_height(picture));
    png_set_IHDR(to.png, to.info, width, height, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    const auto dotsPerMetre = static_cast<png_uint_32>(std::lround(dotsPerInch / 0.0254));
    png_set_pHYs(to.png, to.info, dotsPerMetre, dotsPerMetre, PNG_RESOLUTION_METER);
    png_set_compression_level(to.png, 1);
    png_set_filter(to.png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_write_info(to.png, to.info);
}

/// Cairo's pixels are 32-bit numbers 00RRGGBB: in memory blue, green, red and a byte to leave out.
void writeRows(const PngHandles& to, cairo_surface_t* picture)
{
    png_set_bgr(to.png);
    png_set_filler(to.png, 0, PNG_FILLER_AFTER);
    const unsigned char* row = cairo_image_surface_get_data(picture);
    for (int y = cairo_image_surface_get_height(picture); y > 0; --y) {
        png_write_row(to.png, row);
        row += cairo_image_surface_get_stride(picture);
    }
    png_write_end(to.png, to.info);
}

/// The library leaves by a jump when something fails: nothing with a destructor may be in between.
bool write(const PngHandles& to, cairo_surface_t* picture, double dotsPerInch)
{
    if (setjmp(png_jmpbuf(to.png)) != 0) return false;
    writeHeader(to, picture, dotsPerInch);
    writeRows(to, picture);
    return true;
}
} // namespace

bool writePng(cairo_surface_t* picture, double dotsPerInch, dxf::AtomicFile& file)
{
    const PngHandles handles;
    if (!handles.info) return false;
    cairo_surface_flush(picture);
    png_set_write_fn(handles.png, &file, append, ignoreFlush);
    return write(handles, picture, dotsPerInch);
}
} // namespace plot
