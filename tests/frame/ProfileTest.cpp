#include "QmCADLib.h"

#include "acedads.h"
#include "EditorFixture.h"
#include "rxregsvc.h"

#include <CGTRegKey.h>
#include <pugixml.hpp>

namespace
{
const wchar_t* const own = L"<<Unnamed Profile>>";

/// The registry as it is in memory, with no profile of the tests at the end.
class Profiles : public headless::EditorTest
{
protected:
    void TearDown() override
    {
        CFamStuGlobe::setMoRenProfiles(own);
        CGTRegKey key;
        if (key.Open(HKEY_CURRENT_USER, path())) key.DeleteKey(L"图纸");
        EditorTest::TearDown();
    }
    static CString path() { return CString(acrxProductKey()) + L"\\Profiles"; }
    static CGTStringW text(const CString& below, const wchar_t* name)
    {
        CGTRegKey key;
        CGTStringW value = L"none";
        if (key.Open(HKEY_CURRENT_USER, path() + L"\\" + below, true)) key.ReadString(name, value);
        return value;
    }
    static void write(const char* xml)
    {
        pugi::xml_document document;
        ASSERT_TRUE(document.load_string(xml));
        CFamStuGlobe::writePorfiles(document);
    }
    static constexpr const char* settings = R"(<profiles><profile name="图纸">
        <key name="General"><value name="ACAD">D:\字库;</value><value name="Drag" type="dword">0x10</value>
          <key name="Deep"><value name="x">1</value></key></key>
        <key name="a\b"><value name="x">1</value></key>
        <value name="Bad" type="dword">12x</value><value name="Blob" type="binary">00</value>
        </profile><profile name=""><value name="x">1</value></profile></profiles>)";
};

TEST_F(Profiles, CurrentOneIsTheDefaultUntilAnotherIsChosen)
{
    EXPECT_EQ(CFamStuGlobe::getMoRenProfiles(), own);
    CFamStuGlobe::setMoRenProfiles(L"图纸");
    EXPECT_EQ(CFamStuGlobe::getMoRenProfiles(), L"图纸");
    CFamStuGlobe::setMoRenProfiles(L"");
    CFamStuGlobe::setMoRenProfiles(L"a\\b");
    EXPECT_EQ(CFamStuGlobe::getMoRenProfiles(), L"图纸");
}

TEST_F(Profiles, DocumentIsWrittenAsItsKeysAndValues)
{
    write(settings);
    EXPECT_EQ(text(L"图纸\\General", L"ACAD"), L"D:\\字库;");
    EXPECT_EQ(text(L"图纸\\General\\Deep", L"x"), L"1");
    CGTRegKey key;
    DWORD number = 0;
    ASSERT_TRUE(key.Open(HKEY_CURRENT_USER, path() + L"\\图纸\\General", true));
    EXPECT_EQ(key.ReadDword(L"Drag", number), 1);
    EXPECT_EQ(number, 16u);
}

TEST_F(Profiles, WhatIsNoSettingIsLeftOut)
{
    write(settings);
    EXPECT_EQ(text(L"图纸\\a", L"x"), L"none");
    EXPECT_EQ(text(L"", L"x"), L"none");
    CGTRegKey key;
    ASSERT_TRUE(key.Open(HKEY_CURRENT_USER, path() + L"\\图纸", true));
    CStringArray values;
    EXPECT_EQ(key.GetValues(values), 1);
    EXPECT_EQ(values.GetSize(), 0);
}

TEST_F(Profiles, DeletedProfileGivesWayToAutoCadsOwn)
{
    write(settings);
    CFamStuGlobe::setMoRenProfiles(L"图纸");
    CFamStuGlobe::deletePorfiles();
    EXPECT_EQ(CFamStuGlobe::getMoRenProfiles(), own);
    EXPECT_EQ(text(L"图纸\\General", L"ACAD"), L"none");
}

TEST_F(Profiles, AutoCadsOwnIsNotDeleted)
{
    acedSetEnv(L"QmTestSetting", L"kept");
    CFamStuGlobe::deletePorfiles();
    wchar_t value[10] = L"";
    EXPECT_EQ(acedGetEnv(L"QmTestSetting", value), RTNORM);
    EXPECT_STREQ(value, L"kept");
}
} // namespace
