#include "NumberText.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>

using namespace dxf;

namespace
{
std::string textOf(double value)
{
    char text[longestNumber];
    return std::string(text, writeReal(text, value));
}

/// The value, and how many bytes were left over.
std::pair<double, std::size_t> realOf(const std::string& text)
{
    double value = -99;
    const NumberScan scan = scanReal(text.data(), text.data() + text.size(), value);
    return {value, static_cast<std::size_t>(text.data() + text.size() - scan.end)};
}

NumberOutcome outcomeOf(const std::string& text)
{
    double value;
    return scanReal(text.data(), text.data() + text.size(), value).outcome;
}

bool areSameBits(double one, double other)
{
    return std::memcmp(&one, &other, sizeof one) == 0;
}

/// Doubles of every size, and such as drawings hold: few decimals.
std::vector<double> manyDoubles()
{
    std::mt19937_64 random(20);
    std::vector<double> values;
    for (int i = 0; i < 50000; ++i) {
        const std::uint64_t bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value)) values.push_back(value);
        values.push_back(static_cast<double>(static_cast<std::int64_t>(bits >> 30)) / std::pow(10.0, i % 14));
    }
    return values;
}
} // namespace

TEST(WriteReal, UsesTheFormsOfDrawingFiles)
{
    const std::pair<double, const char*> cases[] = {
        {0.0, "0.0"},
        {-0.0, "-0.0"},
        {1.5, "1.5"},
        {-20.25, "-20.25"},
        {100.0, "100.0"},
        {0.001, "0.001"},
        {1e-16, "1e-16"},
        {1e20, "1e+20"},
        {0.1 + 0.2, "0.30000000000000004"},
        {12.345, "12.345"},
        {123456.789012, "123456.789012"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(textOf(value), text);
}

// The reference for the reading is the C library's strtod, which rounds correctly.
TEST(WriteReal, ReadsBackAsTheSameDouble)
{
    for (const double value : manyDoubles()) {
        const std::string text = textOf(value);
        ASSERT_TRUE(areSameBits(std::strtod(text.c_str(), nullptr), value)) << text;
        ASSERT_TRUE(areSameBits(realOf(text).first, value)) << text;
    }
}

TEST(ScanReal, RoundsLikeTheLibraryWhateverTheNumberOfDigits)
{
    for (const double value : manyDoubles())
        for (const char* format : {"%.15g", "%.16e", "%.20g", "%.3f"}) {
            char text[400];
            std::snprintf(text, sizeof text, format, value);
            ASSERT_TRUE(areSameBits(realOf(text).first, std::strtod(text, nullptr))) << text;
        }
}

TEST(ScanReal, TakesLooseFormsAndLeavesTheRest)
{
    using Result = std::pair<double, std::size_t>;
    EXPECT_EQ(realOf("+.5"), Result(0.5, 0));
    EXPECT_EQ(realOf("7."), Result(7, 0));
    EXPECT_EQ(realOf("1.5D+03"), Result(1500, 0));
    EXPECT_EQ(realOf("2.5 mm"), Result(2.5, 3));
    EXPECT_EQ(realOf("1,5"), Result(1, 2));
    EXPECT_EQ(realOf("1e-400"), Result(0, 0));
    EXPECT_EQ(realOf("3e"), Result(3, 1));
}

TEST(ScanReal, RefusesWhatIsNoFiniteNumber)
{
    for (const char* text : {"1e999", "inf", "-nan(ind)", "1.#QNAN", "-1.#INF", "1#INF"})
        EXPECT_EQ(outcomeOf(text), NumberOutcome::notFinite) << text;
    for (const char* text : {"", "-", ".", "abc", "e5", "+-1"})
        EXPECT_EQ(outcomeOf(text), NumberOutcome::none) << text;
}

TEST(ScanInteger, HoldsExactlySixtyFourBits)
{
    const auto scan = [](const std::string& text, std::int64_t& value) {
        return scanInteger(text.data(), text.data() + text.size(), value).outcome;
    };
    std::int64_t value = 0;
    EXPECT_EQ(scan("-9223372036854775808", value), NumberOutcome::done);
    EXPECT_EQ(value, INT64_MIN);
    EXPECT_EQ(scan("+9223372036854775807", value), NumberOutcome::done);
    EXPECT_EQ(value, INT64_MAX);
    EXPECT_EQ(scan("00000000000000000000012", value), NumberOutcome::done);
    EXPECT_EQ(value, 12);
    EXPECT_EQ(scan("9223372036854775808", value), NumberOutcome::tooLarge);
    EXPECT_EQ(scan("--1", value), NumberOutcome::none);
}

TEST(HexText, SurvivesWritingAndReading)
{
    for (const std::uint64_t handle : {std::uint64_t(0), std::uint64_t(0x1AF), ~std::uint64_t(0)}) {
        char text[longestNumber];
        char* const end = writeHex(text, handle);
        std::uint64_t back = 1;
        EXPECT_EQ(scanHex(text, end, back).end, end);
        EXPECT_EQ(back, handle);
    }
    std::uint64_t value;
    const std::string large = "10000000000000000"; // 2^64
    EXPECT_EQ(scanHex(large.data(), large.data() + large.size(), value).outcome, NumberOutcome::tooLarge);
    EXPECT_TRUE(isHexData("00fFA9"));
    EXPECT_FALSE(isHexData("00f"));
    EXPECT_FALSE(isHexData("0g"));
}
