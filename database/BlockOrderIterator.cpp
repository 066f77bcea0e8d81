#include "BlockOrderIterator.h"

#include "dbblock.h"
#include "dbdict.h"
#include "dbobjptr.h"
#include "dbsortentstbl.h"

#include <algorithm>
#include <memory>

namespace
{
AcDbObjectId drawOrderTableOf(const AcDbBlockTableRecord& block)
{
    const AcDbObjectPointer<AcDbDictionary> dictionary(block.extensionDictionary(), AcDb::kForRead);
    AcDbObjectId table;
    if (dictionary.openStatus() == Acad::eOk) dictionary->getAt(L"ACAD_SORTENTS", table);
    return table;
}

std::vector<AcDbObjectId> inOrderOfTheBlock(const AcDbBlockTableRecord& block)
{
    std::vector<AcDbObjectId> ids;
    AcDbBlockTableRecordIterator* made = nullptr;
    if (block.newIterator(made) != Acad::eOk) return ids;
    const std::unique_ptr<AcDbBlockTableRecordIterator> walk(made);
    for (; !walk->done(); walk->step()) {
        AcDbObjectId id;
        if (walk->getEntityId(id) == Acad::eOk) ids.push_back(id);
    }
    return ids;
}

std::vector<AcDbObjectId> drawOrderOf(const AcDbBlockTableRecord& block)
{
    const AcDbObjectPointer<AcDbSortentsTable> table(drawOrderTableOf(block), AcDb::kForRead);
    AcDbObjectIdArray ids;
    if (table.openStatus() != Acad::eOk || table->getFullDrawOrder(ids) != Acad::eOk)
        return inOrderOfTheBlock(block);
    return {ids.asArrayPtr(), ids.asArrayPtr() + ids.length()};
}
} // namespace

BlockOrderIterator::BlockOrderIterator(AcDbObjectId block) : m_block(block)
{
    start();
}

Acad::ErrorStatus BlockOrderIterator::start()
{
    m_at = 0;
    m_order.clear();
    const AcDbObjectPointer<AcDbBlockTableRecord> block(m_block, AcDb::kForRead);
    if (block.openStatus() == Acad::eOk) m_order = drawOrderOf(*block.object());
    return block.openStatus();
}

AcDbObjectId BlockOrderIterator::next()
{
    while (m_at < m_order.size()) {
        const AcDbObjectId id = m_order[m_at++];
        if (m_buffer.empty() || m_buffer.count(id) > 0) return id;
    }
    return AcDbObjectId::kNull;
}

double BlockOrderIterator::estimatedHitFraction() const
{
    return 1.0;
}

Acad::ErrorStatus BlockOrderIterator::accepts(AcDbObjectId entity, bool& passes) const
{
    passes = std::find(m_order.begin(), m_order.end(), entity) != m_order.end();
    return Acad::eOk;
}

bool BlockOrderIterator::buffersForComposition() const
{
    return true;
}

void BlockOrderIterator::addToBuffer(AcDbObjectId entity)
{
    m_buffer.insert(entity);
}
