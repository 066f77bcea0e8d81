#pragma once

#include <afxwin.h>

/// The keyword shortcut: while it is active, the key of an accepted letter answers a keyword question without
/// Enter or the space bar, since Enter is sent after it. Dynamic input (DYNMODE), which handles letters
/// itself, is off meanwhile. The shortcut is one for the whole module, so at most one object lives at a time.
class AFX_EXT_CLASS CNoSpacebarInputControls
{
public:
    /// Turns dynamic input off; the shortcut stays inactive until setInputCtrls.
    CNoSpacebarInputControls();
    /// The same, and makes the shortcut active for `letters`, in either case.
    explicit CNoSpacebarInputControls(CString letters);
    /// Brings DYNMODE back to what it was, and ends the shortcut.
    ~CNoSpacebarInputControls();
    CNoSpacebarInputControls(const CNoSpacebarInputControls&) = delete;
    CNoSpacebarInputControls& operator=(const CNoSpacebarInputControls&) = delete;

    /// Makes the shortcut active for other letters. DYNMODE stays.
    void setInputCtrls(CString letters);

    /// Sends Enter to the command line when `text`, in either case, occurs in the accepted letters; not for
    /// an empty one.
    static void noSpacebarInputControls(CString text);
    /// Whether the shortcut is active.
    static bool isActive();

private:
    int m_dynMode = 0; ///< what DYNMODE was
};
