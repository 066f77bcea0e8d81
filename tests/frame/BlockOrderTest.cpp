#include "QmCADLib.h"

#include "arxHeaders.h"
#include "dbblkref.h"
#include "dbindex.h"
#include "dbsortentstbl.h"
#include "DrawingTest.h"

#include <memory>

namespace
{
/// The module's classes are registered; a block "PART" with three lines, and a reference to it.
class BlockOrder : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        AsdkBlockOrderFilter::rxInit();
        AsdkBlockOrderIndex::rxInit();
        asCommand([this] { draw(); });
    }
    void draw()
    {
        AcDbBlockTable* table = nullptr;
        ASSERT_EQ(database()->getBlockTable(table, AcDb::kForWrite), Acad::eOk);
        auto* record = new AcDbBlockTableRecord;
        record->setName(L"PART");
        table->add(m_block, record);
        record->close();
        table->close();
        for (double y : {0.0, 1.0, 2.0})
            m_lines.append(headless::addTo(m_block, new AcDbLine({0, y, 0}, {1, y, 0})));
        m_reference = headless::addTo(database()->currentSpaceId(),
                                      new AcDbBlockReference(AcGePoint3d::kOrigin, m_block));
    }
    void bringToTop(AcDbObjectId line)
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(m_block, AcDb::kForWrite);
        block->createExtensionDictionary();
        const AcDbObjectPointer<AcDbDictionary> dictionary(block->extensionDictionary(), AcDb::kForWrite);
        AcDbObjectPointer<AcDbSortentsTable> table;
        table.create();
        AcDbObjectId id;
        ASSERT_EQ(dictionary->setAt(L"ACAD_SORTENTS", table, id), Acad::eOk);
        AcDbObjectIdArray ids;
        ids.append(line);
        EXPECT_EQ(table->moveToTop(ids), Acad::eOk);
    }
    /// Gives the block an index and its reference a filter.
    void addBoth()
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(m_block, AcDb::kForWrite);
        const AcDbObjectPointer<AcDbBlockReference> reference(m_reference, AcDb::kForWrite);
        AcDbObjectPointer<AsdkBlockOrderIndex> index;
        AcDbObjectPointer<AsdkBlockOrderFilter> filter;
        index.create();
        filter.create();
        EXPECT_EQ(AcDbIndexFilterManager::addIndex(block, index), Acad::eOk);
        EXPECT_EQ(AcDbIndexFilterManager::addFilter(reference, filter), Acad::eOk);
        EXPECT_EQ(AcDbIndexFilterManager::addIndex(block, index), Acad::eDuplicateKey);
    }
    /// The entities of the block as the reference's filter gives them.
    std::vector<AcDbObjectId> filtered()
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(m_block, AcDb::kForRead);
        const AcDbObjectPointer<AcDbBlockReference> reference(m_reference, AcDb::kForRead);
        AcDbFilter* filter = nullptr;
        EXPECT_EQ(AcDbIndexFilterManager::getFilter(reference, 0, AcDb::kForRead, filter), Acad::eOk);
        std::vector<AcDbObjectId> ids;
        const std::unique_ptr<AcDbCompositeFilteredBlockIterator> walk(
            AcDbCompositeFilteredBlockIterator::newIterator());
        EXPECT_EQ(walk->init(&filter, 1, block), Acad::eOk);
        for (AcDbObjectId id = walk->next(); !id.isNull(); id = walk->next())
            ids.push_back(id);
        filter->close();
        return ids;
    }

    AcDbObjectId m_block, m_reference;
    AcDbObjectIdArray m_lines;
};

TEST_F(BlockOrder, FilterGivesTheBlockInItsDrawOrder)
{
    using Ids = std::vector<AcDbObjectId>;
    asCommand([this] {
        addBoth();
        EXPECT_EQ(filtered(), (Ids{m_lines[0], m_lines[1], m_lines[2]})); // no table: as they were added
        bringToTop(m_lines[0]);
        EXPECT_EQ(filtered(), (Ids{m_lines[1], m_lines[2], m_lines[0]}));
    });
}

TEST_F(BlockOrder, IndexAnswersItsFilterOnlyAndOnlyInABlock)
{
    asCommand([this] {
        const AsdkBlockOrderFilter filter;
        EXPECT_EQ(AsdkBlockOrderIndex().newIterator(&filter), nullptr);
        EXPECT_EQ(filter.indexClass(), AsdkBlockOrderIndex::desc());
        addBoth();
        const AcDbObjectPointer<AcDbBlockTableRecord> block(m_block, AcDb::kForRead);
        AcDbIndex* index = nullptr;
        ASSERT_EQ(AcDbIndexFilterManager::getIndex(block, AsdkBlockOrderIndex::desc(), AcDb::kForRead, index),
                  Acad::eOk);
        EXPECT_EQ(index->objectBeingIndexedId(), m_block);
        EXPECT_EQ(index->newIterator(nullptr), nullptr);
        const std::unique_ptr<AcDbFilteredBlockIterator> walk(index->newIterator(&filter));
        index->close();
        bool passes = false;
        EXPECT_EQ(walk->accepts(m_lines[2], passes), Acad::eOk);
        EXPECT_TRUE(passes);
        walk->accepts(m_reference, passes);
        EXPECT_FALSE(passes);
    });
}

TEST_F(BlockOrder, RemovedFilterAndIndexAreGone)
{
    asCommand([this] {
        addBoth();
        EXPECT_EQ(AcDbIndexFilterManager::updateIndexes(database()), Acad::eOk);
        const AcDbObjectPointer<AcDbBlockTableRecord> block(m_block, AcDb::kForWrite);
        const AcDbObjectPointer<AcDbBlockReference> reference(m_reference, AcDb::kForWrite);
        EXPECT_EQ(AcDbIndexFilterManager::numIndexes(block) + AcDbIndexFilterManager::numFilters(reference),
                  2);
        EXPECT_EQ(AcDbIndexFilterManager::removeIndex(block, AsdkBlockOrderFilter::desc()),
                  Acad::eKeyNotFound);
        EXPECT_EQ(AcDbIndexFilterManager::removeIndex(block, AsdkBlockOrderIndex::desc()), Acad::eOk);
        EXPECT_EQ(AcDbIndexFilterManager::removeFilter(reference, AsdkBlockOrderFilter::desc()), Acad::eOk);
        EXPECT_EQ(AcDbIndexFilterManager::numIndexes(block) + AcDbIndexFilterManager::numFilters(reference),
                  0);
        AcDbFilter* filter = nullptr;
        EXPECT_EQ(AcDbIndexFilterManager::getFilter(reference, 0, AcDb::kForRead, filter),
                  Acad::eKeyNotFound);
    });
}
} // namespace
