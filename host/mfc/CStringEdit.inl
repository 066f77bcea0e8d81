#pragma once

// Parts of a string, and changes inside it.

#include "CStringSearch.inl"

namespace
{
inline void mapCharacters(wchar_t* text, int length, wchar_t (*map)(wchar_t))
{
    std::transform(text, text + length, text, map);
}

/// Of narrow text the ASCII letters change; trail bytes are none.
inline void mapCharacters(char* text, int length, wchar_t (*map)(wchar_t))
{
    for (int at = 0; at < length; at += unitsOfCharacter(text + at)) {
        if (static_cast<unsigned char>(text[at]) < 0x80) text[at] = static_cast<char>(map(text[at]));
    }
}

inline int compareNoCase(const wchar_t* a, const wchar_t* b)
{
    return _wcsicmp(a, b);
}
inline int compareNoCase(const char* a, const char* b)
{
    return _mbsicmp(reinterpret_cast<const BYTE*>(a), reinterpret_cast<const BYTE*>(b));
}
} // namespace

template <class BaseType>
CStringT<BaseType> CStringT<BaseType>::Mid(int first, int count) const
{
    first = std::clamp(first, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - first);
    return count == GetLength() ? *this : CStringT(m_text + first, count);
}

template <class BaseType>
CStringT<BaseType> CStringT<BaseType>::Right(int count) const
{
    count = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - count, count);
}

template <class BaseType>
int CStringT<BaseType>::Insert(int index, PCXSTR text)
{
    const int length = lengthOf(text);
    if (!contains(text)) return insertText(index, text, length);
    return insertText(index, CStringT(text, length).m_text, length);
}

/// `text` lies outside the buffer.
template <class BaseType>
int CStringT<BaseType>::insertText(int index, PCXSTR text, int length)
{
    if (length == 0) return GetLength();
    const int oldLength = GetLength(), newLength = addedLength(oldLength, length);
    index = std::clamp(index, 0, oldLength);
    const PXSTR gap = writableText(newLength) + index;
    std::memmove(gap + length, gap, static_cast<std::size_t>(oldLength - index) * sizeof(XCHAR));
    copyCharacters(gap, text, length);
    setLength(newLength);
    return newLength;
}

template <class BaseType>
int CStringT<BaseType>::Delete(int index, int count)
{
    const int length = GetLength();
    index = std::clamp(index, 0, length);
    count = std::clamp(count, 0, length - index);
    if (count == 0) return length;
    const PXSTR gap = GetBuffer() + index;
    std::memmove(gap, gap + count, static_cast<std::size_t>(length - index - count) * sizeof(XCHAR));
    setLength(length - count);
    return length - count;
}

template <class BaseType>
int CStringT<BaseType>::Remove(XCHAR character)
{
    const int found = Find(character);
    if (found < 0) return 0;
    const PXSTR text = GetBuffer();
    const int length = GetLength();
    int to = found;
    for (int from = found; from < length;) {
        const int units = unitsOfCharacter(text + from);
        const bool isKept = text[from] != character;
        for (int i = 0; isKept && i < units; ++i)
            text[to++] = text[from + i];
        from += units;
    }
    setLength(to);
    return length - to;
}

template <class BaseType>
int CStringT<BaseType>::Replace(XCHAR oldCharacter, XCHAR newCharacter)
{
    int count = 0;
    if (oldCharacter == newCharacter) return count;
    for (int at = Find(oldCharacter); at >= 0; at = Find(oldCharacter, at + 1), ++count)
        GetBuffer()[at] = newCharacter;
    return count;
}

template <class BaseType>
int CStringT<BaseType>::Replace(PCXSTR oldText, PCXSTR newText)
{
    const View wanted = viewOf(oldText), replacement = viewOf(newText);
    std::size_t found = wanted.empty() ? View::npos : findText(view(), wanted, 0);
    if (found == View::npos) return 0;
    CStringT result;
    result.Preallocate(GetLength());
    std::size_t done = 0;
    int count = 0;
    for (; found != View::npos; found = findText(view(), wanted, done), ++count) {
        result.Append(m_text + done, static_cast<int>(found - done));
        result.Append(replacement.data(), checkedLength(replacement.size()));
        done = found + wanted.size();
    }
    result.Append(m_text + done, GetLength() - static_cast<int>(done));
    *this = result;
    return count;
}

template <class BaseType>
CStringT<BaseType>& CStringT<BaseType>::MakeReverse()
{
    const PXSTR text = GetBuffer();
    // Each character is turned round first, so that turning the whole leaves its bytes in order.
    for (int at = 0, next; sizeof(XCHAR) == 1 && at < GetLength(); at = next) {
        next = at + unitsOfCharacter(text + at);
        std::reverse(text + at, text + next);
    }
    std::reverse(text, text + GetLength());
    return *this;
}

template <class BaseType>
CStringT<BaseType>& CStringT<BaseType>::MakeUpper()
{
    mapCharacters(GetBuffer(), GetLength(), crt::toUpper);
    return *this;
}

template <class BaseType>
CStringT<BaseType>& CStringT<BaseType>::MakeLower()
{
    mapCharacters(GetBuffer(), GetLength(), crt::toLower);
    return *this;
}

template <class BaseType>
int CStringT<BaseType>::CompareNoCase(PCXSTR text) const noexcept
{
    return compareNoCase(m_text, text ? text : nilText());
}
