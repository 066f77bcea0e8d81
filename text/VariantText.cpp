#include "VariantText.h"

#include "CFamStuStr.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

using varianttext::Style;

namespace
{
/// Variants may refer to variants; a chain longer than this is a mistake of the caller, perhaps a ring.
constexpr int longestReference = 8;

/// How far the reading of a variant has come.
struct Reading {
    Style style;
    int references = 0;       ///< followed from one variant to another
    bool insideArray = false; ///< arrays within arrays are not followed
};

CString narrowText(const std::string& text)
{
    return CString(text.c_str());
}

template <class Integer>
CString integerText(const void* data)
{
    return narrowText(std::to_string(*static_cast<const Integer*>(data)));
}

template <class Real>
CString realText(const void* data, Style style)
{
    const Real value = *static_cast<const Real*>(data);
    if (style == Style::cell) return CFamStuStr::FormatDouble(value);
    char buffer[32]; // the shortest form of a double has at most 24 characters
    return narrowText(std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr));
}

CString currencyText(const void* data)
{
    constexpr unsigned long long unit = 10000;
    const long long amount = static_cast<const CY*>(data)->int64;
    const unsigned long long magnitude =
        amount < 0 ? 0ULL - static_cast<unsigned long long>(amount) : static_cast<unsigned long long>(amount);
    std::string decimals = std::to_string(unit + magnitude % unit).substr(1);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    return narrowText((amount < 0 ? "-" : "") + std::to_string(magnitude / unit) +
                      (decimals.empty() ? "" : "." + decimals));
}

struct CivilDate {
    int year, month, day;
};

/// The Gregorian date of a number of days after 0000-03-01. The calendar repeats after the 146097 days of 400
/// years; the year is counted from March, so that the leap day is its last.
CivilDate civilDate(int days)
{
    const int era = days / 146097;
    const int dayOfEra = days % 146097;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int marchMonth = (5 * dayOfYear + 2) / 153;
    const int month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    return {era * 400 + yearOfEra + (month <= 2), month, dayOfYear - (153 * marchMonth + 2) / 5 + 1};
}

/// An automation date: whole days from 1899-12-30, and the time of the day as a fraction that counts forwards
/// also in days before then (-1.25 is 6 o'clock on 1899-12-29).
CString dateText(const void* data)
{
    constexpr double firstDay = -657434; // 0100-01-01
    constexpr double lastDay = 2958465;  // 9999-12-31
    constexpr int dayZero = 693899;      // of 1899-12-30, after 0000-03-01
    constexpr int secondsOfDay = 86400;
    const double date = *static_cast<const DATE*>(data);
    if (!(date > firstDay - 1 && date < lastDay + 1)) return CString();
    const double whole = std::trunc(date);
    const int seconds = static_cast<int>(std::lround(std::abs(date - whole) * secondsOfDay));
    const int day = static_cast<int>(whole) + seconds / secondsOfDay;
    if (day > lastDay) return CString();
    const CivilDate civil = civilDate(day + dayZero);
    const int time = seconds % secondsOfDay;
    CString text;
    text.Format(L"%04d-%02d-%02d %02d:%02d:%02d", civil.year, civil.month, civil.day, time / 3600,
                time / 60 % 60, time % 60);
    return text;
}

CString truthText(const void* data, Style style)
{
    const bool truth = *static_cast<const VARIANT_BOOL*>(data) != VARIANT_FALSE;
    if (style == Style::cell) return truth ? L"1" : L"0";
    return truth ? L"True" : L"False";
}

CString stringText(const void* data)
{
    const BSTR text = *static_cast<const BSTR*>(data);
    return text ? CString(text, static_cast<int>(SysStringLen(text))) : CString();
}

CString variantText(const VARIANT& value, Reading reading);

/// The text of one value of a type that is no array and no reference, where it lies in memory.
CString valueText(VARTYPE type, const void* data, Reading reading)
{
    switch (type) {
    case VT_I1:
        return integerText<signed char>(data);
    case VT_UI1:
        return integerText<unsigned char>(data);
    case VT_I2:
        return integerText<short>(data);
    case VT_UI2:
        return integerText<unsigned short>(data);
    case VT_I4:
    case VT_INT:
        return integerText<int>(data);
    case VT_UI4:
    case VT_UINT:
        return integerText<unsigned int>(data);
    case VT_I8:
        return integerText<long long>(data);
    case VT_UI8:
        return integerText<unsigned long long>(data);
    case VT_R4:
        return realText<float>(data, reading.style);
    case VT_R8:
        return realText<double>(data, reading.style);
    case VT_CY:
        return currencyText(data);
    case VT_DATE:
        return dateText(data);
    case VT_BOOL:
        return truthText(data, reading.style);
    case VT_BSTR:
        return stringText(data);
    case VT_VARIANT:
        ++reading.references;
        return variantText(*static_cast<const VARIANT*>(data), reading);
    default:
        return CString();
    }
}

size_t elementCount(const SAFEARRAY& array)
{
    size_t count = array.cDims ? 1 : 0;
    for (USHORT i = 0; i < array.cDims; ++i)
        count *= array.rgsabound[i].cElements;
    return count;
}

/// The elements of an array whose type the variant names.
CString arrayText(VARTYPE type, SAFEARRAY* array, Reading reading)
{
    void* data = nullptr;
    if (!array || FAILED(SafeArrayAccessData(array, &data))) return CString();
    reading.insideArray = true;
    CString text;
    const size_t count = elementCount(*array);
    for (size_t i = 0; i < count; ++i) {
        if (i) text += L',';
        text += valueText(type, static_cast<const char*>(data) + i * array->cbElements, reading);
    }
    SafeArrayUnaccessData(array);
    return text;
}

CString variantText(const VARIANT& value, Reading reading)
{
    const VARTYPE type = value.vt & VT_TYPEMASK;
    const bool reference = value.vt & VT_BYREF;
    if (reading.references > longestReference || (reference && !value.byref)) return CString();
    if (!(value.vt & VT_ARRAY)) return valueText(type, reference ? value.byref : &value.llVal, reading);
    if (reading.insideArray || reading.style == Style::cell) return CString();
    return arrayText(type, reference ? *value.pparray : value.parray, reading);
}
} // namespace

CString varianttext::text(const VARIANT& value, Style style)
{
    return variantText(value, Reading{style});
}
