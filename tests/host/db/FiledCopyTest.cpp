/// Objects of a module's classes that are copied, undone and put back: what their filing says comes along.

#include "../dxf/SavedDrawing.h"

#include "CopyFixture.h"
#include "FiledClasses.h"
#include "actrans.h"

namespace
{
class FiledCopy : public CopyFixture
{
protected:
    void SetUp() override
    {
        CopyFixture::SetUp();
        mSeries = addLayer(mSource, L"series", 2);
        mLine = addLine(mFrom);
        mValve = addValve(mFrom, {1, 2, 3}, mSeries, mLine);
    }

    /// The tag that a copy owns names it, and is not that of the original.
    void expectOwnTag(const TestValve& copy)
    {
        const AcDbObjectPointer<TestTag> tag(copy.tag);
        ASSERT_EQ(tag.openStatus(), Acad::eOk);
        EXPECT_STREQ(tag->text, L"阀门");
        EXPECT_EQ(tag->valve, copy.objectId());
        EXPECT_EQ(tag->ownerId(), copy.objectId());
        EXPECT_EQ(tag->database(), copy.database());
    }
    void expectTag(AcDbObjectId id, const wchar_t* text)
    {
        const AcDbObjectPointer<TestTag> tag(id);
        ASSERT_EQ(tag.openStatus(), Acad::eOk);
        EXPECT_STREQ(tag->text, text);
    }
    void moveValve(const AcGePoint3d& to)
    {
        const AcDbObjectPointer<TestValve> valve(mValve, AcDb::kForWrite);
        EXPECT_EQ(valve->setAt(to), Acad::eOk);
        valve->setColorIndex(5);
    }
    void expectValveAt(const AcGePoint3d& place, int color)
    {
        const AcDbObjectPointer<TestValve> valve(mValve);
        ASSERT_EQ(valve.openStatus(), Acad::eOk);
        EXPECT_EQ(valve->at, place);
        EXPECT_EQ(valve->colorIndex(), color);
        EXPECT_EQ(valve->series, mSeries);
    }

    FiledClasses mClasses;
    std::unique_ptr<AcDbDatabase> mOutput;
    AcDbObjectId mSeries, mLine, mValve;
};
} // namespace

TEST_F(FiledCopy, InItsDrawingPointsWhereTheOriginalDoesAndOwnsCopies)
{
    AcDbIdMapping map;
    AcDbObjectId owner = mFrom;
    ASSERT_EQ(mSource.deepCloneObjects(listOf({mValve}), owner, map), Acad::eOk);
    EXPECT_EQ(TestValve::lastFiler, AcDb::kDeepCloneFiler);
    const AcDbObjectPointer<TestValve> original(mValve), copy(pairOf(map, mValve).value());
    ASSERT_EQ(copy.openStatus(), Acad::eOk);
    EXPECT_EQ(copy->at, AcGePoint3d(1, 2, 3));
    EXPECT_EQ(copy->series, mSeries);
    EXPECT_EQ(copy->next, mLine);
    EXPECT_NE(copy->tag, original->tag);
    EXPECT_NE(copy->spare, original->spare);
    expectOwnTag(*copy);
}

TEST_F(FiledCopy, InAnotherDrawingBringsWhatItCannotBeWithoutAndItsCompany)
{
    const AcDbObjectId lonely = addValve(mFrom, {4, 5, 6}, mSeries, mLine);
    {
        const AcDbObjectPointer<TestValve> valve(lonely, AcDb::kForWrite);
        valve->next = mValve;
        EXPECT_EQ(valve->createExtensionDictionary(), Acad::eOk);
    }
    AcDbIdMapping map;
    ASSERT_EQ(copy({mValve, lonely}, mTo, map), Acad::eOk);
    EXPECT_EQ(TestValve::lastFiler, AcDb::kWblockCloneFiler);
    const AcDbObjectPointer<TestValve> first(pairOf(map, mValve).value()), second(pairOf(map, lonely).value());
    ASSERT_EQ(first.openStatus(), Acad::eOk);
    EXPECT_EQ(first->at, AcGePoint3d(1, 2, 3));
    EXPECT_EQ(nameOf(first->series), L"series");
    EXPECT_EQ(first->series.database(), &mDatabase);
    EXPECT_TRUE(first->next.isNull()) << "the line was not copied";
    EXPECT_TRUE(first->spare.isNull()) << "held softly";
    EXPECT_EQ(second->next, first->objectId());
    EXPECT_FALSE(second->extensionDictionary().isNull());
    EXPECT_NE(second->extensionDictionary(), first->extensionDictionary());
    expectOwnTag(*first);
}

TEST_F(FiledCopy, InsertedAndExtractedDrawingsHoldItWhole)
{
    AcGeMatrix3d move;
    move.setToTranslation({10, 0, 0});
    ASSERT_EQ(mDatabase.insert(move, &mSource), Acad::eOk);
    AcDbDatabase* output = nullptr;
    ASSERT_EQ(mDatabase.wblock(output), Acad::eOk);
    mOutput.reset(output);
    const dxftest::OutputFolder folder;
    const std::wstring file = folder.file("valves.dxf").wstring();
    ASSERT_EQ(output->saveAs(file.c_str()), Acad::eOk);
    dxftest::expectSound(folder.file("valves.dxf"));
    AcDbDatabase reopened(false);
    ASSERT_EQ(reopened.readDwgFile(file.c_str()), Acad::eOk);
    for (const AcDbObjectId space : {mTo, output->modelSpaceId(), reopened.modelSpaceId()}) {
        const std::vector<AcDbObjectId> contents = contentsOf(space);
        ASSERT_EQ(contents.size(), 2u);
        const AcDbObjectPointer<TestValve> valve(contents[1]);
        ASSERT_EQ(valve.openStatus(), Acad::eOk);
        EXPECT_EQ(valve->at, AcGePoint3d(11, 2, 3));
        EXPECT_EQ(valve->next, contents[0]);
        EXPECT_EQ(nameOf(valve->series), L"series");
        expectOwnTag(*valve);
    }
}

TEST_F(FiledCopy, EntryOfADictionaryIsTakenKeptOrReplaced)
{
    AcDbObjectId ids[2];
    for (AcDbDatabase* drawing : {&mSource, &mDatabase}) {
        const AcDbDictionaryPointer root(drawing->namedObjectsDictionaryId(), AcDb::kForWrite);
        auto* tag = new TestTag;
        tag->text = drawing == &mSource ? L"new" : L"old";
        ASSERT_EQ(root->setAt(L"TAG", tag, ids[drawing == &mDatabase]), Acad::eOk);
        tag->close();
    }
    for (const bool replaces : {false, true}) {
        AcDbIdMapping map;
        ASSERT_EQ(copy({ids[0]}, mDatabase.namedObjectsDictionaryId(), map,
                       replaces ? AcDb::kDrcReplace : AcDb::kDrcIgnore),
                  Acad::eOk);
        EXPECT_EQ(pairOf(map, ids[0]).value(), ids[1]);
        expectTag(ids[1], replaces ? L"new" : L"old");
    }
}

TEST_F(FiledCopy, ThatItsClassRefusesLeavesEverythingAsItWas)
{
    TestValve::copying = TestValve::Copying::refused;
    AcDbIdMapping map;
    EXPECT_EQ(copy({mLine, mValve}, mTo, map), Acad::eNotApplicable);
    EXPECT_TRUE(contentsOf(mTo).empty());
    EXPECT_TRUE(find<AcDbLayerTableRecord>(mDatabase, L"series").isNull());
}

TEST_F(FiledCopy, ClassAddsToItsCopiesOrLeavesThemOut)
{
    AcDbObjectId owner = mFrom;
    for (const bool isLeftOut : {false, true}) {
        TestValve::copying = isLeftOut ? TestValve::Copying::leftOut : TestValve::Copying::painted;
        const std::size_t before = contentsOf(mFrom).size();
        AcDbIdMapping map;
        ASSERT_EQ(mSource.deepCloneObjects(listOf({mLine, mValve}), owner, map), Acad::eOk);
        EXPECT_EQ(contentsOf(mFrom).size(), before + (isLeftOut ? 1 : 2));
        const AcDbObjectPointer<TestValve> copy(pairOf(map, mValve).value());
        ASSERT_EQ(copy.openStatus(), isLeftOut ? Acad::eNullObjectId : Acad::eOk);
        if (!isLeftOut) {
            EXPECT_EQ(copy->colorIndex(), 6);
        }
    }
    // Nobody copies now.
    AcDbObject* copy = nullptr;
    AcDbIdMapping map;
    TestValve::copying = TestValve::Copying::asFiled;
    EXPECT_EQ(AcDbObjectPointer<TestValve>(mValve)->subDeepClone(nullptr, copy, map, true), Acad::eInvalidContext);
    EXPECT_EQ(copy, nullptr);
}

TEST_F(FiledCopy, UndoAndRedoPutBackWhatIsFiledWhileNobodyHasItOpen)
{
    mSource.disableUndoRecording(false);
    moveValve({7, 8, 9});
    mSource.startUndoRecord();
    {
        const AcDbObjectPointer<TestValve> valve(mValve, AcDb::kForWrite);
        const AcDbObjectPointer<TestTag> tag(valve->tag, AcDb::kForWrite);
        EXPECT_EQ(tag->setText(L"changed"), Acad::eOk);
        EXPECT_EQ(valve->erase(), Acad::eOk);
    }
    ASSERT_EQ(mSource.undo(), Acad::eOk);
    expectValveAt({7, 8, 9}, 5);
    expectOwnTag(*AcDbObjectPointer<TestValve>(mValve));
    ASSERT_EQ(mSource.undo(), Acad::eOk);
    expectValveAt({1, 2, 3}, 256);
    EXPECT_EQ(TestValve::lastFiler, AcDb::kUndoFiler);
}

TEST_F(FiledCopy, AbortedTransactionPutsBackWhatIsFiled)
{
    AcDbTransactionManager& manager = *mSource.transactionManager();
    for (const bool erases : {false, true}) {
        manager.startTransaction();
        AcDbObject* object = nullptr;
        ASSERT_EQ(manager.getObject(object, mValve, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(TestValve::cast(object)->setAt({0, 0, 9}), Acad::eOk);
        AcDbEntity::cast(object)->setColorIndex(5);
        EXPECT_EQ(erases ? object->erase() : Acad::eOk, Acad::eOk);
        EXPECT_EQ(manager.abortTransaction(), Acad::eOk);
        expectValveAt({1, 2, 3}, 256);
    }
}
