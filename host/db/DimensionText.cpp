#include "DimensionText.h"

#include "UnitsText.h"

#include <cmath>
#include <string_view>

namespace
{
std::wstring wide(const CString& text)
{
    return std::wstring(text, static_cast<std::size_t>(text.GetLength()));
}

/// Replaces each `mark`; false when there is none.
bool replaceAll(std::wstring& text, std::wstring_view mark, const std::wstring& by)
{
    bool found = false;
    for (std::size_t at = text.find(mark); at != std::wstring::npos; at = text.find(mark, at + by.size())) {
        text.replace(at, mark.size(), by);
        found = true;
    }
    return found;
}

double rounded(double value, double step)
{
    return step > 0.0 ? std::round(value / step) * step : value;
}

wchar_t separatorOf(const DimVariables& v)
{
    return v.dimdsep > 0 ? static_cast<wchar_t>(v.dimdsep) : L'.';
}

/// The units that numbers of one kind (primary, alternative) are shown in.
struct NumberStyle {
    units::LinearFormat linear;
    int toleranceZeros = 0, tolerancePlaces = 4;
};

/// Style values say 4 and 5 for stacked architectural and fractional units, 6 and 7 for those that are not.
void setAlternativeUnit(units::LinearFormat& format, int unit)
{
    format.fraction = unit >= 6 ? units::Fraction::notStacked : units::Fraction::horizontal;
    format.unit = unit == 8   ? units::Linear::desktop
                  : unit >= 6 ? static_cast<units::Linear>(unit - 2)
                              : static_cast<units::Linear>(unit);
}

NumberStyle primaryStyle(const DimVariables& v)
{
    NumberStyle style;
    style.linear.unit = static_cast<units::Linear>(v.dimlunit);
    style.linear.precision = v.dimdec;
    style.linear.zeros = v.dimzin;
    style.linear.separator = separatorOf(v);
    style.linear.fraction = static_cast<units::Fraction>(v.dimfrac);
    style.toleranceZeros = v.dimtzin;
    style.tolerancePlaces = v.dimtdec;
    return style;
}

NumberStyle alternativeStyle(const DimVariables& v)
{
    NumberStyle style;
    setAlternativeUnit(style.linear, v.dimaltu);
    style.linear.precision = v.dimaltd;
    style.linear.zeros = v.dimaltz;
    style.linear.separator = separatorOf(v);
    style.toleranceZeros = v.dimalttz;
    style.tolerancePlaces = v.dimalttd;
    return style;
}

std::wstring heightCode(const DimVariables& v)
{
    if (v.dimtfac == 1.0 || !(v.dimtfac > 0.0)) return L"";
    units::LinearFormat format;
    format.zeros = 8;
    return L"\\H" + units::lengthText(v.dimtfac, format) + L"x;";
}

std::wstring stacked(const DimVariables& v, const std::wstring& upper, const std::wstring& lower)
{
    return L'{' + heightCode(v) + L"\\S" + upper + L'^' + lower + L";}";
}

std::wstring signedNumber(double value, const units::LinearFormat& format, wchar_t sign)
{
    const std::wstring text = units::lengthText(std::fabs(value), format);
    return value == 0.0 ? L' ' + text : (value < 0.0 ? (sign == L'+' ? L'-' : L'+') : sign) + text;
}

/// A length with its tolerances or between its limits. `factor` maps drawing units to the units shown.
std::wstring lengthWithTolerance(const DimVariables& v, const NumberStyle& style, double length,
                                 double factor)
{
    units::LinearFormat tolerance = style.linear;
    tolerance.precision = style.tolerancePlaces;
    tolerance.zeros = style.toleranceZeros;
    const double plus = v.dimtp * factor, minus = v.dimtm * factor;
    if (v.dimlim) {
        return stacked(v, units::lengthText(length + plus, style.linear),
                       units::lengthText(length - minus, style.linear));
    }
    const std::wstring text = units::lengthText(length, style.linear);
    if (!v.dimtol) return text;
    if (plus == minus) {
        return text + L'{' + heightCode(v) + L'\u00B1' + units::lengthText(plus, tolerance) + L'}';
    }
    return text + stacked(v, signedNumber(plus, tolerance, L'+'), signedNumber(minus, tolerance, L'-'));
}

std::wstring angleNumber(const DimVariables& v, double angle)
{
    units::AngularFormat format;
    format.unit = static_cast<units::Angular>(v.dimaunit);
    format.precision = v.dimadec < 0 ? v.dimdec : v.dimadec;
    format.zeros = v.dimazin;
    format.separator = separatorOf(v);
    return units::angleText(angle, format);
}

double lengthFactor(const DimVariables& v, const DimensionMeasure& measure)
{
    if (v.dimlfac < 0.0) return measure.isInPaperSpace ? -v.dimlfac : 1.0;
    return v.dimlfac == 0.0 ? 1.0 : v.dimlfac;
}

/// "<>" in a pattern of DIMPOST stands for the number; a pattern without is put behind it.
std::wstring inPattern(const CString& pattern, const std::wstring& number, const wchar_t* sign)
{
    std::wstring text = wide(pattern);
    const bool hasPrefix = text.find(L"<>") != std::wstring::npos && text.compare(0, 2, L"<>") != 0;
    const std::wstring signedText = hasPrefix ? number : sign + number;
    return replaceAll(text, L"<>", signedText) ? text : signedText + text;
}

std::wstring primaryText(const DimVariables& v, const DimensionMeasure& measure)
{
    if (measure.isAngle) return inPattern(v.dimpost, angleNumber(v, measure.value), measure.sign);
    const double length = rounded(measure.value * lengthFactor(v, measure), v.dimrnd);
    return inPattern(v.dimpost, lengthWithTolerance(v, primaryStyle(v), length, 1.0), measure.sign);
}

std::wstring alternativeText(const DimVariables& v, const DimensionMeasure& measure)
{
    const double length = rounded(measure.value * lengthFactor(v, measure) * v.dimaltf, v.dimaltrnd);
    return L'[' +
           inPattern(v.dimapost, lengthWithTolerance(v, alternativeStyle(v), length, v.dimaltf),
                     measure.sign) +
           L']';
}
} // namespace

std::wstring dimensionText(const DimVariables& variables, const DimensionMeasure& measure,
                           const CString& userText)
{
    std::wstring text = wide(userText);
    if (text == L" ") return L"";
    const bool hasAlternative = !measure.isAngle;
    const std::wstring alternative = hasAlternative ? alternativeText(variables, measure) : L"";
    std::wstring primary = primaryText(variables, measure);
    if (hasAlternative && variables.dimalt && text.find(L"[]") == std::wstring::npos)
        primary += L' ' + alternative;
    if (text.empty()) return primary;
    replaceAll(text, L"<>", primary);
    if (hasAlternative) replaceAll(text, L"[]", alternative);
    return text;
}
