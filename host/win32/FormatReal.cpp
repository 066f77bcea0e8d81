#include "FormatNumber.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace crt
{
namespace
{
double realOf(const FormatArg& arg)
{
    if (arg.kind == FormatArg::Kind::real) return arg.real;
    if (arg.address) return 0;
    return arg.isSigned ? static_cast<double>(static_cast<std::int64_t>(arg.integer))
                        : static_cast<double>(arg.integer);
}

std::string notFinite(double value)
{
    if (std::isinf(value)) return "inf";
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    constexpr std::uint64_t quiet = std::uint64_t(1) << 51, payload = quiet - 1;
    if (!(bits & quiet)) return "nan(snan)";
    return std::signbit(value) && !(bits & payload) ? "nan(ind)" : "nan";
}

/// The digits of a value that is not negative, as the standard library writes them whatever the locale.
std::string digitsOf(double value, std::chars_format form, int precision)
{
    constexpr int longestWhole = 310, exponent = 8;
    std::string digits(static_cast<std::size_t>(precision) + longestWhole + exponent, 0);
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, form, precision).ptr;
    digits.resize(end - digits.data());
    return digits;
}

/// A decimal point also where no digit follows it.
std::string withPoint(std::string digits, char exponentMark)
{
    if (digits.find('.') == std::string::npos) {
        const std::size_t exponent = digits.find(exponentMark);
        digits.insert(exponent == std::string::npos ? digits.size() : exponent, 1, '.');
    }
    return digits;
}

std::string withoutTrailingZeros(std::string digits)
{
    if (digits.find('.') == std::string::npos) return digits;
    const std::size_t mark = digits.find('e');
    const std::size_t end = mark == std::string::npos ? digits.size() : mark;
    std::size_t kept = digits.find_last_not_of('0', end - 1) + 1;
    if (digits[kept - 1] == '.') --kept;
    return digits.erase(kept, end - kept);
}

/// The C standard's rule for %g: the exponent that %e would print decides between the two styles.
std::string generalDigits(double value, int precision, bool isAlternate)
{
    const int significant = precision == 0 ? 1 : precision;
    std::string digits = digitsOf(value, std::chars_format::scientific, significant - 1);
    const int exponent = std::atoi(digits.c_str() + digits.find('e') + 1);
    if (exponent >= -4 && exponent < significant)
        digits = digitsOf(value, std::chars_format::fixed, significant - 1 - exponent);
    return isAlternate ? withPoint(digits, 'e') : withoutTrailingZeros(digits);
}

std::string finiteDigits(const FormatSpec& spec, char conversion, double value)
{
    constexpr int decimalDefault = 6, hexadecimalDefault = 13;
    const int given = spec.precision;
    const int precision = given >= 0 ? given : conversion == 'a' ? hexadecimalDefault : decimalDefault;
    if (conversion == 'g') return generalDigits(value, precision, spec.isAlternate);
    const auto form = conversion == 'e'   ? std::chars_format::scientific
                      : conversion == 'f' ? std::chars_format::fixed
                                          : std::chars_format::hex;
    const std::string digits = digitsOf(value, form, precision);
    return spec.isAlternate ? withPoint(digits, conversion == 'a' ? 'p' : 'e') : digits;
}

void makeUpper(std::string& text)
{
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
}
} // namespace

NumberText realText(const FormatSpec& spec, const FormatArg& arg)
{
    const double value = realOf(arg);
    const bool isUpper = spec.conversion < 'a';
    const char conversion = static_cast<char>(isUpper ? spec.conversion - 'A' + 'a' : spec.conversion);
    NumberText text;
    text.prefix = std::signbit(value) ? "-" : spec.hasPlus ? "+" : spec.hasBlank ? " " : "";
    text.mayZeroFill = std::isfinite(value);
    if (text.mayZeroFill && conversion == 'a') text.prefix += "0x";
    text.digits = text.mayZeroFill ? finiteDigits(spec, conversion, std::fabs(value)) : notFinite(value);
    if (isUpper) {
        makeUpper(text.prefix);
        makeUpper(text.digits);
    }
    return text;
}
} // namespace crt
