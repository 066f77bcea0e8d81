#pragma once

/// The exception of the string and conversion classes.

#include <windows.h>

/// What a string operation throws, by value, when it cannot be carried out.
class __declspec(dllexport) CAtlException
{
public:
    CAtlException() noexcept = default;
    CAtlException(HRESULT hr) noexcept : m_hr(hr) {}
    operator HRESULT() const noexcept { return m_hr; }

    HRESULT m_hr = 0;
};

/// Throws CAtlException with the given result: E_OUTOFMEMORY when memory, or the 2^31 characters a string
/// can hold, do not suffice; E_INVALIDARG when an argument is outside its range.
[[noreturn]] void AtlThrow(HRESULT hr);
