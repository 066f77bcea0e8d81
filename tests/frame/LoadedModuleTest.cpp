#include "QmCADLib.h"

#include "acedads.h"
#include "EditorFixture.h"

namespace
{
/// The module under test is loaded by AutoCAD's linker.
class LoadedModule : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        wchar_t path[MAX_PATH] = L"";
        GetModuleFileNameW(GetModuleHandleW(L"QmCADLib.arx"), path, MAX_PATH);
        m_path = path;
        ASSERT_TRUE(acrxLoadModule(m_path, false));
    }
    void TearDown() override
    {
        acrxUnloadModule(L"QmCADLib.arx");
        EditorTest::TearDown();
    }
    CString m_path;
};

TEST_F(LoadedModule, NameIsFoundInEitherCase)
{
    EXPECT_TRUE(CFamStuGlobe::isModuleLoaded("qmcadlib.ARX"));
    EXPECT_FALSE(CFamStuGlobe::isModuleLoaded("QmCADLib"));
    EXPECT_FALSE(CFamStuGlobe::isModuleLoaded(""));
    EXPECT_FALSE(CFamStuGlobe::isModuleLoaded(nullptr));
}

TEST_F(LoadedModule, SameFileIsLoadedAndOthersAreComparedByVersion)
{
    EXPECT_EQ(CFamStuGlobe::ArxIsLoaded(CString(m_path).MakeUpper()), 1);
    // No such file, so it is looked for beside the library: the same version.
    EXPECT_EQ(CFamStuGlobe::ArxIsLoaded(L"QmCADLib.arx"), 1);
    EXPECT_EQ(CFamStuGlobe::ArxIsLoaded(L"Q:\\NotLoaded.arx"), 0);
    EXPECT_EQ(CFamStuGlobe::ArxIsLoaded(L""), 0);
    EXPECT_TRUE(headless::takeMessageBoxes().empty());
}

TEST_F(LoadedModule, FileOfAnotherVersionIsShown)
{
    const CString other = L"Q:\\old\\QmCADLib.arx"; // no version at all
    EXPECT_EQ(CFamStuGlobe::ArxIsLoaded(other), 0);
    const auto boxes = headless::takeMessageBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(CString(boxes[0].text.c_str()),
              m_path + L"与" + other + L"加载公共文件不一致，请升级一致版本!");
}
} // namespace
