#pragma once

/// The MFC interface with windows: CWnd, the application object, message boxes and extension modules.

#include "afx.h"
#include "afxcoll.h"

#include "afxapp.h"
#include "afxdll_.h"
#include "afxwnd.h"
