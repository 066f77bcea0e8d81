#pragma once

#include <afxcoll.h>

/// The base library's wide string. It is a CString that interfaces can tell from one: either converts to the
/// other and to const wchar_t*, and it has all of CString's operations. Passed by value everywhere; copies
/// share their characters.
class CGTStringW : public CString
{
public:
    using CString::CString;
    using CString::operator=;
    CGTStringW() = default;
    CGTStringW(const CString& text) : CString(text) {}
    CGTStringW(CString&& text) noexcept : CString(std::move(text)) {}
};

template <>
struct std::hash<CGTStringW> : std::hash<CString> {
};

template <>
struct AfxIsBitwiseMovable<CGTStringW> : AfxIsBitwiseMovable<CString> {
};

/// Stored in archives as a CString is.
template <>
void AFXAPI SerializeElements<CGTStringW>(CArchive& archive, CGTStringW* elements, INT_PTR count);
