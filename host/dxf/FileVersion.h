#pragma once

#include <string>
#include <string_view>

namespace dxf
{
/// The version of a drawing file: the number behind "AC" in $ACADVER. Other numbers than these occur
/// (1006 is R10); versions compare as numbers.
enum class FileVersion : int {
    r12 = 1009,
    r13 = 1012,
    r14 = 1014,
    r2000 = 1015,
    r2004 = 1018,
    r2007 = 1021,
    r2010 = 1024,
    r2013 = 1027,
    r2018 = 1032,
};

/// The version that a text such as "AC1032" names; r12, the version of files without $ACADVER, when it is
/// none.
FileVersion versionOf(std::string_view name);
std::string nameOf(FileVersion version);

/// Texts of these versions are UTF-8; those of the others are in the header's $DWGCODEPAGE.
constexpr bool isUtf8(FileVersion version)
{
    return version >= FileVersion::r2007;
}

/// In a binary file of these versions a group code takes two bytes; in older ones one byte, or three.
constexpr bool hasWideCodes(FileVersion version)
{
    return version >= FileVersion::r13;
}
} // namespace dxf
