#pragma once

#include "dbindex.h"

#include <set>
#include <vector>

/// Walks the entities of a block from the lowest of the draw order to the uppermost. Among other iterators it
/// gives what they let through in that order.
class BlockOrderIterator : public AcDbFilteredBlockIterator
{
public:
    explicit BlockOrderIterator(AcDbObjectId block);

    Acad::ErrorStatus start() override;
    AcDbObjectId next() override;
    /// 1: every entity has its place.
    double estimatedHitFraction() const override;
    Acad::ErrorStatus accepts(AcDbObjectId entity, bool& passes) const override;
    bool buffersForComposition() const override;
    void addToBuffer(AcDbObjectId entity) override;

private:
    AcDbObjectId m_block;
    std::vector<AcDbObjectId> m_order;
    std::set<AcDbObjectId> m_buffer; ///< empty: all entities of the block
    std::size_t m_at = 0;
};
