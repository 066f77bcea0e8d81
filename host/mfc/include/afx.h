#pragma once

/// The MFC interface without windows: strings, rectangles and the export marks of extension modules.

#include <windows.h>

#include "afxv_dll.h"
#include "atlstr.h"
#include "atltypes.h"
