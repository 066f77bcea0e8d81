#pragma once

// The memory of a string: allocation, sharing, growth.

#include "cstringt.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace
{
constexpr std::size_t headerBytes = sizeof(CStringData);

/// How many characters fit when a buffer for `capacity` is made as large as the allocator makes it anyway.
template <class Char>
int roundedCapacity(int capacity)
{
    constexpr std::size_t granule = 16, overhead = 8;
    const std::size_t needed =
        headerBytes + (static_cast<std::size_t>(capacity) + 1) * sizeof(Char) + overhead;
    const std::size_t bytes = (needed + granule - 1) / granule * granule - overhead;
    return static_cast<int>(std::min<std::size_t>((bytes - headerBytes) / sizeof(Char) - 1, INT_MAX - 1));
}

template <class Char>
std::size_t bytesFor(int capacity)
{
    return headerBytes + (static_cast<std::size_t>(capacity) + 1) * sizeof(Char);
}

/// Twice the old room at least, so that appending a character at a time stays linear.
inline int grownCapacity(int oldCapacity, int needed)
{
    constexpr int smallest = 24;
    const int doubled = oldCapacity > INT_MAX / 2 - 1 ? INT_MAX - 1 : oldCapacity * 2;
    return std::max({doubled, needed, smallest});
}

/// The sum of two lengths, or E_OUTOFMEMORY where no string is that long.
inline int addedLength(int length, int more)
{
    if (more > INT_MAX - 1 - length) AtlThrow(E_OUTOFMEMORY);
    return length + more;
}

template <class Char>
void copyCharacters(Char* to, const Char* from, int count)
{
    if (count > 0) std::memcpy(to, from, static_cast<std::size_t>(count) * sizeof(Char));
}
} // namespace

template <class BaseType>
void CStringT<BaseType>::throwInvalidArgument()
{
    AtlThrow(E_INVALIDARG);
}

template <class BaseType>
void CStringT<BaseType>::throwTooLong()
{
    AtlThrow(E_OUTOFMEMORY);
}

template <class BaseType>
void CStringT<BaseType>::freeText(PXSTR text) noexcept
{
    std::free(dataOf(text));
}

template <class BaseType>
auto CStringT<BaseType>::allocateText(int capacity) -> PXSTR
{
    if (capacity == INT_MAX) throwTooLong();
    const int rounded = roundedCapacity<XCHAR>(capacity);
    void* memory = std::malloc(bytesFor<XCHAR>(rounded));
    if (!memory) throwTooLong();
    auto* data = new (memory) CStringData{1, 0, rounded};
    return reinterpret_cast<PXSTR>(data + 1);
}

template <class BaseType>
auto CStringT<BaseType>::newText(PCXSTR text, int length) -> PXSTR
{
    if (length < 0 || (!text && length)) throwInvalidArgument();
    if (length == 0) return nilText();
    const PXSTR copy = allocateText(length);
    copyCharacters(copy, text, length);
    copy[length] = 0;
    dataOf(copy)->length = length;
    return copy;
}

template <class BaseType>
auto CStringT<BaseType>::cloneText() const -> PXSTR
{
    return newText(m_text, GetLength());
}

/// Puts the text into a buffer of its own with room for `capacity`, which is not below the length.
template <class BaseType>
void CStringT<BaseType>::reserveText(int capacity)
{
    const int length = GetLength();
    const PXSTR copy = allocateText(capacity);
    copyCharacters(copy, m_text, length + 1);
    dataOf(copy)->length = length;
    const bool wasLocked = data()->isLocked();
    if (data()->leave()) freeText(m_text);
    m_text = copy;
    if (wasLocked) LockBuffer();
}

/// The characters, unshared, with room for `capacity` of them. Shortening is no reason to move them.
template <class BaseType>
auto CStringT<BaseType>::writableText(int capacity) -> PXSTR
{
    if (!data()->isUnshared()) {
        reserveText(std::max(capacity, GetLength()));
    } else if (capacity > data()->capacity) {
        growTo(capacity);
    }
    return m_text;
}

/// Enlarges an unshared buffer. Large ones are best left to the allocator, which moves pages; small ones it
/// moves slower than we do.
template <class BaseType>
void CStringT<BaseType>::growTo(int capacity)
{
    constexpr int large = 2048;
    if (capacity < large) return reserveText(capacity);
    if (capacity == INT_MAX) throwTooLong();
    const int rounded = roundedCapacity<XCHAR>(capacity);
    void* memory = std::realloc(static_cast<void*>(data()), bytesFor<XCHAR>(rounded));
    if (!memory) throwTooLong();
    auto* moved = static_cast<CStringData*>(memory);
    moved->capacity = rounded;
    m_text = reinterpret_cast<PXSTR>(moved + 1);
}

template <class BaseType>
bool CStringT<BaseType>::contains(PCXSTR text) const noexcept
{
    return !std::less<PCXSTR>()(text, m_text) && !std::less<PCXSTR>()(m_text + GetLength(), text);
}

template <class BaseType>
void CStringT<BaseType>::appendSlow(PCXSTR text, int length)
{
    if (length < 0 || (!text && length)) throwInvalidArgument();
    if (length == 0) return;
    const int oldLength = GetLength(), newLength = addedLength(oldLength, length);
    const bool inside = contains(text);
    const std::ptrdiff_t offset = inside ? text - m_text : 0;
    writableText(newLength > data()->capacity ? grownCapacity(data()->capacity, newLength) : newLength);
    copyCharacters(m_text + oldLength, inside ? m_text + offset : text, length);
    setLength(newLength);
}

template <class BaseType>
void CStringT<BaseType>::makeRoomForOne()
{
    const int newLength = addedLength(GetLength(), 1), capacity = data()->capacity;
    if (m_text == nilText()) {
        m_text = allocateText(grownCapacity(capacity, newLength)); // nothing to copy, nobody to leave
        return;
    }
    writableText(newLength > capacity ? grownCapacity(capacity, newLength) : newLength);
}

template <class BaseType>
CStringT<BaseType>::CStringT(XCHAR character, int count) : m_text(nilText())
{
    if (count < 1) return;
    m_text = allocateText(count);
    std::fill_n(m_text, count, character);
    setLength(count);
}

template <class BaseType>
CStringT<BaseType>& CStringT<BaseType>::operator=(const CStringT& other)
{
    if (m_text == other.m_text) return *this;
    const bool isLocked = data()->isLocked();
    if (isLocked) {
        SetString(other.m_text, other.GetLength());
    } else {
        CStringT copy(other);
        std::swap(m_text, copy.m_text);
    }
    return *this;
}

template <class BaseType>
void CStringT<BaseType>::SetString(PCXSTR text, int length)
{
    if (length < 0 || (!text && length)) throwInvalidArgument();
    if (length == 0) return Empty();
    if (length <= data()->capacity && data()->isUnshared()) {
        std::memmove(m_text, text, static_cast<std::size_t>(length) * sizeof(XCHAR));
        setLength(length);
        return;
    }
    const PXSTR copy = newText(text, length);
    const bool wasLocked = data()->isLocked();
    if (data()->leave()) freeText(m_text);
    m_text = copy;
    if (wasLocked) LockBuffer();
}

template <class BaseType>
void CStringT<BaseType>::Empty() noexcept
{
    if (data()->isLocked()) return setLength(0);
    if (data()->leave()) freeText(m_text);
    m_text = nilText();
}

template <class BaseType>
void CStringT<BaseType>::SetAt(int index, XCHAR character)
{
    if (index < 0 || index >= GetLength()) throwInvalidArgument();
    GetBuffer()[index] = character;
}

template <class BaseType>
auto CStringT<BaseType>::GetBuffer(int minimum) -> PXSTR
{
    if (minimum < 0) throwInvalidArgument();
    return writableText(minimum);
}

template <class BaseType>
auto CStringT<BaseType>::GetBufferSetLength(int length) -> PXSTR
{
    GetBuffer(length);
    setLength(length);
    return m_text;
}

template <class BaseType>
void CStringT<BaseType>::ReleaseBuffer(int newLength)
{
    if (newLength == -1) {
        const View buffer(m_text, data()->capacity);
        newLength = static_cast<int>(std::min(buffer.find(XCHAR()), buffer.size()));
    }
    ReleaseBufferSetLength(newLength);
}

template <class BaseType>
void CStringT<BaseType>::ReleaseBufferSetLength(int newLength)
{
    if (newLength < 0 || newLength > data()->capacity) throwInvalidArgument();
    if (!data()->isUnshared()) {
        if (newLength == GetLength()) return;
        GetBuffer();
    }
    setLength(newLength);
}

template <class BaseType>
auto CStringT<BaseType>::LockBuffer() -> PXSTR
{
    writableText(std::max(GetLength(), 1));
    data()->references = CStringData::locked;
    return m_text;
}

template <class BaseType>
void CStringT<BaseType>::UnlockBuffer() noexcept
{
    if (data()->isLocked()) data()->references = 1;
}

template <class BaseType>
void CStringT<BaseType>::FreeExtra()
{
    if (!data()->isUnshared() || data()->capacity == roundedCapacity<XCHAR>(GetLength())) return;
    if (IsEmpty()) return Empty();
    growTo(GetLength());
}

template <class BaseType>
void CStringT<BaseType>::Preallocate(int length)
{
    GetBuffer(length);
}

template <class BaseType>
void CStringT<BaseType>::Truncate(int length)
{
    if (length < 0 || length > GetLength()) throwInvalidArgument();
    if (length != GetLength()) GetBufferSetLength(length);
}
