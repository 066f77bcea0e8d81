#include "QmCADLib.h"

#include "Headless.h"

#include <gtest/gtest.h>

namespace
{
TEST(GloableVar, FlagsKeepWhatTheyGet)
{
    CGloableVar flags;
    void (CGloableVar::*const setters[])(int) = {
        &CGloableVar::setError,       &CGloableVar::setHideTcTk,     &CGloableVar::setQmToolsLoaded,
        &CGloableVar::setMouseInView, &CGloableVar::setReShowDwgBar, &CGloableVar::setTuoZhuaiEntCmdRuning,
        &CGloableVar::setXunHuanTip};
    int (CGloableVar::*const getters[])() const = {
        &CGloableVar::getError,       &CGloableVar::getHideTcTk,     &CGloableVar::getQmToolsLoaded,
        &CGloableVar::getMouseInView, &CGloableVar::getReShowDwgBar, &CGloableVar::getTuoZhuaiEntCmdRuning,
        &CGloableVar::getXunHuanTip};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ((flags.*getters[i])(), 0) << i;
        (flags.*setters[i])(10 + i);
    }
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ((flags.*getters[i])(), 10 + i) << i;
}

TEST(GloableVar, TipBeginsAnewAfterAnErrorOnly)
{
    CGloableVar flags;
    flags.setXunHuanTip(1);
    flags.iniXunHuanTip();
    EXPECT_EQ(flags.getXunHuanTip(), 1);
    flags.setError(2);
    flags.iniXunHuanTip();
    EXPECT_EQ(flags.getXunHuanTip(), 0);
    EXPECT_EQ(flags.getError(), 0);
}

TEST(RxErrorMsg, NothingIsShown)
{
    CArxUtils::CDebugError::RxErrorMsg(Acad::eWasErased);
    CArxUtils::CDebugError::RxErrorMsg(Acad::eWasErased, L"MakeLine");
    EXPECT_TRUE(headless::takeMessageBoxes().empty());
}

/// DllInit of a module of the tests; the box that it showed, "" for none.
std::pair<bool, std::wstring> initialised(const CString& name)
{
    const HINSTANCE module = LoadLibraryW(CString("Z:" TEST_MODULES "\\") + name);
    EXPECT_NE(module, nullptr);
    const bool result = CFamStuPub::DllInit(module);
    FreeLibrary(module);
    const auto boxes = headless::takeMessageBoxes();
    return {result, boxes.empty() ? L"" : boxes.back().text};
}

TEST(DllInit, ModuleThatInitialisesPassesAndOthersAreReported)
{
    using Result = std::pair<bool, std::wstring>;
    EXPECT_EQ(initialised(L"Init_true.dll"), Result(true, L""));
    EXPECT_EQ(initialised(L"Init_false.dll"), Result(false, L"数据库初始化错误"));
    EXPECT_EQ(initialised(L"Base.dll"), Result(false, L"数据库初始化错误")); // has no Init
    EXPECT_FALSE(CFamStuPub::DllInit(nullptr));
    EXPECT_EQ(headless::takeMessageBoxes().size(), 1u);
}
} // namespace
