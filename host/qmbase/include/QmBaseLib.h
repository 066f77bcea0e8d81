#pragma once

/// Stand-ins for the application's closed base library: the operations that its clients name, and no more.
/// The classes keep the library's conventions: static functions, and int 1 for success and 0 for failure.

#include "CAppSoft.h"
#include "CFileShell.h"
#include "CGTRegKey.h"
#include "CGTStringW.h"
#include "CIniFile.h"
#include "CStringShell.h"
#include "CXMLUtil.h"
