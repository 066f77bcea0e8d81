#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lettering
{
/// The name in lower case, without folders and without the extension of a font file.
std::wstring bareFontName(std::wstring_view name);

/// True for a shape file: a name that ends in .shx, one of AutoCAD's shape files without its extension, no
/// name.
bool isShapeFile(std::wstring_view name);

/// What a font of Windows or AutoCAD is replaced by.
struct Substitute {
    std::vector<std::string> families; ///< in UTF-8, the best first
    bool isChinese = false;            ///< the drawing expects Chinese characters in it
};

/// The families to look for when a drawing names this font: its own name first, then those that resemble it.
/// Never empty; a name that is not known, or empty, gets a sans-serif family.
Substitute substituteFor(std::wstring_view name);
} // namespace lettering
