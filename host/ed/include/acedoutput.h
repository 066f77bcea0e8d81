#pragma once

/// Output: the command line and alerts.

#include "adsdef.h"
#include <atlstr.h>

/// Writes a text as it stands to the command line. RTNORM; RTERROR for null.
int acutPrintText(const ACHAR* text);

/// Writes formatted text to the command line, with the directives of CString::Format; string objects may be passed as
/// they are. RTNORM; RTERROR for null.
template <class... Args>
int acutPrintf(const ACHAR* format, const Args&... args)
{
    if (!format) return RTERROR;
    CString text;
    text.Format(format, args...);
    return acutPrintText(text);
}

/// Writes a prompt to the command line as it stands. RTNORM; RTERROR for null.
int acedPrompt(const ACHAR* text);

/// Shows an alert box and waits until it is closed. RTNORM; RTERROR for null.
int acedAlert(const ACHAR* text);
