#pragma once

/// Conversion of texts between wide and narrow characters, for the length of a statement or a function.

#include "atlexcept.h"

#include <windows.h>

#include <cstddef>
#include <deque>
#include <new>

/// The number of the code page that a class below converts with when none is given: the ANSI code page.
#define CP_CONVERSION_DEFAULT CP_ACP

/// The bytes or characters that a conversion needs, the terminator included, and the conversion itself;
/// 0 on failure.
int AtlConvert(const char* from, wchar_t* to, int capacity, UINT codePage);
int AtlConvert(const wchar_t* from, char* to, int capacity, UINT codePage);

/// A text in the other width, valid as long as this object is. A null text stays null. Short texts live in
/// the object itself. The text may be written to, within its length.
///
/// Throws CAtlException(E_OUTOFMEMORY) without memory, E_INVALIDARG when the code page is not known.
template <class To, class From, int InternalSize = 128>
class CAtlConversion
{
public:
    explicit CAtlConversion(const From* text, UINT codePage = CP_CONVERSION_DEFAULT)
    {
        if (!text) return;
        const int needed = AtlConvert(text, static_cast<To*>(nullptr), 0, codePage);
        if (needed <= 0) AtlThrow(E_INVALIDARG);
        m_text = needed <= InternalSize ? m_internal : allocate(needed);
        AtlConvert(text, m_text, needed, codePage);
    }
    CAtlConversion(const CAtlConversion&) = delete;
    CAtlConversion& operator=(const CAtlConversion&) = delete;
    ~CAtlConversion()
    {
        if (m_text != m_internal) delete[] m_text;
    }

    operator To*() const noexcept { return m_text; }

private:
    static To* allocate(int count)
    {
        To* text = new (std::nothrow) To[count];
        if (!text) AtlThrow(E_OUTOFMEMORY);
        return text;
    }

    To* m_text = nullptr;
    To m_internal[InternalSize];
};

/// The text itself: for conversions between names of one and the same width.
template <class Char>
class CAtlNoConversion
{
public:
    explicit CAtlNoConversion(const Char* text, UINT = CP_CONVERSION_DEFAULT) noexcept : m_text(text) {}
    CAtlNoConversion(const CAtlNoConversion&) = delete;
    CAtlNoConversion& operator=(const CAtlNoConversion&) = delete;
    operator const Char*() const noexcept { return m_text; }

private:
    const Char* m_text;
};

template <int InternalSize>
using CA2WEX = CAtlConversion<wchar_t, char, InternalSize>;
template <int InternalSize>
using CW2AEX = CAtlConversion<char, wchar_t, InternalSize>;

// TCHAR and OLECHAR are wide.
using CA2W = CAtlConversion<wchar_t, char>;
using CA2T = CA2W;
using CA2CW = CA2W;
using CA2CT = CA2W;
using CW2A = CAtlConversion<char, wchar_t>;
using CT2A = CW2A;
using CW2CA = CW2A;
using CT2CA = CW2A;
using CW2T = CAtlNoConversion<wchar_t>;
using CT2W = CW2T;
using CW2CT = CW2T;
using CT2CW = CW2T;

/// Keeps the texts that A2W and W2A make in one function until it ends.
class CAtlConversionScope
{
public:
    const wchar_t* wide(const char* text) { return keep(m_wide, text); }
    const char* narrow(const wchar_t* text) { return keep(m_narrow, text); }

private:
    template <class To, class From>
    static const To* keep(std::deque<CAtlConversion<To, From, 1>>& texts, const From* text)
    {
        return texts.emplace_back(text);
    }

    std::deque<CAtlConversion<wchar_t, char, 1>> m_wide;
    std::deque<CAtlConversion<char, wchar_t, 1>> m_narrow;
};

/// To stand in a function before the macros below; their results live until the function (the block with
/// this line) ends.
#define USES_CONVERSION                                                                                      \
    CAtlConversionScope atlConversionScope;                                                                  \
    static_cast<void>(atlConversionScope)
#define A2W(text) const_cast<wchar_t*>(atlConversionScope.wide(text))
#define W2A(text) const_cast<char*>(atlConversionScope.narrow(text))
#define A2CW(text) (atlConversionScope.wide(text))
#define W2CA(text) (atlConversionScope.narrow(text))
#define A2T(text) A2W(text)
#define T2A(text) W2A(text)
#define A2CT(text) A2CW(text)
#define T2CA(text) W2CA(text)
#define T2W(text) (const_cast<wchar_t*>(static_cast<const wchar_t*>(text)))
#define W2T(text) T2W(text)
#define T2CW(text) (static_cast<const wchar_t*>(text))
#define W2CT(text) T2CW(text)
