#pragma once

#include <afxwin.h>

/// Services that are common to the modules. All members are static.
class AFX_EXT_CLASS CFamStuPub
{
public:
    /// Initialises a module that the caller has loaded: calls its export `bool Init()`. False, with a message
    /// box, when it has none or when that gives false.
    static bool DllInit(HINSTANCE module);
};
