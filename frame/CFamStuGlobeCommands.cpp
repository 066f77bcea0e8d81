#include "CFamStuGlobe.h"

#include "acdocman.h"
#include "acedads.h"
#include "CFamStuSysVar.h"
#include "TextCommandLine.h"

#include <memory>

namespace
{
constexpr int longestCommand = 254;

void sendTwoEscapes(AcApDocument* document)
{
    acDocManager->sendStringToExecute(document, L"\x1b\x1b", false, true, true);
}

void escapeCommandLineTwice()
{
    sendToCommandLine(VK_ESCAPE);
    sendToCommandLine(VK_ESCAPE);
}

// The cursor is drawn again with the next move of the mouse.
void redrawCursor()
{
    const CWnd* view = acedGetAcadDwgView();
    if (!view) return;
    view->PostMessage(WM_MOUSEMOVE, 0, 0);
    view->PostMessage(WM_MOUSEMOVE, 0, 0);
}
} // namespace

void CFamStuGlobe::ActivateAcad()
{
    CWnd* frame = acedGetAcadFrame();
    frame->SetActiveWindow();
    frame->EnableWindow(TRUE);
    redrawCursor();
}

void CFamStuGlobe::SendCommandToCAD(CString command)
{
    if (command.GetLength() > longestCommand) return;
    acedGetAcadFrame()->SetFocus();
    if (AcApDocument* document = curDoc())
        acDocManager->sendStringToExecute(document, command, false, true, true);
}

void CFamStuGlobe::CancelAllCommand()
{
    const std::unique_ptr<AcApDocumentIterator> walk(acDocManager->newAcApDocumentIterator());
    for (; !walk->done(); walk->step())
        sendTwoEscapes(walk->document());
    escapeCommandLineTwice();
}

void CFamStuGlobe::CancelLastCommand()
{
    if (AcApDocument* document = curDoc()) sendTwoEscapes(document);
    escapeCommandLineTwice();
}

int CFamStuGlobe::ClearCommandLine()
{
    CString names;
    CFamStuSysVar::Get(L"cmdnames", names);
    return names.IsEmpty() ? 0 : static_cast<int>(sendToCommandLine(VK_ESCAPE));
}
