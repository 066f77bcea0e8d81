#pragma once

/// Numbers as the text of ASCII drawing files, and back.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dxf
{
enum class NumberOutcome : std::uint8_t {
    done,
    none,      ///< no number starts here
    tooLarge,  ///< more than 64 bits
    notFinite, ///< a real too large for a double, or "inf" or "nan" in some spelling
};

/// How far a number reaches: `end` is the first byte behind it (the start when there is none).
struct NumberScan {
    const char* end;
    NumberOutcome outcome;
};

/// These read the number at `at` (no blanks before it) and never look at or behind `end`.
/// A sign may be + or -. Outcomes: done, none, tooLarge (value unchanged).
NumberScan scanInteger(const char* at, const char* end, std::int64_t& value);

/// A decimal number with or without point and exponent; the exponent's letter may also be D. The double
/// nearest to it; 0 when it is too small for one. Outcomes: done, none, notFinite (value unchanged).
NumberScan scanReal(const char* at, const char* end, double& value);

/// Hexadecimal digits of either case, without a sign. Outcomes: done, none, tooLarge (value unchanged).
NumberScan scanHex(const char* at, const char* end, std::uint64_t& value);

/// True when `text` is pairs of hexadecimal digits; the empty text is.
bool isHexData(std::string_view text);
/// Appends the bytes that pairs of hexadecimal digits stand for; isHexData(digits) has to hold.
void appendHexBytes(std::string_view digits, std::string& to);

/// The longest text that a writer below makes.
constexpr std::size_t longestNumber = 32;

/// Each writes at `to`, which has room for longestNumber bytes, and returns the end of what it wrote.
///
/// A finite real becomes the shortest decimal text that reads back as the same double, at most 17
/// significant digits, with a point or an exponent: "0.0", "-1.5", "1e-16", "1e+20".
char* writeReal(char* to, double value);
char* writeInteger(char* to, std::int64_t value);
/// Upper case, without leading zeros; "0" for 0.
char* writeHex(char* to, std::uint64_t value);
/// Two upper-case digits for each byte; `to` has room for them.
char* writeHexData(char* to, std::string_view bytes);
} // namespace dxf
