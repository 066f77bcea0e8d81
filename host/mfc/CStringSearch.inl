#pragma once

// Searches in a string. Wide characters stand for themselves; bytes are taken together to the characters of
// the ANSI code page.

#include "cstringt.h"

#include <cstdint>

namespace
{
/// How many units the character at the start of a text takes.
inline int unitsOfCharacter(const wchar_t*)
{
    return 1;
}
inline int unitsOfCharacter(const char* text)
{
    const int bytes =
        static_cast<unsigned char>(*text) < 0x80 ? 1 : _mbclen(reinterpret_cast<const BYTE*>(text));
    for (int i = 1; i < bytes; ++i) {
        if (!text[i]) return i;
    }
    return bytes;
}

/// The start of the character that holds the unit at `position`, walking from `from`, which starts one.
template <class Char>
std::size_t characterStart(std::basic_string_view<Char> text, std::size_t from, std::size_t position)
{
    while (from < position) {
        const std::size_t next = from + unitsOfCharacter(text.data() + from);
        if (next > position) break;
        from = next;
    }
    return from;
}

/// The first occurrence of `wanted` at a character from `start` on, or npos.
template <class Char>
std::size_t findText(std::basic_string_view<Char> text, std::basic_string_view<Char> wanted,
                     std::size_t start)
{
    std::size_t known = start;
    for (std::size_t at = text.find(wanted, start); at != text.npos; at = text.find(wanted, at + 1)) {
        if constexpr (sizeof(Char) > 1) return at;
        known = characterStart(text, known, at);
        if (known == at) return at;
    }
    return text.npos;
}

/// Whether the character at the start of `text` is one of the set.
template <class Char>
bool isOneOf(const Char* text, std::basic_string_view<Char> set)
{
    return findText(set, std::basic_string_view<Char>(text, unitsOfCharacter(text)), 0) != set.npos;
}

template <class Char>
std::basic_string_view<Char> viewOf(const Char* text)
{
    return text ? std::basic_string_view<Char>(text) : std::basic_string_view<Char>();
}

/// How many units at the start are characters that are (or are not) of the set.
template <class Char>
int spanOf(std::basic_string_view<Char> text, std::basic_string_view<Char> set, bool ofSet)
{
    std::size_t at = 0;
    while (at < text.size() && isOneOf(text.data() + at, set) == ofSet)
        at += unitsOfCharacter(text.data() + at);
    return static_cast<int>(at);
}

inline int position(std::size_t found)
{
    return found == SIZE_MAX ? -1 : static_cast<int>(found);
}
} // namespace

template <class BaseType>
int CStringT<BaseType>::Find(PCXSTR text, int start) const noexcept
{
    if (start < 0 || start > GetLength()) return -1;
    return position(findText(view(), viewOf(text), start));
}

template <class BaseType>
int CStringT<BaseType>::Find(XCHAR character, int start) const noexcept
{
    if (start < 0 || start >= GetLength()) return -1;
    return position(findText(view(), View(&character, 1), start));
}

template <class BaseType>
int CStringT<BaseType>::ReverseFind(XCHAR character) const noexcept
{
    if constexpr (sizeof(XCHAR) > 1) return position(view().rfind(character));
    int last = -1;
    for (int at = 0; at < GetLength(); at += unitsOfCharacter(m_text + at)) {
        if (m_text[at] == character) last = at;
    }
    return last;
}

template <class BaseType>
int CStringT<BaseType>::FindOneOf(PCXSTR characters) const noexcept
{
    const int before = spanOf(view(), viewOf(characters), false);
    return before < GetLength() ? before : -1;
}

template <class BaseType>
CStringT<BaseType> CStringT<BaseType>::SpanIncluding(PCXSTR characters) const
{
    return Left(spanOf(view(), viewOf(characters), true));
}

template <class BaseType>
CStringT<BaseType> CStringT<BaseType>::SpanExcluding(PCXSTR characters) const
{
    return Left(spanOf(view(), viewOf(characters), false));
}

template <class BaseType>
CStringT<BaseType> CStringT<BaseType>::Tokenize(PCXSTR separators, int& start) const
{
    if (start < 0) throwInvalidArgument();
    const View set = viewOf(separators);
    const View rest = view().substr(std::min(start, GetLength()));
    const int skipped = spanOf(rest, set, true);
    const int length = spanOf(rest.substr(skipped), set, false);
    if (length == 0) {
        start = -1;
        return CStringT();
    }
    const int first = start + skipped;
    start = first + length + 1;
    return Mid(first, length);
}
