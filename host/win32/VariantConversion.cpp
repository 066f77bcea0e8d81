#include "NoCase.h"
#include "OleDate.h"
#include "VariantNumber.h"
#include "VariantType.h"

#include "winerror.h"

namespace
{
using win32::isNumeric;
using win32::Number;

std::wstring_view viewOf(BSTR text)
{
    return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
}

HRESULT makeText(const std::wstring& text, VARIANT& made)
{
    made.vt = VT_BSTR;
    made.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return made.bstrVal ? S_OK : E_OUTOFMEMORY;
}

HRESULT textFrom(const VARIANT& source, USHORT flags, VARIANT& made)
{
    if (source.vt == VT_EMPTY) return makeText(L"", made);
    if (source.vt == VT_DATE)
        return win32::isOleDate(source.date) ? makeText(win32::textOfDate(source.date), made) : E_INVALIDARG;
    if (source.vt == VT_BOOL && (flags & VARIANT_ALPHABOOL))
        return makeText(source.boolVal ? L"True" : L"False", made);
    return isNumeric(source.vt) ? makeText(win32::textOfNumber(source), made) : DISP_E_TYPEMISMATCH;
}

HRESULT truthFrom(bool value, VARIANT& made)
{
    made.vt = VT_BOOL;
    made.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT dateFrom(DATE date, VARIANT& made)
{
    made.vt = VT_DATE;
    made.date = date;
    return S_OK;
}

HRESULT numberFromText(std::wstring_view text, VARTYPE type, VARIANT& made)
{
    DATE date = 0;
    if (type == VT_DATE && win32::parseDate(text, date)) return dateFrom(date, made);
    if (type == VT_BOOL && win32::equalNoCase(text, L"True")) return truthFrom(true, made);
    if (type == VT_BOOL && win32::equalNoCase(text, L"False")) return truthFrom(false, made);
    Number number = 0;
    return win32::parseNumber(text, number) ? win32::storeNumber(number, type, made) : DISP_E_TYPEMISMATCH;
}

bool isUnsigned(VARTYPE type)
{
    return type == VT_UI1 || type == VT_UI2 || type == VT_UI4 || type == VT_UI8 || type == VT_UINT;
}

HRESULT numberFrom(const VARIANT& source, VARTYPE type, VARIANT& made)
{
    if (source.vt == VT_EMPTY) return win32::storeNumber(0, type, made);
    if (source.vt == VT_BSTR) return numberFromText(viewOf(source.bstrVal), type, made);
    if (!isNumeric(source.vt)) return DISP_E_TYPEMISMATCH;
    if (source.vt == VT_BOOL && source.boolVal && isUnsigned(type)) {
        made.vt = type;
        made.ullVal = ~0ULL;
        return S_OK;
    }
    return win32::storeNumber(win32::numberOf(source), type, made);
}

HRESULT objectFrom(const VARIANT& source, VARTYPE type, VARIANT& made)
{
    const bool object = source.vt == VT_UNKNOWN || source.vt == VT_DISPATCH;
    if (!object) return DISP_E_TYPEMISMATCH;
    made.vt = type;
    if (!source.punkVal) return S_OK;
    const IID& iid = type == VT_DISPATCH ? IID_IDispatch : IID_IUnknown;
    if (SUCCEEDED(source.punkVal->QueryInterface(iid, &made.byref))) return S_OK;
    made.byref = nullptr;
    return DISP_E_TYPEMISMATCH;
}

// Makes `made` the converted value. The type is one that variants have, and not the source's.
HRESULT convert(const VARIANT& source, USHORT flags, VARTYPE type, VARIANT& made)
{
    if ((type | source.vt) & VT_ARRAY) return DISP_E_TYPEMISMATCH;
    if (type == VT_BSTR) return textFrom(source, flags, made);
    if (isNumeric(type)) return numberFrom(source, type, made);
    if (type == VT_UNKNOWN || type == VT_DISPATCH) return objectFrom(source, type, made);
    return DISP_E_TYPEMISMATCH;
}

HRESULT convertOrKeep(VARIANT& value, USHORT flags, VARTYPE type, VARIANT& made)
{
    if (value.vt != type) return convert(value, flags, type, made);
    made = value;
    value = VARIANT{};
    return S_OK;
}
} // namespace

HRESULT WINAPI VariantChangeTypeEx(VARIANT* target, const VARIANT* source, LCID, USHORT flags, VARTYPE type)
{
    if (!target || !source) return E_INVALIDARG;
    if (type & VT_BYREF) return DISP_E_TYPEMISMATCH;
    if (!win32::isVariantType(type)) return DISP_E_BADVARTYPE;
    VARIANT value{}, made{};
    HRESULT result = VariantCopyInd(&value, source);
    if (SUCCEEDED(result)) result = convertOrKeep(value, flags, type, made);
    VariantClear(&value);
    if (SUCCEEDED(result)) result = VariantClear(target);
    if (SUCCEEDED(result))
        *target = made;
    else
        VariantClear(&made);
    return result;
}

HRESULT WINAPI VariantChangeType(VARIANT* target, const VARIANT* source, USHORT flags, VARTYPE type)
{
    return VariantChangeTypeEx(target, source, 0, flags, type);
}
