#include "dbgroup.h"

#include "DatabaseFixture.h"
#include "RecordLists.h"
#include "dbblock.h"
#include "dbdict.h"
#include "dbline.h"

#include <memory>

namespace
{
class Group : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        for (AcDbObjectId& id : mLines) id = addLine();
        mGroup = new AcDbGroup(L"axes");
        AcDbDictionary* groups = nullptr;
        ASSERT_EQ(mDatabase.getGroupDictionary(groups, AcDb::kForWrite), Acad::eOk);
        AcDbObjectId id;
        ASSERT_EQ(groups->setAt(L"AXES", mGroup, id), Acad::eOk);
        groups->close();
    }
    void TearDown() override
    {
        mGroup->close();
        DatabaseFixture::TearDown();
    }

    AcDbObjectId addLine()
    {
        AcDbObjectId id;
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(acdbOpenObject(space, mDatabase.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
        auto* line = new AcDbLine;
        EXPECT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
        line->close();
        space->close();
        return id;
    }

    bool knowsGroup(AcDbObjectId id)
    {
        AcDbObject* line = open(id, AcDb::kForRead, true);
        const bool knows = line->hasPersistentReactor(mGroup->objectId());
        line->close();
        return knows;
    }

    /// The places of the group's entities in mLines: "021".
    std::string order()
    {
        AcDbObjectIdArray ids;
        mGroup->allEntityIds(ids);
        std::string places;
        for (int i = 0; i < ids.length(); ++i)
            for (int place = 0; place < 4; ++place)
                if (mLines[place] == ids[i]) places += static_cast<char>('0' + place);
        return places;
    }

    AcDbObjectIdArray list(std::initializer_list<AcDbObjectId> ids)
    {
        AcDbObjectIdArray array;
        for (const AcDbObjectId id : ids) array.append(id);
        return array;
    }

    AcDbObjectId mLines[4];
    AcDbGroup* mGroup = nullptr;
};
} // namespace

TEST_F(Group, EntitiesKnowTheirGroupWhileTheyBelongToIt)
{
    EXPECT_EQ(mGroup->append(list({mLines[0], AcDbObjectId(), mLines[1]})), Acad::eOk);
    EXPECT_TRUE(knowsGroup(mLines[0]) && knowsGroup(mLines[1]));
    EXPECT_EQ(mGroup->append(mLines[0]), Acad::eAlreadyInGroup);
    EXPECT_EQ(mGroup->append(AcDbObjectId()), Acad::eNullObjectId);
    EXPECT_EQ(mGroup->append(mDatabase.layerZero()), Acad::eNotAnEntity);
    EXPECT_EQ(mGroup->remove(mLines[0]), Acad::eOk);
    EXPECT_FALSE(knowsGroup(mLines[0]));
    EXPECT_EQ(mGroup->remove(mLines[0]), Acad::eNotInGroup);
    EXPECT_EQ(mGroup->erase(), Acad::eOk);
    EXPECT_FALSE(knowsGroup(mLines[1]));
    EXPECT_EQ(mGroup->erase(false), Acad::eOk);
    EXPECT_TRUE(knowsGroup(mLines[1]));
}

TEST_F(Group, GroupFilledBeforeItIsInADrawingTellsItsEntitiesThen)
{
    auto group = std::make_unique<AcDbGroup>();
    EXPECT_EQ(group->append(mLines[0]), Acad::eOk);
    AcDbDictionary* groups = nullptr;
    ASSERT_EQ(mDatabase.getGroupDictionary(groups, AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    AcDbGroup* held = group.release();
    ASSERT_EQ(groups->setAt(L"LATE", held, id), Acad::eOk);
    held->close();
    groups->close();
    AcDbObject* line = open(mLines[0], AcDb::kForRead);
    EXPECT_TRUE(line->hasPersistentReactor(id));
    line->close();
}

TEST_F(Group, KeepsTheOrderItIsGiven)
{
    mGroup->append(list({mLines[0], mLines[1]}));
    EXPECT_EQ(mGroup->prepend(mLines[2]), Acad::eOk);
    EXPECT_EQ(order(), "201");
    EXPECT_EQ(mGroup->insertAt(1, mLines[3]), Acad::eOk);
    EXPECT_EQ(order(), "2301");
    EXPECT_EQ(mGroup->transfer(0, 2, 2), Acad::eOk);
    EXPECT_EQ(order(), "0123");
    EXPECT_EQ(mGroup->transfer(3, 0, 1), Acad::eOk);
    EXPECT_EQ(order(), "3012");
    EXPECT_EQ(mGroup->reverse(), Acad::eOk);
    EXPECT_EQ(order(), "2103");
    EXPECT_EQ(mGroup->replace(mLines[1], mLines[0]), Acad::eAlreadyInGroup);
    EXPECT_EQ(mGroup->removeAt(3), Acad::eOk);
    EXPECT_EQ(mGroup->replace(mLines[1], mLines[3]), Acad::eOk);
    EXPECT_EQ(order(), "230");
    EXPECT_EQ(mGroup->insertAt(9, mLines[1]), Acad::eInvalidIndex);
    EXPECT_EQ(mGroup->transfer(2, 0, 2), Acad::eInvalidIndex);
    EXPECT_EQ(mGroup->clear(), Acad::eOk);
    EXPECT_EQ(mGroup->numEntities(), 0u);
}

TEST_F(Group, ErasedEntitiesAreNotAmongItsEntities)
{
    mGroup->append(list({mLines[0], mLines[1]}));
    AcDbObject* line = open(mLines[0], AcDb::kForWrite);
    line->erase();
    line->close();
    EXPECT_EQ(mGroup->numEntities(), 1u);
    EXPECT_EQ(order(), "1");
    const std::unique_ptr<AcDbGroupIterator> walk(mGroup->newIterator());
    EXPECT_EQ(walk->objectId(), mLines[1]);
    EXPECT_FALSE(walk->next());
}

TEST_F(Group, CancelPutsEntitiesAndTheirReactorsBack)
{
    mGroup->append(mLines[0]);
    mGroup->close();
    ASSERT_EQ(acdbOpenObject(mGroup, mGroup->objectId(), AcDb::kForWrite), Acad::eOk);
    mGroup->remove(mLines[0]);
    mGroup->append(mLines[1]);
    mGroup->cancel();
    ASSERT_EQ(acdbOpenObject(mGroup, mGroup->objectId(), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(order(), "0");
    EXPECT_TRUE(knowsGroup(mLines[0]));
    EXPECT_FALSE(knowsGroup(mLines[1]));
}

TEST_F(Group, NamesAreThoseOfTheDictionary)
{
    EXPECT_STREQ(mGroup->name(), L"AXES");
    EXPECT_EQ(mGroup->setName(L"轴线"), Acad::eOk);
    EXPECT_EQ(mDatabase.groupDictionaryId(), mGroup->ownerId());
    EXPECT_STREQ(mGroup->name(), L"轴线");
    EXPECT_FALSE(mGroup->isAnonymous());
    EXPECT_EQ(mGroup->setAnonymous(), Acad::eOk);
    EXPECT_STREQ(mGroup->name(), L"*A1");
    EXPECT_TRUE(mGroup->isAnonymous());
    EXPECT_EQ(AcDbGroup().setName(L"A"), Acad::eNotInDatabase);
}

TEST_F(Group, PropertiesReachEveryEntityThatCanBeOpened)
{
    for (int i = 0; i < 3; ++i)
        mGroup->append(mLines[i]);
    AcDbObject* reader = open(mLines[1], AcDb::kForRead);
    auto* writer = static_cast<AcDbEntity*>(open(mLines[2], AcDb::kForWrite));
    EXPECT_EQ(mGroup->setColorIndex(5), Acad::eWasOpenForRead);
    EXPECT_EQ(writer->colorIndex(), 5);
    EXPECT_TRUE(writer->isWriteEnabled());
    EXPECT_NE(static_cast<AcDbEntity*>(reader)->colorIndex(), 5);
    reader->close();
    writer->close();
    EXPECT_EQ(mGroup->setVisibility(AcDb::kInvisible), Acad::eOk);
    EXPECT_EQ(mGroup->setLinetypeScale(2.5), Acad::eOk);
    EXPECT_EQ(mGroup->setLayer(L"none"), Acad::eKeyNotFound);
    AcDbObject* first = open(mLines[0], AcDb::kForRead);
    EXPECT_EQ(static_cast<AcDbEntity*>(first)->visibility(), AcDb::kInvisible);
    EXPECT_EQ(static_cast<AcDbEntity*>(first)->linetypeScale(), 2.5);
    EXPECT_EQ(static_cast<AcDbEntity*>(first)->colorIndex(), 5);
    first->close();
}

TEST_F(Group, NameIsGivenAsACopy)
{
    AcString name;
    EXPECT_EQ(mGroup->getName(name), Acad::eOk);
    EXPECT_STREQ(name, L"AXES");
    EXPECT_EQ(AcDbGroup().getName(name), Acad::eNotInDatabase);
}

TEST_F(Group, RecordIsWrittenAsItWasRead)
{
    const PackedGroups groups =
        groupsOf({{100, "AcDbGroup"}, {300, "轴"}, {70, 1.0}, {71, 0.0}, {340, 901.0}, {340, 900.0}});
    AcDbGroup group;
    EXPECT_EQ(rewritten(group, groups, &mDatabase), textOf(groups));
    EXPECT_FALSE(group.isSelectable());
}
