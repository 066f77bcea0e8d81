#pragma once

/// What the Microsoft C library has beyond the standard's: each header below carries one part of it.

#include "windef.h"

#include "crtformat.h"
#include "crtnumber.h"
#include "crtpath.h"
#include "crtprintf.h"
#include "crtstring.h"
