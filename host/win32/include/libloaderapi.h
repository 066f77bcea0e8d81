#pragma once

#include "windef.h"

/// The module of a loaded file without counting a reference; null: the program itself.
HMODULE WINAPI GetModuleHandleW(LPCWSTR name);
