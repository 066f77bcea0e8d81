#include "dbindex.h"

#include "dbblock.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace
{
using Parts = std::vector<std::unique_ptr<AcDbFilteredBlockIterator>>;

/// What answers one filter; null when nothing in the block does.
std::unique_ptr<AcDbFilteredBlockIterator> answerOf(const AcDbFilter& filter, const AcDbBlockTableRecord& block)
{
    AcDbIndex* index = nullptr;
    if (AcDbIndexFilterManager::getIndex(&block, filter.indexClass(), AcDb::kForRead, index) != Acad::eOk) return nullptr;
    std::unique_ptr<AcDbFilteredBlockIterator> made(index->newIterator(&filter));
    index->close();
    return made;
}

/// Every entity of a block.
class WholeBlock : public AcDbFilteredBlockIterator
{
public:
    explicit WholeBlock(const AcDbBlockTableRecord& block) : mBlock(&block) { start(); }
    Acad::ErrorStatus start() override
    {
        AcDbBlockTableRecordIterator* made = nullptr;
        const Acad::ErrorStatus status = mBlock->newIterator(made);
        mWalk.reset(made);
        return status;
    }
    AcDbObjectId next() override
    {
        AcDbObjectId id;
        if (mWalk->getEntityId(id) == Acad::eOk) mWalk->step();
        return id;
    }
    double estimatedHitFraction() const override { return 1.0; }
    Acad::ErrorStatus accepts(AcDbObjectId, bool& passes) const override
    {
        passes = true;
        return Acad::eOk;
    }

private:
    const AcDbBlockTableRecord* mBlock;
    std::unique_ptr<AcDbBlockTableRecordIterator> mWalk;
};

class Composite : public AcDbCompositeFilteredBlockIterator
{
public:
    Acad::ErrorStatus init(AcDbFilter* const* filters, int count, const AcDbBlockTableRecord* block) override
    {
        if (!block || (count > 0 && !filters)) return Acad::eNullObjectPointer;
        mParts.clear();
        for (int i = 0; i < count; ++i) {
            auto part = filters[i] ? answerOf(*filters[i], *block) : nullptr;
            if (part) mParts.push_back(std::move(part));
        }
        if (mParts.empty()) mParts.push_back(std::make_unique<WholeBlock>(*block));
        arrange();
        start();
        return Acad::eOk;
    }
    void start() override
    {
        if (mParts.empty()) return;
        mParts.front()->start();
        if (mParts.size() > 1 && mParts.back()->buffersForComposition()) fillBuffer();
    }
    AcDbObjectId next() override
    {
        if (mParts.empty()) return {};
        AcDbFilteredBlockIterator& walked = *(mBuffered ? mParts.back() : mParts.front());
        for (AcDbObjectId id = walked.next(); !id.isNull(); id = walked.next()) {
            if (passesOthers(id, walked)) return id;
        }
        return {};
    }
    Acad::ErrorStatus accepts(AcDbObjectId entity, bool& passes) const override
    {
        passes = std::all_of(mParts.begin(), mParts.end(), [&](const auto& part) { return acceptedBy(*part, entity); });
        return Acad::eOk;
    }

private:
    static bool acceptedBy(const AcDbFilteredBlockIterator& part, AcDbObjectId id)
    {
        bool passes = false;
        return part.accepts(id, passes) == Acad::eOk && passes;
    }
    bool passesOthers(AcDbObjectId id, const AcDbFilteredBlockIterator& walked) const
    {
        return std::all_of(mParts.begin(), mParts.end(),
                           [&](const auto& part) { return part.get() == &walked || acceptedBy(*part, id); });
    }
    /// The least hits first, those that give their own order last.
    void arrange()
    {
        std::stable_sort(mParts.begin(), mParts.end(), [](const auto& a, const auto& b) {
            if (a->buffersForComposition() != b->buffersForComposition()) return b->buffersForComposition();
            return a->estimatedHitFraction() < b->estimatedHitFraction();
        });
        mBuffered = false;
    }
    void fillBuffer()
    {
        AcDbFilteredBlockIterator& ordered = *mParts.back();
        mBuffered = false;
        for (AcDbObjectId id = mParts.front()->next(); !id.isNull(); id = mParts.front()->next()) {
            if (!passesOthers(id, *mParts.front())) continue;
            ordered.addToBuffer(id);
            mBuffered = true;
        }
        ordered.start();
    }

    Parts mParts;
    bool mBuffered = false;
};
} // namespace

AcDbCompositeFilteredBlockIterator* AcDbCompositeFilteredBlockIterator::newIterator() { return new Composite; }
