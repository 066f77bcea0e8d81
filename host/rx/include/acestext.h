#pragma once

/// The names of the status codes.

#include "acadstrc.h"

/// The name of a status ("eOk"); "Unknown error" for a number that is none. Never null; stays the callee's.
const wchar_t* acadErrorStatusText(Acad::ErrorStatus status);
