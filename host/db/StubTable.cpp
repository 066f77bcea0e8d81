#include "StubTable.h"

AcDbStub* StubTable::find(std::uint64_t handle) const
{
    const std::uint64_t key = handle >> pageBits;
    if (key != mCachedKey) {
        const auto page = mPages.find(key);
        if (page == mPages.end()) return nullptr;
        mCachedKey = key;
        mCachedPage = page->second.get();
    }
    return (*mCachedPage)[handle & (mCachedPage->size() - 1)];
}

AcDbStub*& StubTable::slot(std::uint64_t handle)
{
    const std::uint64_t key = handle >> pageBits;
    if (key != mCachedKey) {
        std::unique_ptr<Page>& page = mPages[key];
        if (!page) page = std::make_unique<Page>(Page{});
        mCachedKey = key;
        mCachedPage = page.get();
    }
    return (*mCachedPage)[handle & (mCachedPage->size() - 1)];
}

AcDbStub* StubTable::obtain(std::uint64_t handle)
{
    AcDbStub*& at = slot(handle);
    if (!at) {
        mStubs.push_back({nullptr, mDatabase, handle, false});
        at = &mStubs.back();
        raiseNextHandle(handle + 1);
    }
    return at;
}

AcDbStub* StubTable::addPending()
{
    mStubs.push_back({nullptr, mDatabase, 0, false});
    mPending.push_back(&mStubs.back());
    return mPending.back();
}

void StubTable::numberPending()
{
    for (AcDbStub* stub : mPending) {
        stub->handle = mNextHandle++;
        slot(stub->handle) = stub;
    }
    mPending.clear();
}
