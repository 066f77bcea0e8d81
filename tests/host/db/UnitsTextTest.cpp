#include "UnitsText.h"

#include <gtest/gtest.h>

#include <cmath>

using units::Angular;
using units::Fraction;
using units::Linear;

namespace
{
struct LengthCase {
    double length;
    Linear unit;
    int precision, zeros;
    const wchar_t* text;
};

units::LinearFormat formatOf(const LengthCase& c)
{
    units::LinearFormat format;
    format.unit = c.unit;
    format.precision = c.precision;
    format.zeros = c.zeros;
    return format;
}
} // namespace

TEST(LengthText, EachUnitShowsItsForm)
{
    // 15.5 inches are 1 foot 3.5 inches; 2.625 is two and five eighths.
    const LengthCase cases[] = {
        {15.5, Linear::decimal, 4, 0, L"15.5000"},
        {15.5, Linear::decimal, 4, 8, L"15.5"},
        {0.125, Linear::decimal, 2, 4, L".13"},
        {-0.125, Linear::decimal, 3, 4, L"-.125"},
        {100.0, Linear::decimal, 2, 8, L"100"},
        {-0.001, Linear::decimal, 2, 0, L"0.00"},
        {15.5, Linear::scientific, 2, 0, L"1.55E+01"},
        {15.5, Linear::engineering, 2, 3, L"1'-3.50\""},
        {15.5, Linear::architectural, 1, 3, L"1'-3 1/2\""},
        {2.625, Linear::fractional, 4, 0, L"2 5/8"},
        {0.5, Linear::fractional, 1, 0, L"1/2"},
        {-3.0, Linear::fractional, 4, 0, L"-3"},
        {1234567.891, Linear::desktop, 1, 0, L"1234567.9"},
    };
    for (const LengthCase& c : cases)
        EXPECT_EQ(units::lengthText(c.length, formatOf(c)), c.text);
}

TEST(LengthText, ZeroFeetAndInchesGoAsAsked)
{
    const LengthCase cases[] = {
        {12.0, Linear::architectural, 4, 0, L"1'"},       {12.0, Linear::architectural, 4, 1, L"1'-0\""},
        {12.0, Linear::architectural, 4, 2, L"1'"},       {12.0, Linear::architectural, 4, 3, L"1'-0\""},
        {6.0, Linear::architectural, 4, 0, L"6\""},       {6.0, Linear::architectural, 4, 1, L"0'-6\""},
        {6.0, Linear::architectural, 4, 2, L"0'-6\""},    {6.0, Linear::architectural, 4, 3, L"6\""},
        {11.999, Linear::engineering, 1, 1, L"1'-0.0\""}, // rounding carries into the feet
    };
    for (const LengthCase& c : cases)
        EXPECT_EQ(units::lengthText(c.length, formatOf(c)), c.text) << c.zeros;
}

TEST(LengthText, StacksFractionsForMultilineTexts)
{
    units::LinearFormat format;
    format.unit = Linear::fractional;
    format.precision = 3;
    format.fraction = Fraction::horizontal;
    EXPECT_EQ(units::lengthText(1.375, format), L"1\\S3/8;");
    format.fraction = Fraction::diagonal;
    EXPECT_EQ(units::lengthText(1.375, format), L"1\\S3#8;");
}

TEST(LengthText, TakesAnyNumber)
{
    for (const Linear unit : {Linear::scientific, Linear::decimal, Linear::engineering, Linear::architectural,
                              Linear::fractional}) {
        units::LinearFormat format;
        format.unit = unit;
        format.precision = 99;
        EXPECT_FALSE(units::lengthText(1e300, format).empty());
        EXPECT_EQ(units::lengthText(std::nan(""), format), units::lengthText(0.0, format));
    }
}

TEST(AngleText, EachUnitShowsItsForm)
{
    const double angle = 27.5041666666 * std::acos(-1.0) / 180.0; // 27 degrees 30 minutes 15 seconds
    const struct {
        Angular unit;
        int precision, zeros;
        const wchar_t* text;
    } cases[] = {
        {Angular::degrees, 2, 0, L"27.50\u00B0"},
        {Angular::degrees, 2, 2, L"27.5\u00B0"},
        {Angular::degreesMinutesSeconds, 0, 0, L"28\u00B0"},
        {Angular::degreesMinutesSeconds, 2, 0, L"27\u00B030'"},
        {Angular::degreesMinutesSeconds, 4, 0, L"27\u00B030'15\""},
        {Angular::gradians, 3, 0, L"30.560g"},
        {Angular::radians, 3, 1, L".480r"},
    };
    for (const auto& c : cases) {
        units::AngularFormat format;
        format.unit = c.unit;
        format.precision = c.precision;
        format.zeros = c.zeros;
        EXPECT_EQ(units::angleText(angle, format), c.text);
    }
}
