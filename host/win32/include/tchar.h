#pragma once

/// The generic-text names, in their wide meaning.

#include "windef.h"

#include "mscrt.h"

#define _T(quote) __TEXT(quote)
#define _TEXT(quote) __TEXT(quote)
