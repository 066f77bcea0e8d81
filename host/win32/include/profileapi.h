#pragma once

#include "windef.h"

/// A clock for measuring: a count of ticks that never goes back, and how many of them make a second.
BOOL WINAPI QueryPerformanceCounter(PLARGE_INTEGER count);
BOOL WINAPI QueryPerformanceFrequency(PLARGE_INTEGER frequency);
