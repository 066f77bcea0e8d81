#include "QmCADLib.h"

#include "Headless.h"

#include "../host/win32/TempFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
std::wstring replaced(std::wstring text, std::wstring from, wchar_t* to, size_t room = 0)
{
    text.resize(text.size() + room + 1);
    CFamStuGlobe::replace(&text[0], from.empty() ? nullptr : &from[0], to);
    return text.c_str();
}

TEST(Replace, EveryOccurrenceIsReplacedFromTheLeft)
{
    wchar_t empty[] = L"", shorter[] = L"b", longer[] = L"aaa";
    EXPECT_EQ(replaced(L"aaaaa", L"aa", shorter), L"bba");
    EXPECT_EQ(replaced(L"x,y,", L",", empty), L"xy");
    EXPECT_EQ(replaced(L"x,y,", L",", nullptr), L"xy");
    // What was put in holds "a" again and is left.
    EXPECT_EQ(replaced(L"aba", L"a", longer, 4), L"aaabaaa");
    EXPECT_EQ(replaced(L"abc", L"", longer), L"abc");
    EXPECT_EQ(replaced(L"abc", L"d", longer), L"abc");
}

TEST(GetIpAddr, NamesAndAddressesResolveAndOthersAreEmpty)
{
    EXPECT_EQ(CFamStuGlobe::getIpAddr(L"localhost"), L"127.0.0.1");
    EXPECT_EQ(CFamStuGlobe::getIpAddr(L"10.1.2.3"), L"10.1.2.3");
    EXPECT_EQ(CFamStuGlobe::getIpAddr(L"no host has blanks"), L"");
}

class FileVersionTest : public TempFolder
{
protected:
    ~FileVersionTest() override { EXPECT_TRUE(headless::takeMessageBoxes().empty()); }
};

TEST_F(FileVersionTest, NameWithoutFileIsBesideTheLibrary)
{
    CString version;
    EXPECT_EQ(CFamStuGlobe::getFileVersion(L"QmCADLib.arx", version), 1);
    EXPECT_EQ(version, CString(TEST_LIBRARY_VERSION));
}

TEST_F(FileVersionTest, FileWithoutVersionLeavesTheText)
{
    put("plain.arx", "no module");
    CString version = L"before";
    EXPECT_EQ(CFamStuGlobe::getFileVersion(path(L"plain.arx").c_str(), version), 0);
    EXPECT_EQ(CFamStuGlobe::getFileVersion(path(L"absent.arx").c_str(), version), 0);
    EXPECT_EQ(version, L"before");
}

TEST_F(FileVersionTest, EqualVersionsPassWithoutAMessage)
{
    EXPECT_EQ(CFamStuGlobe::SameFileVersion(L"QmCADLib.arx", L"qmcadlib.arx"), 1);
}

TEST_F(FileVersionTest, OtherVersionIsShownWithTheSecondNameFirst)
{
    EXPECT_EQ(CFamStuGlobe::SameFileVersion(L"QmCADLib.arx", L"absent.arx"), 0);
    const auto boxes = headless::takeMessageBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, L"absent.arx与QmCADLib.arx加载公共文件不一致，请升级一致版本!");
}
} // namespace
