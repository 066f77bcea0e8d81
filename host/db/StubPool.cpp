#include "StubPool.h"

#include <unordered_set>

namespace
{
std::unordered_set<std::uintptr_t>& allBlocks()
{
    static std::unordered_set<std::uintptr_t> blocks;
    return blocks;
}

/// The block in which a stub was found last: neighbours are asked for one after the other. 0: none.
std::uintptr_t lastBlock = 0;

bool isBlock(std::uintptr_t address)
{
    if (address == lastBlock) return address != 0;
    if (allBlocks().count(address) == 0) return false;
    lastBlock = address;
    return true;
}
} // namespace

StubPool::~StubPool()
{
    for (const std::unique_ptr<Block>& block : mBlocks)
        allBlocks().erase(reinterpret_cast<std::uintptr_t>(block.get()));
    lastBlock = 0;
}

AcDbStub& StubPool::add(const AcDbStub& stub)
{
    if (mSize == mBlocks.size() * perBlock) {
        mBlocks.push_back(std::make_unique<Block>());
        allBlocks().insert(reinterpret_cast<std::uintptr_t>(mBlocks.back().get()));
    }
    AcDbStub& added = (*this)[mSize++];
    added = stub;
    return added;
}

bool StubPool::holds(const AcDbStub* stub)
{
    const auto address = reinterpret_cast<std::uintptr_t>(stub);
    const std::uintptr_t inBlock = address % blockBytes;
    // Places that no stub has been put into yet have no database.
    return inBlock % sizeof(AcDbStub) == 0 && isBlock(address - inBlock) && stub->database;
}
