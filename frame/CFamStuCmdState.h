#pragma once

#include <afxwin.h>

/// Keeps the application's commands from starting within each other. A command makes one object when it
/// starts and quits at once when IsNormal gives 0; the object ends with the command either way.
class AFX_EXT_CLASS CFamStuCmdState
{
public:
    CFamStuCmdState();
    /// Ends the inner attempt if there was one, else the running command.
    ~CFamStuCmdState();
    CFamStuCmdState(const CFamStuCmdState&) = delete;
    CFamStuCmdState& operator=(const CFamStuCmdState&) = delete;

    /// 1 when the command may run. 0 while another one of the application runs, or while the current document
    /// is locked by others, or when there is no document.
    int IsNormal();
};
