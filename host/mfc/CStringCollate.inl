#pragma once

// The order of the user's language.

#include "cstringt.h"

namespace
{
inline int collate(const CStringT<wchar_t>& a, const CStringT<wchar_t>& b, DWORD flags)
{
    return CompareStringW(LOCALE_USER_DEFAULT, flags, a, a.GetLength(), b, b.GetLength()) - CSTR_EQUAL;
}
} // namespace

template <class BaseType>
int CStringT<BaseType>::Collate(PCXSTR text) const
{
    return collate(CStringT<wchar_t>(*this), CStringT<wchar_t>(text), 0);
}

template <class BaseType>
int CStringT<BaseType>::CollateNoCase(PCXSTR text) const
{
    return collate(CStringT<wchar_t>(*this), CStringT<wchar_t>(text), NORM_IGNORECASE);
}
