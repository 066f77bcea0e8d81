#include "PictureFile.h"

#include <windows.h>

#include <cstddef>
#include <cstdio>

#define _BASETSD_H_ // the types of Windows are there: the JPEG library makes no INT32 of its own
#include <jpeglib.h>

#include <algorithm>
#include <csetjmp>
#include <cstring>
#include <vector>

namespace plot
{
namespace
{
using Bytes = std::vector<unsigned char>;
constexpr double mostPixels = 1e8;

struct FileClose {
    void operator()(void* file) const { CloseHandle(file); }
};

Bytes bytesOf(const CString& path)
{
    HANDLE opened = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return {};
    const std::unique_ptr<void, FileClose> file(opened);
    Bytes bytes;
    DWORD count = 0;
    do {
        const std::size_t begin = bytes.size();
        bytes.resize(begin + (1 << 20));
        if (!ReadFile(opened, bytes.data() + begin, 1 << 20, &count, nullptr)) return {};
        bytes.resize(begin + count);
    } while (count);
    return bytes;
}

Picture newPicture(double width, double height)
{
    if (!(width * height <= mostPixels)) return nullptr;
    Picture picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)));
    return cairo_surface_status(picture.get()) == CAIRO_STATUS_SUCCESS ? std::move(picture) : nullptr;
}

struct Reading {
    const Bytes& bytes;
    std::size_t at = 0;
};

cairo_status_t readNext(void* closure, unsigned char* data, unsigned length)
{
    auto& reading = *static_cast<Reading*>(closure);
    if (length > reading.bytes.size() - reading.at) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(data, reading.bytes.data() + reading.at, length);
    reading.at += length;
    return CAIRO_STATUS_SUCCESS;
}

/// The size that a PNG file claims to have, before memory is taken for it.
bool hasGoodSize(const Bytes& png)
{
    if (png.size() < 24) return false;
    const auto number = [&](std::size_t at) { return ((png[at] * 256.0 + png[at + 1]) * 256 + png[at + 2]) * 256 + png[at + 3]; };
    return number(16) * number(20) <= mostPixels;
}

Picture readPng(const Bytes& bytes)
{
    if (!hasGoodSize(bytes)) return nullptr;
    Reading reading{bytes};
    Picture read(cairo_image_surface_create_from_png_stream(readNext, &reading));
    if (cairo_surface_status(read.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
    Picture picture = newPicture(cairo_image_surface_get_width(read.get()), cairo_image_surface_get_height(read.get()));
    if (!picture) return nullptr;
    cairo_t* context = cairo_create(picture.get());
    cairo_set_source_surface(context, read.get(), 0, 0);
    cairo_paint(context);
    cairo_destroy(context);
    return picture;
}

struct JpegErrors : jpeg_error_mgr {
    std::jmp_buf place;
};

[[noreturn]] void leave(j_common_ptr info)
{
    // The library is C and ends a read in no other way.
    std::longjmp(static_cast<JpegErrors*>(info->err)->place, 1);
}

void keepQuiet(j_common_ptr) {}

/// Reads into `picture`, which is made here; nothing between the mark and a jump to it has a destructor.
bool decode(jpeg_decompress_struct& info, JpegErrors& errors, const Bytes& bytes, Bytes& row, Picture& picture)
{
    if (setjmp(errors.place)) return false;
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, bytes.data(), bytes.size());
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_EXT_BGRA;
    picture = newPicture(info.image_width, info.image_height);
    if (!picture) return false;
    jpeg_start_decompress(&info);
    row.resize(static_cast<std::size_t>(info.output_width) * 4);
    unsigned char* const pixels = cairo_image_surface_get_data(picture.get());
    const int stride = cairo_image_surface_get_stride(picture.get());
    while (info.output_scanline < info.output_height) {
        unsigned char* const to = pixels + static_cast<std::ptrdiff_t>(stride) * info.output_scanline;
        JSAMPROW rows[] = {row.data()};
        jpeg_read_scanlines(&info, rows, 1);
        std::memcpy(to, row.data(), row.size());
    }
    jpeg_finish_decompress(&info);
    return true;
}

Picture readJpeg(const Bytes& bytes)
{
    jpeg_decompress_struct info{};
    JpegErrors errors;
    info.err = jpeg_std_error(&errors);
    errors.error_exit = leave;
    errors.output_message = keepQuiet;
    Bytes row;
    Picture picture;
    const bool isRead = decode(info, errors, bytes, row, picture);
    jpeg_destroy_decompress(&info);
    if (!isRead) return nullptr;
    cairo_surface_mark_dirty(picture.get());
    return picture;
}

unsigned char toned(unsigned char value, const Tone& tone)
{
    const double richer = (value - 127.5) * tone.contrast / 50.0 + 127.5 + (tone.brightness - 50) * 2.55;
    const double paler = richer + (255.0 - richer) * tone.fade / 100.0;
    return static_cast<unsigned char>(std::clamp(paler + 0.5, 0.0, 255.0));
}
} // namespace

Picture readPicture(const CString& path)
{
    const Bytes bytes = bytesOf(path);
    if (bytes.size() < 4) return nullptr;
    if (bytes[0] == 0x89 && bytes[1] == 'P') return readPng(bytes);
    return bytes[0] == 0xFF && bytes[1] == 0xD8 ? readJpeg(bytes) : nullptr;
}

void setTone(cairo_surface_t* picture, const Tone& tone)
{
    cairo_surface_flush(picture);
    unsigned char table[256];
    for (int value = 0; value < 256; ++value)
        table[value] = toned(static_cast<unsigned char>(value), tone);
    unsigned char* row = cairo_image_surface_get_data(picture);
    const int width = cairo_image_surface_get_width(picture);
    for (int y = cairo_image_surface_get_height(picture); y > 0; --y, row += cairo_image_surface_get_stride(picture)) {
        for (unsigned char* pixel = row; pixel < row + width * 4; pixel += 4) {
            // Colours hold their share of the opacity.
            const int alpha = pixel[3];
            for (int channel = 0; channel < 3 && alpha; ++channel) {
                const int whole = std::min(pixel[channel] * 255 / alpha, 255);
                pixel[channel] = static_cast<unsigned char>(table[whole] * alpha / 255 + (tone.isTransparent ? 0 : 255 - alpha));
            }
            if (!alpha && !tone.isTransparent) pixel[0] = pixel[1] = pixel[2] = 255;
            if (!tone.isTransparent) pixel[3] = 255;
        }
    }
    cairo_surface_mark_dirty(picture);
}
} // namespace plot
