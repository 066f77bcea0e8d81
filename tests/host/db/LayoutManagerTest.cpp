/// Layouts as tabs: making, copying, renaming, deleting and showing them.

#include "AcApLMgr.h"
#include "DatabaseFixture.h"
#include "dbapserv.h"
#include "dbcircle.h"
#include "dblayout.h"
#include "dbobjptr.h"
#include "dbviewport.h"
#include "dbxrecrd.h"

#include <string>

namespace
{
std::string narrow(const std::wstring& wide)
{
    return {wide.begin(), wide.end()};
}

class Listener : public AcDbLayoutManagerReactor
{
public:
    void layoutCreated(const ACHAR* name, const AcDbObjectId&) override
    {
        told += "created:" + narrow(name) + " ";
    }
    void layoutRemoved(const ACHAR* name, const AcDbObjectId&) override
    {
        told += "removed:" + narrow(name) + " ";
    }
    void abortLayoutRemoved(const ACHAR* name, const AcDbObjectId&) override
    {
        told += "kept:" + narrow(name) + " ";
    }
    void layoutCopied(const ACHAR* from, const AcDbObjectId&, const ACHAR* to, const AcDbObjectId&) override
    {
        told += "copied:" + narrow(from) + ">" + narrow(to) + " ";
    }
    void layoutRenamed(const ACHAR* from, const ACHAR* to, const AcDbObjectId&) override
    {
        told += "renamed:" + narrow(from) + ">" + narrow(to) + " ";
    }
    void layoutSwitched(const ACHAR* name, const AcDbObjectId&) override
    {
        told += "shown:" + narrow(name) + " ";
    }
    std::string told;
};

class LayoutManager : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        acdbHostApplicationServices()->setWorkingDatabase(&mDatabase);
        manager = static_cast<AcApLayoutManager*>(acdbHostApplicationServices()->layoutManager());
        manager->addReactor(&listener);
    }
    void TearDown() override
    {
        manager->removeReactor(&listener);
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        DatabaseFixture::TearDown();
    }

    AcDbObjectId create(const wchar_t* name)
    {
        AcDbObjectId layout, block;
        EXPECT_EQ(manager->createLayout(name, layout, block), Acad::eOk);
        return block;
    }
    std::string blockName(AcDbObjectId id)
    {
        return narrow(AcDbBlockTableRecordPointer(id)->name().GetString());
    }
    /// The tabs in their order, the current one in brackets.
    std::string tabs()
    {
        std::string text;
        const std::wstring current = manager->getActiveTab();
        for (int place = 0; place < manager->countLayouts(); ++place) {
            const AcDbDictionaryPointer layouts(mDatabase.layoutDictionaryId());
            AcDbDictionaryIterator* at = layouts->newIterator();
            for (; !at->done(); at->next()) {
                const AcDbObjectPointer<AcDbLayout> layout(at->objectId());
                const ACHAR* name = nullptr;
                layout->getLayoutName(name);
                if (layout->getTabOrder() == place)
                    text += current == name ? "[" + narrow(name) + "] " : narrow(name) + " ";
            }
            delete at;
        }
        return text;
    }

    AcApLayoutManager* manager = nullptr;
    Listener listener;
};
} // namespace

TEST_F(LayoutManager, MakesEmptyLayoutsBehindTheOthers)
{
    ASSERT_EQ(tabs(), "[Model] Layout1 ");
    EXPECT_EQ(blockName(create(L"Plan")), "*Paper_Space0");
    EXPECT_EQ(blockName(create(L"Roof")), "*Paper_Space1");
    EXPECT_EQ(tabs(), "[Model] Layout1 Plan Roof ");
    EXPECT_TRUE(manager->layoutExists(L"PLAN"));
    AcDbObjectId layout, block;
    EXPECT_EQ(manager->createLayout(L"plan", layout, block), Acad::eDuplicateKey);
    EXPECT_EQ(manager->createLayout(L"", layout, block), Acad::eInvalidInput);
    EXPECT_EQ(manager->createLayout(L"a*b", layout, block), Acad::eInvalidInput);
    EXPECT_EQ(manager->createLayout(nullptr, layout, block), Acad::eInvalidInput);
    EXPECT_TRUE(layout.isNull() && block.isNull());
    EXPECT_EQ(listener.told, "created:Plan created:Roof ");
}

TEST_F(LayoutManager, ShownLayoutHasTheBlockOfPaperSpace)
{
    const AcDbObjectId first = manager->getActiveLayoutBTRId();
    EXPECT_EQ(first, mDatabase.modelSpaceId());
    const AcDbObjectId plan = create(L"Plan");
    ASSERT_EQ(manager->setCurrentLayout(L"Plan"), Acad::eOk);
    EXPECT_EQ(blockName(plan), "*Paper_Space");
    EXPECT_FALSE(mDatabase.tilemode());
    EXPECT_EQ(manager->getActiveLayoutBTRId(), plan);
    EXPECT_EQ(AcDbBlockTableRecordPointer(ACDB_PAPER_SPACE, &mDatabase)->objectId(), plan);
    const AcDbObjectPointer<AcDbLayout> layout(manager->findLayoutNamed(L"plan"));
    const AcDbObjectIdArray viewports = layout->getViewportArray();
    ASSERT_EQ(viewports.length(), 1) << "the sheet itself";
    EXPECT_EQ(AcDbObjectPointer<AcDbViewport>(viewports[0])->number(), 1);
    // Back in the model the last layout on paper is remembered.
    ASSERT_EQ(mDatabase.setTilemode(true), Acad::eOk);
    EXPECT_STREQ(manager->findActiveLayout(true), L"Model");
    EXPECT_STREQ(manager->findActiveLayout(false), L"Plan");
    EXPECT_EQ(manager->setCurrentLayout(L"none"), Acad::eKeyNotFound);
    EXPECT_EQ(manager->setCurrentLayoutId(mDatabase.layerZero()), Acad::eWrongObjectType);
}

TEST_F(LayoutManager, DeletedLayoutTakesItsBlockAlongAndItsNeighbourIsShown)
{
    const AcDbObjectId plan = create(L"Plan");
    create(L"Roof");
    manager->setCurrentLayout(L"Plan");
    listener.told.clear();
    ASSERT_EQ(manager->deleteLayout(L"Plan"), Acad::eOk);
    EXPECT_TRUE(plan.isErased());
    EXPECT_EQ(tabs(), "Model Layout1 [Roof] ");
    EXPECT_EQ(listener.told, "shown:Roof removed:Plan ");
    EXPECT_EQ(manager->deleteLayout(L"Model"), Acad::eDelIsModelSpace);
    EXPECT_EQ(manager->deleteLayout(L"Plan"), Acad::eKeyNotFound);
    manager->deleteLayout(L"Layout1");
    ASSERT_EQ(manager->deleteLayout(L"Roof"), Acad::eOk);
    EXPECT_EQ(tabs(), "Model [Layout1] ") << "a drawing has a layout on paper";
}

TEST_F(LayoutManager, LayoutThatIsOpenIsNotDeleted)
{
    create(L"Plan");
    manager->setCurrentLayout(L"Plan");
    const std::string before = tabs();
    listener.told.clear();
    AcDbLayout* layout = manager->findLayoutNamed(L"Plan");
    EXPECT_EQ(manager->deleteLayout(L"Plan"), Acad::eWasOpenForRead);
    EXPECT_EQ(manager->renameLayout(L"Plan", L"Other"), Acad::eWasOpenForRead);
    layout->close();
    EXPECT_EQ(tabs(), before);
    EXPECT_EQ(listener.told, "kept:Plan ");
}

TEST_F(LayoutManager, RenamesAllButTheModel)
{
    create(L"Plan");
    EXPECT_EQ(manager->renameLayout(L"Plan", L"Layout1"), Acad::eDuplicateKey);
    EXPECT_EQ(manager->renameLayout(L"Model", L"M"), Acad::eRenameIsModelSpace);
    EXPECT_EQ(manager->renameLayout(L"Plan", L"a|b"), Acad::eInvalidInput);
    ASSERT_EQ(manager->renameLayout(L"Plan", L"Roof"), Acad::eOk);
    EXPECT_EQ(tabs(), "[Model] Layout1 Roof ");
    EXPECT_EQ(listener.told, "created:Plan renamed:Plan>Roof ");
}

TEST_F(LayoutManager, CopyHoldsCopiesThatReferToEachOther)
{
    const AcDbObjectId plan = create(L"Plan");
    manager->setCurrentLayout(L"Plan");
    addApplication(L"APP");
    AcDbObjectId circleId, attached;
    {
        const AcDbBlockTableRecordPointer space(plan, AcDb::kForWrite);
        auto* viewport = new AcDbViewport;
        viewport->setHeight(10.0);
        auto* circle = new AcDbCircle(AcGePoint3d(3, 4, 0), AcGeVector3d::kZAxis, 5.0);
        space->appendAcDbEntity(circleId, circle);
        space->appendAcDbEntity(viewport);
        viewport->setNonRectClipEntityId(circleId);
        viewport->setNonRectClipOn();
        viewport->close();
        resbuf* data = acutBuildList(1001, L"APP", 1040, 2.5, RTNONE);
        circle->setXData(data);
        acutRelRb(data);
        circle->createExtensionDictionary();
        const AcDbDictionaryPointer dictionary(circle->extensionDictionary(), AcDb::kForWrite);
        auto* record = new AcDbXrecord;
        dictionary->setAt(L"NOTE", record, attached);
        record->close();
        circle->close();
    }
    ASSERT_EQ(manager->copyLayout(L"Plan", L"Copy"), Acad::eOk);
    const AcDbObjectPointer<AcDbLayout> copy(manager->findLayoutNamed(L"Copy"));
    const AcDbBlockTableRecordPointer space(copy->getBlockTableRecordId());
    ASSERT_EQ(space->entityIds().size(), 3u) << "the sheet, the circle, the viewport";
    const AcDbObjectPointer<AcDbCircle> circle(space->entityIds()[1]);
    ASSERT_EQ(circle.openStatus(), Acad::eOk);
    EXPECT_NE(circle->objectId(), circleId);
    EXPECT_EQ(circle->center(), AcGePoint3d(3, 4, 0));
    EXPECT_EQ(circle->ownerId(), space->objectId());
    const AcDbObjectPointer<AcDbViewport> viewport(space->entityIds()[2]);
    EXPECT_EQ(viewport->nonRectClipEntityId(), circle->objectId());
    resbuf* data = circle->xData(L"APP");
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->rbnext->resval.rreal, 2.5);
    acutRelRb(data);
    const AcDbDictionaryPointer dictionary(circle->extensionDictionary());
    AcDbObjectId note;
    ASSERT_EQ(dictionary->getAt(L"NOTE", note), Acad::eOk);
    EXPECT_NE(note, attached);
    EXPECT_EQ(tabs(), "Model Layout1 [Plan] Copy ");
}

TEST_F(LayoutManager, CloneStandsAtItsPlace)
{
    create(L"Plan");
    AcDbObjectId layout, block;
    const AcDbObjectPointer<AcDbLayout> plan(manager->findLayoutNamed(L"Plan"));
    EXPECT_EQ(manager->cloneLayout(plan, L"Front", 0, layout, block), Acad::eInvalidInput);
    EXPECT_EQ(manager->cloneLayout(nullptr, L"Front", 1, layout, block), Acad::eInvalidInput);
    ASSERT_EQ(manager->cloneLayout(plan, L"Front", 1, layout, block), Acad::eOk);
    EXPECT_EQ(tabs(), "[Model] Front Layout1 Plan ");
    EXPECT_EQ(manager->copyLayout(L"Model", L"M"), Acad::eCopyIsModelSpace);
}

TEST_F(LayoutManager, SetUpWorksOnAnotherDrawing)
{
    AcDbDatabase other;
    std::uintptr_t context = 0;
    ASSERT_EQ(manager->setupForLayouts(&other, context), Acad::eOk);
    create(L"Away");
    EXPECT_EQ(manager->clearSetupForLayouts(context + 1), Acad::eInvalidContext);
    ASSERT_EQ(manager->clearSetupForLayouts(context), Acad::eOk);
    EXPECT_FALSE(manager->layoutExists(L"Away"));
    EXPECT_TRUE(manager->layoutExists(L"Away", &other));
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(manager->setCurrentLayout(L"Away"), Acad::eNoDatabase);
    EXPECT_EQ(manager->findActiveLayout(true), nullptr);
    EXPECT_EQ(manager->countLayouts(), 0);
}
