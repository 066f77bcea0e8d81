#pragma once

/// Collections of the usual element types.

#include "afxtempl.h"

using CByteArray = CArray<BYTE, BYTE>;
using CWordArray = CArray<WORD, WORD>;
using CDWordArray = CArray<DWORD, DWORD>;
using CUIntArray = CArray<UINT, UINT>;
using CPtrArray = CArray<void*, void*>;
using CPtrList = CList<void*, void*>;

/// Texts by index.
class CStringArray : public CArray<CString, const CString&>
{
    DECLARE_SERIAL(CStringArray)
};

/// Texts in a list.
class CStringList : public CList<CString, const CString&>
{
    DECLARE_SERIAL(CStringList)

public:
    using CList::CList;
};

/// Texts found by text; upper and lower case are different.
class CMapStringToString : public CMap<CString, LPCTSTR, CString, LPCTSTR>
{
    DECLARE_SERIAL(CMapStringToString)

public:
    using CMap::CMap;
};

/// Pointers found by text; the map does not own what they point to.
class CMapStringToPtr : public CMap<CString, LPCTSTR, void*, void*>
{
    DECLARE_DYNCREATE(CMapStringToPtr)

public:
    using CMap::CMap;
    void Serialize(CArchive&) override { AfxThrowNotSupportedException(); }
};
