#pragma once

/// From text styles of the drawing to fonts and looks that can be measured and drawn.

#include "FaceSearch.h"
#include "TextMetrics.h"
#include "acgi.h"

/// The font and look of a style as world draws get it.
struct TextLook {
    lettering::FontName font;
    lettering::Look look;
};
TextLook textLookOf(const AcGiTextStyle& style);

/// The style of a record of the text style table; that of "Standard" for the null id.
AcGiTextStyle textStyleOf(AcDbObjectId record);
