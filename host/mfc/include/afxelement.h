#pragma once

/// How the collection templates hash, compare, copy and store their elements. A program specialises one of
/// these function templates for its own types.

#include "afxarchive.h"

#include <cstring>
#include <functional>
#include <string_view>
#include <type_traits>

/// Stands for a place in a list or map.
struct __POSITION {
};
using POSITION = __POSITION*;
#define BEFORE_START_POSITION (reinterpret_cast<POSITION>(-1))

/// Whether an element may change its place as bytes, without its constructor and destructor. A program says
/// so for a type of its own that holds no pointer into itself.
template <class TYPE>
struct AfxIsBitwiseMovable : std::is_trivially_copyable<TYPE> {
};
template <class BaseType>
struct AfxIsBitwiseMovable<CStringT<BaseType>> : std::true_type {
};

template <class TYPE>
void AFXAPI CopyElements(TYPE* destination, const TYPE* source, INT_PTR count)
{
    for (; count > 0; --count)
        *destination++ = *source++;
}

/// Stores or loads elements byte by byte, as they lie in memory; throws CNotSupportedException for a type
/// that has more to it than its bytes and no specialisation.
template <class TYPE>
void AFXAPI SerializeElements(CArchive& archive, TYPE* elements, INT_PTR count)
{
    if constexpr (std::is_same_v<TYPE, wchar_t>) {
        // Characters are 16 bits in an archive, whatever their width here.
        for (; count > 0; --count, ++elements)
            archive.IsStoring() ? archive << *elements : archive >> *elements;
    } else if constexpr (std::is_trivially_copyable_v<TYPE>) {
        if (count == 0) return;
        if (archive.IsStoring())
            archive.WriteItems(elements, count, sizeof(TYPE));
        else
            archive.ReadItems(elements, count, sizeof(TYPE));
    } else if (count > 0) {
        AfxThrowNotSupportedException();
    }
}

template <>
void AFXAPI SerializeElements<CString>(CArchive& archive, CString* elements, INT_PTR count);
template <>
void AFXAPI SerializeElements<CStringA>(CArchive& archive, CStringA* elements, INT_PTR count);

template <class TYPE, class ARG_TYPE>
BOOL AFXAPI CompareElements(const TYPE* element1, const ARG_TYPE* element2)
{
    return *element1 == *element2;
}

/// A key's hash value: that of std::hash, and for pointers to text that of the characters. A CString and
/// the pointer to its characters have the same.
template <class ARG_KEY>
UINT AFXAPI HashKey(ARG_KEY key)
{
    const size_t hash = std::hash<std::decay_t<ARG_KEY>>()(key);
    return static_cast<UINT>(hash ^ (hash >> 32));
}

template <>
inline UINT AFXAPI HashKey<LPCWSTR>(LPCWSTR key)
{
    return HashKey<const std::wstring_view&>(key);
}

template <>
inline UINT AFXAPI HashKey<LPCSTR>(LPCSTR key)
{
    return HashKey<const std::string_view&>(key);
}
