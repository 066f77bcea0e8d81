#pragma once

/// The component model: identifiers, memory, reference-counted interfaces. There are no class factories.

#include "windef.h"

#include <cstring>

#define STDMETHODCALLTYPE
#define STDMETHOD(method) virtual HRESULT STDMETHODCALLTYPE method
#define STDMETHOD_(type, method) virtual type STDMETHODCALLTYPE method
#define STDMETHODIMP HRESULT STDMETHODCALLTYPE
#define STDMETHODIMP_(type) type STDMETHODCALLTYPE
#define STDAPI extern "C" HRESULT STDAPICALLTYPE
#define PURE = 0

using OLECHAR = WCHAR;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;
using LPGUID = GUID*;
using LPIID = IID*;
using LPCLSID = CLSID*;

inline bool operator==(const GUID& a, const GUID& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}
inline bool operator!=(const GUID& a, const GUID& b)
{
    return !(a == b);
}
inline BOOL IsEqualGUID(REFGUID a, REFGUID b)
{
    return a == b;
}
inline BOOL IsEqualIID(REFIID a, REFIID b)
{
    return a == b;
}
inline BOOL IsEqualCLSID(REFCLSID a, REFCLSID b)
{
    return a == b;
}

inline constexpr GUID GUID_NULL{};
inline constexpr IID IID_IUnknown{0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

struct IUnknown {
    /// Gives the object's interface of that identifier with a reference more, or null and E_NOINTERFACE.
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
    /// Both return the number of references after the change; the object ends itself at 0.
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;

protected:
    ~IUnknown() = default;
};
using LPUNKNOWN = IUnknown*;

enum COINIT : DWORD {
    COINIT_MULTITHREADED = 0x0,
    COINIT_APARTMENTTHREADED = 0x2,
    COINIT_DISABLE_OLE1DDE = 0x4,
    COINIT_SPEED_OVER_MEMORY = 0x8
};

/// Begins the use of components on the calling thread: S_OK the first time, S_FALSE when it has begun,
/// RPC_E_CHANGED_MODE (not counted) when it has begun with another threading model.
HRESULT WINAPI CoInitializeEx(LPVOID reserved, DWORD model);
HRESULT WINAPI CoInitialize(LPVOID reserved);

/// Ends one use; to be called once for each CoInitialize that succeeded.
void WINAPI CoUninitialize();

/// A new identifier: 122 random bits in the version 4 layout of RFC 4122. E_INVALIDARG for null.
HRESULT WINAPI CoCreateGuid(GUID* guid);

/// The identifier as "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}". Returns the number of characters with the
/// terminator (39), or 0 and nothing written when the buffer holds fewer.
int WINAPI StringFromGUID2(REFGUID guid, LPOLESTR buffer, int size);

/// The same in memory that the caller ends with CoTaskMemFree.
HRESULT WINAPI StringFromCLSID(REFCLSID clsid, LPOLESTR* text);

/// The identifier of such a text, digits in any case; null text is GUID_NULL. On failure the result is
/// GUID_NULL: E_INVALIDARG for an IID, CO_E_CLASSSTRING for a CLSID (names of programs are not looked up).
HRESULT WINAPI IIDFromString(LPCOLESTR text, LPIID iid);
HRESULT WINAPI CLSIDFromString(LPCOLESTR text, LPCLSID clsid);

/// Memory that passes from one component to another. Null when there is not enough.
LPVOID WINAPI CoTaskMemAlloc(SIZE_T size);
/// Changes the size and keeps the content; null leaves the old block as it was. Size 0 frees the block.
LPVOID WINAPI CoTaskMemRealloc(LPVOID block, SIZE_T size);
void WINAPI CoTaskMemFree(LPVOID block);
