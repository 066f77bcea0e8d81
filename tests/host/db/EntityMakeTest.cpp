/// Entities with vertices or attributes, and blocks, made from one list after the other.

#include "acdbads.h"

#include "DatabaseFixture.h"
#include "db2dpl.h"
#include "db3dpl.h"
#include "dbapserv.h"
#include "dbattrib.h"
#include "dbblkref.h"
#include "dbobjiter.h"
#include "dbobjptr.h"
#include "dbpolymesh.h"
#include "RecordLists.h"
#include "ResbufSink.h"

namespace
{
class EntityMake : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        mBefore = acdbHostApplicationServices()->workingDatabase();
        acdbHostApplicationServices()->setWorkingDatabase(&mDatabase);
        mCount = mDatabase.approxNumObjects();
    }
    void TearDown() override
    {
        acdbEntMake(nullptr);
        acdbHostApplicationServices()->setWorkingDatabase(mBefore);
        DatabaseFixture::TearDown();
    }

    static int make(resbuf* list)
    {
        const ResbufList owned(list);
        return acdbEntMake(list);
    }
    /// A head with M and N, which only meshes read.
    static int polyline(int flags, int rows = 0, int columns = 0)
    {
        return make(acutBuildList(RTDXF0, L"POLYLINE", 66, 1, 70, flags, 71, rows, 72, columns, RTNONE));
    }
    static int vertex(const AcGePoint3d& at, int flags)
    {
        const ads_point point = {at.x, at.y, at.z};
        return make(acutBuildList(RTDXF0, L"VERTEX", 10, point, 70, flags, RTNONE));
    }
    static int face(int a, int b, int c)
    {
        const ads_point origin = {0, 0, 0};
        return make(acutBuildList(RTDXF0, L"VERTEX", 10, origin, 70, 128, 71, a, 72, b, 73, c, RTNONE));
    }
    static int end() { return make(acutBuildList(RTDXF0, L"SEQEND", RTNONE)); }
    static int line()
    {
        const ads_point start = {0, 0, 0}, far = {1, 0, 0};
        return make(acutBuildList(RTDXF0, L"LINE", 10, start, 11, far, RTNONE));
    }
    static int block(const wchar_t* name)
    {
        const ads_point origin = {1, 2, 0};
        return make(acutBuildList(RTDXF0, L"BLOCK", 2, name, 70, 0, 10, origin, RTNONE));
    }
    static int endBlock() { return make(acutBuildList(RTDXF0, L"ENDBLK", RTNONE)); }

    /// The last entity of the space, open for read.
    template <class Entity>
    std::unique_ptr<AcDbObjectPointer<Entity>> last()
    {
        ads_name name;
        EXPECT_EQ(acdbEntLast(name), RTNORM);
        return std::make_unique<AcDbObjectPointer<Entity>>(AcDbObjectId().setFromOldId(name[0]),
                                                           AcDb::kForRead);
    }
    /// The classes of the entities behind one, up to the end mark.
    static std::string followersOf(const AcDbEntity& entity)
    {
        ads_name name;
        acdbGetAdsName(name, entity.objectId());
        std::string text;
        while (acdbEntNext(name, name) == RTNORM) {
            const AcDbObjectPointer<AcDbEntity> next(AcDbObjectId().setFromOldId(name[0]), AcDb::kForRead);
            if (next->ownerId() != entity.objectId()) break;
            text += utf8Of(next->isA()->name()).substr(4) + " ";
        }
        return text;
    }
    /// Nothing was added since the test began: no entity, and no object at all.
    void expectNothing() { EXPECT_EQ(mDatabase.approxNumObjects(), mCount); }

    AcDbDatabase* mBefore = nullptr;
    int mCount = 0;
};
} // namespace

TEST_F(EntityMake, FlagsOfThePolylineChooseItsClass)
{
    ASSERT_EQ(polyline(1), RTNORM);
    EXPECT_EQ(vertex({0, 0, 0}, 0), RTNORM);
    EXPECT_EQ(vertex({3, 4, 0}, 0), RTNORM);
    ASSERT_EQ(end(), RTNORM);
    const auto flat = last<AcDb2dPolyline>();
    ASSERT_EQ(flat->openStatus(), Acad::eOk);
    EXPECT_TRUE((*flat)->isClosed());
    double length = 0.0, param = 0.0;
    (*flat)->getEndParam(param);
    (*flat)->getDistAtParam(param, length);
    EXPECT_DOUBLE_EQ(length, 10.0); // there and back
    EXPECT_EQ(followersOf(**flat), "2dVertex 2dVertex SequenceEnd ");

    ASSERT_EQ(polyline(8), RTNORM);
    EXPECT_EQ(vertex({0, 0, 5}, 32), RTNORM);
    EXPECT_EQ(vertex({0, 0, 7}, 0), RTNORM) << "its flag may be left out";
    ASSERT_EQ(end(), RTNORM);
    const auto spatial = last<AcDb3dPolyline>();
    ASSERT_EQ(spatial->openStatus(), Acad::eOk);
    AcGePoint3d tip;
    (*spatial)->getEndPoint(tip);
    EXPECT_EQ(tip, AcGePoint3d(0, 0, 7));
    EXPECT_EQ(followersOf(**spatial), "3dPolylineVertex 3dPolylineVertex SequenceEnd ");
}

TEST_F(EntityMake, MeshesHaveTheirVerticesAndFaces)
{
    ASSERT_EQ(polyline(16, 2, 2), RTNORM);
    for (const AcGePoint3d& at :
         {AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(0, 1, 0), AcGePoint3d(1, 1, 3)})
        EXPECT_EQ(vertex(at, 64), RTNORM);
    ASSERT_EQ(end(), RTNORM);
    const auto mesh = last<AcDbPolygonMesh>();
    ASSERT_EQ(mesh->openStatus(), Acad::eOk);
    AcDbExtents box;
    EXPECT_EQ((*mesh)->getGeomExtents(box), Acad::eOk);
    EXPECT_EQ(box.maxPoint(), AcGePoint3d(1, 1, 3));

    ASSERT_EQ(polyline(64, 3, 1), RTNORM);
    for (const AcGePoint3d& at : {AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0), AcGePoint3d(0, 2, 0)})
        EXPECT_EQ(vertex(at, 192), RTNORM);
    EXPECT_EQ(face(1, 2, -3), RTNORM);
    ASSERT_EQ(end(), RTNORM);
    const auto faces = last<AcDbPolyFaceMesh>();
    ASSERT_EQ(faces->openStatus(), Acad::eOk);
    EXPECT_EQ((*faces)->numFaces(), 1);
    EXPECT_EQ(followersOf(**faces),
              "PolyFaceMeshVertex PolyFaceMeshVertex PolyFaceMeshVertex FaceRecord SequenceEnd ");
}

TEST_F(EntityMake, ReferenceHasItsAttributesAndTheirData)
{
    addApplication(L"QM");
    ASSERT_EQ(block(L"TITLE"), RTNORM);
    ASSERT_EQ(line(), RTNORM);
    ASSERT_EQ(endBlock(), RTKWORD);
    const ads_point at = {5, 6, 0};
    ASSERT_EQ(make(acutBuildList(RTDXF0, L"INSERT", 66, 1, 2, L"TITLE", 10, at, RTNONE)), RTNORM);
    EXPECT_EQ(make(acutBuildList(RTDXF0, L"ATTRIB", 10, at, 40, 2.5, 1, L"值", 2, L"NAME", -3, 1001, L"QM",
                                 1070, 7, RTNONE)),
              RTNORM);
    ads_name name;
    {
        const ResbufList last(acutBuildList(RTDXF0, L"SEQEND", RTNONE));
        ASSERT_EQ(acdbEntMakeX(last.get(), name), RTNORM);
    }
    const AcDbObjectPointer<AcDbBlockReference> reference(AcDbObjectId().setFromOldId(name[0]),
                                                          AcDb::kForRead);
    ASSERT_EQ(reference.openStatus(), Acad::eOk);
    const std::unique_ptr<AcDbObjectIterator> walk(reference->attributeIterator());
    ASSERT_FALSE(walk->done());
    const AcDbObjectPointer<AcDbAttribute> attribute(walk->objectId(), AcDb::kForRead);
    ASSERT_EQ(attribute.openStatus(), Acad::eOk);
    EXPECT_STREQ(attribute->textStringConst(), L"值");
    EXPECT_STREQ(attribute->tagConst(), L"NAME");
    const ResbufList data(attribute->xData(L"QM"));
    ASSERT_TRUE(data && data->rbnext);
    EXPECT_EQ(data->rbnext->resval.rint, 7);
    // Without the flag a reference stands alone.
    EXPECT_EQ(make(acutBuildList(RTDXF0, L"INSERT", 2, L"TITLE", 10, at, RTNONE)), RTNORM);
    EXPECT_EQ(line(), RTNORM);
}

TEST_F(EntityMake, NothingIsInTheDrawingBeforeTheEnd)
{
    ASSERT_EQ(polyline(8), RTNORM);
    ASSERT_EQ(vertex({1, 0, 0}, 32), RTNORM);
    ads_name name;
    EXPECT_EQ(acdbEntLast(name), RTERROR);
    ASSERT_EQ(vertex({2, 0, 0}, 32), RTNORM);
    EXPECT_EQ(acdbEntMake(nullptr), RTREJ);
    EXPECT_EQ(end(), RTREJ) << "what was begun is forgotten";
    ASSERT_EQ(block(L"B"), RTNORM);
    ASSERT_EQ(line(), RTNORM);
    EXPECT_EQ(acdbTblSearch(L"BLOCK", L"B", 0), nullptr);
    acdbEntMake(nullptr);
    EXPECT_EQ(endBlock(), RTERROR);
    expectNothing();
}

TEST_F(EntityMake, WhatDoesNotBelongThereTakesTheWholeWithIt)
{
    const auto begin = [] {
        ASSERT_EQ(polyline(8), RTNORM);
        ASSERT_EQ(vertex({1, 0, 0}, 32), RTNORM);
        ASSERT_EQ(vertex({2, 0, 0}, 32), RTNORM);
    };
    const ads_point origin = {0, 0, 0};
    begin();
    EXPECT_EQ(line(), RTREJ);
    EXPECT_EQ(end(), RTREJ);
    begin();
    EXPECT_EQ(make(acutBuildList(RTDXF0, L"VERTEX", 6, L"no such line type", RTNONE)), RTREJ);
    EXPECT_EQ(end(), RTREJ);
    begin();
    EXPECT_EQ(make(acutBuildList(RTDXF0, L"VERTEX", 100, L"AcDb2dVertex", 10, origin, RTNONE)), RTREJ);
    EXPECT_EQ(end(), RTREJ);
    begin();
    EXPECT_EQ(
        make(acutBuildList(RTDXF0, L"VERTEX", 10, origin, 70, 32, -3, 1001, L"unknown", 1070, 1, RTNONE)),
        RTREJ);
    EXPECT_EQ(end(), RTREJ);
    EXPECT_EQ(vertex({0, 0, 0}, 0), RTREJ) << "a vertex follows nothing";
    ASSERT_EQ(polyline(0), RTNORM);
    EXPECT_EQ(end(), RTREJ) << "a polyline without vertices";
    ASSERT_EQ(polyline(16, 2, 2), RTNORM);
    ASSERT_EQ(vertex({0, 0, 0}, 64), RTNORM);
    EXPECT_EQ(end(), RTREJ) << "one of four vertices";
    ASSERT_EQ(block(L"B"), RTNORM);
    ASSERT_EQ(line(), RTNORM);
    EXPECT_EQ(block(L"C"), RTREJ) << "blocks do not nest";
    EXPECT_EQ(endBlock(), RTERROR);
    EXPECT_EQ(block(L"a<b"), RTREJ);
    expectNothing();
}

TEST_F(EntityMake, NumbersThatAreNoneAreRefused)
{
    for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        const ads_point center = {0, 0, bad}, origin = {0, 0, 0};
        EXPECT_EQ(make(acutBuildList(RTDXF0, L"CIRCLE", 10, center, 40, 1.0, RTNONE)), RTREJ);
        EXPECT_EQ(make(acutBuildList(RTDXF0, L"CIRCLE", 10, origin, 40, bad, RTNONE)), RTREJ);
    }
    expectNothing();
}

TEST_F(EntityMake, BlockOfATakenNameIsRedefined)
{
    for (const int count : {3, 1}) {
        ASSERT_EQ(block(L"DOOR"), RTNORM);
        for (int i = 0; i < count; ++i)
            ASSERT_EQ(line(), RTNORM);
        ASSERT_EQ(polyline(0), RTNORM);
        ASSERT_EQ(vertex({1, 0, 0}, 0), RTNORM);
        ASSERT_EQ(end(), RTNORM);
        ASSERT_EQ(endBlock(), RTKWORD);
        const AcDbBlockTableRecordPointer door(L"DOOR", &mDatabase);
        ASSERT_EQ(door.openStatus(), Acad::eOk);
        EXPECT_EQ(door->origin(), AcGePoint3d(1, 2, 0));
        AcDbBlockTableRecordIterator* walk = nullptr;
        door->newIterator(walk);
        const std::unique_ptr<AcDbBlockTableRecordIterator> owned(walk);
        int found = 0;
        for (; !walk->done(); walk->step())
            ++found;
        EXPECT_EQ(found, count + 1);
    }
    ASSERT_EQ(block(L"*Model_Space"), RTNORM);
    EXPECT_EQ(endBlock(), RTERROR);
    ads_name anonymous[2];
    for (ads_name& name : anonymous) {
        ASSERT_EQ(block(L"*U"), RTNORM);
        const ResbufList last(acutBuildList(RTDXF0, L"ENDBLK", RTNONE));
        ASSERT_EQ(acdbEntMakeX(last.get(), name), RTKWORD);
    }
    EXPECT_NE(anonymous[0][0], anonymous[1][0]) << "every anonymous block is a new one";
}

TEST_F(EntityMake, WhatWasBegunGoesWithItsDrawing)
{
    auto other = std::make_unique<AcDbDatabase>();
    acdbHostApplicationServices()->setWorkingDatabase(other.get());
    ASSERT_EQ(polyline(8), RTNORM);
    acdbHostApplicationServices()->setWorkingDatabase(&mDatabase);
    other.reset();
    EXPECT_EQ(end(), RTREJ);
    expectNothing();
}

TEST_F(EntityMake, BlockWithAReferenceAndItsAttributesIsKeptByFiles)
{
    const ads_point at = {5, 6, 0};
    ASSERT_EQ(block(L"INNER"), RTNORM);
    ASSERT_EQ(make(acutBuildList(RTDXF0, L"ATTDEF", 10, at, 40, 2.5, 1, L"A", 3, L"Which?", 2, L"NO", 70, 0, RTNONE)),
              RTNORM);
    ASSERT_EQ(endBlock(), RTKWORD);
    ASSERT_EQ(block(L"OUTER"), RTNORM);
    ASSERT_EQ(make(acutBuildList(RTDXF0, L"INSERT", 66, 1, 2, L"INNER", 10, at, RTNONE)), RTNORM);
    ASSERT_EQ(make(acutBuildList(RTDXF0, L"ATTRIB", 10, at, 40, 2.5, 1, L"42", 2, L"NO", RTNONE)), RTNORM);
    ASSERT_EQ(end(), RTNORM);
    ASSERT_EQ(polyline(8), RTNORM);
    ASSERT_EQ(vertex({1, 0, 0}, 32), RTNORM);
    ASSERT_EQ(vertex({2, 0, 0}, 32), RTNORM);
    ASSERT_EQ(end(), RTNORM);
    ASSERT_EQ(endBlock(), RTKWORD);
    const std::wstring path = L"/tmp/entity_make_" + std::to_wstring(GetCurrentProcessId()) + L".dxf";
    ASSERT_EQ(mDatabase.dxfOut(path.c_str()), Acad::eOk);
    AcDbDatabase opened(false, true);
    ASSERT_EQ(opened.dxfIn(path.c_str()), Acad::eOk);
    DeleteFileW(path.c_str());
    const AcDbBlockTableRecordPointer outer(L"OUTER", &opened);
    ASSERT_EQ(outer.openStatus(), Acad::eOk);
    EXPECT_EQ(outer->origin(), AcGePoint3d(1, 2, 0));
    ASSERT_EQ(outer->entityIds().size(), 2u);
    const AcDbObjectPointer<AcDbBlockReference> reference(outer->entityIds()[0]);
    ASSERT_EQ(reference.openStatus(), Acad::eOk);
    EXPECT_EQ(followersOf(**std::make_unique<AcDbObjectPointer<AcDbEntity>>(outer->entityIds()[1])),
              "3dPolylineVertex 3dPolylineVertex SequenceEnd ");
    const std::unique_ptr<AcDbObjectIterator> walk(reference->attributeIterator());
    ASSERT_FALSE(walk->done());
    EXPECT_STREQ(AcDbObjectPointer<AcDbAttribute>(walk->objectId())->textStringConst(), L"42");
    EXPECT_TRUE(AcDbObjectPointer<AcDbBlockTableRecord>(reference->blockTableRecord())->hasAttributeDefinitions());
}
