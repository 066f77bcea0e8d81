#pragma once

#include <afxv_dll.h>

#include <cstdint>
#include <string>

/// Conversions between code pages, UTF-16 and UTF-8, and URL escapes. All members are static and keep no
/// state.
class AFX_EXT_CLASS CEncoding
{
public:
    /// Decodes UTF-8 into UTF-16 units with a decoder of its own, which reads lead bytes by fixed ranges
    /// and does not check continuation bytes:
    ///
    ///     00..7F   the unit itself
    ///     80..DE   two bytes:   ((b & 1F) << 6) + (next & 3F)
    ///     DF..EF   three bytes: (b << 12) + ((next & 3F) << 6) + (third & 3F), cut to 16 bits
    ///     F0..FF   prints "error!/n" (these very characters) on standard output and stores the previous
    ///              unit again, 0 when there is none, without consuming the byte: the rest of dst is
    ///              filled, with one diagnostic for each stored unit
    ///
    /// A sequence that the end of the source cuts off prints one "error!/n" and stores nothing.
    /// @param src srcLen bytes; null counts as no bytes
    /// @param dst room for dstSize units; null counts as dstSize 0
    /// @return for dstSize 0: srcLen + 1, the number of units that is always enough (at most 2^32 - 1).
    ///     Otherwise the units written with the terminating 0. Output stops when dst is full: its last
    ///     cell then receives the 0, and dstSize is returned. Cells behind the 0 are not touched.
    static std::uint32_t UTF8ToUnicode16(const std::uint8_t* src, std::uint32_t srcLen, std::uint16_t* dst,
                                         std::uint32_t dstSize);

    /// Encodes UTF-16 units as UTF-8 one by one: a surrogate pair is not combined, each half becomes a
    /// three-byte sequence. The unit 7FF is not encoded: "error/n" (these very characters) is printed on
    /// standard output and nothing is written for it.
    /// @param src srcLen units; null counts as no units
    /// @param dst room for dstSize bytes; null counts as dstSize 0
    /// @return for dstSize 0: srcLen * 3 + 1, the number of bytes that is always enough (at most 2^32 - 1).
    ///     Otherwise the bytes written with the terminating 0. The first character with more bytes than
    ///     dst has left ends the output. When dst is full its last cell receives the 0, whatever byte of a
    ///     character it held, and dstSize is returned. Cells behind the 0 are not touched.
    static std::uint32_t Unicode16ToUTF8(const std::uint16_t* src, std::uint32_t srcLen, char* dst,
                                         std::uint32_t dstSize);

    /// Escapes text byte by byte for a URL query: letters and digits, "-", "_", "." and "~" stay, a space
    /// becomes "+", every other byte "%" and two upper-case hexadecimal digits.
    static std::string UrlEncode(const std::string& text);

    /// The reverse of UrlEncode: "+" is a space and "%" with the two characters behind it is one byte,
    /// (high * 16 + low) modulo 256. A digit's value is 0 to 9 for "0" to "9", the code less 55 for "A" to
    /// "Z" (letters beyond F count on from 16) and the code less 87 for "a" to "z"; any other character
    /// keeps the value of that digit (high or low) in the escape before, 0 in the first one. A "%" with
    /// fewer than two characters behind it is no escape; it is copied like every other byte.
    static std::string UrlDecode(const std::string& text);
};
