#pragma once

/// All stubs of one database, found by handle in constant time.

#include "StubPool.h"

#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

/// Handles of one drawing are given out in rows, so the table keeps pages of neighbours: the page is found by the
/// upper bits of the handle, the stub by the lower ones. Pages of the handles that most drawings have lie in a row
/// themselves; those of handles beyond, which damaged files may scatter over 64 bits, in a hash table.
class StubTable
{
public:
    explicit StubTable(AcDbDatabase* database) : mDatabase(database) {}
    StubTable(const StubTable&) = delete;
    StubTable& operator=(const StubTable&) = delete;

    /// The stub of a handle; null when no object has had it.
    AcDbStub* find(std::uint64_t handle) const;
    /// The stub of a handle, made when it is not there.
    AcDbStub* obtain(std::uint64_t handle);
    /// A new stub under the next free handle.
    AcDbStub* add() { return obtain(mNextHandle); }

    /// A new stub that gets its handle later: while a file is read, handles that it does not give must wait for those
    /// that it gives.
    AcDbStub* addPending();
    /// Gives handles to what addPending made.
    void numberPending();

    /// The handle that the next new object gets; always above every handle in use.
    std::uint64_t nextHandle() const { return mNextHandle; }
    void raiseNextHandle(std::uint64_t handle)
    {
        if (handle > mNextHandle) mNextHandle = handle;
    }

    /// Stubs in the order they were made.
    auto begin() { return mStubs.begin(); }
    auto end() { return mStubs.end(); }
    std::size_t size() const { return mStubs.size(); }
    AcDbStub& operator[](std::size_t at) { return mStubs[at]; }

private:
    static constexpr unsigned pageBits = 6;
    static constexpr std::size_t pageSize = std::size_t(1) << pageBits;
    /// The row of pages takes 2 MiB at the most, for handles up to 16 million.
    static constexpr std::size_t nearPages = std::size_t(1) << 18;
    using Page = std::array<AcDbStub*, pageSize>;
    /// Pages are made in blocks, so that those that are searched together lie on few pages of memory.
    static constexpr std::size_t blockPages = 32;

    Page* findPage(std::uint64_t key) const;
    Page& addPage(std::uint64_t key);
    AcDbStub*& slot(std::uint64_t handle);

    AcDbDatabase* mDatabase;
    StubPool mStubs;
    std::vector<std::unique_ptr<Page[]>> mBlocks;
    std::size_t mFreePages = 0; ///< of the last block
    std::vector<Page*> mNear;
    std::unordered_map<std::uint64_t, Page*> mFar;
    mutable std::uint64_t mFarKey = ~std::uint64_t(0); ///< of the last page found there
    mutable Page* mFarPage = nullptr;
    std::vector<AcDbStub*> mPending;
    std::uint64_t mNextHandle = 1;
};
