/// Conversion of units. Factors are exact where the international definition is (inch 0.0254 m, pound
/// 0.45359237 kg, US gallon 231 cubic inches); astronomical ones are those of the IAU.

#include "acutmath.h"

#include <array>
#include <cmath>
#include <cwchar>
#include <cwctype>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace
{
/// Powers of metre, kilogram, second, radian, kelvin and mole.
using Dimension = std::array<int, 6>;

struct Unit {
    double factor = 1.0; ///< in terms of the base units
    Dimension dimension{};
};

constexpr Dimension length{1}, area{2}, volume{3}, mass{0, 1}, timeSpan{0, 0, 1}, angle{0, 0, 0, 1},
    temperature{0, 0, 0, 0, 1}, force{1, 1, -2}, pressure{-1, 1, -2}, energy{2, 1, -2}, power{2, 1, -3},
    frequency{0, 0, -1}, amount{0, 0, 0, 0, 0, 1};

constexpr double pi = 3.14159265358979323846;
constexpr double pound = 0.45359237;
constexpr double gravity = 9.80665;
constexpr double day = 86400.0;

struct NamedUnit {
    const wchar_t* names; ///< with a comma between
    double factor;
    Dimension dimension;
};

constexpr NamedUnit units[] = {
    {L"m,meter,metre", 1, length},
    {L"in,inch,inches,\"", 0.0254, length},
    {L"ft,foot,feet,'", 0.3048, length},
    {L"yd,yard", 0.9144, length},
    {L"mi,mile", 1609.344, length},
    {L"mil", 2.54e-5, length},
    {L"micron", 1e-6, length},
    {L"angstrom", 1e-10, length},
    {L"furlong", 201.168, length},
    {L"fathom", 1.8288, length},
    {L"rod,pole,perch", 5.0292, length},
    {L"chain", 20.1168, length},
    {L"link", 0.201168, length},
    {L"hand", 0.1016, length},
    {L"league", 4828.032, length},
    {L"nautical_mile,nmi", 1852, length},
    {L"survey_foot,survey_feet", 1200.0 / 3937.0, length},
    {L"cubit", 0.4572, length},
    {L"point", 0.0254 / 72, length},
    {L"pica", 0.0254 / 6, length},
    {L"au,astronomical_unit", 149597870700.0, length},
    {L"light_year,lightyear", 9460730472580800.0, length},
    {L"parsec,pc", 149597870700.0 * 648000 / pi, length},
    {L"are", 100, area},
    {L"hectare,ha", 1e4, area},
    {L"acre", 4046.8564224, area},
    {L"barn", 1e-28, area},
    {L"l,liter,litre", 1e-3, volume},
    {L"cc", 1e-6, volume},
    {L"stere", 1, volume},
    {L"gal,gallon", 231 * 1.6387064e-5, volume},
    {L"qt,quart", 57.75 * 1.6387064e-5, volume},
    {L"pt,pint", 28.875 * 1.6387064e-5, volume},
    {L"cup", 14.4375 * 1.6387064e-5, volume},
    {L"floz,fluid_ounce", 231 * 1.6387064e-5 / 128, volume},
    {L"barrel,bbl", 42 * 231 * 1.6387064e-5, volume},
    {L"bushel", 2150.42 * 1.6387064e-5, volume},
    {L"tablespoon,tbsp", 231 * 1.6387064e-5 / 256, volume},
    {L"teaspoon,tsp", 231 * 1.6387064e-5 / 768, volume},
    {L"board_foot,board_feet", 144 * 1.6387064e-5, volume},
    {L"g,gram,gramme", 1e-3, mass},
    {L"t,tonne,metric_ton", 1000, mass},
    {L"lb,pound,lbm", pound, mass},
    {L"oz,ounce", pound / 16, mass},
    {L"ton", 2000 * pound, mass},
    {L"long_ton", 2240 * pound, mass},
    {L"grain", pound / 7000, mass},
    {L"stone", 14 * pound, mass},
    {L"slug", pound* gravity / 0.3048, mass},
    {L"carat", 2e-4, mass},
    {L"dram", pound / 256, mass},
    {L"s,sec,second", 1, timeSpan},
    {L"min,minute", 60, timeSpan},
    {L"h,hr,hour", 3600, timeSpan},
    {L"day", day, timeSpan},
    {L"week,wk", 7 * day, timeSpan},
    {L"fortnight", 14 * day, timeSpan},
    {L"year,yr", 365.25 * day, timeSpan},
    {L"century,centuries", 36525 * day, timeSpan},
    {L"millennium,millennia", 365250 * day, timeSpan},
    {L"rad,radian", 1, angle},
    {L"deg,degree", pi / 180, angle},
    {L"grad,gradian,gon", pi / 200, angle},
    {L"arcmin,arcminute", pi / 10800, angle},
    {L"arcsec,arcsecond", pi / 648000, angle},
    {L"circle,turn,revolution,rev", 2 * pi, angle},
    {L"quadrant", pi / 2, angle},
    {L"k,kelvin,c,celsius,centigrade", 1, temperature},
    {L"f,fahrenheit,rankine", 5.0 / 9.0, temperature},
    {L"n,newton", 1, force},
    {L"dyne", 1e-5, force},
    {L"lbf,pound_force", pound* gravity, force},
    {L"kip", 1000 * pound* gravity, force},
    {L"kgf", gravity, force},
    {L"poundal", pound * 0.3048, force},
    {L"pa,pascal", 1, pressure},
    {L"bar", 1e5, pressure},
    {L"atm,atmosphere", 101325, pressure},
    {L"torr", 101325.0 / 760, pressure},
    {L"psi", pound* gravity / (0.0254 * 0.0254), pressure},
    {L"j,joule", 1, energy},
    {L"erg", 1e-7, energy},
    {L"cal,calorie", 4.1868, energy},
    {L"btu", 1055.05585262, energy},
    {L"wh,watt_hour", 3600, energy},
    {L"w,watt", 1, power},
    {L"hp,horsepower", 550 * 0.3048 * pound* gravity, power},
    {L"hz,hertz", 1, frequency},
    {L"mol,mole", 1, amount},
    {L"knot", 1852.0 / 3600, {1, 0, -1}},
    {L"mph", 1609.344 / 3600, {1, 0, -1}},
    {L"fps", 0.3048, {1, 0, -1}},
    {L"gravity", gravity, {1, 0, -2}},
};

struct Prefix {
    const wchar_t* name;
    const wchar_t* sign;
    double factor;
};
constexpr Prefix prefixes[] = {
    {L"exa", L"E", 1e18},   {L"peta", L"P", 1e15}, {L"tera", L"T", 1e12},  {L"giga", L"G", 1e9},
    {L"mega", L"M", 1e6},   {L"kilo", L"k", 1e3},  {L"hecto", L"h", 1e2},  {L"deka", L"da", 1e1},
    {L"deca", L"da", 1e1},  {L"deci", L"d", 1e-1}, {L"centi", L"c", 1e-2}, {L"milli", L"m", 1e-3},
    {L"micro", L"u", 1e-6}, {L"nano", L"n", 1e-9}, {L"pico", L"p", 1e-12}, {L"femto", L"f", 1e-15},
};

bool sameNoCase(std::wstring_view a, std::wstring_view b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::towlower(static_cast<wint_t>(a[i])) != std::towlower(static_cast<wint_t>(b[i])))
            return false;
    }
    return true;
}

/// Whether one of the names is the word, or its plural.
bool isNamed(std::wstring_view names, std::wstring_view word)
{
    while (!names.empty()) {
        const std::size_t end = std::min(names.find(L','), names.size());
        const std::wstring_view name = names.substr(0, end);
        names.remove_prefix(std::min(end + 1, names.size()));
        if (sameNoCase(name, word)) return true;
        const bool plural =
            name.size() > 2 && word.size() == name.size() + 1 && (word.back() == L's' || word.back() == L'S');
        if (plural && sameNoCase(name, word.substr(0, name.size()))) return true;
    }
    return false;
}

std::optional<Unit> plainUnit(std::wstring_view word)
{
    for (const NamedUnit& unit : units) {
        if (isNamed(unit.names, word)) return Unit{unit.factor, unit.dimension};
    }
    return std::nullopt;
}

/// Prefixes with their whole name go before any unit, their signs (in their own case) before signs only.
std::optional<Unit> prefixedUnit(std::wstring_view word)
{
    for (const Prefix& prefix : prefixes) {
        const std::size_t full = std::wcslen(prefix.name), sign = std::wcslen(prefix.sign);
        const bool isFull = word.size() > full && sameNoCase(word.substr(0, full), prefix.name);
        const bool isSign =
            word.size() > sign && word.size() <= sign + 3 && word.substr(0, sign) == prefix.sign;
        if (!isFull && !isSign) continue;
        std::optional<Unit> unit = plainUnit(word.substr(isFull ? full : sign));
        if (!unit) continue;
        unit->factor *= prefix.factor;
        return unit;
    }
    return std::nullopt;
}

void raise(Unit& unit, int exponent)
{
    unit.factor = std::pow(unit.factor, exponent);
    for (int& each : unit.dimension)
        each *= exponent;
}

void multiply(Unit& product, const Unit& by, int sign)
{
    product.factor *= sign > 0 ? by.factor : 1.0 / by.factor;
    for (std::size_t i = 0; i < product.dimension.size(); ++i)
        product.dimension[i] += sign * by.dimension[i];
}

std::wstring_view trimmed(std::wstring_view text)
{
    while (!text.empty() && text.front() == L' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    return text;
}

/// Takes "sq", "cubic" ... off the front; the power that it stands for.
int takePowerWord(std::wstring_view& term)
{
    const std::size_t blank = term.find(L' ');
    if (blank == std::wstring_view::npos) return 1;
    const std::wstring_view word = term.substr(0, blank);
    const int power = isNamed(L"sq,square", word) ? 2 : isNamed(L"cu,cubic", word) ? 3 : 1;
    if (power > 1) term = trimmed(term.substr(blank));
    return power;
}

std::optional<Unit> termUnit(std::wstring_view term)
{
    term = trimmed(term);
    int exponent = takePowerWord(term);
    const std::size_t caret = term.find(L'^');
    if (caret != std::wstring_view::npos) {
        const std::wstring_view digits = trimmed(term.substr(caret + 1));
        const bool negative = !digits.empty() && digits[0] == L'-';
        if (digits.size() != (negative ? 2u : 1u) || digits.back() < L'1' || digits.back() > L'9')
            return std::nullopt;
        exponent *= (negative ? -1 : 1) * (digits.back() - L'0');
        term = trimmed(term.substr(0, caret));
    }
    std::optional<Unit> unit = plainUnit(term);
    if (!unit) unit = prefixedUnit(term);
    if (unit) raise(*unit, exponent);
    return unit;
}

std::optional<Unit> unitOf(std::wstring_view text)
{
    Unit product;
    int sign = 1;
    for (;;) {
        const std::size_t end = std::min(text.find_first_of(L"*/"), text.size());
        const std::optional<Unit> term = termUnit(text.substr(0, end));
        if (!term) return std::nullopt;
        multiply(product, *term, sign);
        if (end == text.size()) return product;
        sign = text[end] == L'*' ? 1 : -1;
        text.remove_prefix(end + 1);
    }
}
} // namespace

int acutCvUnit(ads_real value, const ACHAR* from, const ACHAR* to, ads_real* result)
{
    const std::optional<Unit> first = from ? unitOf(from) : std::nullopt;
    const std::optional<Unit> second = to ? unitOf(to) : std::nullopt;
    if (!result || !first || !second || first->dimension != second->dimension) return RTERROR;
    *result = value * (first->factor / second->factor);
    return RTNORM;
}
