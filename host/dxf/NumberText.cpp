#include "NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

namespace dxf
{
namespace
{
constexpr std::array<double, 23> powersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t exactLimit = std::uint64_t(1) << 53;

bool isDigit(char c)
{
    return static_cast<unsigned char>(c - '0') < 10;
}

constexpr std::array<signed char, 256> makeHexDigits()
{
    std::array<signed char, 256> values{};
    for (auto& value : values)
        value = -1;
    for (int i = 0; i < 10; ++i)
        values[static_cast<std::size_t>('0' + i)] = static_cast<signed char>(i);
    for (int i = 0; i < 6; ++i)
        values[static_cast<std::size_t>('A' + i)] = values[static_cast<std::size_t>('a' + i)] =
            static_cast<signed char>(10 + i);
    return values;
}
constexpr auto hexDigits = makeHexDigits();

int hexDigit(char c)
{
    return hexDigits[static_cast<unsigned char>(c)];
}

/// Decimal digits in a row. Beyond 19 the value is not meaningful.
struct Digits {
    std::uint64_t value = 0;
    int count = 0;
};

const char* scanDigits(const char* at, const char* end, Digits& digits)
{
    const char* const start = at;
    std::uint64_t value = digits.value;
    for (; at != end && isDigit(*at); ++at)
        value = value * 10 + static_cast<unsigned>(*at - '0');
    digits.value = value;
    digits.count += static_cast<int>(at - start < 1000 ? at - start : 1000);
    return at;
}

/// 5^decimals and its reciprocal: floor(2^(63 + bits) / 5^decimals), where the power has so many bits.
struct PowerOfFive {
    std::uint64_t reciprocal = 0;
    int bits = 0;
};
__extension__ using Unsigned128 = unsigned __int128;

constexpr std::array<PowerOfFive, 20> makePowersOfFive()
{
    std::array<PowerOfFive, 20> powers{};
    std::uint64_t power = 1;
    for (std::size_t i = 1; i < powers.size(); ++i) {
        power *= 5;
        while (power >> powers[i].bits != 0)
            ++powers[i].bits;
        powers[i].reciprocal = static_cast<std::uint64_t>((Unsigned128(1) << (63 + powers[i].bits)) / power);
    }
    return powers;
}
constexpr auto powersOfFive = makePowersOfFive();

double powerOfTwo(int exponent)
{
    const std::uint64_t bits = static_cast<std::uint64_t>(1023 + exponent) << 52;
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// The double nearest to digits / 10^decimals, for digits > 0 and 1 to 19 decimals; false when the product
/// with the reciprocal, which is exact to 63 bits, does not decide how to round. (The idea is Eisel's and
/// Lemire's, "Number parsing at a gigabyte per second", 2021.)
bool divideByPowerOfTen(std::uint64_t digits, int decimals, double& value)
{
    const PowerOfFive& power = powersOfFive[static_cast<std::size_t>(decimals)];
    const int zeros = __builtin_clzll(digits);
    // The true quotient, so scaled, lies in [high, high + 2).
    const auto high = static_cast<std::uint64_t>(Unsigned128(digits << zeros) * power.reciprocal >> 64);
    const int dropped = high >> 63 ? 11 : 10;
    const std::uint64_t half = std::uint64_t(1) << (dropped - 1);
    const std::uint64_t low = high & (2 * half - 1);
    if (low == half || low == half - 1) return false;
    const std::uint64_t mantissa = (high >> dropped) + (low > half);
    value = static_cast<double>(mantissa) * powerOfTwo(dropped + 1 - power.bits - zeros - decimals);
    return true;
}

/// digits / 10^decimals where that can be told without a library; false where not.
bool makeReal(const Digits& digits, int decimals, double& value)
{
    if (digits.count == 0 || digits.count > 19) return false;
    if (digits.value <= exactLimit) { // Clinger's exact case: both operands are exact
        value = static_cast<double>(digits.value) / powersOfTen[static_cast<std::size_t>(decimals)];
        return true;
    }
    if (decimals == 0) {
        value = static_cast<double>(digits.value);
        return true;
    }
    return divideByPowerOfTen(digits.value, decimals, value);
}

/// A number in which an exponent's letter D is written as E, for those programs that write FORTRAN's form.
NumberScan scanWithLetterD(const char* at, const char* letter, const char* end, double& value)
{
    std::string text(at, static_cast<std::size_t>(letter - at));
    text += 'E';
    const char* tail = letter + 1;
    while (tail != end && tail - letter < 8 && (isDigit(*tail) || *tail == '-' || *tail == '+'))
        text += *tail++;
    const NumberScan scan = scanReal(text.data(), text.data() + text.size(), value);
    return {at + (scan.end - text.data()), scan.outcome};
}

/// Out of a double's range on the small side: the exponent is negative, or the number starts 0.0...
bool isTiny(const char* at, const char* end)
{
    for (const char* c = at; c != end; ++c)
        if (*c == 'e' || *c == 'E') return c + 1 != end && c[1] == '-';
    return at != end && (*at == '0' || *at == '.');
}

/// Any form, by the library; `at` stands behind the sign.
NumberScan scanSlowly(const char* at, const char* end, bool isNegative, double& value)
{
    double magnitude = 0;
    if (at != end && *at == '-') return {at, NumberOutcome::none};
    const auto [stop, error] = std::from_chars(at, end, magnitude);
    if (error == std::errc::invalid_argument) return {at, NumberOutcome::none};
    if (error == std::errc::result_out_of_range && !isTiny(at, stop)) return {stop, NumberOutcome::notFinite};
    if (!std::isfinite(magnitude)) return {stop, NumberOutcome::notFinite};
    if (stop != end && (*stop == 'd' || *stop == 'D')) {
        const NumberScan scan = scanWithLetterD(at, stop, end, magnitude);
        value = isNegative ? -magnitude : magnitude;
        return scan;
    }
    value = isNegative ? -magnitude : magnitude;
    return {stop, NumberOutcome::done};
}

/// The number of decimals, at most 9, with which `magnitude` is written exactly; -1 when it needs more.
/// `scaled` is the number without its point, below 10^15 so that it is the only one of its length that
/// reads back as this double (Clinger's exact case: both operands of the division are exact).
int fewDecimals(double magnitude, std::uint64_t& scaled)
{
    for (const int decimals : {0, 3, 6, 9}) {
        const double power = powersOfTen[static_cast<std::size_t>(decimals)];
        const double product = magnitude * power;
        if (!(product < 1e15)) return -1;
        scaled = static_cast<std::uint64_t>(product + 0.5);
        if (static_cast<double>(scaled) / power == magnitude) return decimals;
    }
    return -1;
}

/// Writes scaled / 10^decimals with a point and no zeros at the end but the one behind the point.
char* writeFixed(char* to, std::uint64_t scaled, int decimals)
{
    while (decimals > 0 && scaled % 10 == 0) {
        scaled /= 10;
        --decimals;
    }
    char digits[24];
    const char* const last = std::to_chars(digits, digits + sizeof digits, scaled).ptr;
    const auto count = static_cast<int>(last - digits);
    const int whole = count - decimals;
    if (whole > 0) {
        to = static_cast<char*>(std::memcpy(to, digits, static_cast<std::size_t>(whole))) + whole;
        *to++ = '.';
    } else {
        to = static_cast<char*>(std::memcpy(to, "0.000000000", static_cast<std::size_t>(2 - whole))) + 2 -
             whole;
    }
    if (decimals == 0) {
        *to++ = '0';
        return to;
    }
    const int tail = whole > 0 ? decimals : count;
    return static_cast<char*>(std::memcpy(to, last - tail, static_cast<std::size_t>(tail))) + tail;
}

char* writeShortest(char* to, double magnitude)
{
    char* const end = std::to_chars(to, to + longestNumber - 3, magnitude).ptr;
    for (const char* c = to; c != end; ++c)
        if (*c == '.' || *c == 'e') return end;
    std::memcpy(end, ".0", 2);
    return end + 2;
}
} // namespace

NumberScan scanInteger(const char* at, const char* end, std::int64_t& value)
{
    const char* const start = at;
    const bool isNegative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+')) ++at;
    const char* const first = at;
    Digits digits;
    at = scanDigits(at, end, digits);
    if (digits.count == 0) return {start, NumberOutcome::none};
    if (digits.count <= 18) {
        value =
            isNegative ? -static_cast<std::int64_t>(digits.value) : static_cast<std::int64_t>(digits.value);
        return {at, NumberOutcome::done};
    }
    const auto [stop, error] = std::from_chars(isNegative ? start : first, at, value);
    return {at, error == std::errc() ? NumberOutcome::done : NumberOutcome::tooLarge};
}

NumberScan scanReal(const char* at, const char* end, double& value)
{
    const char* const start = at;
    const bool isNegative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+')) ++at;
    const char* const first = at;
    Digits digits;
    at = scanDigits(at, end, digits);
    int decimals = 0;
    if (at != end && *at == '.') {
        const int whole = digits.count;
        at = scanDigits(at + 1, end, digits);
        decimals = digits.count - whole;
    }
    const char next = at != end ? *at : '\0';
    const bool isPlain = (next | 0x20) != 'e' && (next | 0x20) != 'd' && next != '#';
    if (isPlain && makeReal(digits, decimals, value)) {
        if (isNegative) value = -value;
        return {at, NumberOutcome::done};
    }
    if (next == '#') return {at, NumberOutcome::notFinite}; // "1.#INF" and its kin
    const NumberScan scan = scanSlowly(first, end, isNegative, value);
    return scan.outcome == NumberOutcome::none ? NumberScan{start, NumberOutcome::none} : scan;
}

NumberScan scanHex(const char* at, const char* end, std::uint64_t& value)
{
    const char* const start = at;
    while (at != end && *at == '0')
        ++at;
    const char* const first = at;
    std::uint64_t number = 0;
    for (int digit; at != end && (digit = hexDigit(*at)) >= 0; ++at)
        number = number << 4 | static_cast<unsigned>(digit);
    if (at == start) return {start, NumberOutcome::none};
    if (at - first > 16) return {at, NumberOutcome::tooLarge};
    value = number;
    return {at, NumberOutcome::done};
}

bool isHexData(std::string_view text)
{
    int all = 0;
    for (const char c : text)
        all |= hexDigit(c);
    return all >= 0 && text.size() % 2 == 0;
}

void appendHexBytes(std::string_view digits, std::string& to)
{
    to.reserve(to.size() + digits.size() / 2);
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        to += static_cast<char>(hexDigit(digits[i]) << 4 | hexDigit(digits[i + 1]));
}

char* writeReal(char* to, double value)
{
    if (std::signbit(value)) *to++ = '-';
    const double magnitude = std::fabs(value);
    std::uint64_t scaled;
    const int decimals = fewDecimals(magnitude, scaled);
    return decimals >= 0 ? writeFixed(to, scaled, decimals) : writeShortest(to, magnitude);
}

char* writeInteger(char* to, std::int64_t value)
{
    return std::to_chars(to, to + longestNumber, value).ptr;
}

char* writeHex(char* to, std::uint64_t value)
{
    int shift = 60;
    while (shift > 0 && value >> shift == 0)
        shift -= 4;
    for (; shift >= 0; shift -= 4)
        *to++ = "0123456789ABCDEF"[value >> shift & 15];
    return to;
}

char* writeHexData(char* to, std::string_view bytes)
{
    for (const char byte : bytes) {
        *to++ = "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
        *to++ = "0123456789ABCDEF"[byte & 15];
    }
    return to;
}
} // namespace dxf
