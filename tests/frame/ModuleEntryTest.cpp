#include "QmCADLib.h"

#include "acedads.h"
#include "CommandLineSpy.h"
#include "EditorFixture.h"

#include <memory>

namespace
{
using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);

/// The module that the tests are linked with, in the hands of AutoCAD's linker.
class ModuleEntry : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        headless::attachLoadedModules();
        m_module = GetModuleHandleW(L"QmCADLib.arx");
        wchar_t path[MAX_PATH] = L"";
        GetModuleFileNameW(m_module, path, MAX_PATH);
        m_path = path;
    }
    void TearDown() override
    {
        if (acrxAppIsLoaded(L"QmCADLib.arx")) acrxUnloadModule(L"QmCADLib.arx");
        EditorTest::TearDown();
    }
    bool load() { return acrxLoadModule(m_path, true); }
    template <class Function>
    Function symbol(const char* name) const
    {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(m_module, name)));
    }

    HMODULE m_module = nullptr;
    CString m_path;
};

TEST_F(ModuleEntry, LoadedModuleHasItsClassesHooksAndRasterImages)
{
    ASSERT_TRUE(load()) << CStringA(takeOutput().c_str()).GetString();
    EXPECT_EQ(acrxClassDictionary->at(L"AsdkBlockOrderFilter"), AsdkBlockOrderFilter::desc());
    EXPECT_EQ(acrxClassDictionary->at(L"AsdkBlockOrderIndex"), AsdkBlockOrderIndex::desc());
    EXPECT_EQ(AsdkBlockOrderFilter::desc()->myParent(), AcDbFilter::desc());
    EXPECT_EQ(AsdkBlockOrderIndex::desc()->myParent(), AcDbIndex::desc());
    EXPECT_TRUE(acrxAppIsLoaded(L"acISMobj24.dbx"));
    EXPECT_FALSE(acrxApplicationIsLocked(L"QmCADLib.arx"));
    EXPECT_TRUE(acrxIsAppMDIAware(L"QmCADLib.arx"));
}

TEST_F(ModuleEntry, UnloadedModuleTakesItsClassesAndCanComeBack)
{
    for (int times = 0; times < 2; ++times) {
        ASSERT_TRUE(load());
        EXPECT_NE(acrxClassDictionary->at(L"AsdkBlockOrderIndex"), nullptr);
        ASSERT_TRUE(acrxUnloadModule(L"QmCADLib.arx"));
        EXPECT_EQ(acrxClassDictionary->at(L"AsdkBlockOrderFilter"), nullptr);
        EXPECT_EQ(acrxClassDictionary->at(L"AsdkBlockOrderIndex"), nullptr);
    }
}

TEST_F(ModuleEntry, EveryOtherMessageIsAnsweredWithOk)
{
    ASSERT_TRUE(load());
    const auto entry = symbol<EntryPoint>("acrxEntryPoint");
    ASSERT_NE(entry, nullptr);
    for (int message = -1; message <= 17; ++message) {
        if (message == AcRx::kInitAppMsg || message == AcRx::kUnloadAppMsg) continue;
        EXPECT_EQ(entry(static_cast<AcRx::AppMsgCode>(message), nullptr), AcRx::kRetOK) << message;
    }
}

TEST_F(ModuleEntry, NeitherCommandsNorFunctionsAreDefined)
{
    std::vector<std::wstring> before, after;
    const auto groups = [](std::vector<std::wstring>& names) {
        const std::unique_ptr<AcEdCommandIterator> walk(acedRegCmds->iterator());
        for (; !walk->done(); walk->next())
            names.push_back(walk->command()->globalName());
    };
    groups(before);
    ASSERT_TRUE(load());
    groups(after);
    EXPECT_EQ(before, after);
    for (short code = 0; code < 3; ++code)
        EXPECT_EQ(acedUndef(L"C:QMCADLIB", code), RTERROR);
}

TEST_F(ModuleEntry, VersionStampIsThatOfRelease24)
{
    const auto version = symbol<int (*)()>("acrxGetApiVersion");
    ASSERT_NE(version, nullptr);
    EXPECT_EQ(version(), 0x180000);
}

TEST_F(ModuleEntry, LibraryJoinsTheChainOfResourcesOnceAndLeavesIt)
{
    const auto links = [this] {
        int count = 0;
        for (const CDynLinkLibrary* at = AfxNextDynLinkLibrary(nullptr); at; at = AfxNextDynLinkLibrary(at))
            count += at->m_hModule == m_module;
        return count;
    };
    const auto dllMain = symbol<BOOL (*)(HINSTANCE, DWORD, LPVOID)>("DllMain");
    ASSERT_NE(dllMain, nullptr);
    EXPECT_EQ(links(), 1);
    EXPECT_TRUE(dllMain(m_module, DLL_PROCESS_ATTACH, nullptr)); // a second time
    EXPECT_TRUE(dllMain(m_module, DLL_THREAD_ATTACH, nullptr));
    EXPECT_EQ(links(), 1);
    EXPECT_TRUE(dllMain(m_module, DLL_PROCESS_DETACH, nullptr));
    EXPECT_EQ(links(), 0);
    EXPECT_TRUE(dllMain(m_module, DLL_PROCESS_DETACH, nullptr));
    EXPECT_TRUE(dllMain(nullptr, DLL_PROCESS_ATTACH, nullptr)); // MFC refuses the module: still TRUE
    EXPECT_EQ(links(), 0);
    EXPECT_TRUE(dllMain(m_module, DLL_PROCESS_ATTACH, nullptr));
    EXPECT_EQ(links(), 1);
}

/// The module is loaded and its hooks see what the loop takes.
class MessageHooks : public ModuleEntry
{
protected:
    void SetUp() override
    {
        ModuleEntry::SetUp();
        ASSERT_TRUE(load());
        CFamStuSysVar::Get(L"DYNMODE", m_before);
        const CFamStuSysVar off(L"DYNMODE", 0, FALSE);
    }
    void TearDown() override
    {
        headless::releaseAllKeys();
        const CFamStuSysVar back(L"DYNMODE", m_before, FALSE);
        ModuleEntry::TearDown();
    }
    static int dynMode()
    {
        int mode = -100;
        CFamStuSysVar::Get(L"DYNMODE", mode);
        return mode;
    }
    /// Takes a message through the hooks; what the command line got from them.
    std::wstring typedBy(UINT message, WPARAM key)
    {
        acedGetAcadFrame()->PostMessage(message, key);
        pumpMessages();
        return m_commandLine.take();
    }

    CommandLineSpy m_commandLine;
    int m_before = 0;
};

TEST_F(MessageHooks, ReleasedKeyOfAnAcceptedLetterSendsOneEnter)
{
    const CNoSpacebarInputControls shortcut(L"yn");
    headless::setKeyDown('Y', true);
    EXPECT_EQ(typedBy(WM_KEYDOWN, 'Y'), L""); // held down
    headless::setKeyDown('Y', false);
    EXPECT_EQ(typedBy(WM_KEYUP, 'Y'), L"\r");
    EXPECT_EQ(typedBy(WM_KEYUP, 'Q'), L"");
    EXPECT_EQ(typedBy(WM_USER, 'N'), L"\r"); // any message counts
    EXPECT_EQ(typedBy(WM_USER, 'n'), L"");   // no key code of a letter
}

TEST_F(MessageHooks, DynamicInputAndInactivityLeaveLettersAlone)
{
    {
        CNoSpacebarInputControls shortcut;
        EXPECT_EQ(typedBy(WM_KEYUP, 'Y'), L"");
        shortcut.setInputCtrls(L"Y");
        for (const int mode : {1, 2, 3}) {
            const CFamStuSysVar dynamic(L"DYNMODE", mode, TRUE);
            EXPECT_EQ(typedBy(WM_KEYUP, 'Y'), L"") << mode;
        }
        const CFamStuSysVar hidden(L"DYNMODE", -3, TRUE);
        EXPECT_EQ(typedBy(WM_KEYUP, 'Y'), L"\r");
    }
    EXPECT_EQ(typedBy(WM_KEYUP, 'Y'), L""); // the object has ended
}

TEST_F(MessageHooks, ShortcutTurnsDynamicInputOffForItsLife)
{
    const CFamStuSysVar dynamic(L"DYNMODE", 3, FALSE);
    {
        CNoSpacebarInputControls shortcut(L"Y");
        EXPECT_EQ(dynMode(), 0);
        const CFamStuSysVar changed(L"DYNMODE", 1, FALSE);
        shortcut.setInputCtrls(L"N");
        EXPECT_EQ(dynMode(), 1); // not touched
        CNoSpacebarInputControls::noSpacebarInputControls(L"");
        CNoSpacebarInputControls::noSpacebarInputControls(L"y"); // no more
        EXPECT_EQ(m_commandLine.take(), L"");
        CNoSpacebarInputControls::noSpacebarInputControls(L"n");
        EXPECT_EQ(m_commandLine.take(), L"\r");
    }
    EXPECT_EQ(dynMode(), 3);
}

TEST_F(MessageHooks, PendingEnterIsSentOnce)
{
    g_CGloableVar.setPendingEnter(1);
    EXPECT_EQ(typedBy(WM_USER, 0), L"\r");
    EXPECT_EQ(g_CGloableVar.getPendingEnter(), 0);
    EXPECT_EQ(typedBy(WM_USER, 0), L"");
}

TEST_F(MessageHooks, MouseIsInTheViewWhileItsMovesGoThere)
{
    const auto moves = [this](const CWnd* window, UINT message) {
        window->PostMessage(message);
        pumpMessages();
        return g_CGloableVar.getMouseInView();
    };
    EXPECT_EQ(moves(acedGetAcadDwgView(), WM_MOUSEMOVE), 1);
    EXPECT_EQ(moves(acedGetAcadFrame(), WM_MOUSEMOVE), 0);
    EXPECT_EQ(moves(acedGetAcadDwgView(), WM_MOUSEMOVE), 1);
    EXPECT_EQ(moves(acedGetAcadDwgView(), WM_USER), 0);
}

TEST_F(MessageHooks, ClickKeepsItsPointInWorldCoordinates)
{
    const auto click = [this](UINT message, int x, int y) {
        acedGetAcadDwgView()->PostMessage(message, 0, MAKELPARAM(x, y));
        pumpMessages();
        return g_CGloableVar.getLastPickedPoint();
    };
    CRect view;
    acedGetAcadDwgView()->GetClientRect(view);
    double height = 0.0;
    AcGePoint3d center;
    CFamStuSysVar::Get(L"VIEWSIZE", height);
    CFamStuSysVar::Get(L"VIEWCTR", center);
    const double perPixel = height / view.Height();
    EXPECT_TRUE(click(WM_LBUTTONDOWN, view.Width() / 2, view.Height() / 2).isEqualTo(center));
    const AcGePoint3d left = click(WM_LBUTTONUP, -20, view.Height() / 2); // dragged out of the window
    EXPECT_NEAR(left.x, center.x - (view.Width() / 2 + 20) * perPixel, 1e-9);
    EXPECT_NEAR(left.y, center.y, 1e-9);
    EXPECT_TRUE(click(WM_RBUTTONUP, 0, 0).isEqualTo(left));
    // Seen from the front, up in the view is up in the world.
    ASSERT_EQ(CFamStuUcs::setViewDirection({0.0, -1.0, 0.0}), 1);
    const AcGePoint3d middle = click(WM_LBUTTONDOWN, view.Width() / 2, view.Height() / 2);
    const AcGePoint3d above = click(WM_LBUTTONDOWN, view.Width() / 2, view.Height() / 2 - 10);
    EXPECT_TRUE((above - middle).isEqualTo({0.0, 0.0, 10.0 * perPixel}));
}
} // namespace
