#pragma once

/// AcArray: the growable array of the application interface.

#include "adesk.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <type_traits>
#include <utility>

/// Copies items as bytes; for types without constructors or with trivial copies.
template <class T>
class AcArrayMemCopyReallocator
{
public:
    /// Copies `count` items; the ranges may overlap.
    static void copyItems(T* to, const T* from, std::size_t count)
    {
        if (count != 0) std::memmove(static_cast<void*>(to), from, count * sizeof(T));
    }
    static void moveItems(T* to, T* from, std::size_t count) { copyItems(to, from, count); }
};

/// Copies items one by one with their assignment; for types that own something.
template <class T>
class AcArrayObjectCopyReallocator
{
public:
    /// Copies `count` items; the ranges may overlap.
    static void copyItems(T* to, const T* from, std::size_t count)
    {
        if (to <= from) {
            std::copy(from, from + count, to);
        } else {
            std::copy_backward(from, from + count, to + count);
        }
    }
    static void moveItems(T* to, T* from, std::size_t count)
    {
        if (to <= from) {
            std::move(from, from + count, to);
        } else {
            std::move_backward(from, from + count, to + count);
        }
    }
};

/// The way of copying that suits a type.
template <class T>
using AcArrayItemCopierSelector =
    std::conditional_t<std::is_trivially_copyable_v<T>, AcArrayMemCopyReallocator<T>,
                       AcArrayObjectCopyReallocator<T>>;

/// An array with a logical length (items in use) and a physical length (items there is room for).
///
/// When an item is added to a full array the physical length grows by the grow length. A negative grow
/// length is a percentage of the physical length: -100 doubles the array. Arrays above 64 KiB grow by half
/// their length at least, so that a long series of appends takes time in proportion to its length.
///
/// Indices count from 0. Reading with an index out of range is an error of the caller (asserted);
/// calls that change the array do nothing then. Items that a longer logical length brings into view are
/// as T's default constructor makes them, or as they were left there.
template <class T, class R = AcArrayItemCopierSelector<T>>
class AcArray
{
public:
    using value_type = T;
    using iterator = T*;
    using const_iterator = const T*;

    explicit AcArray(int initPhysicalLength, int initGrowLength = kDefaultGrowth)
    {
        create(initPhysicalLength, initGrowLength);
    }
    AcArray() noexcept = default;
    AcArray(const AcArray& other) { *this = other; }
    AcArray(AcArray&& other) noexcept { swapWith(other); }
    AcArray(std::initializer_list<T> items) { appendRange(items.begin(), static_cast<int>(items.size())); }
    ~AcArray() { delete[] mItems; }

    /// Becomes a copy: the items and the grow length of the other array; room that is there is kept.
    AcArray& operator=(const AcArray& other)
    {
        if (this == &other) return *this;
        mGrow = other.mGrow;
        reserve(other.mLength);
        R::copyItems(mItems, other.mItems, size(other.mLength));
        mLength = other.mLength;
        return *this;
    }
    AcArray& operator=(AcArray&& other) noexcept
    {
        swapWith(other);
        return *this;
    }
    /// Same length and equal items in the same order.
    bool operator==(const AcArray& other) const
    {
        return mLength == other.mLength && std::equal(begin(), end(), other.begin());
    }
    bool operator!=(const AcArray& other) const { return !(*this == other); }

    T& operator[](int index) { return at(index); }
    const T& operator[](int index) const { return at(index); }
    T& at(int index)
    {
        assert(isValid(index));
        return mItems[index];
    }
    const T& at(int index) const
    {
        assert(isValid(index));
        return mItems[index];
    }
    AcArray& setAt(int index, const T& value)
    {
        if (isValid(index)) mItems[index] = value;
        return *this;
    }
    AcArray& setAll(const T& value)
    {
        std::fill(begin(), end(), T(value));
        return *this;
    }
    T& first() { return at(0); }
    const T& first() const { return at(0); }
    T& last() { return at(mLength - 1); }
    const T& last() const { return at(mLength - 1); }

    /// Adds an item at the end and returns its index. The value may be an item of this array.
    int append(const T& value)
    {
        if (mLength < mPhysical) {
            mItems[mLength] = value;
        } else {
            T copy(value);
            grow(mLength + 1);
            mItems[mLength] = std::move(copy);
        }
        return mLength++;
    }
    int append(T&& value) { return appendMove(value); }
    int appendMove(T& value)
    {
        T taken(std::move(value));
        grow(mLength + 1);
        mItems[mLength] = std::move(taken);
        return mLength++;
    }
    /// Adds the items of another array, or of this one, at the end.
    AcArray& append(const AcArray& other)
    {
        const int count = other.mLength;
        grow(mLength + count);
        R::copyItems(mItems + mLength, other.mItems, size(count));
        mLength += count;
        return *this;
    }
    /// Inserts before the item at `index`; the length itself is allowed and appends.
    AcArray& insertAt(int index, const T& value)
    {
        T copy(value);
        return insertAtMove(index, copy);
    }
    AcArray& insertAtMove(int index, T& value)
    {
        if (index < 0 || index > mLength) return *this;
        T taken(std::move(value));
        grow(mLength + 1);
        R::moveItems(mItems + index + 1, mItems + index, size(mLength - index));
        mItems[index] = std::move(taken);
        ++mLength;
        return *this;
    }
    AcArray& insertAt(int index, const AcArray& others)
    {
        if (index < 0 || index > mLength) return *this;
        const AcArray copy(others);
        grow(mLength + copy.mLength);
        R::moveItems(mItems + index + copy.mLength, mItems + index, size(mLength - index));
        R::copyItems(mItems + index, copy.mItems, size(copy.mLength));
        mLength += copy.mLength;
        return *this;
    }

    AcArray& removeAt(int index) { return removeSubArray(index, index); }
    /// Removes the items from `startIndex` to `endIndex`, both included.
    AcArray& removeSubArray(int startIndex, int endIndex)
    {
        if (!isValid(startIndex) || !isValid(endIndex) || endIndex < startIndex) return *this;
        R::moveItems(mItems + startIndex, mItems + endIndex + 1, size(mLength - endIndex - 1));
        return setLogicalLength(mLength - (endIndex - startIndex + 1));
    }
    AcArray& removeFirst() { return removeAt(0); }
    AcArray& removeLast() { return removeAt(mLength - 1); }
    AcArray& removeAll() { return setLogicalLength(0); }
    /// Removes the first item that equals `value` at or after `start`; false when there is none.
    bool remove(const T& value, int start = 0)
    {
        const int index = findFrom(value, start);
        removeAt(index);
        return index >= 0;
    }

    bool contains(const T& value, int start = 0) const { return findFrom(value, start) >= 0; }
    /// The index of the first equal item, -1 when there is none.
    int find(const T& value) const { return findFrom(value, 0); }
    bool find(const T& value, int& foundAt, int start = 0) const
    {
        const int index = findFrom(value, start);
        if (index >= 0) foundAt = index;
        return index >= 0;
    }
    int findFrom(const T& value, int start) const
    {
        if (start < 0 || start >= mLength) return -1;
        const T* found = std::find(begin() + start, end(), value);
        return found == end() ? -1 : static_cast<int>(found - mItems);
    }

    AcArray& reverse()
    {
        std::reverse(begin(), end());
        return *this;
    }
    AcArray& swap(int i1, int i2)
    {
        if (isValid(i1) && isValid(i2)) std::swap(mItems[i1], mItems[i2]);
        return *this;
    }

    int length() const noexcept { return mLength; }
    int logicalLength() const noexcept { return mLength; }
    int physicalLength() const noexcept { return mPhysical; }
    int growLength() const noexcept { return mGrow; }
    bool isEmpty() const noexcept { return mLength == 0; }

    /// Negative lengths count as 0. A length above the physical length makes that length the physical one.
    AcArray& setLogicalLength(int n)
    {
        const int wanted = std::max(n, 0);
        reserve(wanted);
        if constexpr (!std::is_trivially_destructible_v<T>) {
            for (int i = wanted; i < mLength; ++i)
                mItems[i] = T();
        }
        mLength = wanted;
        return *this;
    }
    /// Makes room for exactly `n` items; items past it are lost.
    AcArray& setPhysicalLength(int n)
    {
        const int wanted = std::max(n, 0);
        if (wanted == mPhysical) return *this;
        T* items = wanted == 0 ? nullptr : new T[size(wanted)]();
        mLength = std::min(mLength, wanted);
        R::moveItems(items, mItems, size(mLength));
        delete[] mItems;
        mItems = items;
        mPhysical = wanted;
        return *this;
    }
    /// Items by which a full array grows; negative: percent of its physical length. 0 is not accepted.
    AcArray& setGrowLength(int n)
    {
        if (n != 0) mGrow = n;
        return *this;
    }

    const T* asArrayPtr() const noexcept { return mItems; }
    T* asArrayPtr() noexcept { return mItems; }
    iterator begin() noexcept { return mItems; }
    iterator end() noexcept { return mItems + mLength; }
    const_iterator begin() const noexcept { return mItems; }
    const_iterator end() const noexcept { return mItems + mLength; }

protected:
    bool isValid(int index) const noexcept { return index >= 0 && index < mLength; }

private:
    static constexpr int kDefaultGrowth = 8;
    static constexpr std::size_t kLargeArray = 65536;

    static std::size_t size(int n) { return n > 0 ? static_cast<std::size_t>(n) : 0; }

    void create(int physical, int growth)
    {
        setGrowLength(growth);
        setPhysicalLength(physical);
    }
    void reserve(int n)
    {
        if (n > mPhysical) setPhysicalLength(n);
    }
    int step() const
    {
        const int stated =
            mGrow > 0 ? mGrow : static_cast<int>(static_cast<long long>(mPhysical) * -mGrow / 100);
        const int fair = size(mPhysical) * sizeof(T) > kLargeArray ? mPhysical / 2 : 1;
        return std::max(stated, fair);
    }
    void grow(int needed)
    {
        if (needed > mPhysical) setPhysicalLength(std::max(needed, mPhysical + step()));
    }
    void appendRange(const T* items, int count)
    {
        reserve(count);
        R::copyItems(mItems, items, size(count));
        mLength = count;
    }
    void swapWith(AcArray& other) noexcept
    {
        std::swap(mItems, other.mItems);
        std::swap(mPhysical, other.mPhysical);
        std::swap(mLength, other.mLength);
        std::swap(mGrow, other.mGrow);
    }

    T* mItems = nullptr;
    int mPhysical = 0;
    int mLength = 0;
    int mGrow = kDefaultGrowth;
};
