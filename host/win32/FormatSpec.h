#pragma once

namespace crt
{
/// One directive of a format, taken apart.
struct FormatSpec {
    enum class Size { none, byte, half, whole, wide64, wide32, wideText };

    bool isLeft = false;
    bool hasPlus = false;
    bool hasBlank = false;
    bool isAlternate = false;
    bool isZeroFilled = false;
    bool isWidthArgument = false;     ///< The width comes from the arguments.
    bool isPrecisionArgument = false; ///< And so the precision.
    int width = 0;
    int precision = -1; ///< -1: none given.
    Size size = Size::none;
    char conversion = 0; ///< 0: the format ended, or what stands here is no ASCII character.
};

/// Takes the directive apart whose percent sign stands before `text`. The position behind its conversion; the
/// end of the text, or a character that is not in ASCII, is not passed. Widths and precisions beyond INT_MAX
/// count as INT_MAX.
const wchar_t* parseFormatSpec(const wchar_t* text, FormatSpec& spec);
const char* parseFormatSpec(const char* text, FormatSpec& spec);
} // namespace crt
