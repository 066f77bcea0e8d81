#include "StubTable.h"

AcDbStub* StubTable::find(std::uint64_t handle) const
{
    const Page* page = findPage(handle >> pageBits);
    return page ? (*page)[handle & (pageSize - 1)] : nullptr;
}

StubTable::Page* StubTable::findPage(std::uint64_t key) const
{
    if (key < nearPages) return key < mNear.size() ? mNear[key] : nullptr;
    if (key != mFarKey) {
        const auto page = mFar.find(key);
        if (page == mFar.end()) return nullptr;
        mFarKey = key;
        mFarPage = page->second;
    }
    return mFarPage;
}

AcDbStub*& StubTable::slot(std::uint64_t handle)
{
    const std::uint64_t key = handle >> pageBits;
    Page* page = findPage(key);
    if (!page) page = &addPage(key);
    return (*page)[handle & (pageSize - 1)];
}

StubTable::Page& StubTable::addPage(std::uint64_t key)
{
    if (key < nearPages && key >= mNear.size()) mNear.resize(key + 1);
    if (mFreePages == 0) {
        mBlocks.push_back(std::make_unique<Page[]>(blockPages));
        mFreePages = blockPages;
    }
    Page*& page = key < nearPages ? mNear[key] : mFar[key];
    page = &mBlocks.back()[blockPages - mFreePages--];
    return *page;
}

AcDbStub* StubTable::obtain(std::uint64_t handle)
{
    AcDbStub*& at = slot(handle);
    if (!at) {
        at = &mStubs.add({nullptr, mDatabase, handle});
        raiseNextHandle(handle + 1);
    }
    return at;
}

AcDbStub* StubTable::addPending()
{
    mPending.push_back(&mStubs.add({nullptr, mDatabase, 0}));
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
