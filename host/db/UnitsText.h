#pragma once

/// Lengths and angles as texts, in the units that drawings show them in.

#include <string>

namespace units
{
/// Numbers as LUNITS and DIMLUNIT have them. Engineering and architectural units take drawing units as
/// inches.
enum class Linear { scientific = 1, decimal, engineering, architectural, fractional, desktop };

/// How the two numbers of a fraction stand in a multiline text.
enum class Fraction { horizontal, diagonal, notStacked };

struct LinearFormat {
    Linear unit = Linear::decimal;
    /// Decimal places; of fractions the power of two of the smallest denominator. Brought into 0 ... 8.
    int precision = 4;
    /// The bits of DIMZIN: 0 to 3 say which zero feet and inches are left out, 4 leaves out leading zeros, 8
    /// zeros at the end of decimals.
    int zeros = 0;
    wchar_t separator = L'.';
    Fraction fraction = Fraction::notStacked;
};

/// Rounded half away from zero. A number that is not finite is shown as 0.
std::wstring lengthText(double length, const LinearFormat& format);

/// Angles as AUNITS and DIMAUNIT have them.
enum class Angular { degrees, degreesMinutesSeconds, gradians, radians };

struct AngularFormat {
    Angular unit = Angular::degrees;
    int precision =
        0;         ///< decimal places; of degrees 1, 2: minutes, 3, 4: seconds, above: decimals of seconds
    int zeros = 0; ///< DIMAZIN: 1 leaves out leading zeros, 2 zeros at the end
    wchar_t separator = L'.';
};

/// Of an angle in radians; with its unit's sign: ° or d ' ", g, r.
std::wstring angleText(double angle, const AngularFormat& format);
} // namespace units
