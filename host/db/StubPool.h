#pragma once

/// Where the stubs of all databases lie, so that a pointer can be told from one that never was a stub.

#include "Stub.h"

#include <iterator>
#include <memory>
#include <vector>

/// Stubs of one database in the order they were made; they never move. They lie in aligned blocks: the block
/// of any pointer is found by cutting off its lower bits, and one lookup tells whether it is ours.
class StubPool
{
public:
    StubPool() = default;
    ~StubPool();
    StubPool(const StubPool&) = delete;
    StubPool& operator=(const StubPool&) = delete;

    AcDbStub& add(const AcDbStub& stub);
    std::size_t size() const { return mSize; }
    AcDbStub& operator[](std::size_t at) { return mBlocks[at / perBlock]->stubs[at % perBlock]; }

    /// Whether a pointer names a stub of a database in memory. Nothing is read through it before that is
    /// known. For the main thread, like the databases themselves.
    static bool holds(const AcDbStub* stub);

    class Iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = AcDbStub;
        using difference_type = std::ptrdiff_t;
        using pointer = AcDbStub*;
        using reference = AcDbStub&;

        Iterator() = default;
        Iterator(StubPool& pool, std::size_t at) : mPool(&pool), mAt(at) {}
        AcDbStub& operator*() const { return (*mPool)[mAt]; }
        AcDbStub* operator->() const { return &**this; }
        Iterator& operator++()
        {
            ++mAt;
            return *this;
        }
        Iterator operator++(int)
        {
            Iterator before = *this;
            ++mAt;
            return before;
        }
        bool operator==(const Iterator& other) const { return mAt == other.mAt; }
        bool operator!=(const Iterator& other) const { return mAt != other.mAt; }

    private:
        StubPool* mPool = nullptr;
        std::size_t mAt = 0;
    };
    Iterator begin() { return {*this, 0}; }
    Iterator end() { return {*this, mSize}; }

private:
    static constexpr std::size_t blockBytes = 16384;
    static constexpr std::size_t perBlock = blockBytes / sizeof(AcDbStub);
    struct alignas(blockBytes) Block {
        AcDbStub stubs[perBlock];
    };

    std::vector<std::unique_ptr<Block>> mBlocks;
    std::size_t mSize = 0;
};
