#include "CStringShell.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <system_error>

namespace
{
constexpr int mostDecimals = 60;

/// The ASCII bytes of a trimmed text; empty when there is any other character.
std::string asciiOf(CGTStringW text)
{
    text.Trim();
    std::string ascii;
    for (int i = 0; i < text.GetLength(); ++i) {
        if (text[i] <= 0 || text[i] >= 0x80) return std::string();
        ascii += static_cast<char>(text[i]);
    }
    // std::from_chars knows no plus sign.
    if (ascii.size() > 1 && ascii[0] == '+' && ascii[1] != '-') ascii.erase(0, 1);
    return ascii;
}

template <class Number>
int parse(const CGTStringW& text, Number& value)
{
    const std::string ascii = asciiOf(text);
    const char* const end = ascii.data() + ascii.size();
    Number read{};
    const std::from_chars_result result = std::from_chars(ascii.data(), end, read);
    if (ascii.empty() || result.ec != std::errc() || result.ptr != end) return 0;
    if (!std::isfinite(static_cast<double>(read))) return 0; // "nan" and "inf" are no numbers of a profile
    value = read;
    return 1;
}
} // namespace

CGTStringW CStringShell::ToWide(const char* text, UINT codePage)
{
    CGTStringW wide;
    const int size = text ? MultiByteToWideChar(codePage, 0, text, -1, nullptr, 0) : 0;
    if (size <= 1) return wide;
    MultiByteToWideChar(codePage, 0, text, -1, wide.GetBuffer(size), size);
    wide.ReleaseBuffer(size - 1);
    return wide;
}

CStringA CStringShell::ToNarrow(const CGTStringW& text, UINT codePage)
{
    CStringA narrow;
    const int length = text.GetLength();
    if (length == 0) return narrow;
    const int size = WideCharToMultiByte(codePage, 0, text, length, nullptr, 0, nullptr, nullptr);
    WideCharToMultiByte(codePage, 0, text, length, narrow.GetBuffer(size), size, nullptr, nullptr);
    narrow.ReleaseBuffer(size);
    return narrow;
}

int CStringShell::Split(const CGTStringW& text, const CGTStringW& separator, CStringArray& pieces)
{
    CStringArray found;
    int start = 0;
    int end = separator.IsEmpty() ? -1 : text.Find(separator);
    for (; end >= 0; end = text.Find(separator, start)) {
        found.Add(text.Mid(start, end - start));
        start = end + separator.GetLength();
        if (start >= text.GetLength()) break;
    }
    found.Add(text.Mid(start));
    pieces.Copy(found);
    return static_cast<int>(pieces.GetSize());
}

CGTStringW CStringShell::Join(const CStringArray& pieces, const CGTStringW& separator)
{
    CGTStringW text;
    for (INT_PTR i = 0; i < pieces.GetSize(); ++i) {
        if (i > 0) text += separator;
        text += pieces[i];
    }
    return text;
}

int CStringShell::ToInt(const CGTStringW& text, int& value)
{
    return parse(text, value);
}

int CStringShell::ToDouble(const CGTStringW& text, double& value)
{
    return parse(text, value);
}

CGTStringW CStringShell::FromInt(int value)
{
    return CGTStringW(std::to_string(value).c_str());
}

CGTStringW CStringShell::FromDouble(double value, int decimals)
{
    char digits[512]; // the largest double has 309 digits before the point
    const std::to_chars_result result =
        decimals < 0 ? std::to_chars(digits, std::end(digits), value)
                     : std::to_chars(digits, std::end(digits), value, std::chars_format::fixed,
                                     std::min(decimals, mostDecimals));
    return CGTStringW(digits, static_cast<int>(result.ptr - digits));
}
