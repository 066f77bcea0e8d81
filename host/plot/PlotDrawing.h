#pragma once

/// Plots a drawing into a file.

#include "Canvas.h"

#include <atlstr.h>

#include <string>

class AcDbDatabase;

namespace plot
{
struct PlotRequest {
    std::wstring file;  ///< its ending names the format: .png, .svg or .pdf
    CString layout;     ///< empty or "Model": model space, all that is in it
    double width = 0;   ///< of the paper, millimetres; with 0 the layout's, or A4
    double height = 0;
    double dotsPerInch = 150; ///< of PNG files
    int pixels = 0;           ///< of a PNG file at its longer side; counts before dotsPerInch when above 0
};

/// Plots a layout, or model space from above. Entities of classes that are not in memory are not shown. With another
/// status than done there is no new file, and an old one is as it was.
PlotStatus plotDrawing(const AcDbDatabase& database, const PlotRequest& request);

/// What a status says to a user, in English; empty for done.
const char* reasonOf(PlotStatus status);
} // namespace plot
