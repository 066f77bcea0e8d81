#include "DatabaseFixture.h"
#include "dbdict.h"
#include "dbents.h"
#include "dbidmap.h"

namespace
{
class DeepClone : public DatabaseFixture
{
protected:
    AcDbObjectId addTo(AcDbObjectId blockId, AcDbEntity* entity)
    {
        AcDbObjectId id;
        AcDbBlockTableRecord* block = nullptr;
        EXPECT_EQ(acdbOpenObject(block, blockId, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(block->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        block->close();
        return id;
    }
    AcDbObjectId addBlock(const wchar_t* name)
    {
        AcDbObjectId id;
        AcDbBlockTable* table = nullptr;
        EXPECT_EQ(mDatabase.getBlockTable(table, AcDb::kForWrite), Acad::eOk);
        auto* block = new AcDbBlockTableRecord;
        block->setName(name);
        EXPECT_EQ(table->add(id, block), Acad::eOk);
        block->close();
        table->close();
        return id;
    }
    std::size_t entitiesOf(AcDbObjectId blockId)
    {
        auto* block = static_cast<AcDbBlockTableRecord*>(open(blockId, AcDb::kForRead));
        const std::size_t count = block->entityIds().size();
        block->close();
        return count;
    }
    static AcDbObjectId copyOf(const AcDbIdMapping& map, AcDbObjectId original)
    {
        AcDbIdPair pair;
        pair.setKey(original);
        EXPECT_TRUE(map.compute(pair));
        EXPECT_TRUE(pair.isCloned());
        return pair.value();
    }

    AcDbObjectId mModel = mDatabase.modelSpaceId();
};
} // namespace

TEST_F(DeepClone, LineGoesIntoTheOtherBlockAndStaysWhereItWas)
{
    const AcDbObjectId line = addTo(mModel, new AcDbLine({1, 2, 3}, {4, 5, 6}));
    AcDbObjectId target = addBlock(L"target");
    AcDbObjectIdArray ids;
    ids.append(line);
    ids.append(AcDbObjectId());
    ids.append(line); // once is enough
    AcDbIdMapping map;
    ASSERT_EQ(mDatabase.deepCloneObjects(ids, target, map), Acad::eOk);
    EXPECT_EQ(entitiesOf(target), 1u);
    EXPECT_EQ(entitiesOf(mModel), 1u);
    auto* copy = AcDbLine::cast(open(copyOf(map, line), AcDb::kForRead));
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->ownerId(), target);
    EXPECT_NE(copy->handle(), line.handle());
    EXPECT_TRUE(copy->endPoint().isEqualTo({4, 5, 6}));
    copy->close();
}

TEST_F(DeepClone, VerticesComeAlongAndAreNotPrimary)
{
    AcGePoint3dArray points;
    for (const double x : {0.0, 1.0, 2.0})
        points.append({x, x * x, 0.0});
    const AcDbObjectId polyline = addTo(mModel, new AcDb3dPolyline(AcDb::k3dSimplePoly, points));
    AcDbObjectIdArray ids;
    ids.append(polyline);
    AcDbIdMapping map;
    ASSERT_EQ(mDatabase.deepCloneObjects(ids, mModel, map), Acad::eOk);
    const AcDbObjectId copy = copyOf(map, polyline);
    int primary = 0, vertices = 0;
    AcDbIdPair pair;
    for (AcDbIdMappingIter walk(map); walk.getMap(pair); walk.next()) {
        primary += pair.isPrimary();
        if (pair.value().objectClass() != AcDb3dPolylineVertex::desc()) continue;
        ++vertices;
        AcDbObject* vertex = open(pair.value(), AcDb::kForRead);
        EXPECT_EQ(vertex->ownerId(), copy);
        vertex->close();
    }
    EXPECT_EQ(primary, 1);
    EXPECT_EQ(vertices, 3);
}

TEST_F(DeepClone, WhatCannotBeCopiedLeavesEverythingAsItWas)
{
    AcDbDatabase other;
    const AcDbObjectId line = addTo(mModel, new AcDbLine({0, 0, 0}, {1, 0, 0}));
    AcDbObjectIdArray ids;
    ids.append(line);
    AcDbIdMapping map;
    AcDbObjectId owner = mDatabase.layerTableId();
    EXPECT_EQ(mDatabase.deepCloneObjects(ids, owner, map), Acad::eInvalidOwnerObject);
    owner.setNull();
    EXPECT_EQ(mDatabase.deepCloneObjects(ids, owner, map), Acad::eNullObjectId);
    owner = other.modelSpaceId();
    EXPECT_EQ(mDatabase.deepCloneObjects(ids, owner, map), Acad::eWrongDatabase);
    EXPECT_EQ(other.deepCloneObjects(ids, owner, map), Acad::eWrongDatabase);
    ids.append(mDatabase.layerZero());
    EXPECT_EQ(mDatabase.deepCloneObjects(ids, mModel, map), Acad::eNotAnEntity);
    EXPECT_EQ(entitiesOf(mModel), 1u);
    EXPECT_TRUE(AcDbIdMappingIter(map).done());
}

TEST(IdMapping, PairsAreReplacedTakenOutAndWalkedInTheirOrder)
{
    AcDbDatabase database;
    const AcDbObjectId a = database.layerZero(), b = database.modelSpaceId(), c = database.layerTableId();
    AcDbIdMapping map;
    EXPECT_FALSE(map.assign(AcDbIdPair()));
    for (const AcDbObjectId key : {a, b, c})
        EXPECT_TRUE(map.assign(AcDbIdPair(key, key, false)));
    EXPECT_TRUE(map.assign(AcDbIdPair(c, a, true)));
    EXPECT_TRUE(map.del(a));
    EXPECT_FALSE(map.del(a));
    AcDbIdPair pair;
    AcDbIdMappingIter walk(map);
    ASSERT_TRUE(walk.getMap(pair));
    EXPECT_EQ(pair.key(), b);
    walk.next();
    ASSERT_TRUE(walk.getMap(pair));
    EXPECT_EQ(pair.key(), c);
    EXPECT_EQ(pair.value(), a);
    walk.next();
    EXPECT_TRUE(walk.done());
}

TEST_F(DeepClone, ReferenceDoesNotGoIntoTheBlockThatItShows)
{
    const AcDbObjectId inner = addBlock(L"inner"), outer = addBlock(L"outer");
    addTo(outer, new AcDbBlockReference({0, 0, 0}, inner));
    AcDbObjectIdArray ids;
    ids.append(addTo(mModel, new AcDbBlockReference({0, 0, 0}, outer)));
    AcDbIdMapping map;
    for (AcDbObjectId owner : {outer, inner})
        EXPECT_EQ(mDatabase.deepCloneObjects(ids, owner, map), Acad::eSelfReference);
    EXPECT_EQ(entitiesOf(inner), 0u);
    EXPECT_EQ(mDatabase.deepCloneObjects(ids, mModel, map), Acad::eOk);
}

TEST_F(DeepClone, EntriesGoIntoAnotherDictionaryUnderTheirNames)
{
    AcDbObjectId group, other;
    {
        AcDbDictionary* groups = nullptr;
        ASSERT_EQ(mDatabase.getGroupDictionary(groups, AcDb::kForWrite), Acad::eOk);
        auto* made = new AcDbDictionary;
        ASSERT_EQ(groups->setAt(L"A", made, group), Acad::eOk);
        made->close();
        groups->close();
        AcDbDictionary* root = nullptr;
        ASSERT_EQ(mDatabase.getNamedObjectsDictionary(root, AcDb::kForWrite), Acad::eOk);
        made = new AcDbDictionary;
        ASSERT_EQ(root->setAt(L"OTHER", made, other), Acad::eOk);
        made->close();
        root->close();
    }
    AcDbObjectIdArray ids;
    ids.append(group);
    for (const wchar_t* name : {L"A", L"*A1"}) {
        AcDbIdMapping map;
        ASSERT_EQ(mDatabase.deepCloneObjects(ids, other, map), Acad::eOk);
        auto* dictionary = static_cast<AcDbDictionary*>(open(other, AcDb::kForRead));
        AcDbObjectId entry;
        EXPECT_EQ(dictionary->getAt(name, entry), Acad::eOk);
        EXPECT_EQ(entry, copyOf(map, group));
        dictionary->close();
    }
}
