#pragma once

#include "oleauto.h"

namespace win32
{
/// The size in bytes of a value of a plain type (no VT_ARRAY or VT_BYREF): VT_VARIANT included, 0 for
/// VT_EMPTY, VT_NULL and unknown types.
std::size_t sizeOfType(VARTYPE type);

/// Whether a variant may have this type.
bool isVariantType(VARTYPE type);

/// Makes `target` a copy of a value of a plain type, where it lies raw memory: a new string or variant, an
/// object with a reference more. E_OUTOFMEMORY leaves an empty value.
HRESULT copyValue(VARTYPE type, void* target, const void* source);

/// Frees what a value holds and makes it all zeros.
HRESULT clearValue(VARTYPE type, void* value);
} // namespace win32
