#pragma once

// Strings from text of the other width, through the ANSI code page.

#include "cstringt.h"

namespace
{
inline int convertText(const char* from, int length, wchar_t* to, int capacity)
{
    return MultiByteToWideChar(CP_ACP, 0, from, length, to, capacity);
}

inline int convertText(const wchar_t* from, int length, char* to, int capacity)
{
    return WideCharToMultiByte(CP_ACP, 0, from, length, to, capacity, nullptr, nullptr);
}
} // namespace

template <class BaseType>
CStringT<BaseType>::CStringT(PCYSTR text, int length) : m_text(nilText())
{
    if (length < 0 || (!text && length)) throwInvalidArgument();
    if (length == 0) return;
    const int needed = convertText(text, length, static_cast<PXSTR>(nullptr), 0);
    if (needed == 0) throwTooLong();
    m_text = allocateText(needed);
    setLength(convertText(text, length, m_text, needed));
}

template <class BaseType>
CStringT<BaseType>::CStringT(YCHAR character, int count) : m_text(nilText())
{
    const CStringT one(&character, 1);
    for (int i = 0; i < count; ++i)
        Append(one);
}

template <class BaseType>
BSTR CStringT<BaseType>::AllocSysString() const
{
    const CStringT<wchar_t> wide(m_text, GetLength());
    const BSTR string = SysAllocStringLen(wide, wide.GetLength());
    if (!string) throwTooLong();
    return string;
}

template <class BaseType>
BSTR CStringT<BaseType>::SetSysString(BSTR* string) const
{
    const CStringT<wchar_t> wide(m_text, GetLength());
    if (!string) throwInvalidArgument();
    if (!SysReAllocStringLen(string, wide, wide.GetLength())) throwTooLong();
    return *string;
}
