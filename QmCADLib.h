#pragma once

/// What a module includes: every public header of the library.

#include "CEncoding.h"
#include "CRegexString.h"
