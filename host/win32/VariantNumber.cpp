#include "VariantNumber.h"

#include "OleDate.h"

#include "winerror.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace
{
using win32::Number;

constexpr Number moneyScale = 10000;
constexpr int lastAscii = 0x7f;

template <class T>
HRESULT storeInteger(Number number, T& target)
{
    const Number rounded = std::nearbyint(number); // halves to the even one
    if (!(rounded >= static_cast<Number>(std::numeric_limits<T>::min()) &&
          rounded <= static_cast<Number>(std::numeric_limits<T>::max())))
        return DISP_E_OVERFLOW;
    target = static_cast<T>(rounded);
    return S_OK;
}

HRESULT storeMoney(Number number, CY& target)
{
    LONGLONG scaled = 0;
    const HRESULT result = storeInteger(number * moneyScale, scaled);
    target.int64 = scaled;
    return result;
}

template <class T>
HRESULT storeReal(Number number, T& target)
{
    if (!(std::abs(number) <= static_cast<Number>(std::numeric_limits<T>::max()))) return DISP_E_OVERFLOW;
    target = static_cast<T>(number);
    return S_OK;
}

HRESULT storeDate(Number number, DATE& target)
{
    const auto date = static_cast<DATE>(number);
    if (!win32::isOleDate(date)) return DISP_E_OVERFLOW;
    target = date;
    return S_OK;
}

HRESULT storeUnsigned(Number number, VARTYPE type, VARIANT& made)
{
    switch (type) {
    case VT_UI1:
        return storeInteger(number, made.bVal);
    case VT_UI2:
        return storeInteger(number, made.uiVal);
    case VT_UI8:
        return storeInteger(number, made.ullVal);
    default:
        return storeInteger(number, made.ulVal);
    }
}

HRESULT storeSigned(Number number, VARTYPE type, VARIANT& made)
{
    switch (type) {
    case VT_I1:
        return storeInteger(number, made.cVal);
    case VT_I2:
        return storeInteger(number, made.iVal);
    case VT_I8:
        return storeInteger(number, made.llVal);
    default:
        return storeInteger(number, made.lVal);
    }
}

bool isBlank(wchar_t c)
{
    return c == L' ' || c == L'\t' || c == 0x3000;
}

std::wstring_view trimmed(std::wstring_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// The text as ASCII without group commas, which stand between digits before the point only.
bool plainDigits(std::wstring_view text, std::string& plain)
{
    bool whole = true;
    for (wchar_t c : text) {
        if (c > lastAscii || c <= L' ') return false;
        const bool digit = c >= L'0' && c <= L'9';
        whole = whole && (digit || c == L',' || plain.empty());
        if (c == L',' && (!whole || plain.empty() || plain.back() < '0')) return false;
        if (c != L',') plain += static_cast<char>(c);
    }
    return !plain.empty() && text.back() != L',';
}

bool parseHexadecimal(std::wstring_view text, Number& number)
{
    std::string digits;
    for (wchar_t c : text)
        digits += c <= lastAscii ? static_cast<char>(c) : '?';
    UINT64 value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc() || end != digits.data() + digits.size()) return false;
    number =
        static_cast<Number>(value <= 0xffffffff ? static_cast<LONG>(value) : static_cast<LONGLONG>(value));
    return true;
}

std::wstring widened(const char* text)
{
    return std::wstring(text, text + std::char_traits<char>::length(text));
}

std::wstring textOfReal(double value, int digits)
{
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.*G", digits, value == 0 ? 0 : value);
    for (char& c : buffer)
        if (c == ',') c = '.'; // the decimal sign of the process's locale
    return widened(buffer);
}

std::wstring textOfMoney(LONGLONG amount)
{
    const ULONGLONG size = amount < 0 ? 0 - static_cast<ULONGLONG>(amount) : static_cast<ULONGLONG>(amount);
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%s%llu.%04llu", amount < 0 ? "-" : "", size / 10000, size % 10000);
    std::wstring text = widened(buffer);
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.back() == L'.') text.pop_back();
    return text;
}
} // namespace

namespace win32
{
bool isNumeric(VARTYPE type)
{
    return (type >= VT_I2 && type <= VT_DATE) || type == VT_BOOL || (type >= VT_I1 && type <= VT_UINT);
}

Number numberOf(const VARIANT& value)
{
    switch (value.vt) {
    case VT_I1:
        return value.cVal;
    case VT_UI1:
        return value.bVal;
    case VT_I2:
        return value.iVal;
    case VT_UI2:
        return value.uiVal;
    case VT_UINT:
    case VT_UI4:
        return value.ulVal;
    case VT_I8:
        return static_cast<Number>(value.llVal);
    case VT_UI8:
        return static_cast<Number>(value.ullVal);
    case VT_R4:
        return static_cast<Number>(value.fltVal);
    case VT_R8:
        return static_cast<Number>(value.dblVal);
    case VT_DATE:
        return static_cast<Number>(value.date);
    case VT_CY:
        return static_cast<Number>(value.cyVal.int64) / moneyScale;
    case VT_BOOL:
        return value.boolVal ? -1 : 0;
    default:
        return value.lVal;
    }
}

HRESULT storeNumber(Number number, VARTYPE type, VARIANT& made)
{
    made.vt = type;
    switch (type) {
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UINT:
    case VT_UI8:
        return storeUnsigned(number, type, made);
    case VT_R4:
        return storeReal(number, made.fltVal);
    case VT_R8:
        return storeReal(number, made.dblVal);
    case VT_DATE:
        return storeDate(number, made.date);
    case VT_CY:
        return storeMoney(number, made.cyVal);
    case VT_BOOL:
        made.boolVal = number != 0 ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    default:
        return storeSigned(number, type, made);
    }
}

bool parseNumber(std::wstring_view text, Number& number)
{
    text = trimmed(text);
    if (text.substr(0, 2) == L"&H" || text.substr(0, 2) == L"&h")
        return parseHexadecimal(text.substr(2), number);
    std::string plain;
    if (!plainDigits(text, plain)) return false;
    const char* begin = plain.data() + (plain.front() == '+' ? 1 : 0);
    const bool startsLikeNumber = *begin == '.' || *begin == '-' || (*begin >= '0' && *begin <= '9');
    if (!startsLikeNumber || plain.find_first_of("nN") != std::string::npos) return false; // no nan, no inf
    const auto [end, error] = std::from_chars(begin, plain.data() + plain.size(), number);
    if (error == std::errc::result_out_of_range) number = std::numeric_limits<Number>::infinity();
    return end == plain.data() + plain.size() && error != std::errc::invalid_argument;
}

std::wstring textOfNumber(const VARIANT& value)
{
    switch (value.vt) {
    case VT_R4:
        return textOfReal(value.fltVal, 7);
    case VT_R8:
        return textOfReal(value.dblVal, 15);
    case VT_CY:
        return textOfMoney(value.cyVal.int64);
    case VT_UI8:
        return std::to_wstring(value.ullVal);
    default:
        return std::to_wstring(static_cast<LONGLONG>(numberOf(value)));
    }
}
} // namespace win32
