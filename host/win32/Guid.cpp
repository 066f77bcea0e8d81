#include "GuidSource.h"

#include "objbase.h"
#include "winerror.h"

#include <atomic>
#include <cwchar>
#include <sys/random.h>

namespace
{
constexpr int textLength = 38;

std::atomic<win32::NextGuid> nextGuid{win32::NextGuid::random};

bool fillRandomly(GUID& guid)
{
    return getrandom(&guid, sizeof guid, 0) == static_cast<ssize_t>(sizeof guid);
}

// The version and variant bits of RFC 4122, section 4.4.
void markAsRandom(GUID& guid)
{
    guid.Data3 = static_cast<UINT16>((guid.Data3 & 0x0fff) | 0x4000);
    guid.Data4[0] = static_cast<BYTE>((guid.Data4[0] & 0x3f) | 0x80);
}

int digitOf(wchar_t c)
{
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    return -1;
}

// Reads `count` hexadecimal digits; a terminator is no digit, so nothing is read past the end.
bool readHex(const wchar_t*& text, int count, UINT32& value)
{
    value = 0;
    for (; count > 0; --count, ++text) {
        if (digitOf(*text) < 0) return false;
        value = value * 16 + static_cast<UINT32>(digitOf(*text));
    }
    return true;
}

bool skip(const wchar_t*& text, wchar_t wanted)
{
    const bool there = *text == wanted;
    if (there) ++text;
    return there;
}

bool readTail(const wchar_t*& text, GUID& guid)
{
    for (int i = 0; i < 8; ++i) {
        UINT32 byte = 0;
        if (i == 2 && !skip(text, L'-')) return false;
        if (!readHex(text, 2, byte)) return false;
        guid.Data4[i] = static_cast<BYTE>(byte);
    }
    return true;
}

bool parse(const wchar_t* text, GUID& guid)
{
    UINT32 middle = 0, version = 0;
    const bool read = skip(text, L'{') && readHex(text, 8, guid.Data1) && skip(text, L'-') &&
                      readHex(text, 4, middle) && skip(text, L'-') && readHex(text, 4, version) &&
                      skip(text, L'-') && readTail(text, guid);
    guid.Data2 = static_cast<UINT16>(middle);
    guid.Data3 = static_cast<UINT16>(version);
    return read && skip(text, L'}') && *text == L'\0';
}

HRESULT fromText(LPCOLESTR text, GUID* guid, HRESULT fault)
{
    if (!guid) return E_INVALIDARG;
    GUID parsed{};
    const bool good = !text || parse(text, parsed);
    *guid = good ? parsed : GUID_NULL;
    return good ? S_OK : fault;
}
} // namespace

namespace win32
{
void setNextGuid(NextGuid next)
{
    nextGuid = next;
}
} // namespace win32

HRESULT WINAPI CoCreateGuid(GUID* guid)
{
    if (!guid) return E_INVALIDARG;
    *guid = GUID_NULL;
    const win32::NextGuid next = nextGuid.exchange(win32::NextGuid::random);
    if (next == win32::NextGuid::null) return S_OK;
    if (next == win32::NextGuid::failure || !fillRandomly(*guid)) return E_FAIL;
    markAsRandom(*guid);
    return S_OK;
}

int WINAPI StringFromGUID2(REFGUID guid, LPOLESTR buffer, int size)
{
    if (!buffer || size <= textLength) return 0;
    const BYTE* tail = guid.Data4;
    std::swprintf(buffer, static_cast<std::size_t>(size),
                  L"{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", guid.Data1, guid.Data2, guid.Data3,
                  tail[0], tail[1], tail[2], tail[3], tail[4], tail[5], tail[6], tail[7]);
    return textLength + 1;
}

HRESULT WINAPI StringFromCLSID(REFCLSID clsid, LPOLESTR* text)
{
    if (!text) return E_INVALIDARG;
    *text = static_cast<LPOLESTR>(CoTaskMemAlloc((textLength + 1) * sizeof(OLECHAR)));
    return *text && StringFromGUID2(clsid, *text, textLength + 1) ? S_OK : E_OUTOFMEMORY;
}

HRESULT WINAPI IIDFromString(LPCOLESTR text, LPIID iid)
{
    return fromText(text, iid, E_INVALIDARG);
}

HRESULT WINAPI CLSIDFromString(LPCOLESTR text, LPCLSID clsid)
{
    return fromText(text, clsid, CO_E_CLASSSTRING);
}
