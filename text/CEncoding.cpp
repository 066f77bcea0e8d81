#include "CEncoding.h"

#include "Utf8Codec.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <limits>
#include <memory>
#include <new>

namespace
{
constexpr UINT simplifiedChinese = 936, traditionalChinese = 950;
constexpr LCID simplifiedLocale = 0x0804, traditionalLocale = 0x20804;

/// Runs a conversion; without memory for its result it throws what the strings of the system throw.
template <class Conversion>
auto withinMemory(Conversion convert)
{
    try {
        return convert();
    } catch (const std::bad_alloc&) {
        AtlThrow(E_OUTOFMEMORY);
    }
}

int checkedLength(std::size_t length)
{
    if (length > static_cast<std::size_t>(std::numeric_limits<int>::max())) AtlThrow(E_INVALIDARG);
    return static_cast<int>(length);
}

int widen(UINT codePage, const char* text, int length, wchar_t* to, int capacity)
{
    return MultiByteToWideChar(codePage, 0, text, length, to, capacity);
}

int narrow(UINT codePage, const wchar_t* text, int length, char* to, int capacity)
{
    return WideCharToMultiByte(codePage, 0, text, length, to, capacity, nullptr, nullptr);
}

std::wstring wideString(UINT codePage, const char* text, std::size_t size)
{
    const int length = checkedLength(size);
    return withinMemory([&] {
        std::wstring wide(widen(codePage, text, length, nullptr, 0), L'\0');
        widen(codePage, text, length, wide.data(), static_cast<int>(wide.size()));
        return wide;
    });
}

std::string narrowString(UINT codePage, const wchar_t* text, std::size_t size)
{
    const int length = checkedLength(size);
    return withinMemory([&] {
        std::string bytes(narrow(codePage, text, length, nullptr, 0), '\0');
        narrow(codePage, text, length, bytes.data(), static_cast<int>(bytes.size()));
        return bytes;
    });
}

constexpr std::size_t pieceSize = 8192;

/// How many bytes of UTF-8 from `at` on are converted together: about a piece, cut where no sequence can
/// go across. A sequence has at most three continuation bytes; behind as many every further one is alone.
std::size_t pieceLength(const std::string& text, std::size_t at)
{
    if (text.size() - at <= pieceSize) return text.size() - at;
    for (std::size_t length = pieceSize; length >= pieceSize - 3; --length)
        if ((static_cast<unsigned char>(text[at + length]) & 0xc0) != 0x80) return length;
    return pieceSize;
}

/// UTF-8 to the ANSI code page, piece by piece so that the wide text between them stays in the cache. No
/// byte makes more than one wide character, and none of those more than four bytes: nothing is measured.
std::string ansiOfUtf8(const std::string& text)
{
    const std::unique_ptr<wchar_t[]> wide(new wchar_t[pieceSize]);
    const std::unique_ptr<char[]> bytes(new char[4 * pieceSize]);
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = pieceLength(text, at);
        const int units = widen(CP_UTF8, text.data() + at, static_cast<int>(length), wide.get(), pieceSize);
        const int size = narrow(CP_ACP, wide.get(), units, bytes.get(), 4 * pieceSize);
        result.append(bytes.get(), static_cast<std::size_t>(size));
        at += length;
    }
    return result;
}

/// A text as an array of its own. `convert(to, capacity)` is called to measure and again to convert.
template <class Char, class Convert>
std::unique_ptr<Char[]> newText(Convert convert)
{
    const int size = convert(nullptr, 0);
    return withinMemory([&] {
        std::unique_ptr<Char[]> text(new Char[static_cast<std::size_t>(size) + 1]());
        convert(text.get(), size);
        return text;
    });
}

std::unique_ptr<wchar_t[]> wideText(UINT codePage, const char* text)
{
    return newText<wchar_t>(
        [&](wchar_t* to, int capacity) { return widen(codePage, text ? text : "", -1, to, capacity); });
}

std::unique_ptr<char[]> narrowText(UINT codePage, const wchar_t* text)
{
    return newText<char>(
        [&](char* to, int capacity) { return narrow(codePage, text ? text : L"", -1, to, capacity); });
}

char* mappedText(const char* text, DWORD mapping, LCID measuringLocale, LCID mappingLocale)
{
    return newText<char>([&](char* to, int capacity) {
               return LCMapStringA(to ? mappingLocale : measuringLocale, mapping, text ? text : "", -1, to,
                                   capacity);
           })
        .release();
}

/// Converts into `result` when the second of the two calls agrees with the first.
template <class String, class Convert>
bool convertInto(String& result, Convert convert)
{
    const int size = convert(nullptr, 0);
    String converted;
    if (convert(converted.GetBuffer(size), size) != size) return false;
    converted.ReleaseBuffer(size);
    result = converted;
    return true;
}

/// Whether the first two bytes of the text in the ANSI code page lie in the two ranges.
bool startsWithin(const CString& text, int firstLeast, int firstMost, int secondLeast, int secondMost)
{
    const CString start = text.Left(2);
    const std::string bytes = narrowString(CP_ACP, start, static_cast<std::size_t>(start.GetLength()));
    if (bytes.size() < 2) return false;
    const auto first = static_cast<unsigned char>(bytes[0]), second = static_cast<unsigned char>(bytes[1]);
    return first >= firstLeast && first <= firstMost && second >= secondLeast && second <= secondMost;
}

/// Prints a diagnostic `count` times. A target of millions of cells can ask for as many diagnostics, so
/// they leave in large pieces.
void printDiagnostics(const char* diagnostic, std::size_t count)
{
    constexpr std::size_t perPiece = 4096;
    std::string piece;
    for (std::size_t i = 0; i < std::min(count, perPiece); ++i)
        piece += diagnostic;
    for (; count >= perPiece; count -= perPiece)
        std::fwrite(piece.data(), 1, piece.size(), stdout);
    std::fwrite(piece.data(), 1, count * std::char_traits<char>::length(diagnostic), stdout);
}

template <class Cell>
std::uint32_t terminate(Cell* dst, std::uint32_t dstSize, std::size_t written)
{
    const std::size_t end = std::min<std::size_t>(written, dstSize - 1);
    dst[end] = 0;
    return static_cast<std::uint32_t>(end + 1);
}

std::uint32_t clampedSize(std::uint64_t size)
{
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>(size, std::numeric_limits<std::uint32_t>::max()));
}

bool staysInUrl(unsigned char byte)
{
    return std::isalnum(byte) || byte == '-' || byte == '_' || byte == '.' || byte == '~';
}

void readHexDigit(char digit, unsigned& value)
{
    const auto code = static_cast<unsigned char>(digit);
    if (code >= '0' && code <= '9') value = code - '0';
    if (code >= 'A' && code <= 'Z') value = code - 55u;
    if (code >= 'a' && code <= 'z') value = code - 87u;
}
} // namespace

std::string CEncoding::ANSIToUTF8(const wchar_t* text, int length)
{
    if (!text) return {};
    const std::size_t whole = std::wcslen(text);
    const int measured = length < 0
                             ? checkedLength(whole)
                             : static_cast<int>(std::min<std::size_t>(whole, static_cast<unsigned>(length)));
    const int size = narrow(CP_UTF8, text, measured, nullptr, 0);
    if (size == 0) return {};
    return withinMemory([&] {
        const std::unique_ptr<char[]> bytes(new char[static_cast<std::size_t>(size) + 1]());
        narrow(CP_UTF8, text, -1, bytes.get(), size);
        return std::string(bytes.get());
    });
}

std::wstring CEncoding::ANSIToUnicode(const std::string& text)
{
    return wideString(CP_ACP, text.data(), text.size());
}

std::string CEncoding::UnicodeToANSI(const wchar_t* text)
{
    return text ? narrowString(CP_ACP, text, std::wcslen(text)) : std::string();
}

std::wstring CEncoding::UTF8ToUnicode(const std::string& text)
{
    return wideString(CP_UTF8, text.data(), text.size());
}

bool CEncoding::UTF8ToUnicode(const CStringA& text, CString& result)
{
    return convertInto(result, [&](wchar_t* to, int capacity) {
        return widen(CP_UTF8, text, text.GetLength(), to, capacity);
    });
}

bool CEncoding::UnicodeToUTF8(const CString& text, CStringA& result)
{
    return convertInto(result, [&](char* to, int capacity) {
        return narrow(CP_UTF8, text, text.GetLength(), to, capacity);
    });
}

std::string CEncoding::UTF8ToGBK(const std::string& text)
{
    return withinMemory([&] { return ansiOfUtf8(text); });
}

std::string CEncoding::UTF8ToGBK(const CString& text)
{
    return UTF8ToGBK(narrowString(CP_THREAD_ACP, text, static_cast<std::size_t>(text.GetLength())));
}

char* CEncoding::G2U(const char* text)
{
    return narrowText(CP_UTF8, wideText(CP_ACP, text).get()).release();
}

char* CEncoding::U2G(const char* text)
{
    return narrowText(CP_ACP, wideText(CP_UTF8, text).get()).release();
}

wchar_t* CEncoding::GB2312ToUnicode(const char* text)
{
    return wideText(simplifiedChinese, text).release();
}

wchar_t* CEncoding::BIG5ToUnicode(const char* text)
{
    return wideText(traditionalChinese, text).release();
}

char* CEncoding::UnicodeToGB2312(const wchar_t* text)
{
    return narrowText(simplifiedChinese, text).release();
}

char* CEncoding::UnicodeToBIG5(const wchar_t* text)
{
    return narrowText(traditionalChinese, text).release();
}

char* CEncoding::BIG5ToGB2312(const char* text)
{
    return mappedText(text, LCMAP_SIMPLIFIED_CHINESE, traditionalLocale, simplifiedLocale);
}

char* CEncoding::GB2312ToBIG5(const char* text)
{
    return mappedText(text, LCMAP_TRADITIONAL_CHINESE, traditionalLocale, traditionalLocale);
}

bool CEncoding::isGB2321Code(CString& text)
{
    return startsWithin(text, 0xb0, 0xf7, 0xa0, 0xfe);
}

bool CEncoding::isGBKCode(CString& text)
{
    return startsWithin(text, 0x81, 0xfe, 0x40, 0xfe);
}

std::uint32_t CEncoding::UTF8ToUnicode16(const std::uint8_t* src, std::uint32_t srcLen, std::uint16_t* dst,
                                         std::uint32_t dstSize)
{
    if (!dst || dstSize == 0) return clampedSize(std::uint64_t{srcLen} + 1);
    const auto done = utf8codec::decode(src, src ? srcLen : 0, dst, dstSize);
    printDiagnostics("error!/n", done.diagnostics);
    return terminate(dst, dstSize, done.written);
}

std::uint32_t CEncoding::Unicode16ToUTF8(const std::uint16_t* src, std::uint32_t srcLen, char* dst,
                                         std::uint32_t dstSize)
{
    if (!dst || dstSize == 0) return clampedSize(std::uint64_t{srcLen} * 3 + 1);
    const auto done = utf8codec::encode(src, src ? srcLen : 0, dst, dstSize);
    printDiagnostics("error/n", done.diagnostics);
    return terminate(dst, dstSize, done.written);
}

std::string CEncoding::UrlEncode(const std::string& text)
{
    static const char digits[] = "0123456789ABCDEF";
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (staysInUrl(byte))
            escaped += c;
        else if (c == ' ')
            escaped += '+';
        else
            escaped.append({'%', digits[byte >> 4], digits[byte & 15]});
    }
    return escaped;
}

std::string CEncoding::UrlDecode(const std::string& text)
{
    std::string plain;
    plain.reserve(text.size());
    unsigned high = 0, low = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%' || text.size() - i < 3) {
            plain += text[i] == '+' ? ' ' : text[i];
            continue;
        }
        readHexDigit(text[++i], high);
        readHexDigit(text[++i], low);
        plain += static_cast<char>(static_cast<unsigned char>(high * 16 + low));
    }
    return plain;
}
