#include "QmCADLib.h"

#include "acedads.h"
#include "CommandLineSpy.h"
#include "EditorFixture.h"

namespace
{
/// Commands that modules send to AutoCAD.
class CommandText : public headless::EditorTest
{
protected:
    int variable(const wchar_t* name) const
    {
        int value = -1;
        CFamStuSysVar::Get(name, value);
        return value;
    }
};

TEST_F(CommandText, CommandIsCarriedOutInTheCurrentDocument)
{
    CFamStuGlobe::SendCommandToCAD(L"PICKBOX 7 ");
    EXPECT_EQ(CWnd::GetFocus(), acedGetAcadFrame());
    run(L"");
    EXPECT_EQ(variable(L"PICKBOX"), 7);
}

TEST_F(CommandText, CommandsAreSentUpTo254Characters)
{
    CFamStuGlobe::SendCommandToCAD(CString(L' ', 254 - 10) + L"PICKBOX 8 ");
    run(L"");
    EXPECT_EQ(variable(L"PICKBOX"), 8);
    CFamStuGlobe::SendCommandToCAD(CString(L' ', 255 - 10) + L"PICKBOX 9 ");
    EXPECT_FALSE(acDocManager->inputPending(document()));
}

TEST_F(CommandText, MessageCancelsWhatRunsAndIsTyped)
{
    CommandLineSpy commandLine;
    EXPECT_EQ(CArxUtils::CMessage::SendMsgToAutoCAD(L"PICKBOX 5 "), 1);
    EXPECT_EQ(commandLine.take(), L""); // nothing ran
    run(L"");
    EXPECT_EQ(variable(L"PICKBOX"), 5);
    EXPECT_EQ(CWnd::GetForegroundWindow(), acedGetAcadFrame());
    asCommand([&] {
        EXPECT_EQ(CArxUtils::CMessage::SendMsgToAutoCAD(L"PICKBOX 6 "), 1);
        EXPECT_EQ(commandLine.take(), L"\x1b");
    });
    EXPECT_EQ(variable(L"PICKBOX"), 6);
}

TEST_F(CommandText, CommandLineIsClearedOfARunningCommandOnly)
{
    CommandLineSpy commandLine;
    EXPECT_EQ(CFamStuGlobe::ClearCommandLine(), 0);
    EXPECT_EQ(commandLine.take(), L"");
    asCommand([&] { EXPECT_EQ(CArxUtils::CMessage::ClearCommandLine(), CommandLineSpy::answer); });
    EXPECT_EQ(commandLine.take(), L"\x1b");
}

TEST_F(CommandText, CancelReachesAllDocumentsOrTheCurrentOne)
{
    CommandLineSpy commandLine;
    ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    AcApDocument* const second = acDocManager->mdiActiveDocument();
    const auto pending = [&] {
        return std::make_pair(acDocManager->inputPending(document()), acDocManager->inputPending(second));
    };
    CFamStuGlobe::CancelLastCommand();
    EXPECT_EQ(pending(), std::make_pair(0, 1));
    EXPECT_EQ(commandLine.take(), L"\x1b\x1b");
    run(L"");
    CFamStuGlobe::CancelAllCommand();
    EXPECT_EQ(pending(), std::make_pair(1, 1));
    EXPECT_EQ(commandLine.take(), L"\x1b\x1b");
    run(L"");
    acDocManager->activateDocument(document());
    run(L"");
}

TEST_F(CommandText, ActivationEnablesTheFrameAndRedrawsTheCursor)
{
    acedGetAcadFrame()->EnableWindow(FALSE);
    const HWND view = acedGetAcadDwgView()->m_hWnd;
    headless::takePostedMessages(view);
    CFamStuGlobe::ActivateAcad();
    EXPECT_TRUE(acedGetAcadFrame()->IsWindowEnabled());
    EXPECT_EQ(CWnd::GetActiveWindow(), acedGetAcadFrame());
    const std::vector<MSG> posted = headless::takePostedMessages(view);
    ASSERT_EQ(posted.size(), 2u);
    for (const MSG& message : posted)
        EXPECT_TRUE(message.message == WM_MOUSEMOVE && message.wParam == 0 && message.lParam == 0);
}
} // namespace
