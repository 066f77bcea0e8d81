#include "VariantType.h"

#include "winerror.h"

namespace
{
HRESULT copyString(void* target, const void* source)
{
    const BSTR from = *static_cast<const BSTR*>(source);
    const BSTR made =
        from ? SysAllocStringByteLen(reinterpret_cast<LPCSTR>(from), SysStringByteLen(from)) : nullptr;
    *static_cast<BSTR*>(target) = made;
    return from && !made ? E_OUTOFMEMORY : S_OK;
}

HRESULT copyObject(void* target, const void* source)
{
    IUnknown* object = *static_cast<IUnknown* const*>(source);
    if (object) object->AddRef();
    *static_cast<IUnknown**>(target) = object;
    return S_OK;
}

void release(void* value)
{
    IUnknown* object = *static_cast<IUnknown**>(value);
    if (object) object->Release();
}
} // namespace

namespace win32
{
std::size_t sizeOfType(VARTYPE type)
{
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return 4;
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_I8:
    case VT_UI8:
        return 8;
    case VT_BSTR:
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return sizeof(void*);
    case VT_VARIANT:
        return sizeof(VARIANT);
    default:
        return 0;
    }
}

bool isVariantType(VARTYPE type)
{
    if (type == VT_EMPTY || type == VT_NULL) return true;
    const auto plain = static_cast<VARTYPE>(type & ~(VT_ARRAY | VT_BYREF));
    return sizeOfType(plain) > 0 && type != VT_VARIANT;
}

HRESULT copyValue(VARTYPE type, void* target, const void* source)
{
    switch (type) {
    case VT_BSTR:
        return copyString(target, source);
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return copyObject(target, source);
    case VT_VARIANT:
        VariantInit(static_cast<VARIANT*>(target));
        return VariantCopy(static_cast<VARIANT*>(target), static_cast<const VARIANT*>(source));
    default:
        std::memcpy(target, source, sizeOfType(type));
        return S_OK;
    }
}

HRESULT clearValue(VARTYPE type, void* value)
{
    if (type == VT_VARIANT) return VariantClear(static_cast<VARIANT*>(value));
    if (type == VT_BSTR) SysFreeString(*static_cast<BSTR*>(value));
    if (type == VT_UNKNOWN || type == VT_DISPATCH) release(value);
    std::memset(value, 0, sizeOfType(type));
    return S_OK;
}
} // namespace win32
