#include "UnitsText.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace units
{
namespace
{
constexpr double pi = 3.14159265358979323846;
constexpr int noLeadingZero = 4;
constexpr int noTrailingZeros = 8;

int withinPlaces(int precision)
{
    return std::clamp(precision, 0, 8);
}

/// Fractions and feet count in whole numbers; longer lengths are shown as decimals.
constexpr double mostExact = 1e15;

std::wstring wide(const char* text)
{
    return std::wstring(text, text + std::char_traits<char>::length(text));
}

/// Decimals, rounded half away from zero as people expect of what they see: 0.125 with two places is 0.13.
std::wstring fixed(double value, int places)
{
    const double step = std::pow(10.0, places);
    const double rounded = std::fabs(value) < mostExact / step ? std::round(value * step) / step : value;
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.*f", places, rounded == 0.0 ? 0.0 : rounded);
    return wide(buffer);
}

/// Takes zeros off the mantissa of a number and puts its decimal separator in.
std::wstring trimmed(std::wstring text, int zeros, wchar_t separator)
{
    const std::size_t exponent = std::min(text.find(L'E'), text.size());
    std::wstring tail = text.substr(exponent);
    text.resize(exponent);
    std::size_t point = text.find(L'.');
    if ((zeros & noTrailingZeros) && point != std::wstring::npos) {
        text.erase(text.find_last_not_of(L'0') + 1);
        if (text.back() == L'.') text.pop_back();
    }
    const std::size_t first = text[0] == L'-' ? 1 : 0;
    if ((zeros & noLeadingZero) && text.compare(first, 2, L"0.") == 0) text.erase(first, 1);
    point = text.find(L'.');
    if (point != std::wstring::npos) text[point] = separator;
    return text + tail;
}

std::wstring scientific(double length, const LinearFormat& format)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*E", withinPlaces(format.precision),
                  length == 0.0 ? 0.0 : length);
    return trimmed(wide(buffer), format.zeros, format.separator);
}

std::wstring decimal(double length, const LinearFormat& format)
{
    return trimmed(fixed(length, withinPlaces(format.precision)), format.zeros, format.separator);
}

/// Feet and inches joined, without those that are zero and not wanted.
std::wstring feetAndInches(long long feet, const std::wstring& inches, bool noInches, int zeros)
{
    const bool dropsFeet = feet == 0 && ((zeros & 3) == 0 || (zeros & 3) == 3);
    const bool dropsInches = noInches && ((zeros & 3) == 0 || (zeros & 3) == 2) && !(dropsFeet && feet == 0);
    if (dropsFeet) return inches + L'"';
    const std::wstring front = std::to_wstring(feet) + L'\'';
    return dropsInches ? front : front + L'-' + inches + L'"';
}

std::wstring engineering(double length, const LinearFormat& format)
{
    const int places = withinPlaces(format.precision);
    const double step = std::pow(10.0, places);
    const double size = std::round(std::fabs(length) * step) / step;
    const auto feet = static_cast<long long>(size / 12.0);
    const double inches = size - 12.0 * static_cast<double>(feet);
    const std::wstring text = trimmed(fixed(inches, places), format.zeros & ~noLeadingZero, format.separator);
    const std::wstring sign = length < 0.0 && size > 0.0 ? L"-" : L"";
    return sign + feetAndInches(feet, text, inches < 0.5 / step, format.zeros);
}

/// "n/d", stacked for a multiline text where asked for.
std::wstring fractionText(long long numerator, long long denominator, Fraction style)
{
    const std::wstring top = std::to_wstring(numerator), bottom = std::to_wstring(denominator);
    if (style == Fraction::notStacked) return top + L'/' + bottom;
    return L"\\S" + top + (style == Fraction::diagonal ? L'#' : L'/') + bottom + L';';
}

/// A number of smallest parts as a whole number and a reduced fraction.
std::wstring mixedNumber(long long parts, int precision, Fraction style)
{
    long long denominator = 1LL << precision;
    const long long whole = parts / denominator;
    long long numerator = parts % denominator;
    if (numerator == 0) return std::to_wstring(whole);
    while (numerator % 2 == 0) {
        numerator /= 2;
        denominator /= 2;
    }
    const std::wstring fraction = fractionText(numerator, denominator, style);
    if (whole == 0) return fraction;
    return std::to_wstring(whole) + (style == Fraction::notStacked ? L" " : L"") + fraction;
}

std::wstring fractional(double length, const LinearFormat& format)
{
    const int precision = withinPlaces(format.precision);
    const long long parts = std::llround(std::fabs(length) * static_cast<double>(1LL << precision));
    const std::wstring sign = length < 0.0 && parts != 0 ? L"-" : L"";
    return sign + mixedNumber(parts, precision, format.fraction);
}

std::wstring architectural(double length, const LinearFormat& format)
{
    const int precision = withinPlaces(format.precision);
    const long long perFoot = 12LL << precision;
    const long long parts = std::llround(std::fabs(length) * static_cast<double>(1LL << precision));
    const std::wstring inches = mixedNumber(parts % perFoot, precision, format.fraction);
    const std::wstring sign = length < 0.0 && parts != 0 ? L"-" : L"";
    return sign + feetAndInches(parts / perFoot, inches, parts % perFoot == 0, format.zeros);
}

/// Degrees, minutes and seconds; the places ask for each and for decimals of the last.
std::wstring sexagesimal(double degrees, const AngularFormat& format)
{
    const int places = std::max(0, format.precision);
    const int decimals = std::clamp(places - 4, 0, 8);
    const double step = places == 0 ? 1.0 : places <= 2 ? 60.0 : 3600.0 * std::pow(10.0, decimals);
    const double parts = std::round(std::fabs(degrees) * step);
    const std::wstring sign = degrees < 0.0 && parts > 0.0 ? L"-" : L"";
    const auto whole = static_cast<long long>(parts / step);
    std::wstring text = sign + std::to_wstring(whole) + L'\u00B0';
    if (places == 0) return text;
    const double minutes = (parts / step - static_cast<double>(whole)) * 60.0;
    const double wholeMinutes = places <= 2 ? std::round(minutes) : std::floor(minutes + 1e-9);
    text += std::to_wstring(static_cast<long long>(wholeMinutes)) + L'\'';
    if (places <= 2) return text;
    const double seconds = std::max(0.0, (minutes - wholeMinutes) * 60.0);
    return text +
           trimmed(fixed(seconds, decimals), (format.zeros & 2) ? noTrailingZeros : 0, format.separator) +
           L'"';
}
} // namespace

std::wstring lengthText(double length, const LinearFormat& format)
{
    if (!std::isfinite(length)) length = 0.0;
    const bool isCountable = std::fabs(length) < mostExact / 4096.0;
    switch (format.unit) {
    case Linear::scientific:
        return scientific(length, format);
    case Linear::engineering:
        return isCountable ? engineering(length, format) : decimal(length, format);
    case Linear::architectural:
        return isCountable ? architectural(length, format) : decimal(length, format);
    case Linear::fractional:
        return isCountable ? fractional(length, format) : decimal(length, format);
    default:
        return decimal(length, format);
    }
}

std::wstring angleText(double angle, const AngularFormat& format)
{
    if (!std::isfinite(angle)) angle = 0.0;
    if (format.unit == Angular::degreesMinutesSeconds) return sexagesimal(angle * 180.0 / pi, format);
    const int zeros = ((format.zeros & 1) ? noLeadingZero : 0) | ((format.zeros & 2) ? noTrailingZeros : 0);
    const auto number = [&](double value) {
        return trimmed(fixed(value, withinPlaces(format.precision)), zeros, format.separator);
    };
    switch (format.unit) {
    case Angular::gradians:
        return number(angle * 200.0 / pi) + L'g';
    case Angular::radians:
        return number(angle) + L'r';
    default:
        return number(angle * 180.0 / pi) + L'\u00B0';
    }
}
} // namespace units
