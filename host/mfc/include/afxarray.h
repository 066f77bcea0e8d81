#pragma once

/// CArray: elements in one block of memory, reached by index.

#include "afxelement.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

/// @tparam TYPE      of the elements
/// @tparam ARG_TYPE  how an element is handed over
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
public:
    CArray() = default;
    ~CArray() override { RemoveAll(); }

    INT_PTR GetSize() const { return m_nSize; }
    INT_PTR GetCount() const { return m_nSize; }
    BOOL IsEmpty() const { return m_nSize == 0; }
    /// The last index; -1 when there are no elements.
    INT_PTR GetUpperBound() const { return m_nSize - 1; }

    /// Sets the number of elements. New ones are value-initialised (numbers are 0); size 0 gives the
    /// memory back.
    /// @param growBy  from now on the block grows by at least this many elements; 0 for an eighth of the
    ///                size, but at least 4 and at most 1024; -1 leaves the setting alone
    void SetSize(INT_PTR newSize, INT_PTR growBy = -1)
    {
        ENSURE(newSize >= 0);
        if (growBy >= 0) m_nGrowBy = growBy;
        if (newSize == 0) return freeBlock();
        if (newSize > m_nMaxSize) relocate(grownCapacity(newSize));
        while (m_nSize < newSize) {
            ::new (static_cast<void*>(m_pData + m_nSize)) TYPE();
            ++m_nSize;
        }
        std::destroy(m_pData + newSize, m_pData + m_nSize);
        m_nSize = newSize;
    }

    /// Gives back memory that holds no elements.
    void FreeExtra()
    {
        if (m_nSize == 0) return freeBlock();
        if (m_nSize < m_nMaxSize) relocate(m_nSize);
    }
    void RemoveAll() { freeBlock(); }

    const TYPE& GetAt(INT_PTR index) const { return m_pData[checked(index)]; }
    TYPE& GetAt(INT_PTR index) { return m_pData[checked(index)]; }
    TYPE& ElementAt(INT_PTR index) { return m_pData[checked(index)]; }
    const TYPE& ElementAt(INT_PTR index) const { return m_pData[checked(index)]; }
    const TYPE& operator[](INT_PTR index) const { return GetAt(index); }
    TYPE& operator[](INT_PTR index) { return GetAt(index); }
    void SetAt(INT_PTR index, ARG_TYPE newElement) { m_pData[checked(index)] = newElement; }

    /// The block of elements, valid until the array next changes its size; null when there is none.
    const TYPE* GetData() const { return m_pData; }
    TYPE* GetData() { return m_pData; }

    /// Sets an element; an index beyond the end makes the array longer.
    void SetAtGrow(INT_PTR index, ARG_TYPE newElement)
    {
        ENSURE(index >= 0);
        if (index < m_nSize) {
            m_pData[index] = newElement;
            return;
        }
        // The argument may be an element of this array, which growing moves away.
        TYPE value = valueOf(newElement);
        SetSize(index + 1);
        m_pData[index] = std::move(value);
    }

    /// Adds an element at the end and returns its index.
    INT_PTR Add(ARG_TYPE newElement)
    {
        SetAtGrow(m_nSize, newElement);
        return m_nSize - 1;
    }

    /// Adds copies of another array's elements and returns the index of the first. Appending an array to
    /// itself throws.
    INT_PTR Append(const CArray& source)
    {
        ENSURE(this != &source);
        const INT_PTR oldSize = m_nSize;
        SetSize(oldSize + source.m_nSize);
        CopyElements<TYPE>(m_pData + oldSize, source.m_pData, source.m_nSize);
        return oldSize;
    }

    /// Becomes a copy of another array.
    void Copy(const CArray& source)
    {
        if (this == &source) return;
        SetSize(source.m_nSize);
        CopyElements<TYPE>(m_pData, source.m_pData, source.m_nSize);
    }

    /// Inserts `count` copies of an element before `index`; an index beyond the end makes the array longer.
    void InsertAt(INT_PTR index, ARG_TYPE newElement, INT_PTR count = 1)
    {
        ENSURE(index >= 0 && count >= 0);
        const TYPE value = valueOf(newElement);
        openGap(index, count);
        std::fill_n(m_pData + index, count, value);
    }

    /// Inserts copies of another array's elements. Inserting an array into itself throws.
    void InsertAt(INT_PTR startIndex, CArray* newArray)
    {
        ENSURE(newArray != nullptr && newArray != this && startIndex >= 0);
        openGap(startIndex, newArray->m_nSize);
        CopyElements<TYPE>(m_pData + startIndex, newArray->m_pData, newArray->m_nSize);
    }

    /// Removes `count` elements from `index` on; throws when there are not as many.
    void RemoveAt(INT_PTR index, INT_PTR count = 1)
    {
        ENSURE(index >= 0 && count >= 0 && index <= m_nSize && count <= m_nSize - index);
        if (count == 0) return;
        std::move(m_pData + index + count, m_pData + m_nSize, m_pData + index);
        std::destroy(m_pData + m_nSize - count, m_pData + m_nSize);
        m_nSize -= count;
    }

    /// Stores or loads the count and, with SerializeElements, the elements. A count that the data do not
    /// bear out ends with an exception before memory is taken for it; the elements read so far stay.
    void Serialize(CArchive& archive) override
    {
        if (archive.IsStoring()) {
            archive.WriteCount(m_nSize);
            SerializeElements<TYPE>(archive, m_pData, m_nSize);
            return;
        }
        RemoveAll();
        for (DWORD_PTR left = archive.ReadCount(); left > 0;) {
            const INT_PTR batch = static_cast<INT_PTR>(std::min<DWORD_PTR>(left, 4096));
            SetSize(m_nSize + batch);
            SerializeElements<TYPE>(archive, m_pData + m_nSize - batch, batch);
            left -= batch;
        }
    }

protected:
    TYPE* m_pData = nullptr;
    INT_PTR m_nSize = 0;
    INT_PTR m_nMaxSize = 0; ///< elements that the block has room for
    INT_PTR m_nGrowBy = 0;

private:
    INT_PTR checked(INT_PTR index) const
    {
        ENSURE(index >= 0 && index < m_nSize);
        return index;
    }

    static TYPE valueOf(ARG_TYPE argument)
    {
        if constexpr (std::is_constructible_v<TYPE, ARG_TYPE>) {
            return TYPE(argument);
        } else {
            TYPE value;
            value = argument;
            return value;
        }
    }

    INT_PTR grownCapacity(INT_PTR newSize) const
    {
        if (m_nMaxSize == 0) return std::max(newSize, m_nGrowBy);
        const INT_PTR growBy =
            m_nGrowBy != 0 ? m_nGrowBy : std::min<INT_PTR>(1024, std::max<INT_PTR>(4, m_nSize / 8));
        return std::max(newSize, m_nMaxSize + growBy);
    }

    /// Moves the elements to a block of that capacity. When this throws the array is as before.
    void relocate(INT_PTR capacity)
    {
        if (static_cast<size_t>(capacity) > PTRDIFF_MAX / sizeof(TYPE)) AfxThrowMemoryException();
        if constexpr (AfxIsBitwiseMovable<TYPE>::value && !isOverAligned) {
            void* block = std::realloc(static_cast<void*>(m_pData), capacity * sizeof(TYPE));
            if (!block) AfxThrowMemoryException();
            m_pData = static_cast<TYPE*>(block);
        } else {
            TYPE* block = newBlock(capacity);
            try {
                relocateElements(block);
            } catch (...) {
                releaseBlock(block);
                throw;
            }
            std::destroy(m_pData, m_pData + m_nSize);
            releaseBlock(m_pData);
            m_pData = block;
        }
        m_nMaxSize = capacity;
    }

    void relocateElements(TYPE* block)
    {
        if constexpr (std::is_nothrow_move_constructible_v<TYPE> || !std::is_copy_constructible_v<TYPE>) {
            std::uninitialized_move(m_pData, m_pData + m_nSize, block);
        } else {
            std::uninitialized_copy(m_pData, m_pData + m_nSize, block);
        }
    }

    static constexpr bool isOverAligned = alignof(TYPE) > alignof(std::max_align_t);

    static TYPE* newBlock(INT_PTR capacity)
    {
        void* block;
        if constexpr (isOverAligned) {
            block = ::operator new(capacity * sizeof(TYPE), std::align_val_t(alignof(TYPE)), std::nothrow);
        } else {
            block = std::malloc(capacity * sizeof(TYPE));
        }
        if (!block) AfxThrowMemoryException();
        return static_cast<TYPE*>(block);
    }

    static void releaseBlock(TYPE* block)
    {
        if constexpr (isOverAligned) {
            ::operator delete(static_cast<void*>(block), std::align_val_t(alignof(TYPE)));
        } else {
            std::free(static_cast<void*>(block));
        }
    }

    void freeBlock()
    {
        std::destroy(m_pData, m_pData + m_nSize);
        releaseBlock(m_pData);
        m_pData = nullptr;
        m_nSize = m_nMaxSize = 0;
    }

    /// Makes room for `count` elements before `index`; the room holds elements of unspecified value.
    void openGap(INT_PTR index, INT_PTR count)
    {
        const INT_PTR oldSize = m_nSize;
        SetSize(std::max(oldSize, index) + count);
        if (index < oldSize) std::move_backward(m_pData + index, m_pData + oldSize, m_pData + m_nSize);
    }
};
