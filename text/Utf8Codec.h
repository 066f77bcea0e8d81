#pragma once

/// The UTF-8 codec behind CEncoding::UTF8ToUnicode16 and CEncoding::Unicode16ToUTF8, which state its rules.

#include <cstddef>
#include <cstdint>

namespace utf8codec
{
/// Where a conversion stands. The positions always lie between two characters.
struct Progress {
    std::size_t read = 0;        ///< source elements consumed
    std::size_t written = 0;     ///< target elements stored
    std::size_t diagnostics = 0; ///< faults that are to be reported
};

/// Decodes until the source is consumed or `dst` holds `dstSize` units, without a terminating 0.
Progress decode(const std::uint8_t* src, std::size_t srcLen, std::uint16_t* dst, std::size_t dstSize);

/// Encodes until the source is consumed or the next character does not fit, without a terminating 0.
Progress encode(const std::uint16_t* src, std::size_t srcLen, char* dst, std::size_t dstSize);
} // namespace utf8codec
