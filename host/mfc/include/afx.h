#pragma once

/// The MFC interface without windows: strings, run-time classes, exceptions, files, archives, rectangles and
/// the export marks of extension modules.

#include <windows.h>

#include "afxarchive.h"
#include "afxassert.h"
#include "afxexcept.h"
#include "afxfile.h"
#include "afxobject.h"
#include "afxstdio.h"
#include "afxv_dll.h"
#include "atlstr.h"
#include "atltime.h"
#include "atltypes.h"
