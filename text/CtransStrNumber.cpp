#include "CtransStr.h"

#include "CFamStuStr.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace
{
bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

/// The position after the digits that start at `begin`.
int endOfDigits(const CString& text, int begin)
{
    while (begin < text.GetLength() && isDigit(text[begin]))
        ++begin;
    return begin;
}

/// The number of zeros before an integer that do not count; its last digit always counts.
int leadingZeros(const wchar_t* digits, int length)
{
    int zeros = 0;
    while (zeros + 1 < length && digits[zeros] == L'0')
        ++zeros;
    return zeros;
}

/// The plain form of a full-width character of Chinese input; others as they are.
wchar_t halfWidth(wchar_t c)
{
    constexpr int distance = 0xFEE0; // U+FF01..U+FF5E repeat U+0021..U+007E
    return c >= 0xFF01 && c <= 0xFF5E ? static_cast<wchar_t>(c - distance) : c;
}

/// The parts of a number as they are found among other characters.
struct CollectedNumber {
    bool negative = false;
    bool point = false;
    std::wstring whole;
    std::wstring decimals;

    void add(wchar_t c)
    {
        if (isDigit(c))
            (point ? decimals : whole) += c;
        else if (c == L'.')
            point = true;
        else if (c == L'-' && whole.empty() && !point)
            negative = true;
    }
    std::wstring text() const
    {
        if (whole.empty() && decimals.empty()) return {};
        const std::wstring integer =
            whole.empty() ? L"0" : whole.substr(leadingZeros(whole.data(), static_cast<int>(whole.size())));
        return (negative ? L"-" : L"") + integer + (decimals.empty() ? L"" : L"." + decimals);
    }
};

/// The thousandths in the fraction of a value, cut off to a whole number from 0 to 1000. A value that misses
/// a whole number of thousandths by no more than its own rounding counts as that number.
int thousandths(double magnitude)
{
    double whole = 0;
    const double scaled = std::modf(magnitude, &whole) * 1000;
    const double rounding = magnitude * 1000 * 2 * std::numeric_limits<double>::epsilon();
    const double nearest = std::round(scaled);
    return static_cast<int>(std::abs(scaled - nearest) <= rounding ? nearest : std::floor(scaled));
}

int shortDecimals(double value)
{
    const int digits = thousandths(std::abs(value));
    if (digits % 10) return 3;
    if (digits / 10 % 10) return 2;
    return digits / 100 % 10 ? 1 : 0;
}

/// The value of a number text made of a sign, digits and a point, without regard to the locale.
std::optional<double> numberValue(CString text)
{
    text.Trim();
    const int begin = !text.IsEmpty() && (text[0] == L'-' || text[0] == L'+');
    const int point = endOfDigits(text, begin);
    const int end = point < text.GetLength() && text[point] == L'.' ? endOfDigits(text, point + 1) : point;
    const int digits = end - begin - (end > point);
    if (digits < 1 || end != text.GetLength()) return std::nullopt;
    const std::string narrow(text.GetString() + begin, text.GetString() + end);
    double value = 0;
    if (std::from_chars(narrow.data(), narrow.data() + narrow.size(), value).ec != std::errc())
        return std::nullopt;
    return text[0] == L'-' ? -value : value;
}
} // namespace

int CtransStr::IsNumberic(CString& text, uint16_t maxDecimals)
{
    text.Trim();
    if (text.IsEmpty() || text[0] == L'.') return 0;
    const int point = endOfDigits(text, text[0] == L'-');
    if (point == text.GetLength()) return 1;
    if (text[point] != L'.') return 0;
    const int end = endOfDigits(text, point + 1);
    return end == text.GetLength() && end - point - 1 <= maxDecimals;
}

int CtransStr::IsLegalNumber(CString& text)
{
    const int point = endOfDigits(text, 0);
    if (point == 0) return 0;
    if (point < text.GetLength()) {
        const int end = text[point] == L'.' ? endOfDigits(text, point + 1) : 0;
        if (end != text.GetLength() || end == point + 1) return 0;
    }
    text = text.Mid(leadingZeros(text.GetString(), point));
    return 1;
}

CString CtransStr::getLegalNumber(const CString& text)
{
    CollectedNumber number;
    for (int i = 0; i < text.GetLength(); ++i)
        number.add(halfWidth(text[i]));
    const std::wstring legal = number.text();
    return CString(legal.data(), static_cast<int>(legal.size()));
}

int CtransStr::getDotNum(const CString& text)
{
    const int point = text.Find(L'.');
    return point < 0 ? 0 : endOfDigits(text, point + 1) - point - 1;
}

CString CtransStr::GetDoubleStr(const double& value)
{
    if (!std::isfinite(value)) return CString();
    CString text;
    text.Format(L"%.*f", shortDecimals(value), value);
    return text == L"-0" ? CString(L"0") : text;
}

CString CtransStr::IntToStr(int value)
{
    return TransToStr(value);
}

CString CtransStr::TransToStr(int value)
{
    CString text;
    text.Format(L"%d", value);
    return text;
}

CString CtransStr::TransToStr(long long value)
{
    CString text;
    text.Format(L"%I64d", value);
    return text;
}

CString CtransStr::TransToStr(double value)
{
    return CFamStuStr::FormatDouble(value);
}

CString CtransStr::TransToStr(const char* text)
{
    return text ? CString(text) : CString();
}

CString CtransStr::MultiDoubleStr(const CString& first, const CString& second)
{
    const std::optional<double> a = numberValue(first);
    const std::optional<double> b = numberValue(second);
    if (!a || !b || !std::isfinite(*a * *b)) return CString();
    return TransToStr(*a * *b);
}

int CtransStr::IsMobileNumber(const CString& text)
{
    constexpr int length = 11;
    return text.GetLength() == length && endOfDigits(text, 0) == length && text[0] == L'1' && text[1] >= L'3';
}
