#include "CFamStuIniFile.h"

namespace
{
constexpr int defaultX = 100, defaultY = 50;
constexpr const wchar_t *placeSection = L"窗口位置", *sizeSection = L"窗口尺寸";

CString prefixOf(const CWnd& window, const CString& name)
{
    CString prefix = name;
    if (name.IsEmpty()) prefix.Format(L"%d", window.GetDlgCtrlID());
    return prefix;
}
} // namespace

int CFamStuIniFile::LoadWindowPos(CWnd* window, const CString& file, const CString& name, int withSize)
{
    if (!window || !window->GetSafeHwnd()) return 0;
    const CString prefix = prefixOf(*window, name);
    int x = ReadKey(placeSection, prefix + L"X", defaultX, file);
    int y = ReadKey(placeSection, prefix + L"Y", defaultY, file);
    const int width = ReadKey(sizeSection, prefix + L"Wid", -1, file);
    const int height = ReadKey(sizeSection, prefix + L"Hei", -1, file);
    CRect screen;
    CWnd::GetDesktopWindow()->GetWindowRect(screen);
    if (x > screen.right) x = defaultX;
    if (y > screen.bottom) y = defaultY;
    const bool isSized = withSize && width >= 1 && height >= 1;
    return window->SetWindowPos(nullptr, x, y, width, height, isSized ? SWP_ASYNCWINDOWPOS : SWP_NOSIZE) != 0;
}

int CFamStuIniFile::SaveWindowPos(CWnd* window, const CString& file, const CString& name)
{
    if (!window || !window->GetSafeHwnd() || window->IsIconic()) return 0;
    const CString prefix = prefixOf(*window, name);
    CRect place;
    window->GetWindowRect(place);
    if (!WriteKey(placeSection, prefix + L"X", static_cast<int>(place.left), file) ||
        !WriteKey(placeSection, prefix + L"Y", static_cast<int>(place.top), file))
        return 0;
    if (window->IsZoomed() || place.Width() < 1 || place.Height() < 1) return 1;
    return WriteKey(sizeSection, prefix + L"Wid", place.Width(), file) &&
           WriteKey(sizeSection, prefix + L"Hei", place.Height(), file);
}
