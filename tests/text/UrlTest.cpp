#include "QmCADLib.h"

#include <gtest/gtest.h>

TEST(UrlEncode, KeepsUnreservedCharactersOnly)
{
    EXPECT_EQ(CEncoding::UrlEncode("a b&"), "a+b%26");
    EXPECT_EQ(CEncoding::UrlEncode("Az09-_.~"), "Az09-_.~");
    EXPECT_EQ(CEncoding::UrlEncode("\xe4\xb8\xad+%"), "%E4%B8%AD%2B%25");
    EXPECT_EQ(CEncoding::UrlEncode(std::string("\0", 1)), "%00");
}

TEST(UrlDecode, LettersBeyondFCountOnFromSixteen)
{
    EXPECT_EQ(CEncoding::UrlDecode("%4a"), "J");
    EXPECT_EQ(CEncoding::UrlDecode("%4A%2b"), "J+");
    EXPECT_EQ(CEncoding::UrlDecode("%0G"), "\x10"); // G = 71 - 55 = 16
    EXPECT_EQ(CEncoding::UrlDecode("%zz"), "\x53"); // z = 122 - 87 = 35; 35 * 17 = 595 = 2 * 256 + 83
}

TEST(UrlDecode, OtherCharactersKeepTheDigitOfTheEscapeBefore)
{
    EXPECT_EQ(CEncoding::UrlDecode("%41%?2"), "AB");
    EXPECT_EQ(CEncoding::UrlDecode("%41%5?"), "AQ");
    EXPECT_EQ(CEncoding::UrlDecode("%??"), std::string("\0", 1));
}

TEST(UrlDecode, CopiesAnEscapeThatTheEndCutsOff)
{
    EXPECT_EQ(CEncoding::UrlDecode("%"), "%");
    EXPECT_EQ(CEncoding::UrlDecode("%41%4"), "A%4");
    EXPECT_EQ(CEncoding::UrlDecode(""), "");
}

TEST(UrlDecode, UndoesUrlEncodeForEveryByte)
{
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    EXPECT_EQ(CEncoding::UrlDecode(CEncoding::UrlEncode(bytes)), bytes);
}
