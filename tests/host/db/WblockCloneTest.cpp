/// Copies of objects from one drawing to another.

#include "CopyFixture.h"
#include "dbdim.h"
#include "dbgroup.h"
#include "dblayout.h"
#include "dbproxy.h"
#include "dbsortentstbl.h"
#include "dbxrecrd.h"
#include "DrawOrder.h"
#include "DxfKept.h"
#include "RecordLists.h"
#include "rxevent.h"

namespace
{
class WblockClone : public CopyFixture
{
protected:
    static void setData(AcDbObjectId id, const resbuf* chain)
    {
        const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
        EXPECT_EQ(object->setXData(chain), Acad::eOk);
    }
    static AcDbObjectId addEntry(AcDbObjectId dictionary, const wchar_t* name, AcDbObject* object)
    {
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbDictionary> owner(dictionary, AcDb::kForWrite);
        EXPECT_EQ(owner->setAt(name, object, id), Acad::eOk);
        object->close();
        return id;
    }
    static AcDbObjectId entryOf(AcDbObjectId dictionary, const wchar_t* name)
    {
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbDictionary> owner(dictionary);
        if (owner.openStatus() == Acad::eOk) owner->getAt(name, id);
        return id;
    }
    static AcDbObjectId addLayerLine(AcDbObjectId block, const wchar_t* layer)
    {
        auto* line = new AcDbLine({0, 0, 0}, {1, 0, 0});
        const AcDbObjectId id = addTo(block, line);
        EXPECT_EQ(AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite)->setLayer(layer), Acad::eOk);
        return id;
    }
    static AcDbObjectId layerOf(AcDbObjectId entity) { return AcDbObjectPointer<AcDbEntity>(entity)->layerId(); }
};

class Listener : public AcRxEventReactor
{
public:
    Listener() { acrxEvent->addReactor(this); }
    ~Listener() override { acrxEvent->removeReactor(this); }
    void beginDeepClone(AcDbDatabase*, AcDbIdMapping&) override { told += "begin "; }
    void beginDeepCloneXlation(AcDbIdMapping&, Acad::ErrorStatus* status) override
    {
        told += "translate ";
        *status = verdict;
    }
    void abortDeepClone(AcDbIdMapping&) override { told += "abort "; }
    void endDeepClone(AcDbIdMapping&) override { told += "end "; }
    void beginWblockObjects(AcDbDatabase*, AcDbIdMapping&) override { told += "objects "; }

    std::string told;
    Acad::ErrorStatus verdict = Acad::eOk;
};
} // namespace

TEST_F(WblockClone, EntityBringsItsLayerWithLinetypeAndItsBlockWithWhatThatShows)
{
    const AcDbObjectId dashes = add<AcDbLinetypeTableRecord>(mSource, L"DASHES");
    const AcDbObjectId wall = addLayer(mSource, L"墙", 3);
    AcDbObjectPointer<AcDbLayerTableRecord>(wall, AcDb::kForWrite)->setLinetypeObjectId(dashes);
    const AcDbObjectId inner = addBlock(mSource, L"inner"), outer = addBlock(mSource, L"outer");
    addLayerLine(inner, L"墙");
    addReference(outer, inner);
    const AcDbObjectId door = addReference(mFrom, outer);
    AcDbIdMapping map;
    ASSERT_EQ(copy({door}, mTo, map), Acad::eOk);

    const AcDbObjectId newInner = find<AcDbBlockTableRecord>(mDatabase, L"inner");
    const AcDbObjectId newWall = find<AcDbLayerTableRecord>(mDatabase, L"墙");
    ASSERT_EQ(contentsOf(newInner).size(), 1u);
    EXPECT_EQ(layerOf(contentsOf(newInner)[0]), newWall);
    EXPECT_EQ(colorOf(newWall), 3);
    EXPECT_EQ(nameOf(AcDbObjectPointer<AcDbLayerTableRecord>(newWall)->linetypeObjectId()), L"DASHES");
    const AcDbObjectId newDoor = pairOf(map, door).value();
    EXPECT_TRUE(pairOf(map, door).isPrimary());
    EXPECT_FALSE(pairOf(map, wall).isPrimary());
    EXPECT_EQ(nameOf(AcDbObjectPointer<AcDbBlockReference>(newDoor)->blockTableRecord()), L"outer");
    AcDbObjectIdArray references;
    AcDbObjectPointer<AcDbBlockTableRecord>(newInner)->getBlockReferenceIds(references);
    EXPECT_EQ(references.length(), 1) << "the block knows what shows it";
    AcDbDatabase* database = nullptr;
    EXPECT_EQ(map.destDb(database), Acad::eOk);
    EXPECT_EQ(database, &mDatabase);
    EXPECT_EQ(map.origDb(database), Acad::eOk);
    EXPECT_EQ(database, &mSource);
    EXPECT_EQ(map.deepCloneContext(), AcDb::kDcWblkObjects);
    EXPECT_EQ(contentsOf(mFrom).size(), 1u) << "the source is as it was";
}

TEST_F(WblockClone, ExtendedDataNamesTheCopiesAndBringsApplicationAndLayer)
{
    add<AcDbRegAppTableRecord>(mSource, L"QM");
    addLayer(mSource, L"notes", 2);
    const AcDbObjectId first = addLine(mFrom), second = addLine(mFrom), left = addLine(mFrom);
    wchar_t handle[17], other[17];
    second.handle().getIntoAsciiBuffer(handle);
    left.handle().getIntoAsciiBuffer(other);
    resbuf* chain = acutBuildList(1001, L"QM", 1003, L"notes", 1005, handle, 1005, other, RTNONE);
    setData(first, chain);
    acutRelRb(chain);
    AcDbIdMapping map;
    ASSERT_EQ(copy({first, second}, mTo, map), Acad::eOk);

    EXPECT_FALSE(find<AcDbLayerTableRecord>(mDatabase, L"notes").isNull());
    const AcDbObjectPointer<AcDbObject> copied(pairOf(map, first).value());
    resbuf* data = copied->xData(L"QM");
    ASSERT_TRUE(data && data->rbnext && data->rbnext->rbnext && data->rbnext->rbnext->rbnext);
    EXPECT_STREQ(data->rbnext->resval.rstring, L"notes");
    EXPECT_EQ(AcDbHandle(data->rbnext->rbnext->resval.rstring), pairOf(map, second).value().handle());
    EXPECT_TRUE(AcDbHandle(data->rbnext->rbnext->rbnext->resval.rstring).isNull()) << "it was not copied";
    acutRelRb(data);
}

TEST_F(WblockClone, NamesOfBothDrawingsFollowTheWayAskedFor)
{
    struct Case {
        AcDb::DuplicateRecordCloning way;
        const wchar_t* incoming;
        const wchar_t* name; ///< of the layer that the copy is on
        int color;
        bool isCloned;
    };
    const Case cases[] = {
        {AcDb::kDrcIgnore, L"wall", L"WALL", 5, false},       {AcDb::kDrcReplace, L"wall", L"wall", 1, true},
        {AcDb::kDrcMangleName, L"wall", L"$0$wall", 1, true}, {AcDb::kDrcXrefMangleName, L"wall", L"$0$wall", 1, true},
        {AcDb::kDrcUnmangleName, L"$0$wall", L"WALL", 5, false}, {AcDb::kDrcUnmangleName, L"x$12$new", L"new", 1, true},
        {AcDb::kDrcMangleName, L"0", L"0", 7, false},
    };
    for (const Case& one : cases) {
        AcDbDatabase from, to;
        addLayer(to, L"WALL", 5);
        if (wcscmp(one.incoming, L"0") != 0) addLayer(from, one.incoming, 1);
        const AcDbObjectId line = addLayerLine(from.modelSpaceId(), one.incoming);
        const AcDbObjectId before = find<AcDbLayerTableRecord>(to, L"WALL");
        AcDbIdMapping map;
        AcDbObjectId owner = to.modelSpaceId();
        ASSERT_EQ(from.wblockCloneObjects(listOf({line}), owner, map, one.way), Acad::eOk);
        const AcDbObjectId layer = layerOf(pairOf(map, line).value());
        EXPECT_EQ(nameOf(layer), one.name) << one.way;
        EXPECT_EQ(colorOf(layer), one.color) << one.way;
        EXPECT_EQ(pairOf(map, layerOf(line)).isCloned(), one.isCloned) << one.way;
        EXPECT_EQ(find<AcDbLayerTableRecord>(to, L"WALL"), before) << "its id stays";
    }
}

TEST_F(WblockClone, MangledNamesTakeTheFirstFreeNumber)
{
    const AcDbObjectId wall = addLayer(mSource, L"wall", 1);
    for (const wchar_t* expected : {L"$0$wall", L"$1$wall"}) {
        AcDbIdMapping map;
        ASSERT_EQ(copy({wall}, mDatabase.layerTableId(), map, AcDb::kDrcMangleName), Acad::eOk);
        EXPECT_EQ(nameOf(pairOf(map, wall).value()), expected);
        EXPECT_FALSE(find<AcDbLayerTableRecord>(mDatabase, expected).isNull());
    }
}

TEST_F(WblockClone, ReplacedBlockIsShownByTheReferencesThatAreThere)
{
    const AcDbObjectId old = addBlock(mDatabase, L"DOOR");
    const AcDbObjectId gone = addLine(old, 1);
    addReference(mTo, old);
    const AcDbObjectId door = addBlock(mSource, L"door");
    addLine(door, 7);
    addLine(door, 8);
    AcDbObjectPointer<AcDbBlockTableRecord>(door, AcDb::kForWrite)->setOrigin({4, 5, 6});
    AcDbIdMapping map;
    ASSERT_EQ(copy({door}, mDatabase.blockTableId(), map, AcDb::kDrcReplace), Acad::eOk);
    EXPECT_EQ(find<AcDbBlockTableRecord>(mDatabase, L"door"), old);
    EXPECT_TRUE(gone.isErased());
    ASSERT_EQ(contentsOf(old).size(), 2u);
    EXPECT_EQ(lengthOf(contentsOf(old)[1]), 8.0);
    EXPECT_EQ(AcDbObjectPointer<AcDbBlockTableRecord>(old)->origin(), AcGePoint3d(4, 5, 6));
}

TEST_F(WblockClone, AnonymousBlocksGetNumbersOfTheirOwn)
{
    const AcDbObjectId here = addBlock(mDatabase, L"*U");
    const AcDbObjectId there = addBlock(mSource, L"*U");
    ASSERT_EQ(nameOf(here), nameOf(there));
    addLine(there);
    const AcDbObjectId reference = addReference(mFrom, there);
    AcDbIdMapping map;
    ASSERT_EQ(copy({reference}, mTo, map), Acad::eOk);
    const AcDbObjectId made = AcDbObjectPointer<AcDbBlockReference>(pairOf(map, reference).value())->blockTableRecord();
    EXPECT_NE(made, here);
    EXPECT_NE(nameOf(made), nameOf(here));
    EXPECT_TRUE(AcDbObjectPointer<AcDbBlockTableRecord>(made)->isAnonymous());
}

TEST_F(WblockClone, HardOwnedEntriesComeAndSoftOnesStay)
{
    const AcDbObjectId line = addLine(mFrom);
    {
        const AcDbObjectPointer<AcDbEntity> entity(line, AcDb::kForWrite);
        entity->createExtensionDictionary();
    }
    const AcDbObjectId own = AcDbObjectPointer<AcDbEntity>(line)->extensionDictionary();
    auto* hard = new AcDbDictionary;
    hard->setTreatElementsAsHard();
    const AcDbObjectId kept = addEntry(own, L"kept", hard);
    const AcDbObjectId left = addEntry(own, L"left", new AcDbDictionary);
    addEntry(kept, L"a", new AcDbXrecord);
    addEntry(left, L"b", new AcDbXrecord);
    AcDbIdMapping map;
    ASSERT_EQ(copy({line}, mTo, map), Acad::eOk);
    const AcDbObjectId copied = AcDbObjectPointer<AcDbEntity>(pairOf(map, line).value())->extensionDictionary();
    EXPECT_FALSE(entryOf(entryOf(copied, L"kept"), L"a").isNull());
    EXPECT_FALSE(entryOf(copied, L"left").isNull());
    EXPECT_TRUE(entryOf(entryOf(copied, L"left"), L"b").isNull());
}

TEST_F(WblockClone, EntryOfADictionaryFindsTheSamePlaceOrMakesIt)
{
    AcDbObjectId settings = addEntry(mSource.namedObjectsDictionaryId(), L"QM_SETTINGS", new AcDbDictionary);
    auto* data = new AcDbXrecord;
    const AcDbObjectId record = addEntry(settings, L"grid", data);
    auto* pointing = new AcDbXrecord;
    const AcDbObjectId user = addEntry(mSource.namedObjectsDictionaryId(), L"QM_USER", pointing);
    {
        const AcDbObjectPointer<AcDbXrecord> opened(user, AcDb::kForWrite);
        const ads_name name = {record.asOldId(), 0};
        resbuf* chain = acutBuildList(340, name, 1, L"text", RTNONE);
        EXPECT_EQ(opened->setFromRbChain(*chain), Acad::eOk);
        acutRelRb(chain);
    }
    AcDbIdMapping map;
    ASSERT_EQ(copy({user}, mDatabase.namedObjectsDictionaryId(), map), Acad::eOk);
    const AcDbObjectId place = entryOf(mDatabase.namedObjectsDictionaryId(), L"QM_SETTINGS");
    EXPECT_EQ(entryOf(place, L"grid"), pairOf(map, record).value()) << "a hard pointer brings what it points to";
    EXPECT_EQ(entryOf(mDatabase.namedObjectsDictionaryId(), L"QM_USER"), pairOf(map, user).value());
    AcDbIdMapping again;
    ASSERT_EQ(copy({user}, mDatabase.namedObjectsDictionaryId(), again), Acad::eOk);
    EXPECT_FALSE(pairOf(again, user).isCloned()) << "there is one of the name";
    ASSERT_EQ(copy({user}, mDatabase.namedObjectsDictionaryId(), again, AcDb::kDrcReplace), Acad::eOk);
    EXPECT_TRUE(pairOf(again, user).isCloned());
    EXPECT_EQ(pairOf(again, user).value(), pairOf(map, user).value()) << "and keeps its id";
}

TEST_F(WblockClone, LayoutBringsItsSpaceInTheNextTab)
{
    AcDbObjectId layoutId;
    {
        const AcDbObjectPointer<AcDbDictionary> layouts(mSource.layoutDictionaryId());
        ASSERT_EQ(layouts->getAt(L"Layout1", layoutId), Acad::eOk);
    }
    AcDbObjectPointer<AcDbLayout>(layoutId, AcDb::kForWrite)->setLayoutName(L"A3");
    const AcDbObjectId space = AcDbObjectPointer<AcDbLayout>(layoutId)->getBlockTableRecordId();
    addLine(space, 42);
    AcDbIdMapping map;
    for (int round = 0; round < 2; ++round) // the pairs of the first are replaced
        ASSERT_EQ(copy({layoutId}, mDatabase.layoutDictionaryId(), map, AcDb::kDrcReplace), Acad::eOk);
    const AcDbObjectPointer<AcDbLayout> made(pairOf(map, layoutId).value());
    ASSERT_EQ(made.openStatus(), Acad::eOk);
    const ACHAR* name = nullptr;
    made->getLayoutName(name);
    EXPECT_STREQ(name, L"A3 (2)");
    EXPECT_EQ(made->getTabOrder(), 3) << "behind Layout1 and A3";
    const AcDbObjectPointer<AcDbBlockTableRecord> block(made->getBlockTableRecordId());
    ASSERT_EQ(block.openStatus(), Acad::eOk);
    EXPECT_TRUE(block->isLayout());
    EXPECT_EQ(block->getLayoutId(), made->objectId());
    EXPECT_NE(block->objectId(), mDatabase.currentSpaceId());
    ASSERT_EQ(block->entityIds().size(), 1u);
    EXPECT_EQ(lengthOf(block->entityIds()[0]), 42.0);
}

TEST_F(WblockClone, DrawOrderOfABlockIsThatOfTheCopies)
{
    const AcDbObjectId block = addBlock(mSource, L"order");
    const AcDbObjectId first = addLine(block, 1);
    addLine(block, 2);
    addLine(block, 3);
    auto* order = new AcDbSortentsTable;
    AcDbObjectPointer<AcDbBlockTableRecord>(block, AcDb::kForWrite)->createExtensionDictionary();
    const AcDbObjectId id =
        addEntry(AcDbObjectPointer<AcDbBlockTableRecord>(block)->extensionDictionary(), L"ACAD_SORTENTS", order);
    {
        const AcDbObjectPointer<AcDbSortentsTable> opened(id, AcDb::kForWrite);
        opened->setBlockId(block);
        ASSERT_EQ(opened->moveToTop(listOf({first})), Acad::eOk);
    }
    AcDbIdMapping map;
    ASSERT_EQ(copy({block}, mDatabase.blockTableId(), map), Acad::eOk);
    const AcDbObjectPointer<AcDbBlockTableRecord> made(pairOf(map, block).value());
    const AcDbSortentsTable* drawn = drawOrderOf(*made);
    ASSERT_NE(drawn, nullptr);
    AcDbObjectIdArray ids;
    ASSERT_EQ(drawn->getFullDrawOrder(ids), Acad::eOk);
    ASSERT_EQ(ids.length(), 3);
    EXPECT_EQ(lengthOf(ids[0]), 2.0);
    EXPECT_EQ(lengthOf(ids[2]), 1.0);
}

TEST_F(WblockClone, RecordsOfUnknownClassesAreCarriedWhole)
{
    const AcDbObjectId shown = addBlock(mSource, L"*T"), style = addLayer(mSource, L"cells", 4);
    addLine(shown);
    addBlock(mDatabase, L"*T");
    auto* table = new AcDbProxyEntity("ACAD_TABLE");
    const std::string name = utf8Of(nameOf(shown).c_str());
    const PackedGroups groups = groupsOf({{100, "AcDbBlockReference"},
                                          {2, name.c_str()},
                                          {100, "AcDbTable"},
                                          {343, static_cast<double>(shown.handle().value())},
                                          {340, static_cast<double>(style.handle().value())},
                                          {331, 125269879.0}, // of nothing
                                          {320, 85.0},
                                          {40, 2.5},
                                          {1, "单元"}});
    DxfGroup group;
    for (std::size_t at = 0; groups.read(at, group);)
        keepGroup(*table, nullptr, group);
    const AcDbObjectId original = addTo(mFrom, table);
    AcDbIdMapping map;
    ASSERT_EQ(copy({original}, mTo, map), Acad::eOk);
    const AcDbObjectId block = pairOf(map, shown).value(), layer = pairOf(map, style).value();
    ASSERT_TRUE(block.isValid() && layer.isValid());
    EXPECT_NE(nameOf(block), nameOf(shown)) << "the number was taken";
    const AcDbObjectPointer<AcDbEntity> copied(pairOf(map, original).value());
    EXPECT_EQ(copied->dxfRecordName(), "ACAD_TABLE");
    const std::string text = textOf(written(*copied));
    const std::string expected = "100 AcDbBlockReference\n2 " + utf8Of(nameOf(block).c_str()) +
                                 "\n100 AcDbTable\n343 " + std::to_string(block.handle().value()) + "\n340 " +
                                 std::to_string(layer.handle().value()) + "\n331 0\n320 85\n40 2.5\n1 单元\n";
    EXPECT_NE(text.find(expected), std::string::npos) << text;
}

TEST_F(WblockClone, CopiesPutOffAreMadeTogether)
{
    const AcDbObjectId block = addBlock(mDatabase, L"target");
    const AcDbObjectId first = addLine(mFrom), second = addLine(mFrom);
    add<AcDbRegAppTableRecord>(mSource, L"QM");
    wchar_t handle[17];
    second.handle().getIntoAsciiBuffer(handle);
    resbuf* chain = acutBuildList(1001, L"QM", 1005, handle, RTNONE);
    setData(first, chain);
    acutRelRb(chain);
    AcDbIdMapping map;
    ASSERT_EQ(copy({first}, mTo, map, AcDb::kDrcIgnore, true), Acad::eOk);
    EXPECT_TRUE(contentsOf(mTo).empty());
    ASSERT_EQ(copy({second}, block, map), Acad::eOk);
    ASSERT_EQ(contentsOf(mTo).size(), 1u);
    ASSERT_EQ(contentsOf(block).size(), 1u);
    const AcDbObjectPointer<AcDbObject> copied(contentsOf(mTo)[0]);
    resbuf* data = copied->xData(L"QM");
    ASSERT_TRUE(data && data->rbnext);
    EXPECT_EQ(AcDbHandle(data->rbnext->resval.rstring), contentsOf(block)[0].handle());
    acutRelRb(data);
}

TEST_F(WblockClone, WhatCannotBeCopiedLeavesEverythingAsItWas)
{
    const AcDbObjectId line = addLayerLine(mFrom, L"0"), layer = addLayer(mSource, L"wall", 1);
    const AcDbObjectId erased = addLine(mFrom);
    AcDbObjectPointer<AcDbEntity>(erased, AcDb::kForWrite)->erase();
    const int before = mDatabase.approxNumObjects();
    AcDbIdMapping map;
    EXPECT_EQ(copy({line}, mFrom, map), Acad::eWrongDatabase);
    EXPECT_EQ(copy({line}, mDatabase.layerTableId(), map), Acad::eInvalidOwnerObject);
    EXPECT_EQ(copy({layer}, mDatabase.blockTableId(), map), Acad::eInvalidOwnerObject);
    EXPECT_EQ(copy({layer}, mTo, map), Acad::eNotAnEntity);
    EXPECT_EQ(copy({line, mTo}, mTo, map), Acad::eWrongDatabase);
    EXPECT_EQ(copy({line}, AcDbObjectId(), map), Acad::eNullObjectId);
    EXPECT_EQ(copy({line}, mTo, map, AcDb::kDrcNotApplicable), Acad::eInvalidInput);
    {
        const AcDbObjectPointer<AcDbLayerTable> held(mDatabase.layerTableId(), AcDb::kForRead);
        const AcDbObjectPointer<AcDbEntity> on(line, AcDb::kForWrite);
        on->setLayer(L"wall");
        EXPECT_EQ(copy({line}, mTo, map), Acad::eWasOpenForRead) << "its layer cannot be added";
    }
    EXPECT_EQ(mDatabase.approxNumObjects(), before);
    EXPECT_TRUE(AcDbIdMappingIter(map).done());
    EXPECT_EQ(copy({erased, AcDbObjectId()}, mTo, map), Acad::eOk);
    EXPECT_TRUE(contentsOf(mTo).empty());
}

TEST_F(WblockClone, ListenersAreToldAndMayEndIt)
{
    Listener listener;
    const AcDbObjectId line = addLine(mFrom);
    AcDbIdMapping map;
    ASSERT_EQ(copy({line}, mTo, map), Acad::eOk);
    EXPECT_EQ(listener.told, "begin objects translate end ");
    listener.told.clear();
    listener.verdict = Acad::eUserBreak;
    AcDbIdMapping other;
    EXPECT_EQ(copy({line}, mTo, other), Acad::eUserBreak);
    EXPECT_EQ(listener.told, "begin objects translate abort ");
    EXPECT_EQ(contentsOf(mTo).size(), 1u);
    EXPECT_TRUE(AcDbIdMappingIter(other).done());
}

TEST_F(WblockClone, OneObjectIsCopiedUnderAnOpenOwner)
{
    const AcDbObjectId line = addLine(mFrom, 6);
    const AcDbObjectPointer<AcDbLine> original(line);
    AcDbIdMapping map;
    AcDbObject* copied = nullptr;
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(mTo, AcDb::kForWrite);
        ASSERT_EQ(original->wblockClone(space, copied, map), Acad::eOk);
        ASSERT_NE(copied, nullptr);
        EXPECT_EQ(AcDbLine::cast(copied)->setEndPoint({9, 0, 0}), Acad::eOk) << "it is open for write";
        copied->close();
        AcDbIdMapping wrong;
        EXPECT_EQ(original->deepClone(space, copied, wrong), Acad::eWrongDatabase);
    }
    EXPECT_EQ(lengthOf(contentsOf(mTo)[0]), 9.0);
    const AcDbObjectPointer<AcDbBlockTableRecord> reading(mTo);
    AcDbIdMapping wrong;
    EXPECT_EQ(original->wblockClone(reading, copied, wrong), Acad::eNotOpenForWrite);
}
