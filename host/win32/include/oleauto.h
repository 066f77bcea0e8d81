#pragma once

/// Automation values: counted strings, variants, safe arrays and dates.

#include "windef.h"

#include "objbase.h"

// --- Counted strings ----------------------------------------------------------------------------------
// A BSTR points to its first character; the four bytes before it are its length in bytes, and a null
// character follows it. A null BSTR is an empty string. Lengths count characters of the platform's wchar_t.

using BSTR = OLECHAR*;

/// A copy of a terminated text; null for null or without memory.
BSTR WINAPI SysAllocString(const OLECHAR* text);
/// A string of `length` characters, copied from `text` or (null) not initialised. Null for a length that
/// does not fit into 2 GiB.
BSTR WINAPI SysAllocStringLen(const OLECHAR* text, UINT length);
/// A string of bytes; its byte length need not be a whole number of characters.
BSTR WINAPI SysAllocStringByteLen(LPCSTR bytes, UINT length);
/// Replaces a string by a copy of a text, which may lie in the old string. FALSE without memory: the old
/// one stays.
BOOL WINAPI SysReAllocString(BSTR* string, const OLECHAR* text);
BOOL WINAPI SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length);
void WINAPI SysFreeString(BSTR string);
UINT WINAPI SysStringLen(BSTR string);
UINT WINAPI SysStringByteLen(BSTR string);

// --- Types --------------------------------------------------------------------------------------------

using VARTYPE = USHORT;
using VARIANT_BOOL = SHORT;
using SCODE = LONG;
using DATE = double;
using DISPID = LONG;
using MEMBERID = DISPID;
#define VARIANT_TRUE (static_cast<VARIANT_BOOL>(-1))
#define VARIANT_FALSE (static_cast<VARIANT_BOOL>(0))

enum VARENUM : VARTYPE {
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_DISPATCH = 9,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_VARIANT = 12,
    VT_UNKNOWN = 13,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23,
    VT_ARRAY = 0x2000,
    VT_BYREF = 0x4000,
    VT_TYPEMASK = 0x0fff
};

/// An amount of money: a count of ten-thousandths.
union CY {
    struct {
        ULONG Lo;
        LONG Hi;
    };
    LONGLONG int64;
};

struct SAFEARRAYBOUND {
    ULONG cElements;
    LONG lLbound;
};
using LPSAFEARRAYBOUND = SAFEARRAYBOUND*;

/// rgsabound holds the last dimension first; there are cDims of them.
struct SAFEARRAY {
    USHORT cDims;
    USHORT fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    PVOID pvData;
    SAFEARRAYBOUND rgsabound[1];
};
using LPSAFEARRAY = SAFEARRAY*;

#define FADF_AUTO 0x0001
#define FADF_STATIC 0x0002
#define FADF_EMBEDDED 0x0004
#define FADF_FIXEDSIZE 0x0010
#define FADF_HAVEVARTYPE 0x0080
#define FADF_CREATEVECTOR 0x2000
#define FADF_BSTR 0x0100
#define FADF_UNKNOWN 0x0200
#define FADF_DISPATCH 0x0400
#define FADF_VARIANT 0x0800

struct IDispatch;

/// A value with its type; `vt` says which member holds. VT_DECIMAL and records are not supported.
struct VARIANT {
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union {
        LONGLONG llVal;
        LONG lVal;
        BYTE bVal;
        SHORT iVal;
        FLOAT fltVal;
        DOUBLE dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        CY cyVal;
        DATE date;
        BSTR bstrVal;
        IUnknown* punkVal;
        IDispatch* pdispVal;
        SAFEARRAY* parray;
        BYTE* pbVal;
        SHORT* piVal;
        LONG* plVal;
        LONGLONG* pllVal;
        FLOAT* pfltVal;
        DOUBLE* pdblVal;
        VARIANT_BOOL* pboolVal;
        SCODE* pscode;
        CY* pcyVal;
        DATE* pdate;
        BSTR* pbstrVal;
        IUnknown** ppunkVal;
        IDispatch** ppdispVal;
        SAFEARRAY** pparray;
        VARIANT* pvarVal;
        PVOID byref;
        signed char cVal;
        USHORT uiVal;
        ULONG ulVal;
        ULONGLONG ullVal;
        INT intVal;
        UINT uintVal;
        signed char* pcVal;
        USHORT* puiVal;
        ULONG* pulVal;
        ULONGLONG* pullVal;
        INT* pintVal;
        UINT* puintVal;
        PVOID reserved[2]; // keeps the size that the type has in 64-bit programs
    };
};
using VARIANTARG = VARIANT;
using LPVARIANT = VARIANT*;
#define V_VT(variant) ((variant)->vt)
#define V_I1(variant) ((variant)->cVal)
#define V_UI1(variant) ((variant)->bVal)
#define V_I2(variant) ((variant)->iVal)
#define V_UI2(variant) ((variant)->uiVal)
#define V_I4(variant) ((variant)->lVal)
#define V_UI4(variant) ((variant)->ulVal)
#define V_I8(variant) ((variant)->llVal)
#define V_UI8(variant) ((variant)->ullVal)
#define V_INT(variant) ((variant)->intVal)
#define V_UINT(variant) ((variant)->uintVal)
#define V_R4(variant) ((variant)->fltVal)
#define V_R8(variant) ((variant)->dblVal)
#define V_BOOL(variant) ((variant)->boolVal)
#define V_ERROR(variant) ((variant)->scode)
#define V_CY(variant) ((variant)->cyVal)
#define V_DATE(variant) ((variant)->date)
#define V_BSTR(variant) ((variant)->bstrVal)
#define V_UNKNOWN(variant) ((variant)->punkVal)
#define V_DISPATCH(variant) ((variant)->pdispVal)
#define V_ARRAY(variant) ((variant)->parray)
#define V_VARIANTREF(variant) ((variant)->pvarVal)
#define V_BSTRREF(variant) ((variant)->pbstrVal)
#define V_I4REF(variant) ((variant)->plVal)
#define V_R8REF(variant) ((variant)->pdblVal)
#define V_BYREF(variant) ((variant)->byref)

struct DISPPARAMS {
    VARIANTARG* rgvarg;
    DISPID* rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
};

struct EXCEPINFO {
    WORD wCode;
    WORD wReserved;
    BSTR bstrSource;
    BSTR bstrDescription;
    BSTR bstrHelpFile;
    DWORD dwHelpContext;
    PVOID pvReserved;
    HRESULT(STDAPICALLTYPE* pfnDeferredFillIn)(EXCEPINFO*);
    SCODE scode;
};

#define DISPATCH_METHOD 0x1
#define DISPATCH_PROPERTYGET 0x2
#define DISPATCH_PROPERTYPUT 0x4
#define DISPATCH_PROPERTYPUTREF 0x8
#define DISPID_UNKNOWN (-1)
#define DISPID_PROPERTYPUT (-3)

struct ITypeInfo;
inline constexpr IID IID_IDispatch{0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

struct IDispatch : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID lcid, ITypeInfo** info) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID lcid,
                                                    DISPID* ids) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID lcid, WORD flags,
                                             DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                             UINT* badArgument) = 0;

protected:
    ~IDispatch() = default;
};
using LPDISPATCH = IDispatch*;

// --- Variants -----------------------------------------------------------------------------------------

#define VARIANT_NOVALUEPROP 0x0001
#define VARIANT_ALPHABOOL 0x0002

/// Makes a variant empty without looking at what it held.
void WINAPI VariantInit(VARIANT* variant);

/// Frees what a variant holds and makes it empty; what VT_BYREF points to stays. DISP_E_BADVARTYPE for an
/// unknown type, DISP_E_ARRAYISLOCKED for a locked array: the variant stays as it was.
HRESULT WINAPI VariantClear(VARIANT* variant);

/// Clears `target` and copies `source` into it, with its string or array; a VT_BYREF source is copied as
/// the reference it is. On failure the target is as it was, or empty when memory ran out.
HRESULT WINAPI VariantCopy(VARIANT* target, const VARIANT* source);

/// The same, but follows VT_BYREF: the target holds the value. A VT_BYREF|VT_VARIANT that refers to another
/// such is E_INVALIDARG.
HRESULT WINAPI VariantCopyInd(VARIANT* target, const VARIANT* source);

/// Converts to a type without VT_BYREF; `target` may be `source`. On failure the target is unchanged.
/// - Numbers are rounded to the nearest integer, halves to the even one; DISP_E_OVERFLOW out of range.
/// - Empty is 0, false or "". VT_NULL, VT_ERROR, objects and arrays become their own type only.
/// - True is -1, all bits set in unsigned types; any number but 0 is true.
/// - Text is a number with blanks around it, group commas and an exponent, or &H and hexadecimal digits;
///   "True" and "False" for VT_BOOL; for VT_DATE y/M/d or y-M-d or M/d/yyyy, H:m[:s] (AM or PM), or both.
/// - Numbers become text with 7 (VT_R4) or 15 digits. VT_BOOL becomes "-1" and "0", with VARIANT_ALPHABOOL
///   "True" and "False". A date becomes "y/M/d H:mm:ss", without the part that is 0. The locale is not
///   looked at.
/// DISP_E_TYPEMISMATCH when there is no such conversion, DISP_E_BADVARTYPE for an unknown type.
HRESULT WINAPI VariantChangeType(VARIANT* target, const VARIANT* source, USHORT flags, VARTYPE type);
HRESULT WINAPI VariantChangeTypeEx(VARIANT* target, const VARIANT* source, LCID lcid, USHORT flags,
                                   VARTYPE type);

// --- Dates --------------------------------------------------------------------------------------------

/// A DATE is days since 1899-12-30; its fraction is the time of that day, also before that day: -1.25 is
/// 1899-12-29 06:00. From 0100-01-01 to 9999-12-31. FALSE for what is out of it or does not exist.
/// Milliseconds are left out on the way to a DATE, and rounded to whole seconds on the way back.
INT WINAPI SystemTimeToVariantTime(const SYSTEMTIME* systemTime, DOUBLE* date);
INT WINAPI VariantTimeToSystemTime(DOUBLE date, LPSYSTEMTIME systemTime);

// --- Safe arrays --------------------------------------------------------------------------------------
// Indices are given first dimension first; the first dimension's index runs fastest in memory. E_INVALIDARG
// for a null array; DISP_E_BADINDEX for an index out of bounds or a dimension that is not there.

/// An array of zeros; bounds first dimension first. Null for no dimension, a type that arrays do not hold,
/// or elements of 2 GiB and more in all: refused before memory is taken.
SAFEARRAY* WINAPI SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
SAFEARRAY* WINAPI SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count);

/// Frees the elements and the array. DISP_E_ARRAYISLOCKED while locked. A null array is S_OK.
HRESULT WINAPI SafeArrayDestroy(SAFEARRAY* array);
/// A copy with copies of the elements; it is not locked. On failure *copy is null.
HRESULT WINAPI SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy);
/// Changes the last dimension; elements that stay keep their values, new ones are 0. Unchanged on
/// failure: DISP_E_ARRAYISLOCKED, E_OUTOFMEMORY.
HRESULT WINAPI SafeArrayRedim(SAFEARRAY* array, SAFEARRAYBOUND* newBound);

/// Locks are counted. E_UNEXPECTED when unlocked once too often, or locked 65535 times.
HRESULT WINAPI SafeArrayLock(SAFEARRAY* array);
HRESULT WINAPI SafeArrayUnlock(SAFEARRAY* array);
HRESULT WINAPI SafeArrayAccessData(SAFEARRAY* array, void** data);
HRESULT WINAPI SafeArrayUnaccessData(SAFEARRAY* array);

UINT WINAPI SafeArrayGetDim(SAFEARRAY* array);
UINT WINAPI SafeArrayGetElemsize(SAFEARRAY* array);
HRESULT WINAPI SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
HRESULT WINAPI SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
HRESULT WINAPI SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type);

/// Copies an element out (strings and variants as new copies, objects with a reference more) or in. For
/// strings and objects `value` of PutElement is the BSTR or the interface itself.
HRESULT WINAPI SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value);
HRESULT WINAPI SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value);
/// The address of an element; the array is to be locked while it is used.
HRESULT WINAPI SafeArrayPtrOfIndex(SAFEARRAY* array, LONG* indices, void** data);
