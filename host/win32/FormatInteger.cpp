#include "FormatNumber.h"

#include <algorithm>
#include <charconv>

namespace crt
{
namespace
{
bool isIntegerKind(const FormatArg& arg)
{
    using Kind = FormatArg::Kind;
    return arg.kind == Kind::integer || arg.kind == Kind::narrowCharacter || arg.kind == Kind::wideCharacter;
}

/// The bits of an argument after the promotion that every integer argument undergoes.
int bitsOf(const FormatArg& arg)
{
    return isIntegerKind(arg) ? std::max(32, arg.bytes * 8) : 64;
}

int bitsOf(FormatSpec::Size size, int own)
{
    switch (size) {
    case FormatSpec::Size::byte:
        return 8;
    case FormatSpec::Size::half:
        return 16;
    case FormatSpec::Size::whole:
        return own;
    case FormatSpec::Size::wide64:
        return 64;
    default:
        return 32;
    }
}

std::uint64_t lowBits(std::uint64_t value, int bits)
{
    return bits == 64 ? value : value & ((std::uint64_t(1) << bits) - 1);
}

std::int64_t signExtended(std::uint64_t value, int bits)
{
    const std::uint64_t sign = std::uint64_t(1) << (bits - 1);
    return static_cast<std::int64_t>((lowBits(value, bits) ^ sign) - sign);
}

std::int64_t signedValue(const FormatSpec& spec, const FormatArg& arg)
{
    const int own = bitsOf(arg), wanted = bitsOf(spec.size, own);
    const std::uint64_t value = integerOf(arg);
    return wanted > own ? static_cast<std::int64_t>(value) : signExtended(value, wanted);
}

std::uint64_t unsignedValue(const FormatSpec& spec, const FormatArg& arg)
{
    const int own = bitsOf(arg);
    return lowBits(integerOf(arg), std::min(own, bitsOf(spec.size, own)));
}

std::string digitsOf(std::uint64_t value, int base, bool isUpper)
{
    char digits[64];
    char* end = std::to_chars(digits, digits + sizeof digits, value, base).ptr;
    if (isUpper) {
        std::transform(digits, end, digits, [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
    }
    return std::string(digits, end);
}

/// The precision is the least number of digits; with it the 0 flag means nothing, and 0 has no digits at 0.
void applyPrecision(const FormatSpec& spec, std::uint64_t value, NumberText& text)
{
    if (spec.precision < 0) return;
    text.mayZeroFill = false;
    if (value == 0) text.digits.clear();
    const std::size_t least = spec.precision;
    if (text.digits.size() < least) text.digits.insert(0, least - text.digits.size(), '0');
}

NumberText signedText(const FormatSpec& spec, std::int64_t value)
{
    NumberText text;
    const auto bits = static_cast<std::uint64_t>(value);
    text.digits = digitsOf(value < 0 ? 0 - bits : bits, 10, false);
    text.prefix = value < 0 ? "-" : spec.hasPlus ? "+" : spec.hasBlank ? " " : "";
    applyPrecision(spec, bits, text);
    return text;
}

NumberText unsignedText(const FormatSpec& spec, std::uint64_t value)
{
    const bool isHex = spec.conversion == 'x' || spec.conversion == 'X';
    const bool isOctal = spec.conversion == 'o', isUpper = spec.conversion == 'X';
    NumberText text;
    text.digits = digitsOf(value, isHex ? 16 : isOctal ? 8 : 10, isUpper);
    applyPrecision(spec, value, text);
    if (spec.isAlternate && isHex && value) text.prefix = isUpper ? "0X" : "0x";
    if (spec.isAlternate && isOctal && (text.digits.empty() || text.digits[0] != '0'))
        text.digits.insert(0, 1, '0');
    return text;
}

NumberText pointerText(std::uint64_t value)
{
    NumberText text;
    text.digits = digitsOf(value, 16, true);
    text.digits.insert(0, 16 - text.digits.size(), '0');
    return text;
}

std::uint64_t truncated(double value)
{
    constexpr double limit = 9223372036854775808.0;
    if (!(value > -limit)) return value != value ? 0 : static_cast<std::uint64_t>(INT64_MIN);
    return static_cast<std::uint64_t>(value < limit ? static_cast<std::int64_t>(value) : INT64_MAX);
}
} // namespace

std::uint64_t integerOf(const FormatArg& arg)
{
    if (isIntegerKind(arg)) return arg.integer;
    return arg.kind == FormatArg::Kind::real ? truncated(arg.real)
                                             : reinterpret_cast<std::uintptr_t>(arg.address);
}

NumberText integerText(const FormatSpec& spec, const FormatArg& arg)
{
    if (spec.conversion == 'p') return pointerText(integerOf(arg));
    const bool isSigned = spec.conversion == 'd' || spec.conversion == 'i';
    return isSigned ? signedText(spec, signedValue(spec, arg)) : unsignedText(spec, unsignedValue(spec, arg));
}
} // namespace crt
