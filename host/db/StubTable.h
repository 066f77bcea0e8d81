#pragma once

/// All stubs of one database, found by handle in constant time.

#include "Stub.h"

#include <array>
#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>

/// Handles of one drawing are given out in rows, so the table keeps pages of neighbours: the page is found by the
/// upper bits of the handle, the stub by the lower ones.
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

private:
    static constexpr unsigned pageBits = 6;
    using Page = std::array<AcDbStub*, std::size_t(1) << pageBits>;

    AcDbStub*& slot(std::uint64_t handle);

    AcDbDatabase* mDatabase;
    std::deque<AcDbStub> mStubs;
    std::unordered_map<std::uint64_t, std::unique_ptr<Page>> mPages;
    mutable std::uint64_t mCachedKey = ~std::uint64_t(0);
    mutable Page* mCachedPage = nullptr;
    std::vector<AcDbStub*> mPending;
    std::uint64_t mNextHandle = 1;
};
