/// Classes of modules: what their filers carry into records, copies, lists and files.

#include "../dxf/SavedDrawing.h"

#include "DatabaseFixture.h"
#include "RecordLists.h"
#include "acdbads.h"
#include "acutads.h"
#include "dbblock.h"
#include "dbfiler.h"
#include "dbline.h"
#include "dbobjptr.h"
#include "dbproxy.h"
#include "geassign.h"

namespace
{
/// A class as a module would write it.
class TestPipe : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(TestPipe);
    AcGePoint3d start, end;
    double radius = 1.0;
    AcString name;
    AcDbObjectId reference;

    Acad::ErrorStatus setRadius(double value)
    {
        const Acad::ErrorStatus status = assertWriteEnabled();
        if (status == Acad::eOk) radius = value;
        return status;
    }

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override
    {
        const Acad::ErrorStatus status = AcDbEntity::dwgOutFields(filer);
        if (status != Acad::eOk) return status;
        filer->writePoint3d(start);
        filer->writePoint3d(end);
        filer->writeDouble(radius);
        filer->writeString(name);
        filer->writeHardPointerId(AcDbHardPointerId(reference));
        return filer->filerStatus();
    }

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override
    {
        const Acad::ErrorStatus status = AcDbEntity::dwgInFields(filer);
        if (status != Acad::eOk) return status;
        AcDbHardPointerId id;
        filer->readPoint3d(&start);
        filer->readPoint3d(&end);
        filer->readDouble(&radius);
        filer->readString(name);
        filer->readHardPointerId(&id);
        reference = id;
        return filer->filerStatus();
    }

    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override
    {
        const Acad::ErrorStatus status = AcDbEntity::dxfOutFields(filer);
        if (status != Acad::eOk) return status;
        filer->writeItem(AcDb::kDxfSubclass, L"TestPipe");
        filer->writePoint3d(AcDb::kDxfXCoord, start);
        filer->writeItem(11, end);
        filer->writeDouble(AcDb::kDxfReal, radius);
        filer->writeString(AcDb::kDxfText, name);
        filer->writeObjectId(AcDb::kDxfHardPointerId, reference);
        return filer->filerStatus();
    }

    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override
    {
        Acad::ErrorStatus status = AcDbEntity::dxfInFields(filer);
        if (status != Acad::eOk || !filer->atSubclassData(L"TestPipe")) return filer->filerStatus();
        resbuf item;
        while (status == Acad::eOk && (status = filer->readResBuf(&item)) == Acad::eOk) {
            switch (item.restype) {
            case AcDb::kDxfXCoord: start = asPnt3d(item.resval.rpoint); break;
            case 11: end = asPnt3d(item.resval.rpoint); break;
            case AcDb::kDxfReal: radius = item.resval.rreal; break;
            case AcDb::kDxfText: name = item.resval.rstring; break;
            case AcDb::kDxfHardPointerId: acdbGetObjectId(reference, item.resval.rlname); break;
            default:
                filer->pushBackItem();
                status = Acad::eEndOfFile;
            }
        }
        return status == Acad::eEndOfFile ? filer->filerStatus() : Acad::eInvalidResBuf;
    }
};

/// Adds to a class of the host, and has no section to read beyond its mark.
class TestMarkedLine : public AcDbLine
{
public:
    ACRX_DECLARE_MEMBERS(TestMarkedLine);
    Adesk::Int32 mark = 0;

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override
    {
        AcDbLine::dwgOutFields(filer);
        return filer->writeInt32(mark);
    }
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override
    {
        AcDbLine::dwgInFields(filer);
        return filer->readInt32(&mark);
    }
};

ACRX_DXF_DEFINE_MEMBERS(TestPipe, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, AcDbProxyEntity::kNoOperation,
                        TESTPIPE, PipeTests)
ACRX_DXF_DEFINE_MEMBERS(TestMarkedLine, AcDbLine, , , 0, TESTMARKEDLINE, PipeTests)

class Filer : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        TestPipe::rxInit();
        TestMarkedLine::rxInit();
    }
    void TearDown() override
    {
        forget(TestPipe::gpDesc);
        forget(TestMarkedLine::gpDesc);
        DatabaseFixture::TearDown();
    }
    static void forget(AcRxClass*& aClass)
    {
        deleteAcRxClass(aClass);
        aClass = nullptr;
    }

    static void fill(TestPipe& pipe, AcDbObjectId reference)
    {
        pipe.start.set(1, 2, 3);
        pipe.end.set(4, 5, 6);
        pipe.radius = 0.1;
        pipe.name = L"管道";
        pipe.reference = reference;
        pipe.setColorIndex(3);
    }
    static void expectFilled(const TestPipe& pipe, AcDbObjectId reference)
    {
        EXPECT_EQ(pipe.start, AcGePoint3d(1, 2, 3));
        EXPECT_EQ(pipe.end, AcGePoint3d(4, 5, 6));
        EXPECT_EQ(pipe.radius, 0.1);
        EXPECT_STREQ(pipe.name, L"管道");
        EXPECT_EQ(pipe.reference, reference);
        EXPECT_EQ(pipe.colorIndex(), 3);
    }

    template <class T>
    static AcDbObjectId add(AcDbDatabase& drawing, T* entity)
    {
        const AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, &drawing, AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    }
    /// The one entity of model space.
    static AcDbObjectId onlyEntity(const AcDbDatabase& drawing)
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.modelSpaceId());
        EXPECT_EQ(space->entityIds().size(), 1u);
        return space->entityIds().front();
    }
};
} // namespace

TEST_F(Filer, RecordHoldsWhatTheClassWrites)
{
    TestPipe pipe, read;
    fill(pipe, mDatabase.layerZero());
    const PackedGroups groups = written(pipe);
    ListSource source(groups, &mDatabase);
    dxfRead(read, source);
    expectFilled(read, mDatabase.layerZero());
    EXPECT_EQ(source.reports, 0);
    EXPECT_EQ(textOf(written(read)), textOf(groups));
}

TEST_F(Filer, WhatTheClassLeavesOfItsSectionIsDroppedAndOtherSectionsAreKept)
{
    const PackedGroups groups = groupsOf({{100, "AcDbEntity"}, {8, "0"}, {100, "TestPipe"}, {40, 2.0}, {62, 7.0},
                                          {41, 5.0}, {100, "Later"}, {70, 3.0}});
    TestPipe pipe;
    ListSource source(groups, &mDatabase);
    dxfRead(pipe, source);
    EXPECT_EQ(pipe.radius, 2.0);
    const std::string again = textOf(written(pipe));
    EXPECT_EQ(again.find("41 5"), std::string::npos);
    EXPECT_NE(again.find("100 Later\n70 3\n"), std::string::npos) << again;
    // A second time nothing has become more.
    TestPipe second;
    const PackedGroups twice = written(pipe);
    ListSource secondSource(twice, &mDatabase);
    dxfRead(second, secondSource);
    EXPECT_EQ(textOf(written(second)), again);
}

TEST_F(Filer, NumbersThatAreNoneAreRefused)
{
    TestPipe pipe;
    pipe.radius = std::nan("");
    EXPECT_EQ(textOf(written(pipe)).find("nan"), std::string::npos);
}

TEST_F(Filer, CopiesHoldWhatTheClassWritesAlsoBelowClassesOfTheHost)
{
    TestPipe pipe;
    fill(pipe, mDatabase.layerZero());
    const std::unique_ptr<AcRxObject> copy(pipe.clone());
    ASSERT_NE(TestPipe::cast(copy.get()), nullptr);
    expectFilled(*TestPipe::cast(copy.get()), mDatabase.layerZero());

    TestMarkedLine line;
    line.setEndPoint({7, 8, 9});
    line.mark = 42;
    const std::unique_ptr<AcRxObject> other(line.clone());
    ASSERT_NE(TestMarkedLine::cast(other.get()), nullptr);
    EXPECT_EQ(TestMarkedLine::cast(other.get())->mark, 42);
    EXPECT_EQ(TestMarkedLine::cast(other.get())->endPoint(), AcGePoint3d(7, 8, 9));
}

TEST_F(Filer, CancelPutsBackWhatTheClassFiles)
{
    auto* pipe = new TestPipe;
    fill(*pipe, mDatabase.layerZero());
    const AcDbObjectId id = add(mDatabase, pipe);
    auto* opened = static_cast<TestPipe*>(open(id, AcDb::kForWrite));
    EXPECT_EQ(opened->setRadius(99.0), Acad::eOk);
    opened->setColorIndex(1);
    opened->cancel();
    expectFilled(*pipe, mDatabase.layerZero());
}

TEST_F(Filer, ListsChangeOneGroupAndLeaveTheOthers)
{
    auto* pipe = new TestPipe;
    fill(*pipe, mDatabase.layerZero());
    const AcDbObjectId id = add(mDatabase, pipe);
    ads_name name;
    acdbGetAdsName(name, id);
    resbuf* list = acdbEntGet(name);
    for (resbuf* at = list; at; at = at->rbnext) {
        if (at->restype == 40) at->resval.rreal = 0.75;
    }
    EXPECT_EQ(acdbEntMod(list), RTNORM);
    acutRelRb(list);
    EXPECT_EQ(pipe->radius, 0.75);
    pipe->radius = 0.1;
    expectFilled(*pipe, mDatabase.layerZero());
}

TEST_F(Filer, FilesCarryObjectsPastProgramsWithoutTheClass)
{
    const dxftest::OutputFolder folder;
    const std::wstring saved = folder.file("with.dxf").wstring(), again = folder.file("without.dxf").wstring();
    auto* pipe = new TestPipe;
    fill(*pipe, mDatabase.layerZero());
    add(mDatabase, pipe);
    ASSERT_EQ(mDatabase.saveAs(saved.c_str()), Acad::eOk);
    dxftest::expectSound(folder.file("with.dxf"));
    {
        AcRxClass* const known = TestPipe::gpDesc;
        forget(TestPipe::gpDesc);
        EXPECT_NE(known, nullptr);
        AcDbDatabase without(false);
        ASSERT_EQ(without.readDwgFile(saved.c_str()), Acad::eOk);
        const AcDbObjectPointer<AcDbProxyEntity> proxy(onlyEntity(without));
        ASSERT_EQ(proxy.openStatus(), Acad::eOk);
        EXPECT_STREQ(proxy->originalClassName(), L"TestPipe");
        EXPECT_STREQ(proxy->applicationDescription(), L"PipeTests");
        ASSERT_EQ(without.saveAs(again.c_str()), Acad::eOk);
    }
    TestPipe::rxInit();
    AcDbDatabase with(false);
    ASSERT_EQ(with.readDwgFile(again.c_str()), Acad::eOk);
    const AcDbObjectPointer<TestPipe> read(onlyEntity(with));
    ASSERT_EQ(read.openStatus(), Acad::eOk);
    expectFilled(*read.object(), with.layerZero());
}
