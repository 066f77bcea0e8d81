#include "CMatrix.h"

#include <afxwin.h>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <vector>

namespace
{
using Units = std::vector<std::uint16_t>;

struct NumberText {
    wchar_t characters[32];
};

/// The shortest of three forms that reads back as the number.
NumberText exactTextOf(double number)
{
    NumberText text{};
    for (const wchar_t* const format : {L"%.15g", L"%.16g", L"%.17g"}) {
        swprintf_s(text.characters, format, number);
        if (std::wcstod(text.characters, nullptr) == number) break;
    }
    return text;
}

/// The texts made here are ASCII: each character is one unit.
void append(Units& units, const wchar_t* text)
{
    for (; *text; ++text)
        units.push_back(static_cast<std::uint16_t>(*text));
}

/// The clipboard, open as long as this lives.
class OpenedClipboard
{
public:
    OpenedClipboard() : m_isOpen(OpenClipboard(owner()) != FALSE) {}
    ~OpenedClipboard()
    {
        if (m_isOpen) CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    bool isOpen() const { return m_isOpen; }

private:
    // Without an owner the clipboard takes no data.
    static HWND owner()
    {
        const CWnd* const window = AfxGetMainWnd();
        return window ? window->GetSafeHwnd() : nullptr;
    }

    bool m_isOpen;
};

/// Null when there is no memory.
HGLOBAL asGlobalText(const Units& units)
{
    const size_t bytes = units.size() * sizeof units[0];
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (!block) return nullptr;
    std::memcpy(GlobalLock(block), units.data(), bytes);
    GlobalUnlock(block);
    return block;
}

bool putOnClipboard(const Units& units)
{
    const OpenedClipboard clipboard;
    if (!clipboard.isOpen()) return false;
    const HGLOBAL block = asGlobalText(units);
    if (!block) return false;
    if (EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, block)) return true;
    GlobalFree(block);
    return false;
}
} // namespace

CString CMatrix::GetRowAsText(int y) const
{
    RequireRow(y);
    CString text;
    for (int x = 0; x < m_columns; ++x) {
        if (x > 0) text += L'\t';
        text += exactTextOf(Row(y)[x]).characters;
    }
    return text;
}

bool CMatrix::CopyToClipboard() const
{
    Units units;
    for (int y = 0; y < m_rows; ++y) {
        append(units, GetRowAsText(y));
        append(units, L"\r\n");
    }
    units.push_back(0);
    return putOnClipboard(units);
}
