#pragma once

// Removing characters at the ends of a string.

#include "CStringSearch.inl"

namespace
{
/// White space as Windows classifies it: with the wide blanks of Chinese text.
inline bool isBlank(const wchar_t* text)
{
    const auto c = static_cast<std::uint32_t>(*text);
    if (c < 0x80) return c == ' ' || (c >= '\t' && c <= '\r');
    return c == 0x85 || c == 0xA0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x2028 ||
           c == 0x2029 || c == 0x202F || c == 0x205F || c == 0x3000;
}
inline bool isBlank(const char* text)
{
    return *text == ' ' || (*text >= '\t' && *text <= '\r');
}
} // namespace

/// Keeps `count` characters from `first` on.
template <class BaseType>
void CStringT<BaseType>::keep(int first, int count)
{
    if (count == GetLength()) return;
    if (count == 0) return Empty();
    const PXSTR text = GetBuffer();
    std::memmove(text, text + first, static_cast<std::size_t>(count) * sizeof(XCHAR));
    setLength(count);
}

template <class BaseType>
template <class IsUnwanted>
CStringT<BaseType>& CStringT<BaseType>::trimLeftWhile(IsUnwanted isUnwanted)
{
    int first = 0;
    while (first < GetLength() && isUnwanted(m_text + first))
        first += unitsOfCharacter(m_text + first);
    keep(first, GetLength() - first);
    return *this;
}

/// Bytes can only be told apart from the front, wide characters from either end.
template <class BaseType>
template <class IsUnwanted>
CStringT<BaseType>& CStringT<BaseType>::trimRightWhile(IsUnwanted isUnwanted)
{
    int end = sizeof(XCHAR) > 1 ? GetLength() : 0;
    if constexpr (sizeof(XCHAR) > 1) {
        while (end > 0 && isUnwanted(m_text + end - 1))
            --end;
    } else {
        for (int at = 0, next; at < GetLength(); at = next) {
            next = at + unitsOfCharacter(m_text + at);
            if (!isUnwanted(m_text + at)) end = next;
        }
    }
    keep(0, end);
    return *this;
}

template <class BaseType>
CStringT<BaseType>& CStringT<BaseType>::TrimLeft()
{
    return trimLeftWhile([](PCXSTR text) { return isBlank(text); });
}

template <class BaseType>
CStringT<BaseType>& CStringT<BaseType>::TrimLeft(XCHAR character)
{
    return trimLeftWhile([character](PCXSTR text) { return *text == character; });
}

template <class BaseType>
CStringT<BaseType>& CStringT<BaseType>::TrimLeft(PCXSTR characters)
{
    const std::basic_string<XCHAR> set(viewOf(characters));
    return trimLeftWhile([&set](PCXSTR text) { return isOneOf(text, View(set)); });
}

template <class BaseType>
CStringT<BaseType>& CStringT<BaseType>::TrimRight()
{
    return trimRightWhile([](PCXSTR text) { return isBlank(text); });
}

template <class BaseType>
CStringT<BaseType>& CStringT<BaseType>::TrimRight(XCHAR character)
{
    return trimRightWhile([character](PCXSTR text) { return *text == character; });
}

template <class BaseType>
CStringT<BaseType>& CStringT<BaseType>::TrimRight(PCXSTR characters)
{
    const std::basic_string<XCHAR> set(viewOf(characters));
    return trimRightWhile([&set](PCXSTR text) { return isOneOf(text, View(set)); });
}
