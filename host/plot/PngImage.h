#pragma once

#include "AtomicFile.h"

#include <cairo.h>

namespace plot
{
/// Writes a picture of the format CAIRO_FORMAT_RGB24 as a PNG file that knows its resolution. Compressed for
/// speed: plots are mostly paper. False when the file took not all of it, or there was no memory.
bool writePng(cairo_surface_t* picture, double dotsPerInch, dxf::AtomicFile& file);
} // namespace plot
