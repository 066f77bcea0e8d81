#pragma once

/// CString, CStringW and CStringA.

#include "cstringt.h"
