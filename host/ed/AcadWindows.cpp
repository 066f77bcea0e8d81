#include "Documents.h"
#include "IndexColors.h"
#include "PreferencesObject.h"
#include "ScreenSize.h"
#include "WindowSize.h"
#include "acedhooks.h"

namespace
{
/// The height of the command line below the drawing view, in pixels.
constexpr int commandLineHeight = 80;

/// A character sent to the command line is typed there.
class TextCommandLine : public CWnd
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_CHAR) return CWnd::WindowProc(message, wParam, lParam);
        ed::currentInput().type(std::wstring(1, static_cast<wchar_t>(wParam)), false);
        return 0;
    }
};

CRect viewRect()
{
    const SIZE screen = win32::screenSize();
    return {0, 0, screen.cx, std::max(1, static_cast<int>(screen.cy) - commandLineHeight)};
}

struct AcadWindows {
    CMDIFrameWnd frame;
    CView view;
    TextCommandLine commandLine;

    AcadWindows()
    {
        const SIZE screen = win32::screenSize();
        const CRect of = viewRect();
        frame.CreateEx(0, nullptr, L"Autodesk AutoCAD 2021", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, screen.cx, screen.cy,
                       nullptr, nullptr);
        commandLine.CreateEx(0, nullptr, L"", WS_CHILD | WS_VISIBLE, 0, of.bottom, of.right, commandLineHeight, frame.m_hWnd,
                             nullptr);
    }

    CView* viewOfDrawing()
    {
        if (!acDocManager->mdiActiveDocument()) {
            view.DestroyWindow();
            return nullptr;
        }
        const CRect at = viewRect();
        if (!view.m_hWnd)
            view.CreateEx(0, nullptr, L"", WS_CHILD | WS_VISIBLE, 0, 0, at.right, at.bottom, frame.m_hWnd, nullptr);
        return &view;
    }
};

AcadWindows& windows()
{
    static AcadWindows& all = *new AcadWindows;
    return all;
}

class AcadApplication : public CWinApp
{
public:
    AcadApplication() : CWinApp(L"AutoCAD") { m_pMainWnd = acedGetAcadFrame(); }
    LPDISPATCH GetIDispatch(BOOL addRef) override
    {
        LPDISPATCH object = automation::applicationObject();
        if (addRef) object->AddRef();
        return object;
    }
};
} // namespace

CMDIFrameWnd* acedGetAcadFrame() { return &windows().frame; }
CView* acedGetAcadDwgView() { return windows().viewOfDrawing(); }
CWnd* acedGetAcadTextCmdLine() { return &windows().commandLine; }

CWinApp* acedGetAcadWinApp()
{
    if (CWinApp* ofProgram = AfxGetApp()) return ofProgram;
    static AcadApplication& application = *new AcadApplication;
    return &application;
}

SIZE ed::drawingWindowSize()
{
    const CRect at = viewRect();
    return {at.Width(), at.Height()};
}

Adesk::UInt32 acedGetRGB(int color)
{
    const colors::Rgb rgb = colors::rgbOfIndex(color);
    return static_cast<Adesk::UInt32>(rgb.red << 16 | rgb.green << 8 | rgb.blue);
}
