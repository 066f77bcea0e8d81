#pragma once

#include "EditorFixture.h"

#include "arxHeaders.h"
#include "dbobjptr.h"
#include "rxdlinkr.h"

#include <map>

/// The module in the hands of the host, with the library under it.
class AxisGridCommand : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        ASSERT_TRUE(acrxLoadModule(L"" SAMPLE_MODULES "/QmCADLib.arx", false));
        ASSERT_TRUE(acrxLoadModule(L"" SAMPLE_MODULES "/AxisGrid.arx", false));
    }
    void TearDown() override
    {
        EXPECT_TRUE(acrxUnloadModule(L"AxisGrid.arx"));
        EXPECT_TRUE(acrxUnloadModule(L"QmCADLib.arx"));
        EditorTest::TearDown();
    }

    std::map<std::wstring, int> countByClass() const
    {
        std::map<std::wstring, int> counts;
        forEach([&](AcDbEntity& entity) { ++counts[entity.isA()->name()]; });
        return counts;
    }
    bool hasLayer(const wchar_t* name) const
    {
        const AcDbObjectPointer<AcDbLayerTable> layers(database()->layerTableId(), AcDb::kForRead);
        return layers->has(name);
    }

    /// Calls an action with each entity of the current space, open for read.
    template <class Action>
    void forEach(Action action) const
    {
        forEachIn(database()->currentSpaceId(), action);
    }
    template <class Action>
    static void forEachIn(AcDbObjectId block, Action action)
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(block, AcDb::kForRead);
        AcDbBlockTableRecordIterator* made = nullptr;
        ASSERT_EQ(space->newIterator(made), Acad::eOk);
        const std::unique_ptr<AcDbBlockTableRecordIterator> entities(made);
        for (; !entities->done(); entities->step()) {
            AcDbObjectId id;
            entities->getEntityId(id);
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            action(*entity.object());
        }
    }
};
