#pragma once

#include <afx.h>
#include <afxv_dll.h>

#include <cstdint>
#include <string>

/// Conversions between code pages, UTF-16 and UTF-8, URL escapes and tests of GB codes. All members are
/// static and keep no state.
///
/// "ANSI" is the system's code page, 936 on the systems this is made for, which the names "GBK" and "GB2312"
/// stand for too. Wide text is CString's, wchar_t. Input that is no text of its encoding is no error: the
/// system converter's replacement character stands for it.
///
/// Texts given as a standard string are converted whole, zeros included. Texts given as a pointer end at the
/// first zero; null counts as the empty text. An array that is returned is never null, ends with a zero, and
/// is released by the caller with delete[].
///
/// Where there is no memory for the result CAtlException(E_OUTOFMEMORY) is thrown, for a text of more than
/// 2^31 - 1 elements CAtlException(E_INVALIDARG).
class AFX_EXT_CLASS CEncoding
{
public:
    /// Wide text to UTF-8, despite the name. `length`, in characters, only sizes the result: the whole text
    /// is converted, and cut behind the last character that fits into the bytes that its first `length`
    /// characters take. A length behind the end of the text counts as the end, a negative one too; 0 gives
    /// the empty string.
    static std::string ANSIToUTF8(const wchar_t* text, int length);

    static std::wstring ANSIToUnicode(const std::string& text);
    static std::string UnicodeToANSI(const wchar_t* text);
    static std::wstring UTF8ToUnicode(const std::string& text);

    /// Between UTF-8 and wide text. False, with the result untouched, when the converter does not write as
    /// much as it had measured.
    static bool UTF8ToUnicode(const CStringA& text, CString& result);
    static bool UnicodeToUTF8(const CString& text, CStringA& result);

    /// UTF-8 to ANSI.
    static std::string UTF8ToGBK(const std::string& text);

    /// Narrows the wide text in the thread's ANSI code page, takes those bytes for UTF-8 and converts them to
    /// ANSI. The double step is meant: it puts a text right that is UTF-8 read as if it were ANSI. Of a text
    /// that was read properly only ASCII survives it.
    static std::string UTF8ToGBK(const CString& text);

    /// ANSI to UTF-8, and back.
    static char* G2U(const char* text);
    static char* U2G(const char* text);

    /// The code pages 936 and 950 to wide text, and back.
    static wchar_t* GB2312ToUnicode(const char* text);
    static wchar_t* BIG5ToUnicode(const char* text);
    static char* UnicodeToGB2312(const wchar_t* text);
    static char* UnicodeToBIG5(const wchar_t* text);

    /// Maps traditional characters to simplified ones, and simplified to traditional. Despite the names the
    /// text is in code page 936, which has both, and stays in it: that is the code page of both locales. The
    /// first measures under locale 20804 and maps under 0804, the second does both under 20804.
    static char* BIG5ToGB2312(const char* text);
    static char* GB2312ToBIG5(const char* text);

    /// Whether the text, in the ANSI code page, begins with two bytes of the ranges of GB 2312 (B0..F7,
    /// A0..FE) or of GBK (81..FE, 40..FE). What follows is not looked at; a text of less than two bytes does
    /// not.
    static bool isGB2321Code(CString& text);
    static bool isGBKCode(CString& text);

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
