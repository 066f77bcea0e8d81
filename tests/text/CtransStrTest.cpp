#include "QmCADLib.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace
{
template <class Function, class... Arguments>
CString outputOf(Function function, const Arguments&... arguments)
{
    CString out(L"from before");
    function(out, arguments...);
    return out;
}
} // namespace

TEST(CtransStr, RawConversionsAlwaysGiveAnArray)
{
    const std::unique_ptr<wchar_t[]> wide(CtransStr::CharToWchar("\xd6\xd0-1")); // GBK: 中 is D6 D0
    EXPECT_STREQ(wide.get(), L"中-1");
    const std::unique_ptr<char[]> narrow(CtransStr::WcharToChar(L"中-1"));
    EXPECT_STREQ(narrow.get(), "\xd6\xd0-1");
    EXPECT_STREQ(std::unique_ptr<wchar_t[]>(CtransStr::CharToWchar(nullptr)).get(), L"");
    EXPECT_STREQ(std::unique_ptr<char[]>(CtransStr::WcharToChar(nullptr)).get(), "");
    EXPECT_STREQ(std::unique_ptr<char[]>(CtransStr::WcharToChar(L"")).get(), "");
    // A lead byte at the end has no trail byte: the converter's question mark.
    EXPECT_STREQ(std::unique_ptr<wchar_t[]>(CtransStr::CharToWchar("a\xd6")).get(), L"a?");
}

TEST(CtransStr, ChineseFormsAreMappedCharacterByCharacter)
{
    EXPECT_STREQ(CtransStr::Simple2Tra(L"图层 abc 门"), L"圖層 abc 門");
    EXPECT_STREQ(CtransStr::Tra2Simple(L"圖層 abc 門"), L"图层 abc 门");
    EXPECT_STREQ(CtransStr::Simple2Tra(CString()), L"");
}

TEST(CtransStr, DrawingSymbolsAreExchangedBothWays)
{
    EXPECT_STREQ(CtransStr::FullQuote2Half(L"\u2019Φ20 45° ±0.000"), L"'%%C20 45%%D %%P0.000");
    EXPECT_STREQ(CtransStr::HalfQuote2Full(L"'%%C20 45%%d %%P0 %%c%%D%%p"), L"\u2019Φ20 45° ±0 Φ°±");
    EXPECT_STREQ(CtransStr::HalfQuote2Full(L"%%%C %C %%X %%"), L"%Φ %C %%X %%");
}

TEST(CtransStr, BlanksAreReplacedOnce)
{
    EXPECT_STREQ(CtransStr::rePlaceSpace(L" a\tb\u3000c\u00A0\n"), L"abc\n");
    EXPECT_STREQ(CtransStr::rePlaceSpace(L"a b", L" - "), L"a - b");
}

TEST(CtransStr, SingleLetterDependsOnCase)
{
    EXPECT_EQ(CtransStr::IsSingleZiMu(L"a", 0) + CtransStr::IsSingleZiMu(L"Z", 0), 2);
    EXPECT_EQ(CtransStr::IsSingleZiMu(L"A", 1) + CtransStr::IsSingleZiMu(L"z", 2), 2);
    for (const wchar_t* none : {L"", L"ab", L"1", L"中", L"\u00E9", L"[", L"@"})
        EXPECT_EQ(CtransStr::IsSingleZiMu(none, 0), 0);
    EXPECT_EQ(CtransStr::IsSingleZiMu(L"a", 1) + CtransStr::IsSingleZiMu(L"A", 2), 0);
    EXPECT_EQ(CtransStr::IsSingleZiMu(L"A", 3), 0);
}

TEST(CtransStr, FieldsLieBetweenSeparators)
{
    CString field;
    EXPECT_EQ(CtransStr::ExtractSubString(field, L"a,,b", L",", 2), 1);
    EXPECT_STREQ(field, L"b");
    EXPECT_EQ(CtransStr::ExtractSubString(field, L"a,,b", L",", 1), 1);
    EXPECT_STREQ(field, L"");
    field = L"x::y";
    EXPECT_EQ(CtransStr::ExtractSubString(field, field, L"::", 1), 1);
    EXPECT_STREQ(field, L"y");
    EXPECT_EQ(CtransStr::ExtractSubString(field, L"a,b", L",", 2), 0);
    EXPECT_STREQ(field, L"");
    EXPECT_EQ(CtransStr::ExtractSubString(field, L"a,b", L",", -1), 0);
    EXPECT_EQ(CtransStr::ExtractSubString(field, L"a,b", L"", 0), 1);
    EXPECT_STREQ(field, L"a,b");
    EXPECT_EQ(CtransStr::ExtractSubString(field, L"", L",", 0), 1);
}

TEST(CtransStr, SplitsAtEverySeparatorOrTheFirst)
{
    CStringArray array;
    array.Add(L"from before");
    ASSERT_EQ(CtransStr::SplitStr(array, L";a;;b", L";"), 4);
    EXPECT_STREQ(array[0], L"");
    EXPECT_STREQ(array[1], L"a");
    EXPECT_STREQ(array[3], L"b");
    std::vector<CString> fields;
    ASSERT_EQ(CtransStr::SplitStr(fields, L"aaaaa", L"aa"), 3);
    EXPECT_STREQ(fields[2], L"a");
    CString first(L"k=v=w"), second;
    EXPECT_EQ(CtransStr::SplitStrTwo(first, second, first, L"="), 1);
    EXPECT_STREQ(first, L"k");
    EXPECT_STREQ(second, L"v=w");
    EXPECT_EQ(CtransStr::SplitStrTwo(first, second, L"kv", L"="), 0);
    EXPECT_STREQ(first, L"kv");
    EXPECT_STREQ(second, L"");
}

TEST(CtransStr, LongTextsAreSplitInLinearTime)
{
    constexpr int length = 1 << 22;
    std::vector<CString> fields;
    EXPECT_EQ(CtransStr::SplitStr(fields, CString(L',', length), L","), length + 1);
    CString number(L'9', length);
    EXPECT_EQ(CtransStr::CountDot(CString(L'.', length)), length);
    EXPECT_EQ(CtransStr::StringFlowNext(number).GetLength(), length + 1);
    EXPECT_EQ(CtransStr::IsNumberic(number, 0), 1);
    EXPECT_EQ(CtransStr::IsLegalNumber(number), 1);
    EXPECT_EQ(number.GetLength(), length);
    EXPECT_FALSE(CtransStr::IsAfterChildBySeqNum(CString(L'.', length), CString(L'.', length)));
    EXPECT_STREQ(CtransStr::GetUpgradeVersion(number + L"v1.2"), L"1.2");
}

TEST(CtransStrSequence, NeighboursChangeTheLastPart)
{
    EXPECT_STREQ(outputOf(CtransStr::GetNextSeqNum, L"3.2.9"), L"3.2.10");
    EXPECT_STREQ(outputOf(CtransStr::GetPervSeqNum, L"3.2.10"), L"3.2.9");
    EXPECT_STREQ(outputOf(CtransStr::GetPervSeqNum, L"3.1"), L"");
    EXPECT_STREQ(outputOf(CtransStr::GetNextSeqNum, L"3"), L"");
    EXPECT_STREQ(outputOf(CtransStr::GetPervSeqNum, L""), L"");
    EXPECT_STREQ(outputOf(CtransStr::GetNextSeqNum, L"3."), L"3.1");
    EXPECT_STREQ(outputOf(CtransStr::GetNextSeqNum, L".5x"), L".6");
    EXPECT_STREQ(outputOf(CtransStr::GetNextSeqNum, L"3.-2"), L"3.-1");
    EXPECT_STREQ(outputOf(CtransStr::GetNextSeqNum, L"3.2147483646"), L"3.2147483647");
    EXPECT_STREQ(outputOf(CtransStr::GetNextSeqNum, L"3.2147483647"), L"");
    EXPECT_STREQ(outputOf(CtransStr::GetPervSeqNum, L"3.2147483648"), L"");
    EXPECT_STREQ(outputOf(CtransStr::GetNextSeqNum, L"3.-99999999999999999999"), L"");
    CString same(L"1.1");
    CtransStr::GetNextSeqNum(same, same);
    EXPECT_STREQ(same, L"1.2");
}

TEST(CtransStrSequence, ParentAndPostfixPartAtTheLastPoint)
{
    EXPECT_STREQ(outputOf(CtransStr::GetParentSeqNum, L"3.2.1"), L"3.2");
    EXPECT_STREQ(outputOf(CtransStr::GetSeqNumPostfix, L"3.2.1"), L"1");
    EXPECT_STREQ(outputOf(CtransStr::GetParentSeqNum, L"3"), L"0");
    EXPECT_STREQ(outputOf(CtransStr::GetSeqNumPostfix, L"3"), L"0");
    EXPECT_STREQ(outputOf(CtransStr::GetSeqNumPostfix, L"3."), L"");
}

TEST(CtransStrSequence, OrderIsThatOfWholeBranches)
{
    // From first to last; of two neighbours the later one is after the earlier one and its branch.
    const wchar_t* order[] = {L"1.9.9",
                              L"1.10",
                              L"2",
                              L"3.2",
                              L"3.9.4",
                              L"3.10",
                              L"3.a",
                              L"3.b",
                              L"10",
                              L"99999999999999999999",
                              L"100000000000000000000",
                              L"x"};
    for (size_t i = 0; i < std::size(order); ++i)
        for (size_t j = 0; j < std::size(order); ++j)
            EXPECT_EQ(CtransStr::IsAfterChildBySeqNum(order[i], order[j]), i > j) << i << " after " << j;
    EXPECT_FALSE(CtransStr::IsAfterChildBySeqNum(L"3.2.1", L"3.2"));
    EXPECT_FALSE(CtransStr::IsAfterChildBySeqNum(L"3.2", L"3.2.1"));
    EXPECT_FALSE(CtransStr::IsAfterChildBySeqNum(L"3.02", L"3.2"));
    EXPECT_FALSE(CtransStr::IsAfterChildBySeqNum(L"", L"0"));
}

TEST(CtransStrSequence, LevelIsJudgedByTheParent)
{
    for (const wchar_t* related : {L"3.1", L"3.2", L"3.7", L"3.2.5", L"03.2.1"})
        EXPECT_TRUE(CtransStr::IsSameLevelOrChildLevelByParentSeqNum(L"3.2", related));
    for (const wchar_t* other : {L"3.2.5.1", L"3", L"4.2", L"3.20.1", L""})
        EXPECT_FALSE(CtransStr::IsSameLevelOrChildLevelByParentSeqNum(L"3.2", other));
    EXPECT_TRUE(CtransStr::IsSameLevelOrChildLevelByParentSeqNum(L"0", L"4"));
    EXPECT_TRUE(CtransStr::IsSameLevelOrChildLevelByParentSeqNum(L"3", L"4"));
    EXPECT_FALSE(CtransStr::IsSameLevelOrChildLevelByParentSeqNum(L"3", L"4.1"));
}

TEST(CtransStrSequence, SerialTextKeepsItsWidth)
{
    EXPECT_STREQ(CtransStr::StringFlowNext(L"T-009"), L"T-010");
    EXPECT_STREQ(CtransStr::StringFlowNext(L"a99"), L"a100");
    EXPECT_STREQ(CtransStr::StringFlowNext(L"A"), L"A1");
    EXPECT_STREQ(CtransStr::StringFlowNext(L""), L"1");
    EXPECT_STREQ(CtransStr::StringFlowNext(L"99999999999999999999"), L"100000000000000000000");
}

TEST(CtransStrSequence, VersionIsTheFirstNumberWithPoints)
{
    EXPECT_STREQ(CtransStr::GetUpgradeVersion(L"Setup2021_V3.0.12.exe"), L"3.0.12");
    EXPECT_STREQ(CtransStr::GetUpgradeVersion(L"7..1.2."), L"1.2");
    EXPECT_STREQ(CtransStr::GetUpgradeVersion(L"升级2021"), L"");
}

TEST(CtransStrNumber, NumbericIsTrimmedAndLimitsDecimals)
{
    for (const wchar_t* number : {L"12", L" 1.25\t", L"-3.5", L"-", L"5.", L"-.5", L"007"}) {
        CString text(number);
        EXPECT_EQ(CtransStr::IsNumberic(text, 2), 1) << CStringA(number).GetString();
    }
    for (const wchar_t* none : {L"", L"  ", L".5", L"+1", L"1.234", L"1.2.3", L"1-", L"1e3", L"１", L"1 2"}) {
        CString text(none);
        EXPECT_EQ(CtransStr::IsNumberic(text, 2), 0) << CStringA(none).GetString();
    }
    CString text(L" 1.5 ");
    EXPECT_EQ(CtransStr::IsNumberic(text, 0), 0);
    EXPECT_STREQ(text, L"1.5");
}

TEST(CtransStrNumber, LegalNumberLosesLeadingZerosAndNothingElse)
{
    const struct {
        const wchar_t *text, *normal;
    } accepted[] = {{L"0", L"0"},
                    {L"000", L"0"},
                    {L"007.50", L"7.50"},
                    {L"0.0", L"0.0"},
                    {L"0004294967296123", L"4294967296123"}};
    for (const auto& each : accepted) {
        CString text(each.text);
        EXPECT_EQ(CtransStr::IsLegalNumber(text), 1);
        EXPECT_STREQ(text, each.normal);
    }
    for (const wchar_t* none : {L"", L".", L"1.", L".5", L"1.2.3", L"-1", L" 1", L"1a", L"01.5x"}) {
        CString text(none);
        EXPECT_EQ(CtransStr::IsLegalNumber(text), 0);
        EXPECT_STREQ(text, none);
    }
}

TEST(CtransStrNumber, LegalNumberIsTakenOutOfOtherText)
{
    EXPECT_STREQ(CtransStr::getLegalNumber(L"φ 0１2.50mm"), L"12.50");
    EXPECT_STREQ(CtransStr::getLegalNumber(L"x-1.2.3-4"), L"-1.234");
    EXPECT_STREQ(CtransStr::getLegalNumber(L"－．５"), L"-0.5");
    EXPECT_STREQ(CtransStr::getLegalNumber(L"00."), L"0");
    EXPECT_STREQ(CtransStr::getLegalNumber(L"-.x"), L"");
    EXPECT_EQ(CtransStr::getDotNum(L"1.250m"), 3);
    EXPECT_EQ(CtransStr::getDotNum(L"125"), 0);
    EXPECT_EQ(CtransStr::getDotNum(L"1."), 0);
}

TEST(CtransStrNumber, ShortTextDropsZerosOfTheThousandths)
{
    const struct {
        double value;
        const wchar_t* text;
    } cases[] = {
        {0.5, L"0.5"},
        {0.25, L"0.25"},
        {0.125, L"0.125"},
        {0, L"0"},
        {-0.0, L"0"},
        {0.29, L"0.29"},
        {0.57, L"0.57"},
        {0.011, L"0.011"},
        {0.1 + 0.2, L"0.3"},
        {0.3 - 0.1, L"0.2"},
        {0.0009, L"0"},
        {0.0096, L"0.010"},
        {0.0996, L"0.100"},
        {0.9999, L"1.000"},
        {0.9001, L"0.9"},
        {-0.25, L"-0.25"},
        {-0.0004, L"0"},
        {1, L"1"},
        {2.5, L"2.5"},
        {1234.29, L"1234.29"},
        {-1234.5678, L"-1234.568"},
        {1e15, L"1000000000000000"},
        {0.9999999999999999, L"1"},
    };
    for (const auto& each : cases)
        EXPECT_STREQ(CtransStr::GetDoubleStr(each.value), each.text) << each.value;
    EXPECT_STREQ(CtransStr::GetDoubleStr(HUGE_VAL), L"");
    EXPECT_STREQ(CtransStr::GetDoubleStr(std::nan("")), L"");
    EXPECT_EQ(CtransStr::GetDoubleStr(1e308).GetLength(), 309);
}

TEST(CtransStrNumber, ShortTextOfWholeThousandthsReadsBack)
{
    // The digits of n / 1000 are those of n: the text is n without the zeros at its end.
    for (int n = 1; n < 1000; ++n) {
        std::wstring digits = std::to_wstring(1000 + n).substr(1);
        digits.erase(digits.find_last_not_of(L'0') + 1);
        ASSERT_STREQ(CtransStr::GetDoubleStr(n / 1000.0), (L"0." + digits).c_str());
    }
}

TEST(CtransStrNumber, ValuesBecomeText)
{
    EXPECT_STREQ(CtransStr::IntToStr(-2147483647 - 1), L"-2147483648");
    EXPECT_STREQ(CtransStr::TransToStr(42), L"42");
    EXPECT_STREQ(CtransStr::TransToStr(-9000000000000000000LL), L"-9000000000000000000");
    EXPECT_STREQ(CtransStr::TransToStr(100.0), L"100");
    EXPECT_STREQ(CtransStr::TransToStr(-1.25), L"-1.25");
    EXPECT_STREQ(CtransStr::TransToStr("\xd6\xd0"), L"中");
    EXPECT_STREQ(CtransStr::TransToStr(static_cast<const char*>(nullptr)), L"");
}

TEST(CtransStrNumber, ProductNeedsTwoNumbers)
{
    EXPECT_STREQ(CtransStr::MultiDoubleStr(L"2.5", L" 4 "), L"10");
    EXPECT_STREQ(CtransStr::MultiDoubleStr(L"-.5", L"+3."), L"-1.5");
    for (const wchar_t* none : {L"", L"-", L".", L"1e3", L"1,5", L"0x10", L"1.2.3", L"inf"})
        EXPECT_STREQ(CtransStr::MultiDoubleStr(none, L"1"), L"");
    const CString huge(L'9', 308);
    EXPECT_STREQ(CtransStr::MultiDoubleStr(huge, huge), L"");
    EXPECT_STREQ(CtransStr::MultiDoubleStr(CString(L'9', 400), L"1"), L"");
}

TEST(CtransStrNumber, RandomNumbersReachBothEnds)
{
    bool low = false, high = false;
    for (int i = 0; i < 1000; ++i) {
        const int value = CtransStr::RandomInt(5, 3);
        ASSERT_TRUE(value >= 3 && value <= 5);
        low |= value == 3;
        high |= value == 5;
    }
    EXPECT_TRUE(low && high); // each is missed with a probability of (2/3)^1000
    EXPECT_EQ(CtransStr::RandomInt(7, 7), 7);
}

TEST(CtransStrNumber, MobileNumberHasElevenDigits)
{
    EXPECT_EQ(CtransStr::IsMobileNumber(L"13800138000"), 1);
    EXPECT_EQ(CtransStr::IsMobileNumber(L"19912345678"), 1);
    for (const wchar_t* none : {L"", L"12800138000", L"23800138000", L"1380013800", L"138001380000",
                                L"1380013800a", L"+8613800138", L"１3800138000"})
        EXPECT_EQ(CtransStr::IsMobileNumber(none), 0);
}
