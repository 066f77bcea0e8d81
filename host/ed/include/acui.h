#pragma once

/// AutoCAD's user-interface library.

#include <afxwin.h>

/// Joins the library to the chain in which MFC looks for resources; called in DllMain of modules that use it. A second call
/// changes nothing.
void InitAcUiDLL();
