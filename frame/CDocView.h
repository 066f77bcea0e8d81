#pragma once

#include "CArxUtils.h"

#include <afxwin.h>

/// AutoCAD's window and what it shows.
class AFX_EXT_CLASS CArxUtils::CDocView
{
public:
    /// Brings AutoCAD's main window before all others and makes it the active one.
    static void ActivateAcad();
};
