#pragma once

/// Included by the one source file of an extension module that holds its DllMain.

#include "afxwin.h"
