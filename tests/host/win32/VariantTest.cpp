#include <windows.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace
{
VARIANT real(double value)
{
    VARIANT made{};
    made.vt = VT_R8;
    made.dblVal = value;
    return made;
}

VARIANT integer(LONG value)
{
    VARIANT made{};
    made.vt = VT_I4;
    made.lVal = value;
    return made;
}

VARIANT truth(bool value)
{
    VARIANT made{};
    made.vt = VT_BOOL;
    made.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return made;
}

VARIANT text(const wchar_t* value)
{
    VARIANT made{};
    made.vt = VT_BSTR;
    made.bstrVal = SysAllocString(value);
    return made;
}

// Converts in place and gives the text of the result, or the error as a number.
std::wstring converted(VARIANT value, VARTYPE type, USHORT flags = 0)
{
    const HRESULT first = VariantChangeType(&value, &value, flags, type);
    const HRESULT second = SUCCEEDED(first) ? VariantChangeType(&value, &value, flags, VT_BSTR) : first;
    const std::wstring result =
        SUCCEEDED(second) ? std::wstring(value.bstrVal) : L"error " + std::to_wstring(second & 0xffff);
    EXPECT_EQ(VariantClear(&value), S_OK);
    return result;
}

constexpr wchar_t mismatch[] = L"error 5", overflow[] = L"error 10";

class Counted : public IUnknown
{
public:
    HRESULT QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown ? this : nullptr;
        if (*object) AddRef();
        return *object ? S_OK : E_NOINTERFACE;
    }
    ULONG AddRef() override { return ++references; }
    ULONG Release() override { return --references; }
    ULONG references = 1;
};
} // namespace

TEST(VariantChangeType, RoundsHalvesToEvenAndRefusesWhatDoesNotFit)
{
    EXPECT_EQ(converted(real(2.5), VT_I4), L"2");
    EXPECT_EQ(converted(real(3.5), VT_I2), L"4");
    EXPECT_EQ(converted(real(-0.5), VT_I8), L"0");
    EXPECT_EQ(converted(real(127.4), VT_I1), L"127");
    EXPECT_EQ(converted(real(127.5), VT_I1), overflow);
    EXPECT_EQ(converted(real(-1), VT_UI1), overflow);
    EXPECT_EQ(converted(real(9.3e18), VT_I8), overflow);
    EXPECT_EQ(converted(real(1e39), VT_R4), overflow);
    EXPECT_EQ(converted(real(std::nan("")), VT_I4), overflow);
    EXPECT_EQ(converted(real(3e6), VT_DATE), overflow);
}

TEST(VariantChangeType, TextIsReadAsANumber)
{
    EXPECT_EQ(converted(text(L" 1,234.5 "), VT_R8), L"1234.5");
    EXPECT_EQ(converted(text(L"-9223372036854775808"), VT_I8), L"-9223372036854775808");
    EXPECT_EQ(converted(text(L"18446744073709551615"), VT_UI8), L"18446744073709551615");
    EXPECT_EQ(converted(text(L"1e3"), VT_I4), L"1000");
    EXPECT_EQ(converted(text(L"&HFF"), VT_I4), L"255");
    EXPECT_EQ(converted(text(L"922337203685477.5807"), VT_CY), L"922337203685477.5807");
    EXPECT_EQ(converted(text(L"1e999999"), VT_R8), overflow);
    for (const wchar_t* bad :
         {L"", L"x", L"1x", L"1.2.3", L"1 2", L"nan", L"inf", L"--1", L",1", L"1,", L"１"})
        EXPECT_EQ(converted(text(bad), VT_R8), mismatch) << bad;
}

TEST(VariantChangeType, TruthIsAllBitsAndItsTextIsChosenByFlag)
{
    EXPECT_EQ(converted(truth(true), VT_I4), L"-1");
    EXPECT_EQ(converted(truth(true), VT_UI2), L"65535");
    EXPECT_EQ(converted(truth(true), VT_BSTR), L"-1");
    EXPECT_EQ(converted(truth(false), VT_BSTR, VARIANT_ALPHABOOL), L"False");
    EXPECT_EQ(converted(text(L"TRUE"), VT_BOOL), L"-1");
    EXPECT_EQ(converted(text(L"0.1"), VT_BOOL), L"-1");
    EXPECT_EQ(converted(text(L"yes"), VT_BOOL), mismatch);
}

TEST(VariantChangeType, NumbersBecomeTextWithFifteenDigits)
{
    EXPECT_EQ(converted(real(0.1), VT_BSTR), L"0.1");
    EXPECT_EQ(converted(real(-0.0), VT_BSTR), L"0");
    EXPECT_EQ(converted(real(1.0 / 3), VT_BSTR), L"0.333333333333333");
    EXPECT_EQ(converted(real(1e20), VT_BSTR), L"1E+20");
    EXPECT_EQ(converted(real(-1.25), VT_CY), L"-1.25");
}

TEST(VariantChangeType, DatesAreReadAndWritten)
{
    EXPECT_EQ(converted(text(L"2021-3-4 1:02:03 PM"), VT_DATE), L"2021/3/4 13:02:03");
    EXPECT_EQ(converted(text(L"3/4/2021"), VT_DATE), L"2021/3/4");
    EXPECT_EQ(converted(text(L"12:30 AM"), VT_DATE), L"0:30:00");
    EXPECT_EQ(converted(real(-1.25), VT_DATE), L"1899/12/29 6:00:00");
    for (const wchar_t* bad :
         {L"2021-2-29", L"2021-13-1", L"25:00", L"2021-1-1 x", L"13:00 PM", L"1/2", L"99/1/1"})
        EXPECT_EQ(converted(text(bad), VT_DATE), mismatch) << bad;
}

TEST(VariantChangeType, FailureLeavesTheTargetAsItWas)
{
    VARIANT target = integer(7), source = text(L"no number");
    EXPECT_EQ(VariantChangeType(&target, &source, 0, VT_I4), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(target.lVal, 7);
    EXPECT_EQ(VariantChangeType(&target, &target, 0, 99), DISP_E_BADVARTYPE);
    VARIANT null{};
    null.vt = VT_NULL;
    EXPECT_EQ(VariantChangeType(&target, &null, 0, VT_I4), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(VariantChangeType(&target, &null, 0, VT_NULL), S_OK);
    EXPECT_EQ(target.vt, VT_NULL);
    VariantClear(&source);
}

TEST(VariantCopy, CopiesStringsWithTheirNulls)
{
    VARIANT source{}, copy = integer(1);
    source.vt = VT_BSTR;
    source.bstrVal = SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_NE(copy.bstrVal, source.bstrVal);
    EXPECT_EQ(SysStringLen(copy.bstrVal), 3u);
    EXPECT_EQ(copy.bstrVal[2], L'b');
    VariantClear(&copy);
    VariantClear(&source);
    EXPECT_EQ(source.vt, VT_EMPTY);
}

TEST(VariantCopyInd, FollowsOneReference)
{
    LONG number = 5;
    VARIANT reference{}, outer{}, twice{}, copy{};
    reference.vt = VT_I4 | VT_BYREF;
    reference.plVal = &number;
    outer.vt = twice.vt = VT_VARIANT | VT_BYREF;
    outer.pvarVal = &reference;
    twice.pvarVal = &outer;
    EXPECT_EQ(VariantCopyInd(&copy, &outer), S_OK);
    EXPECT_EQ(copy.vt, VT_I4);
    EXPECT_EQ(copy.lVal, 5);
    EXPECT_EQ(VariantCopyInd(&copy, &twice), E_INVALIDARG);
    EXPECT_EQ(VariantCopyInd(&reference, &reference), S_OK);
    EXPECT_EQ(reference.vt, VT_I4);
}

TEST(Variant, CountsReferencesOfObjects)
{
    Counted object;
    VARIANT first{}, second{};
    first.vt = VT_UNKNOWN;
    first.punkVal = &object;
    EXPECT_EQ(VariantCopy(&second, &first), S_OK);
    EXPECT_EQ(object.references, 2u);
    EXPECT_EQ(VariantChangeType(&second, &second, 0, VT_DISPATCH), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(object.references, 2u);
    VariantClear(&first);
    VariantClear(&second);
    EXPECT_EQ(object.references, 0u);
}

TEST(VariantTime, KnownDatesGoBothWays)
{
    const SYSTEMTIME moments[] = {{1899, 12, 6, 30, 0, 0, 0, 0},
                                  {2000, 2, 2, 29, 12, 0, 0, 0},
                                  {100, 1, 5, 1, 0, 0, 0, 0},
                                  {9999, 12, 5, 31, 23, 59, 59, 0}};
    const double dates[] = {0, 36585.5, -657434, 2958465 + 86399.0 / 86400};
    for (int i = 0; i < 4; ++i) {
        double date = 0;
        SYSTEMTIME back{};
        ASSERT_TRUE(SystemTimeToVariantTime(&moments[i], &date));
        EXPECT_DOUBLE_EQ(date, dates[i]);
        ASSERT_TRUE(VariantTimeToSystemTime(date, &back));
        EXPECT_EQ(std::memcmp(&back, &moments[i], sizeof back), 0) << i;
    }
    SYSTEMTIME time{};
    EXPECT_FALSE(VariantTimeToSystemTime(2958466, &time));
    EXPECT_FALSE(VariantTimeToSystemTime(std::numeric_limits<double>::quiet_NaN(), &time));
    time = {2021, 2, 0, 29, 0, 0, 0, 0};
    double date = 0;
    EXPECT_FALSE(SystemTimeToVariantTime(&time, &date));
}

TEST(FileTime, DatesGoBothWaysUpToTheLast)
{
    // 2^63 - 1 units of 100 ns after 1601-01-01: 30828-09-14, which no date of the interface reaches.
    const SYSTEMTIME epoch{1970, 1, 4, 1, 0, 0, 0, 1}, last{30827, 12, 5, 31, 23, 59, 59, 999};
    FILETIME file{};
    ASSERT_TRUE(SystemTimeToFileTime(&epoch, &file));
    EXPECT_EQ(file.dwHighDateTime, 0x019DB1DEu); // the well-known 116444736000000000, and a millisecond
    EXPECT_EQ(file.dwLowDateTime, 0xD53E8000u + 10000u);
    ASSERT_TRUE(SystemTimeToFileTime(&last, &file));
    SYSTEMTIME back{};
    ASSERT_TRUE(FileTimeToSystemTime(&file, &back));
    EXPECT_EQ(back.wYear, 30827);
    EXPECT_EQ(back.wMilliseconds, 999);
    const SYSTEMTIME never{1900, 2, 0, 29, 0, 0, 0, 0};
    EXPECT_FALSE(SystemTimeToFileTime(&never, &file));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    file = {0, 0x80000000};
    EXPECT_FALSE(FileTimeToSystemTime(&file, &back));
}

TEST(Bstr, ReplacementMayLieInTheOldString)
{
    BSTR string = SysAllocString(L"drawing");
    EXPECT_TRUE(SysReAllocString(&string, string + 4));
    EXPECT_STREQ(string, L"ing");
    EXPECT_EQ(SysStringByteLen(string), 3 * sizeof(wchar_t));
    SysFreeString(string);
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0x7fffffff), nullptr);
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
}
