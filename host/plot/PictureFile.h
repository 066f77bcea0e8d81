#pragma once

/// Picture files as they are plotted.

#include <atlstr.h>

#include <cairo.h>

#include <memory>

namespace plot
{
struct SurfaceRelease {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Picture = std::unique_ptr<cairo_surface_t, SurfaceRelease>;

/// 0 to 100; 50 leaves brightness and contrast as they are, 0 the fade.
struct Tone {
    int brightness = 50, contrast = 50, fade = 0;
    bool isTransparent = true; ///< false: what is seen through becomes white
};

/// Reads a PNG or JPEG file of at most 100 million pixels. Null for others, and for one that is damaged.
Picture readPicture(const CString& path);
/// Makes a picture lighter, richer or paler.
void setTone(cairo_surface_t* picture, const Tone& tone);
} // namespace plot
