#pragma once

#include "CArxUtils.h"

#include <afxwin.h>
#include <CGTStringW.h>

/// Text for AutoCAD's command line.
class AFX_EXT_CLASS CArxUtils::CMessage
{
public:
    /// Brings AutoCAD forward, cancels what runs, and types a text into the current document, where it is
    /// carried out without being shown once control is back at the command line. 1 in every case.
    static int SendMsgToAutoCAD(CGTStringW text);
    /// As CFamStuGlobe::ClearCommandLine.
    static int ClearCommandLine();
};
