#pragma once

/// CString, CStringW and CStringA, and conversions between their widths.

#include "atlconv.h"
#include "cstringt.h"
