#include "QmCADLib.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cwctype>
#include <set>

namespace
{
CStringArray& fill(CStringArray& array, std::initializer_list<const wchar_t*> texts)
{
    array.RemoveAll();
    for (const wchar_t* text : texts)
        array.Add(text);
    return array;
}

/// The elements, each with "|" behind it.
std::wstring joined(const CStringArray& array)
{
    std::wstring all;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        all += std::wstring(array[i]) + L"|";
    return all;
}

std::wstring increased(const wchar_t* text, double step, int which = 0)
{
    return CFamStuStr::IncreaseStrDigit(text, step, which).GetString();
}

/// What is stored, or 1000 when the text is refused and nothing was.
double factorOf(const wchar_t* text)
{
    double value = 1000;
    const int accepted = CFamStuStr::IsDigitFactor(value, text);
    EXPECT_EQ(accepted != 0, value != 1000) << CStringA(text).GetString();
    return value;
}

constexpr double refused = 1000;
} // namespace

TEST(CreateNewGuid, HasLowerCaseInTheThirdGroupOnly)
{
    std::set<std::wstring> seen;
    for (int round = 0; round < 200; ++round) {
        const std::wstring guid = CFamStuStr::CreateNewGuid().GetString();
        ASSERT_EQ(guid.size(), 38u);
        for (std::size_t i = 0; i < guid.size(); ++i) {
            const bool thirdGroup = i > 14 && i < 19;
            const std::wstring allowed = i == 0                                    ? L"{"
                                         : i == 37                                 ? L"}"
                                         : i == 9 || i == 14 || i == 19 || i == 24 ? L"-"
                                         : thirdGroup                              ? L"0123456789abcdef"
                                                                                   : L"0123456789ABCDEF";
            ASSERT_NE(allowed.find(guid[i]), std::wstring::npos) << i;
        }
        EXPECT_TRUE(seen.insert(guid).second);
    }
}

TEST(ExcelColumns, GoBothWays)
{
    EXPECT_STREQ(CFamStuStr::ExcelColNoToName(26), L"Z");
    EXPECT_STREQ(CFamStuStr::ExcelColNoToName(27), L"AA");
    EXPECT_STREQ(CFamStuStr::ExcelColNoToName(256), L"IV");
    for (int number = 1; number <= 256; ++number)
        EXPECT_EQ(CFamStuStr::ExcelColNameToNo(CFamStuStr::ExcelColNoToName(number)), number);
}

TEST(ExcelColumns, StayWithinTheSheet)
{
    EXPECT_STREQ(CFamStuStr::ExcelColNoToName(0), L"A");
    EXPECT_STREQ(CFamStuStr::ExcelColNoToName(-5), L"A");
    EXPECT_STREQ(CFamStuStr::ExcelColNoToName(300), L"IV");
    EXPECT_EQ(CFamStuStr::ExcelColNameToNo(L""), 1);
    EXPECT_EQ(CFamStuStr::ExcelColNameToNo(L"12"), 1);
    EXPECT_EQ(CFamStuStr::ExcelColNameToNo(L" a-b "), 28);
    EXPECT_EQ(CFamStuStr::ExcelColNameToNo(L"zz"), 256);
    EXPECT_EQ(CFamStuStr::ExcelColNameToNo(CString(L'z', 1000)), 256);
}

TEST(HasChinese, IsTrueAboveAsciiOnly)
{
    EXPECT_EQ(CFamStuStr::HasChinese(L"abc\x7f"), 0);
    EXPECT_EQ(CFamStuStr::HasChinese(L""), 0);
    EXPECT_EQ(CFamStuStr::HasChinese(L"a\x80"), 1);
    EXPECT_EQ(CFamStuStr::HasChinese(L"a\x4e2d"), 1);
}

TEST(IsDigit, TakesPointsInLongerTextsAndTheEmptyText)
{
    EXPECT_EQ(CFamStuStr::IsDigit(L""), 1);
    EXPECT_EQ(CFamStuStr::IsDigit(L"7"), 1);
    EXPECT_EQ(CFamStuStr::IsDigit(L"."), 0);
    EXPECT_EQ(CFamStuStr::IsDigit(L".."), 1);
    EXPECT_EQ(CFamStuStr::IsDigit(L"1.2.3"), 1);
    EXPECT_EQ(CFamStuStr::IsDigit(L"1a"), 0);
    EXPECT_EQ(CFamStuStr::IsDigit(L"-1"), 0);
    EXPECT_EQ(CFamStuStr::IsDigit(L"\xff11"), 0);
}

TEST(IsDigitFactor, StoresTheWholeNumberTheTextBeginsWith)
{
    EXPECT_EQ(factorOf(L"2.5"), 2);
    EXPECT_EQ(factorOf(L"-1.5E+2"), -1);
    EXPECT_EQ(factorOf(L" 1e+3\t"), 1);
    EXPECT_EQ(factorOf(L"+07"), 7);
    EXPECT_EQ(factorOf(L"\x3000"
                       L"2.5"),
              2); // an ideographic space
    EXPECT_EQ(factorOf(L"\xa0"
                       L"7"),
              7);
    EXPECT_EQ(factorOf(L".5"), 0);
    EXPECT_EQ(factorOf(L"3."), 3);
    EXPECT_EQ(factorOf(L"E+5"), 0);
    EXPECT_EQ(factorOf(L"99999999999"), 2147483647);
    EXPECT_EQ(factorOf(L"-99999999999"), -2147483648.0);
}

TEST(IsDigitFactor, RefusesWhatIsNoDecimalAndStoresNothing)
{
    for (const wchar_t* text : {L"", L" ", L".", L"-", L"-.", L"1E2", L"1E", L"1E+", L"1.2.3", L"1.E+2",
                                L"+-1", L"1 2", L"0x1", L"1E+2.5", L"\xff11"})
        EXPECT_EQ(factorOf(text), refused) << CStringA(text).GetString();
}

TEST(FormatDouble, DropsTrailingZerosAndThePoint)
{
    EXPECT_STREQ(CFamStuStr::FormatDouble(1.5), L"1.5");
    EXPECT_STREQ(CFamStuStr::FormatDouble(2.0), L"2");
    EXPECT_STREQ(CFamStuStr::FormatDouble(100), L"100");
    EXPECT_STREQ(CFamStuStr::FormatDouble(0), L"0");
    EXPECT_STREQ(CFamStuStr::FormatDouble(-0.0000125), L"-0.000013");
    EXPECT_EQ(CFamStuStr::FormatDouble(1e308).GetLength(), 309);
}

TEST(FindStrInStrArr, FindsTheFirstEqualElementFromTheStart)
{
    CStringArray array;
    fill(array, {L"a", L"B", L"b", L"a"});
    EXPECT_EQ(CFamStuStr::FindStrInStrArr(array, L"b", 0), 2);
    EXPECT_EQ(CFamStuStr::FindStrInStrArr(array, L"a", -3), 0);
    EXPECT_EQ(CFamStuStr::FindStrInStrArr(array, L"a", 1), 3);
    EXPECT_EQ(CFamStuStr::FindStrInStrArr(array, L"a", 4), -1);
    EXPECT_EQ(CFamStuStr::FindStrInStrArr(array, L"", 0), -1);
}

TEST(RemoveSameStr, KeepsTheFirstOfEqualElements)
{
    CStringArray array;
    EXPECT_EQ(CFamStuStr::RemoveSameStr(fill(array, {L"a", L"A", L"a", L"", L"b", L"", L"a"}), 0), 4);
    EXPECT_EQ(joined(array), L"a|A||b|");
    EXPECT_EQ(CFamStuStr::RemoveSameStr(fill(array, {L"a", L"a", L"b", L"a"}), 2), 3);
    EXPECT_EQ(joined(array), L"a|a|b|");
    EXPECT_EQ(CFamStuStr::RemoveSameStr(fill(array, {}), 5), 0);
}

TEST(RemoveSameStr, TakesAMillionElements)
{
    CStringArray array;
    array.SetSize(1000000);
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        array[i] = CFamStuStr::FormatDouble(static_cast<double>(i % 300000));
    EXPECT_EQ(CFamStuStr::RemoveSameStr(array, 0), 300000);
    EXPECT_STREQ(array[299999], L"299999");
}

TEST(SplitStr, KeepsEmptyFields)
{
    CStringArray fields;
    EXPECT_EQ(CFamStuStr::SplitStrBySymbol(fill(fields, {L"old"}), L"a,,b,", L","), 4);
    EXPECT_EQ(joined(fields), L"a||b||");
    EXPECT_EQ(CFamStuStr::SplitStrToArray(fields, L"a::b:c", L"::"), 2);
    EXPECT_EQ(joined(fields), L"a|b:c|");
    EXPECT_EQ(CFamStuStr::SplitStrToArray(fields, L"aaa", L"aa"), 2);
    EXPECT_EQ(joined(fields), L"|a|");
    EXPECT_EQ(CFamStuStr::SplitStrToArray(fields, L"abc", L""), 1);
    EXPECT_EQ(CFamStuStr::SplitStrToArray(fields, L"", L","), 0);
    EXPECT_EQ(joined(fields), L"");
    fill(fields, {L"x-y"});
    EXPECT_EQ(CFamStuStr::SplitStrToArray(fields, fields[0], L"-"), 2); // an element of the result itself
    EXPECT_EQ(joined(fields), L"x|y|");
}

TEST(SplitStrInTwoPart, SplitsAtTheFirstSeparator)
{
    CString first, second;
    EXPECT_EQ(CFamStuStr::SplitStrInTwoPart(first, second, L"key=a=b", L'='), 1);
    EXPECT_STREQ(first, L"key");
    EXPECT_STREQ(second, L"a=b");
    EXPECT_EQ(CFamStuStr::SplitStrInTwoPart(first, second, first, L'='), 0);
    EXPECT_STREQ(first, L"key");
    EXPECT_STREQ(second, L"");
}

TEST(IncreaseStrDigit, KeepsZerosDecimalsAndTheRestOfTheName)
{
    EXPECT_EQ(increased(L"A-09", 1), L"A-10");
    EXPECT_EQ(increased(L"A-099x", 1), L"A-100x");
    EXPECT_EQ(increased(L"A-010", -1), L"A-009");
    EXPECT_EQ(increased(L"A-10", -1), L"A-9");
    EXPECT_EQ(increased(L"H=2.50m", 0.5), L"H=3.00m");
    EXPECT_EQ(increased(L"K1", 0.25), L"K1.25");
    EXPECT_EQ(increased(L"1.2.9", 1), L"1.2.10");
    EXPECT_EQ(increased(L"No.7", 1), L"No.8");
    EXPECT_EQ(increased(L"7.", 1), L"8.");
}

TEST(IncreaseStrDigit, TakesALeadingMinusForTheSign)
{
    EXPECT_EQ(increased(L"-0.300", 0.5), L"0.200");
    EXPECT_EQ(increased(L"-5", 5), L"0");
    EXPECT_EQ(increased(L"B2", -3), L"B-1");
    EXPECT_EQ(increased(L"B-2", 1), L"B-3");
}

TEST(IncreaseStrDigit, CountsNumbersFromTheLeft)
{
    EXPECT_EQ(increased(L"3F-KZ12", 1), L"3F-KZ13");
    EXPECT_EQ(increased(L"3F-KZ12", 1, 1), L"4F-KZ12");
    EXPECT_EQ(increased(L"3F-KZ12", 1, 2), L"3F-KZ13");
    EXPECT_EQ(increased(L"3F-KZ12", 1, 3), L"3F-KZ12");
}

TEST(IncreaseStrDigit, LeavesAloneWhatItCannotAdd)
{
    EXPECT_EQ(increased(L"name", 1), L"name");
    EXPECT_EQ(increased(L"", 1), L"");
    EXPECT_EQ(increased(L"9999999999999999", 1), L"10000000000000000"); // 17 digits
    EXPECT_EQ(increased(L"99999999999999999", 1), L"99999999999999999");
    EXPECT_EQ(increased(L"A1234567890123456789", 1), L"A1234567890123456789");
    EXPECT_EQ(increased(L"A1", std::nan("")), L"A1");
    EXPECT_EQ(increased(L"A1", 1e300), L"A1");
    EXPECT_EQ(increased(L"A1", HUGE_VAL), L"A1");
}
