#include "Headless.h"

#include <gtest/gtest.h>

namespace
{
constexpr GUID sample{0x01234567, 0x89AB, 0xCDEF, {0xFE, 0xDC, 0xBA, 0x98, 0x76, 0x54, 0x32, 0x10}};
constexpr wchar_t sampleText[] = L"{01234567-89AB-CDEF-FEDC-BA9876543210}";
} // namespace

TEST(CoCreateGuid, MakesDifferentRandomIdentifiersOfVersionFour)
{
    GUID first{}, second{};
    ASSERT_EQ(CoCreateGuid(&first), S_OK);
    ASSERT_EQ(CoCreateGuid(&second), S_OK);
    EXPECT_NE(first, second);
    EXPECT_EQ(first.Data3 >> 12, 4);
    EXPECT_EQ(first.Data4[0] >> 6, 2);
    EXPECT_EQ(CoCreateGuid(nullptr), E_INVALIDARG);
}

TEST(CoCreateGuid, FailsOrGivesNullOnceWhenATestAsks)
{
    GUID guid = sample;
    headless::failNextGuid();
    EXPECT_EQ(CoCreateGuid(&guid), E_FAIL);
    EXPECT_EQ(guid, GUID_NULL);
    headless::giveNullGuidNext();
    EXPECT_EQ(CoCreateGuid(&guid), S_OK);
    EXPECT_EQ(guid, GUID_NULL);
    EXPECT_EQ(CoCreateGuid(&guid), S_OK);
    EXPECT_NE(guid, GUID_NULL);
}

TEST(GuidText, GoesBothWays)
{
    wchar_t text[39];
    EXPECT_EQ(StringFromGUID2(sample, text, 39), 39);
    EXPECT_STREQ(text, sampleText);
    EXPECT_EQ(StringFromGUID2(sample, text, 38), 0);
    GUID read{};
    EXPECT_EQ(CLSIDFromString(L"{01234567-89ab-cdef-fedc-ba9876543210}", &read), S_OK);
    EXPECT_EQ(read, sample);
    EXPECT_EQ(IIDFromString(nullptr, &read), S_OK);
    EXPECT_EQ(read, GUID_NULL);
}

TEST(GuidText, CutOrChangedTextIsRefused)
{
    GUID read{};
    for (std::size_t length = 0; length < 38; ++length) {
        const std::wstring cut(sampleText, length);
        EXPECT_EQ(CLSIDFromString(cut.c_str(), &read), CO_E_CLASSSTRING) << length;
        std::wstring changed = sampleText;
        changed[length] = L'x';
        EXPECT_EQ(IIDFromString(changed.c_str(), &read), E_INVALIDARG) << length;
    }
    EXPECT_EQ(IIDFromString((std::wstring(sampleText) + L" ").c_str(), &read), E_INVALIDARG);
}
