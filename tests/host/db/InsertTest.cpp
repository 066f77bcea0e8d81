/// Drawings and their blocks inserted into others, and extracted from them.

#include "CopyFixture.h"
#include "dbgroup.h"
#include "dblayout.h"
#include "rxevent.h"

namespace
{
class Insert : public CopyFixture
{
protected:
    Acad::ErrorStatus insert(const wchar_t* name, AcDbObjectId& id) { return mDatabase.insert(id, name, &mSource); }
};

class Wblock : public CopyFixture
{
protected:
    void TearDown() override
    {
        if (mOutput) {
            EXPECT_EQ(live::openObjects(*mOutput), 0);
        }
        delete mOutput;
        CopyFixture::TearDown();
    }
    Acad::ErrorStatus wblock(std::initializer_list<AcDbObjectId> ids, const AcGePoint3d& base = AcGePoint3d::kOrigin)
    {
        return mSource.wblock(mOutput, listOf(ids), base);
    }
    std::vector<AcDbObjectId> contents() const { return contentsOf(mOutput->modelSpaceId()); }

    AcDbDatabase* mOutput = nullptr;
};

class Listener : public AcRxEventReactor
{
public:
    Listener() { acrxEvent->addReactor(this); }
    ~Listener() override { acrxEvent->removeReactor(this); }
    void beginInsert(AcDbDatabase*, const ACHAR*, AcDbDatabase*) override { told += "insert "; }
    void otherInsert(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) override { told += "other "; }
    void abortInsert(AcDbDatabase*) override { told += "aborted "; }
    void endInsert(AcDbDatabase*) override { told += "inserted "; }
    void wblockNotice(AcDbDatabase*) override { told += "notice "; }
    void beginWblock(AcDbDatabase*, AcDbDatabase*, const AcGePoint3d*&) override { told += "set "; }
    void beginWblock(AcDbDatabase*, AcDbDatabase*, AcDbObjectId) override { told += "block "; }
    void beginWblock(AcDbDatabase*, AcDbDatabase*) override { told += "whole "; }
    void endWblock(AcDbDatabase*) override { told += "extracted "; }

    std::string told;
};
} // namespace

TEST_F(Insert, ModelSpaceBecomesABlockWithBasePointAndUnits)
{
    addLine(mFrom, 3);
    mSource.setInsbase({10, 20, 0});
    mSource.setInsunits(AcDb::kUnitsMeters);
    AcDbObjectId id;
    ASSERT_EQ(insert(L"SITE", id), Acad::eOk);
    const AcDbObjectPointer<AcDbBlockTableRecord> block(id);
    ASSERT_EQ(block.openStatus(), Acad::eOk);
    EXPECT_EQ(block->name(), L"SITE");
    EXPECT_EQ(block->origin(), AcGePoint3d(10, 20, 0));
    EXPECT_EQ(block->blockInsertUnits(), AcDb::kUnitsMeters);
    EXPECT_FALSE(block->isLayout());
    EXPECT_FALSE(block->isAnonymous());
    ASSERT_EQ(block->entityIds().size(), 1u);
    EXPECT_EQ(block->entityIds()[0].database(), &mDatabase);
    AcDbBlockBegin* head = nullptr;
    ASSERT_EQ(block->openBlockBegin(head), Acad::eOk);
    EXPECT_EQ(head->ownerId(), id);
    head->close();
    AcDbObjectId other;
    EXPECT_EQ(insert(L"*U", other), Acad::eOk);
    EXPECT_EQ(nameOf(other).substr(0, 2), L"*U");
}

TEST_F(Insert, NameThatIsThereIsRedefinedForItsReferences)
{
    const AcDbObjectId block = addBlock(mDatabase, L"Site");
    const AcDbObjectId gone = addLine(block, 1);
    addReference(mTo, block);
    addLine(mFrom, 9);
    AcDbObjectId id;
    ASSERT_EQ(insert(L"SITE", id), Acad::eOk);
    EXPECT_EQ(id, block);
    EXPECT_TRUE(gone.isErased());
    ASSERT_EQ(contentsOf(block).size(), 1u);
    EXPECT_EQ(lengthOf(contentsOf(block)[0]), 9.0);
}

TEST_F(Insert, BlockOfTheOtherDrawingGetsTheNameAskedFor)
{
    const AcDbObjectId door = addBlock(mSource, L"door");
    addLine(door, 5);
    AcDbObjectId id;
    ASSERT_EQ(mDatabase.insert(id, L"DOOR", L"Tor", &mSource), Acad::eOk);
    EXPECT_EQ(nameOf(id), L"Tor");
    EXPECT_EQ(lengthOf(contentsOf(id)[0]), 5.0);
    EXPECT_EQ(mDatabase.insert(id, L"window", L"X", &mSource), Acad::eKeyNotFound);
    EXPECT_TRUE(id.isNull());
}

TEST_F(Insert, ContentsAreTransformedIntoModelSpaceEvenOnLockedLayers)
{
    addLayer(mSource, L"locked", 1);
    addLayer(mDatabase, L"LOCKED", 5);
    const AcDbObjectId line = addLine(mFrom, 2);
    AcDbObjectPointer<AcDbEntity>(line, AcDb::kForWrite)->setLayer(L"locked");
    AcDbObjectPointer<AcDbLayerTableRecord>(find<AcDbLayerTableRecord>(mDatabase, L"locked"), AcDb::kForWrite)
        ->setIsLocked(true);
    ASSERT_EQ(mDatabase.insert(AcGeMatrix3d::scaling(3.0), &mSource), Acad::eOk);
    ASSERT_EQ(contentsOf(mTo).size(), 1u);
    EXPECT_EQ(lengthOf(contentsOf(mTo)[0]), 6.0);
    EXPECT_EQ(lengthOf(line), 2.0);
    AcGeMatrix3d uneven;
    uneven(0, 0) = 2.0;
    addTo(mFrom, new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 1.0));
    EXPECT_EQ(mDatabase.insert(uneven, &mSource), Acad::eCannotScaleNonUniformly);
    EXPECT_EQ(contentsOf(mTo).size(), 1u) << "nothing is copied then";
}

TEST_F(Insert, DrawingIsNotInsertedIntoItselfAndNoBlockIntoWhatItShows)
{
    AcDbObjectId id;
    EXPECT_EQ(mSource.insert(id, L"SELF", &mSource), Acad::eSelfReference);
    EXPECT_EQ(mSource.insert(AcGeMatrix3d::kIdentity, &mSource), Acad::eSelfReference);
    EXPECT_EQ(insert(L"a<b", id), Acad::eInvalidSymbolTableName);
    EXPECT_EQ(insert(nullptr, id), Acad::eInvalidSymbolTableName);
    EXPECT_EQ(insert(L"*Model_Space", id), Acad::eInvalidSymbolTableName);
    EXPECT_EQ(mDatabase.insert(id, L"X", nullptr), Acad::eNoDatabase);

    addReference(mFrom, addBlock(mSource, L"site"));
    EXPECT_EQ(insert(L"SITE", id), Acad::eSelfReference) << "the source shows a block of the name";
    EXPECT_TRUE(find<AcDbBlockTableRecord>(mDatabase, L"SITE").isNull());
    const AcDbObjectId part = addBlock(mDatabase, L"PART"), whole = addBlock(mDatabase, L"WHOLE");
    const AcDbObjectId kept = addReference(part, whole);
    AcDbDatabase other;
    addReference(other.modelSpaceId(), addBlock(other, L"part"));
    EXPECT_EQ(mDatabase.insert(id, L"WHOLE", &other), Acad::eSelfReference) << "the PART that is here shows WHOLE";
    EXPECT_FALSE(kept.isErased());
    EXPECT_TRUE(contentsOf(whole).empty());
}

TEST_F(Insert, ListenersAreToldOfTheEnd)
{
    Listener listener;
    AcDbObjectId id;
    ASSERT_EQ(insert(L"A", id), Acad::eOk);
    EXPECT_EQ(listener.told, "insert other inserted ");
    listener.told.clear();
    const AcDbBlockTablePointer held(&mDatabase, AcDb::kForRead);
    EXPECT_EQ(insert(L"B", id), Acad::eWasOpenForRead);
    EXPECT_EQ(listener.told, "insert aborted ");
}

TEST_F(Wblock, EntitiesLieAroundTheBasePointWithSettingsAndGroups)
{
    mSource.setLtscale(7.0);
    mSource.setClayer(addLayer(mSource, L"wall", 3));
    const AcDbObjectId a = addTo(mFrom, new AcDbLine({5, 5, 0}, {6, 5, 0})), b = addLine(mFrom), c = addLine(mFrom);
    for (const auto& [name, members] : {std::make_pair(L"PAIR", listOf({a, b})), std::make_pair(L"CUT", listOf({b, c}))}) {
        auto* group = new AcDbGroup(name);
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbDictionary> groups(mSource.groupDictionaryId(), AcDb::kForWrite);
        ASSERT_EQ(groups->setAt(name, group, id), Acad::eOk);
        group->append(members);
        group->close();
    }
    ASSERT_EQ(wblock({a, b}, {5, 5, 0}), Acad::eOk);
    ASSERT_EQ(contents().size(), 2u);
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(contents()[0])->startPoint(), AcGePoint3d::kOrigin);
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(a)->startPoint(), AcGePoint3d(5, 5, 0));
    EXPECT_EQ(mOutput->ltscale(), 7.0);
    EXPECT_EQ(nameOf(mOutput->clayer()), L"wall");
    EXPECT_EQ(mOutput->extmin(), AcGePoint3d(-5, -5, 0));
    const AcDbObjectPointer<AcDbDictionary> groups(mOutput->groupDictionaryId());
    EXPECT_TRUE(groups->has(L"PAIR"));
    EXPECT_FALSE(groups->has(L"CUT")) << "a member stayed behind";
    EXPECT_EQ(mSource.approxNumObjects() > 0, true);
}

TEST_F(Wblock, BlockBecomesModelSpaceAndComesBackTheSame)
{
    const AcDbObjectId door = addBlock(mSource, L"door");
    addLine(door, 5);
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(door, AcDb::kForWrite);
        block->setOrigin({1, 2, 3});
        block->setBlockInsertUnits(AcDb::kUnitsInches);
    }
    ASSERT_EQ(mSource.wblock(mOutput, door), Acad::eOk);
    ASSERT_EQ(contents().size(), 1u);
    EXPECT_EQ(mOutput->insbase(), AcGePoint3d(1, 2, 3));
    EXPECT_TRUE(find<AcDbBlockTableRecord>(*mOutput, L"door").isNull());
    AcDbObjectId id;
    ASSERT_EQ(mDatabase.insert(id, L"door", mOutput), Acad::eOk);
    const AcDbObjectPointer<AcDbBlockTableRecord> block(id);
    EXPECT_EQ(block->origin(), AcGePoint3d(1, 2, 3));
    EXPECT_EQ(block->blockInsertUnits(), AcDb::kUnitsInches);
    EXPECT_EQ(lengthOf(block->entityIds()[0]), 5.0);
}

TEST_F(Wblock, WholeDrawingKeepsHandlesAndLeavesWhatNothingUses)
{
    const AcDbObjectId used = addLayer(mSource, L"used", 3);
    addLayer(mSource, L"unused", 4);
    addBlock(mSource, L"idle");
    const AcDbObjectId line = addLine(mFrom, 8);
    AcDbObjectPointer<AcDbEntity>(line, AcDb::kForWrite)->setLayer(used);
    mSource.setLtscale(3.0);
    ASSERT_EQ(mSource.wblock(mOutput), Acad::eOk);
    EXPECT_EQ(find<AcDbLayerTableRecord>(*mOutput, L"used").handle(), used.handle());
    EXPECT_TRUE(find<AcDbLayerTableRecord>(*mOutput, L"unused").isNull());
    EXPECT_TRUE(find<AcDbBlockTableRecord>(*mOutput, L"idle").isNull());
    ASSERT_EQ(contents().size(), 1u);
    EXPECT_EQ(contents()[0].handle(), line.handle());
    EXPECT_EQ(mOutput->ltscale(), 3.0);
    EXPECT_EQ(mOutput->handseed(), mSource.handseed());
    const AcDbObjectPointer<AcDbDictionary> layouts(mOutput->layoutDictionaryId());
    ASSERT_EQ(layouts.openStatus(), Acad::eOk);
    EXPECT_EQ(layouts->numEntries(), 2u);
    addLine(mOutput->modelSpaceId());
    EXPECT_EQ(contentsOf(mFrom).size(), 1u);
}

TEST_F(Wblock, WhatCannotBeExtractedGivesNoDrawing)
{
    const AcDbObjectId line = addLine(mFrom);
    EXPECT_EQ(wblock({line, mTo}), Acad::eWrongDatabase);
    EXPECT_EQ(wblock({mSource.layerZero()}), Acad::eNotAnEntity);
    EXPECT_EQ(wblock({line}, {std::nan(""), 0, 0}), Acad::eInvalidInput);
    EXPECT_EQ(mSource.wblock(mOutput, line), Acad::eInvalidInput);
    EXPECT_EQ(mSource.wblock(mOutput, mTo), Acad::eInvalidInput);
    EXPECT_EQ(mSource.wblock(static_cast<AcDbDatabase*>(nullptr), listOf({line}), AcGePoint3d::kOrigin, AcDb::kDrcIgnore),
              Acad::eNoDatabase);
    EXPECT_EQ(mSource.wblock(&mSource, listOf({line}), AcGePoint3d::kOrigin, AcDb::kDrcIgnore), Acad::eWrongDatabase);
    EXPECT_EQ(mOutput, nullptr);
}

TEST_F(Wblock, ListenersAreToldWhichOfTheThree)
{
    Listener listener;
    for (const int kind : {0, 1, 2}) {
        AcDbDatabase* made = nullptr;
        const Acad::ErrorStatus status =
            kind == 0   ? mSource.wblock(made, AcDbObjectIdArray(), AcGePoint3d::kOrigin)
            : kind == 1 ? mSource.wblock(made, mFrom)
                        : mSource.wblock(made);
        EXPECT_EQ(status, Acad::eOk) << kind;
        delete made;
    }
    EXPECT_EQ(listener.told, "notice set extracted notice block extracted notice whole extracted ");
}
