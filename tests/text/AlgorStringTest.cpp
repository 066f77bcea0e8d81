#include "QmCADLib.h"

#include "Headless.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace
{
const AlgorString& algor()
{
    return AlgorString::Instance();
}

/// A narrow copy into a buffer of exactly `size` bytes, so that the sanitizer sees a byte too many.
std::string narrowCopy(int size, const wchar_t* text)
{
    const std::unique_ptr<char[]> buffer(new char[size]);
    const int written = algor().WChar2Char(buffer.get(), size, text);
    EXPECT_EQ(static_cast<size_t>(written), std::string(buffer.get()).size());
    return buffer.get();
}

std::wstring wideCopy(int size, const char* text)
{
    const std::unique_ptr<wchar_t[]> buffer(new wchar_t[size]);
    const int written = algor().Char2WChar(buffer.get(), size, text);
    EXPECT_EQ(static_cast<size_t>(written), std::wstring(buffer.get()).size());
    return buffer.get();
}

template <class Value>
VARIANT variant(VARTYPE type, Value VARIANT::*member, Value value)
{
    VARIANT v = {};
    v.vt = type;
    v.*member = value;
    return v;
}

void expectBoth(const VARIANT& value, const wchar_t* text)
{
    EXPECT_STREQ(algor().VariantToCString(value), text) << value.vt;
    EXPECT_STREQ(algor().Varint2CStr(value), text) << value.vt;
}

VARIANT arrayOf(std::initializer_list<VARIANT> elements)
{
    VARIANT v = {};
    v.vt = VT_ARRAY | VT_VARIANT;
    v.parray = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(elements.size()));
    LONG index = 0;
    for (const VARIANT& each : elements) {
        EXPECT_EQ(SafeArrayPutElement(v.parray, &index, const_cast<VARIANT*>(&each)), S_OK);
        ++index;
    }
    return v;
}
} // namespace

TEST(AlgorString, InstanceIsOneObject)
{
    EXPECT_EQ(&AlgorString::Instance(), &AlgorString::Instance());
}

TEST(AlgorString, NarrowCopyIsCutBetweenCharacters)
{
    // GBK: 轴 is D6 E1, two bytes each.
    EXPECT_EQ(narrowCopy(6, L"a轴轴"), "a\xd6\xe1\xd6\xe1");
    EXPECT_EQ(narrowCopy(5, L"a轴轴"), "a\xd6\xe1");
    EXPECT_EQ(narrowCopy(4, L"a轴轴"), "a\xd6\xe1");
    EXPECT_EQ(narrowCopy(3, L"a轴轴"), "a");
    EXPECT_EQ(narrowCopy(1, L"a轴轴"), "");
    EXPECT_EQ(narrowCopy(4, nullptr), "");
    const std::wstring axes(10000, L'轴');
    EXPECT_EQ(narrowCopy(10002, axes.c_str()).size(), 10000u);
    char buffer[8] = "kept";
    EXPECT_EQ(algor().CStr2Char(buffer, 8, L"a轴"), 3);
    EXPECT_STREQ(buffer, "a\xd6\xe1");
}

TEST(AlgorString, NarrowCopyKeepsUtf8CharactersWhole)
{
    headless::setAnsiCodePage(65001);
    const std::wstring text = L"é中\U00020000"; // 2, 3 and 4 bytes
    const char* const expected[] = {"",
                                    "",
                                    "\xc3\xa9",
                                    "\xc3\xa9",
                                    "\xc3\xa9",
                                    "\xc3\xa9\xe4\xb8\xad",
                                    "\xc3\xa9\xe4\xb8\xad",
                                    "\xc3\xa9\xe4\xb8\xad",
                                    "\xc3\xa9\xe4\xb8\xad",
                                    "\xc3\xa9\xe4\xb8\xad\xf0\xa0\x80\x80"};
    for (int bytes = 0; bytes < 10; ++bytes)
        EXPECT_EQ(narrowCopy(bytes + 1, text.c_str()), expected[bytes]) << bytes;
    headless::setAnsiCodePage(936);
}

TEST(AlgorString, WideCopyIsCutAtTheSize)
{
    EXPECT_EQ(wideCopy(4, "a\xd6\xe1"
                          "b"),
              L"a轴b");
    EXPECT_EQ(wideCopy(3, "a\xd6\xe1"
                          "b"),
              L"a轴");
    EXPECT_EQ(wideCopy(1, "ab"), L"");
    EXPECT_EQ(wideCopy(2, nullptr), L"");
    EXPECT_EQ(wideCopy(4, "a\xd6"), L"a?"); // a lead byte without its trail byte
}

TEST(AlgorString, BuffersWithoutRoomAreNotTouched)
{
    char narrow = 'x';
    wchar_t wide = L'x';
    for (const int size : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(algor().WChar2Char(&narrow, size, L"a"), 0);
        EXPECT_EQ(algor().Char2WChar(&wide, size, "a"), 0);
    }
    EXPECT_EQ(narrow, 'x');
    EXPECT_EQ(wide, L'x');
    EXPECT_EQ(algor().CStr2Char(nullptr, 8, L"a"), 0);
    EXPECT_EQ(algor().Char2WChar(nullptr, 8, "a"), 0);
}

TEST(AlgorString, LongTextsAreCopiedWhole)
{
    constexpr int length = 16 << 20; // 64 MiB where a character has 4 bytes
    const CString text(L'a', length);
    const std::unique_ptr<char[]> narrow(new char[length + 1]);
    EXPECT_EQ(algor().CStr2Char(narrow.get(), length + 1, text), length);
    EXPECT_EQ(algor().CStr2Char(narrow.get(), length, text), length - 1);
    EXPECT_EQ(algor().Count(text, L'a'), length);
    const std::unique_ptr<wchar_t[]> wide(new wchar_t[length]);
    EXPECT_EQ(algor().Char2WChar(wide.get(), length, narrow.get()), length - 1);
    EXPECT_EQ(algor().Count(CString(), L'a'), 0);
    EXPECT_EQ(algor().Count(L"a.b.c", L'.'), 2);
}

TEST(AlgorString, WholeNumbersBecomeDecimalText)
{
    expectBoth(variant<signed char>(VT_I1, &VARIANT::cVal, -128), L"-128");
    expectBoth(variant<BYTE>(VT_UI1, &VARIANT::bVal, 255), L"255");
    expectBoth(variant<SHORT>(VT_I2, &VARIANT::iVal, -32768), L"-32768");
    expectBoth(variant<USHORT>(VT_UI2, &VARIANT::uiVal, 65535), L"65535");
    expectBoth(variant<LONG>(VT_I4, &VARIANT::lVal, -5), L"-5");
    expectBoth(variant<UINT>(VT_UINT, &VARIANT::uintVal, 0xFFFFFFFF), L"4294967295");
    expectBoth(variant<LONGLONG>(VT_I8, &VARIANT::llVal, std::numeric_limits<LONGLONG>::min()),
               L"-9223372036854775808");
    expectBoth(variant<ULONGLONG>(VT_UI8, &VARIANT::ullVal, ~0ULL), L"18446744073709551615");
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_ERROR, VT_DISPATCH, VT_UNKNOWN})
        expectBoth(variant<LONGLONG>(type, &VARIANT::llVal, 0), L"");
}

TEST(AlgorString, RealsAndTruthValuesDifferBetweenTheTwo)
{
    const VARIANT third = variant<double>(VT_R8, &VARIANT::dblVal, 1.0 / 3);
    EXPECT_STREQ(algor().VariantToCString(third), L"0.3333333333333333");
    EXPECT_STREQ(algor().Varint2CStr(third), L"0.333333");
    const VARIANT tenth = variant<float>(VT_R4, &VARIANT::fltVal, 0.1f);
    EXPECT_STREQ(algor().VariantToCString(tenth), L"0.1");
    EXPECT_STREQ(algor().Varint2CStr(variant<double>(VT_R8, &VARIANT::dblVal, 2.0)), L"2");
    const VARIANT yes = variant<VARIANT_BOOL>(VT_BOOL, &VARIANT::boolVal, VARIANT_TRUE);
    EXPECT_STREQ(algor().VariantToCString(yes), L"True");
    EXPECT_STREQ(algor().Varint2CStr(yes), L"1");
}

TEST(AlgorString, CurrencyKeepsFourDecimals)
{
    const struct {
        LONGLONG amount;
        const wchar_t* text;
    } cases[] = {{12500, L"1.25"},
                 {-1, L"-0.0001"},
                 {30000, L"3"},
                 {0, L"0"},
                 {std::numeric_limits<LONGLONG>::min(), L"-922337203685477.5808"}};
    for (const auto& each : cases) {
        CY amount = {};
        amount.int64 = each.amount;
        expectBoth(variant<CY>(VT_CY, &VARIANT::cyVal, amount), each.text);
    }
}

TEST(AlgorString, DatesAreCivil)
{
    const struct {
        double date; // days from 1899-12-30
        const wchar_t* text;
    } cases[] = {{0, L"1899-12-30 00:00:00"},
                 {-1.25, L"1899-12-29 06:00:00"},
                 {25569.5, L"1970-01-01 12:00:00"},      // 25567 days after 1900-01-01, which is day 2
                 {36585, L"2000-02-29 00:00:00"},        // 30 years, 7 leap days and 59 days later
                 {36585.999999, L"2000-03-01 00:00:00"}, // 0.0864 seconds to midnight
                 {-657434, L"0100-01-01 00:00:00"},
                 {2958465, L"9999-12-31 00:00:00"},
                 {2958465.9999999, L""},
                 {-657435, L""},
                 {1e300, L""},
                 {std::numeric_limits<double>::quiet_NaN(), L""}};
    for (const auto& each : cases)
        expectBoth(variant<DATE>(VT_DATE, &VARIANT::date, each.date), each.text);
}

TEST(AlgorString, TextsAndReferencesAreFollowed)
{
    const BSTR text = SysAllocStringLen(L"a\0b", 3);
    VARIANT string = variant<BSTR>(VT_BSTR, &VARIANT::bstrVal, text);
    EXPECT_EQ(algor().VariantToCString(string).GetLength(), 3);
    VARIANT reference = variant<VARIANT*>(VT_BYREF | VT_VARIANT, &VARIANT::pvarVal, &string);
    EXPECT_EQ(algor().Varint2CStr(reference).GetLength(), 3);
    SysFreeString(text);
    expectBoth(variant<BSTR>(VT_BSTR, &VARIANT::bstrVal, nullptr), L"");

    LONG number = 42;
    expectBoth(variant<LONG*>(VT_BYREF | VT_I4, &VARIANT::plVal, &number), L"42");
    expectBoth(variant<LONG*>(VT_BYREF | VT_I4, &VARIANT::plVal, nullptr), L"");
    reference.pvarVal = &reference; // a ring
    expectBoth(reference, L"");
}

TEST(AlgorString, ArraysAreJoinedButNotNested)
{
    const VARIANT one = variant<LONG>(VT_I4, &VARIANT::lVal, 1);
    VARIANT inner = arrayOf({one, one});
    VARIANT outer = arrayOf({one, VARIANT{}, inner, variant<double>(VT_R8, &VARIANT::dblVal, 0.5)});
    EXPECT_STREQ(algor().VariantToCString(outer), L"1,,,0.5");
    EXPECT_STREQ(algor().Varint2CStr(outer), L"");
    const VARIANT reference =
        variant<SAFEARRAY**>(VT_BYREF | VT_ARRAY | VT_VARIANT, &VARIANT::pparray, &inner.parray);
    EXPECT_STREQ(algor().VariantToCString(reference), L"1,1");
    VariantClear(&outer);
    VariantClear(&inner);
    expectBoth(variant<SAFEARRAY*>(VT_ARRAY | VT_I4, &VARIANT::parray, nullptr), L"");
}
