/// Undo of calls, and what cancel() gives back.

#include "DatabaseFixture.h"

#include "dbdatabasereactor.h"
#include "dbents.h"
#include "dblayoutmanager.h"
#include "dbobjptr.h"
#include "dbxrecrd.h"

namespace
{
class Undo : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        mDatabase.disableUndoRecording(false);
    }
    AcDbObjectId add(AcDbEntity* entity)
    {
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbBlockTableRecord> space(mDatabase.modelSpaceId(), AcDb::kForWrite);
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    }
    AcDbObjectId addRecord(const wchar_t* name)
    {
        AcDbObjectId id;
        const AcDbDictionaryPointer root(mDatabase.namedObjectsDictionaryId(), AcDb::kForWrite);
        auto* record = new AcDbXrecord;
        EXPECT_EQ(root->setAt(name, record, id), Acad::eOk);
        record->close();
        return id;
    }
    std::vector<CString> namesInRoot()
    {
        std::vector<CString> names;
        const AcDbDictionaryPointer root(mDatabase.namedObjectsDictionaryId());
        const std::unique_ptr<AcDbDictionaryIterator> at(root->newIterator(AcDb::kDictCollated));
        for (; !at->done(); at->next())
            names.push_back(at->name());
        return names;
    }
    void setData(AcDbObject& object, double value)
    {
        resbuf* data = acutBuildList(1001, L"QM", 1040, value, RTNONE);
        EXPECT_EQ(object.setXData(data), Acad::eOk);
        acutRelRb(data);
    }
    double dataOf(AcDbObjectId id)
    {
        const AcDbObjectPointer<AcDbObject> object(id);
        resbuf* data = object->xData(L"QM");
        const double value = data ? data->rbnext->resval.rreal : 0.0;
        acutRelRb(data);
        return value;
    }
};

struct ObjectLog : AcDbObjectReactor {
    std::wstring told;
    void modifyUndone(const AcDbObject* object) override { told += object->isUndoing() ? L"m" : L"?"; }
    void erased(const AcDbObject*, bool erasing) override { told += erasing ? L"e" : L"b"; }
    void unappended(const AcDbObject*) override { told += L"u"; }
    void reappended(const AcDbObject*) override { told += L"r"; }
};
} // namespace

TEST(UndoOfSideDrawing, RecordsNothingUntilToldTo)
{
    AcDbDatabase database;
    EXPECT_FALSE(database.undoRecording());
    database.setLtscale(2.0);
    EXPECT_EQ(database.undo(), Acad::eUndoOperationNotAvailable);
    database.disableUndoRecording(false);
    EXPECT_TRUE(database.undoRecording());
    database.setLtscale(3.0);
    EXPECT_EQ(database.undo(), Acad::eOk);
    EXPECT_EQ(database.ltscale(), 2.0);
}

TEST_F(Undo, StepsComeBackOneByOne)
{
    const AcDbObjectId id = add(new AcDbLine({0, 0, 0}, {1, 0, 0}));
    for (const double x : {1.0, 2.0}) {
        mDatabase.startUndoRecord();
        const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
        line->setStartPoint({x, 0, 0});
        line->setColorIndex(3);
    }
    for (const double x : {1.0, 0.0}) {
        ASSERT_EQ(mDatabase.undo(), Acad::eOk);
        const AcDbObjectPointer<AcDbLine> line(id);
        EXPECT_EQ(line->startPoint().x, x);
        EXPECT_EQ(line->colorIndex(), x == 1.0 ? 3 : 256);
    }
    ASSERT_EQ(mDatabase.undo(), Acad::eOk);
    EXPECT_TRUE(id.isErased());
    EXPECT_EQ(mDatabase.undo(), Acad::eUndoOperationNotAvailable);
}

TEST_F(Undo, WhatIsDoneWhileRecordingIsOffStays)
{
    const AcDbObjectId id = add(new AcDbPoint);
    mDatabase.startUndoRecord();
    {
        const AcDbObjectPointer<AcDbPoint> point(id, AcDb::kForWrite);
        EXPECT_EQ(point->disableUndoRecording(true), Acad::eOk);
        point->setColorIndex(1);
    }
    mDatabase.setLtscale(4.0);
    mDatabase.disableUndoRecording(true);
    const AcDbObjectId unrecorded = add(new AcDbPoint);
    mDatabase.disableUndoRecording(false);
    ASSERT_EQ(mDatabase.undo(), Acad::eOk);
    EXPECT_EQ(mDatabase.ltscale(), 1.0);
    EXPECT_FALSE(unrecorded.isErased());
    EXPECT_EQ(AcDbObjectPointer<AcDbPoint>(id)->colorIndex(), 1);
}

TEST_F(Undo, ReactorsAreTold)
{
    struct DrawingLog : AcDbDatabaseReactor {
        std::wstring told;
        void objectUnAppended(const AcDbDatabase*, const AcDbObject*) override { told += L"u"; }
        void headerSysVarChanged(const AcDbDatabase*, const ACHAR* name, Adesk::Boolean) override { told += name; }
    } ofDrawing;
    static ObjectLog log; // outlives the drawing, in which the point stays
    const AcDbObjectId id = add(new AcDbPoint);
    mDatabase.startUndoRecord();
    {
        const AcDbObjectPointer<AcDbPoint> point(id, AcDb::kForWrite);
        point->addReactor(&log);
        point->setColorIndex(1);
        point->erase();
    }
    mDatabase.setLtscale(2.0);
    mDatabase.addReactor(&ofDrawing);
    log.told.clear();
    mDatabase.undo();
    EXPECT_EQ(log.told, L"mb");
    mDatabase.undo();
    EXPECT_EQ(log.told, L"mbu");
    EXPECT_EQ(ofDrawing.told, L"LTSCALEu");
    mDatabase.removeReactor(&ofDrawing);
    AcDbObject* point = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(point, id, AcDb::kForWrite, true), Acad::ePermanentlyErased);
}

TEST_F(Undo, CancelGivesBackWhatOthersAttached)
{
    addApplication(L"QM");
    const AcDbObjectId id = add(new AcDbPoint);
    AcDbObject* point = open(id, AcDb::kForWrite);
    setData(*point, 1.0);
    point->close();
    point = open(id, AcDb::kForWrite);
    setData(*point, 2.0);
    point->addPersistentReactor(mDatabase.layerZero());
    EXPECT_EQ(point->createExtensionDictionary(), Acad::eOk);
    point->setOwnerId(mDatabase.blockTableId());
    point->cancel();
    EXPECT_EQ(dataOf(id), 1.0);
    const AcDbObjectPointer<AcDbObject> now(id);
    EXPECT_FALSE(now->hasPersistentReactor(mDatabase.layerZero()));
    EXPECT_TRUE(now->extensionDictionary().isNull());
    EXPECT_EQ(now->ownerId(), mDatabase.modelSpaceId());
}

TEST_F(Undo, CancelGivesBackEntriesOfDictionaries)
{
    const AcDbObjectId a = addRecord(L"A"), b = addRecord(L"B");
    const std::vector<CString> before = namesInRoot();
    auto* root = static_cast<AcDbDictionary*>(open(mDatabase.namedObjectsDictionaryId(), AcDb::kForWrite));
    root->remove(a);
    root->setName(L"B", L"C");
    root->cancel();
    EXPECT_EQ(namesInRoot(), before);
    EXPECT_TRUE(AcDbDictionaryPointer(mDatabase.namedObjectsDictionaryId())->has(b));
}

TEST_F(Undo, CancelOfAnErasureBringsVerticesBack)
{
    AcGePoint3dArray places;
    places.append({0, 0, 0});
    places.append({1, 0, 0});
    const AcDbObjectId id = add(new AcDb3dPolyline(AcDb::k3dSimplePoly, places));
    AcDbObject* polyline = open(id, AcDb::kForWrite);
    polyline->erase();
    polyline->cancel();
    const AcDbObjectPointer<AcDb3dPolyline> now(id);
    double end = 0.0;
    EXPECT_EQ(now->getEndParam(end), Acad::eOk);
    EXPECT_EQ(end, 1.0);
}

TEST_F(Undo, EntriesOfDictionariesKeepTheirPlaces)
{
    for (const wchar_t* name : {L"A", L"B", L"C"})
        addRecord(name);
    const std::vector<CString> before = namesInRoot();
    mDatabase.startUndoRecord();
    {
        const AcDbDictionaryPointer root(mDatabase.namedObjectsDictionaryId(), AcDb::kForWrite);
        root->remove(L"B");
        root->remove(L"A");
        root->setName(L"C", L"D");
    }
    addRecord(L"A");
    mDatabase.undo();
    EXPECT_EQ(namesInRoot(), before);
}

TEST_F(Undo, RecordsAreFoundUnderTheirOldNames)
{
    mDatabase.startUndoRecord();
    {
        const AcDbLayerTablePointer layers(&mDatabase, AcDb::kForWrite);
        auto* layer = new AcDbLayerTableRecord;
        layer->setName(L"ONE");
        layers->add(layer);
        layer->close();
    }
    mDatabase.startUndoRecord();
    AcDbLayerTableRecordPointer(L"ONE", &mDatabase, AcDb::kForWrite)->setName(L"TWO");
    mDatabase.undo();
    const AcDbLayerTablePointer layers(&mDatabase);
    EXPECT_TRUE(layers->has(L"ONE"));
    EXPECT_FALSE(layers->has(L"TWO"));
    mDatabase.undo();
    EXPECT_FALSE(layers->has(L"ONE"));
}

TEST_F(Undo, StateOfOneOpeningIsThatBeforeItsFirstChange)
{
    const AcDbObjectId id = add(new AcDbPoint({1, 0, 0}));
    mDatabase.startUndoRecord();
    AcDbPoint* point = static_cast<AcDbPoint*>(open(id, AcDb::kForWrite));
    point->setPosition({2, 0, 0});
    ASSERT_EQ(point->downgradeOpen(), Acad::eOk);
    ASSERT_EQ(point->upgradeOpen(), Acad::eOk);
    point->setPosition({3, 0, 0});
    point->cancel();
    EXPECT_EQ(AcDbObjectPointer<AcDbPoint>(id)->position().x, 2.0);
    mDatabase.undo();
    EXPECT_EQ(AcDbObjectPointer<AcDbPoint>(id)->position().x, 1.0);
}
