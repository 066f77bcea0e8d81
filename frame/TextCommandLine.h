#pragma once

#include <afxwin.h>

/// Sends a character (WM_CHAR) to AutoCAD's command line and waits until it is taken. The result of the
/// message; 0 when there is no command line.
LRESULT sendToCommandLine(wchar_t character);
