#include "VariantType.h"

#include "winerror.h"

namespace
{
HRESULT copyArray(VARIANT& made, const VARIANT& source)
{
    return SafeArrayCopy(source.parray, &made.parray);
}

// Copies what `source` holds into `made`, which holds nothing.
HRESULT duplicate(VARIANT& made, const VARIANT& source)
{
    made = source;
    if (source.vt & VT_BYREF) return S_OK;
    const HRESULT result = source.vt & VT_ARRAY ? copyArray(made, source)
                                                : win32::copyValue(source.vt, &made.llVal, &source.llVal);
    if (FAILED(result)) made = VARIANT{};
    return result;
}

// A value that stands behind VT_BYREF, as a variant that holds it without owning it.
HRESULT dereference(VARIANT& value, const VARIANT& source)
{
    if (!source.byref) return E_INVALIDARG;
    value = VARIANT{};
    value.vt = static_cast<VARTYPE>(source.vt & ~VT_BYREF);
    const std::size_t size = value.vt & VT_ARRAY ? sizeof(SAFEARRAY*) : win32::sizeOfType(value.vt);
    std::memcpy(&value.llVal, source.byref, size);
    return S_OK;
}

HRESULT resolve(VARIANT& value, const VARIANT& source)
{
    value = source;
    if (source.vt != (VT_VARIANT | VT_BYREF)) return source.vt & VT_BYREF ? dereference(value, source) : S_OK;
    if (!source.pvarVal) return E_INVALIDARG;
    const VARIANT& inner = *source.pvarVal;
    if (inner.vt == (VT_VARIANT | VT_BYREF)) return E_INVALIDARG;
    if (!win32::isVariantType(inner.vt)) return DISP_E_BADVARTYPE;
    value = inner;
    return inner.vt & VT_BYREF ? dereference(value, inner) : S_OK;
}

// The old content goes after the new one is complete: either may hold the other.
HRESULT moveInto(VARIANT* target, VARIANT& made)
{
    const HRESULT cleared = VariantClear(target);
    if (SUCCEEDED(cleared))
        *target = made;
    else
        VariantClear(&made);
    return cleared;
}
} // namespace

void WINAPI VariantInit(VARIANT* variant)
{
    if (variant) *variant = VARIANT{};
}

HRESULT WINAPI VariantClear(VARIANT* variant)
{
    if (!variant) return E_INVALIDARG;
    if (!win32::isVariantType(variant->vt)) return DISP_E_BADVARTYPE;
    HRESULT result = S_OK;
    if (!(variant->vt & VT_BYREF))
        result = variant->vt & VT_ARRAY ? SafeArrayDestroy(variant->parray)
                                        : win32::clearValue(variant->vt, &variant->llVal);
    if (SUCCEEDED(result)) VariantInit(variant);
    return result;
}

HRESULT WINAPI VariantCopy(VARIANT* target, const VARIANT* source)
{
    if (!target || !source) return E_INVALIDARG;
    if (target == source) return S_OK;
    if (!win32::isVariantType(source->vt)) return DISP_E_BADVARTYPE;
    VARIANT made{};
    const HRESULT copied = duplicate(made, *source);
    return SUCCEEDED(copied) ? moveInto(target, made) : copied;
}

HRESULT WINAPI VariantCopyInd(VARIANT* target, const VARIANT* source)
{
    if (!target || !source) return E_INVALIDARG;
    if (!win32::isVariantType(source->vt)) return DISP_E_BADVARTYPE;
    if (target == source && !(source->vt & VT_BYREF)) return S_OK;
    VARIANT value{}, made{};
    HRESULT result = resolve(value, *source);
    if (SUCCEEDED(result)) result = duplicate(made, value);
    return SUCCEEDED(result) ? moveInto(target, made) : result;
}
