#include "dbdict.h"

#include "DatabaseFixture.h"
#include "RecordLists.h"
#include "dbdictdflt.h"
#include "dbplhldr.h"

#include <memory>

namespace
{
class Dictionary : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        ASSERT_EQ(mDatabase.getGroupDictionary(mDictionary, AcDb::kForWrite), Acad::eOk);
    }
    void TearDown() override
    {
        mDictionary->close();
        DatabaseFixture::TearDown();
    }

    AcDbObjectId put(AcDbDictionary& dictionary, const wchar_t* name)
    {
        AcDbObjectId id;
        auto* object = new AcDbPlaceHolder;
        EXPECT_EQ(dictionary.setAt(name, object, id), Acad::eOk);
        EXPECT_EQ(object->close(), Acad::eOk);
        return id;
    }
    AcDbObjectId put(const wchar_t* name) { return put(*mDictionary, name); }

    void erase(AcDbObjectId id, bool erasing = true)
    {
        AcDbObject* object = open(id, AcDb::kForWrite, true);
        EXPECT_EQ(object->erase(erasing), Acad::eOk);
        object->close();
    }

    std::wstring names(AcDb::DictIterType order)
    {
        std::wstring all;
        const std::unique_ptr<AcDbDictionaryIterator> walk(mDictionary->newIterator(order));
        for (; !walk->done(); walk->next()) all += std::wstring(walk->name()) + L" ";
        return all;
    }

    AcDbDictionary* mDictionary = nullptr;
};
} // namespace

TEST_F(Dictionary, FindsNamesWithoutCaseAndKeepsThemAsGiven)
{
    const AcDbObjectId id = put(L"Axis_轴");
    AcDbObjectId found;
    EXPECT_EQ(mDictionary->getAt(L"AXIS_轴", found), Acad::eOk);
    EXPECT_EQ(found, id);
    CString name;
    EXPECT_EQ(mDictionary->nameAt(id, name), Acad::eOk);
    EXPECT_STREQ(name, L"Axis_轴");
    EXPECT_EQ(mDictionary->getAt(L"absent", found), Acad::eKeyNotFound);
    EXPECT_TRUE(found.isNull());
    EXPECT_EQ(mDictionary->getAt(nullptr, found), Acad::eKeyNotFound);
}

TEST_F(Dictionary, EntriesWithoutANameGetTheFirstFreeOne)
{
    put(L"*a2");
    const AcDbObjectId first = put(L"*"), third = put(L"*");
    EXPECT_EQ(names(AcDb::kDictCollated), L"*a2 *A1 *A3 ");
    EXPECT_FALSE(first.isErased() || third.isErased());
}

TEST_F(Dictionary, OwnsWhatIsPutIntoIt)
{
    const AcDbObjectId id = put(L"A");
    AcDbObject* object = open(id, AcDb::kForRead);
    EXPECT_EQ(object->ownerId(), mDictionary->objectId());
    EXPECT_TRUE(object->hasPersistentReactor(mDictionary->objectId()));
    object->close();
}

TEST_F(Dictionary, RefusesWhatItCannotHold)
{
    AcDbObjectId id;
    AcDbPlaceHolder object;
    EXPECT_EQ(mDictionary->setAt(L"", &object, id), Acad::eInvalidKey);
    EXPECT_EQ(mDictionary->setAt(L"A", nullptr, id), Acad::eNullObjectPointer);
    AcDbDictionary homeless;
    EXPECT_EQ(homeless.setAt(L"A", &object, id), Acad::eNotInDatabase);
    mDictionary->downgradeOpen();
    EXPECT_EQ(mDictionary->setAt(L"A", &object, id), Acad::eNotOpenForWrite);
    EXPECT_EQ(object.database(), nullptr);
    EXPECT_EQ(mDictionary->numEntries(), 0u);
}

TEST_F(Dictionary, NewObjectTakesThePlaceOfTheOldOneOfItsName)
{
    const AcDbObjectId first = put(L"A");
    put(L"B");
    const AcDbObjectId second = put(L"a");
    EXPECT_TRUE(first.isErased());
    EXPECT_EQ(mDictionary->numEntries(), 2u);
    EXPECT_EQ(names(AcDb::kDictCollated), L"a B ");
    AcDbObjectId found;
    EXPECT_EQ(mDictionary->getAt(L"A", found), Acad::eOk);
    EXPECT_EQ(found, second);

    AcDbObject* same = open(second, AcDb::kForWrite);
    EXPECT_EQ(mDictionary->setAt(L"a", same, found), Acad::eOk);
    EXPECT_FALSE(second.isErased());
    EXPECT_EQ(mDictionary->numEntries(), 2u);
    same->close();
}

TEST_F(Dictionary, AnObjectInUseIsNotReplaced)
{
    const AcDbObjectId id = put(L"A");
    AcDbObject* reader = open(id, AcDb::kForRead);
    AcDbPlaceHolder object;
    AcDbObjectId other;
    EXPECT_EQ(mDictionary->setAt(L"A", &object, other), Acad::eWasOpenForRead);
    EXPECT_EQ(object.database(), nullptr);
    reader->close();
    EXPECT_EQ(mDictionary->getAt(L"A", other), Acad::eOk);
    EXPECT_EQ(other, id);
}

TEST_F(Dictionary, ErasedEntriesAreAbsentUntilTheyAreBack)
{
    const AcDbObjectId id = put(L"A");
    put(L"B");
    erase(id);
    EXPECT_FALSE(mDictionary->has(L"A"));
    EXPECT_FALSE(mDictionary->has(id));
    EXPECT_EQ(mDictionary->numEntries(), 1u);
    EXPECT_EQ(names(AcDb::kDictSorted), L"B ");
    erase(id, false);
    EXPECT_TRUE(mDictionary->has(L"A"));
}

TEST_F(Dictionary, WalksByNameOrInOrderOfAddition)
{
    for (const wchar_t* name : {L"c", L"A", L"b"}) put(name);
    EXPECT_EQ(names(AcDb::kDictSorted), L"A b c ");
    EXPECT_EQ(names(AcDb::kDictCollated), L"c A b ");
    const std::unique_ptr<AcDbDictionaryIterator> walk(mDictionary->newIterator());
    AcDbObjectId b;
    mDictionary->getAt(L"b", b);
    EXPECT_TRUE(walk->setPosition(b));
    EXPECT_TRUE(walk->next());
    EXPECT_STREQ(walk->name(), L"c");
    EXPECT_FALSE(walk->next());
    EXPECT_EQ(walk->name(), nullptr);
    EXPECT_FALSE(walk->setPosition(mDictionary->objectId()));
}

TEST_F(Dictionary, RemovesAndRenames)
{
    const AcDbObjectId id = put(L"A");
    put(L"B");
    EXPECT_FALSE(mDictionary->setName(L"A", L"b"));
    EXPECT_FALSE(mDictionary->setName(L"absent", L"c"));
    EXPECT_TRUE(mDictionary->setName(L"a", L"C"));
    EXPECT_EQ(names(AcDb::kDictCollated), L"C B ");
    EXPECT_FALSE(mDictionary->has(L"A"));
    EXPECT_EQ(mDictionary->remove(L"A"), Acad::eKeyNotFound);
    EXPECT_EQ(mDictionary->remove(L"c"), Acad::eOk);
    EXPECT_FALSE(id.isErased());
    EXPECT_EQ(mDictionary->remove(id), Acad::eKeyNotFound);
}

TEST_F(Dictionary, RecordsComeBackAsTheyWereRead)
{
    const PackedGroups groups = groupsOf({{100, "AcDbDictionary"}, {280, 1.0}, {281, 1.0}, {3, "Z"}, {360, 501.0},
                                          {3, "名"}, {350, 502.0}, {3, "A"}, {360, 503.0}});
    AcDbDictionary dictionary;
    EXPECT_EQ(rewritten(dictionary, groups, &mDatabase), textOf(groups));
    EXPECT_TRUE(dictionary.isTreatElementsAsHard());
    EXPECT_EQ(dictionary.numEntries(), 3u);
}

TEST_F(Dictionary, DefaultStandsInForAbsentNames)
{
    AcDbDictionaryWithDefault* names = nullptr;
    ASSERT_EQ(mDatabase.getPlotStyleNameDictionary(names), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(names->getAt(L"absent", id), Acad::eOk);
    EXPECT_EQ(id, names->defaultId());
    CString name;
    EXPECT_EQ(names->nameAt(id, name), Acad::eOk);
    EXPECT_STREQ(name, L"Normal");
    EXPECT_FALSE(names->has(L"absent"));
    names->close();
}

TEST_F(Dictionary, NamedObjectsHoldTheSystemsOwn)
{
    AcDbDictionary* root = nullptr;
    ASSERT_EQ(mDatabase.getNamedObjectsDictionary(root), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(root->getAt(L"ACAD_GROUP", id), Acad::eOk);
    EXPECT_EQ(id, mDictionary->objectId());
    EXPECT_EQ(id, mDatabase.groupDictionaryId());
    root->close();
}

TEST_F(Dictionary, ExtensionDictionaryFollowsItsOwner)
{
    const AcDbObjectId id = put(L"A");
    AcDbObject* object = open(id, AcDb::kForWrite);
    EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eKeyNotFound);
    ASSERT_EQ(object->createExtensionDictionary(), Acad::eOk);
    EXPECT_EQ(object->createExtensionDictionary(), Acad::eAlreadyInDb);
    AcDbDictionary* extension = nullptr;
    ASSERT_EQ(acdbOpenObject(extension, object->extensionDictionary(), AcDb::kForWrite), Acad::eOk);
    const AcDbObjectId early = put(*extension, L"EARLY");
    const AcDbObjectId entry = put(*extension, L"QM");
    extension->close();
    erase(early);
    EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eContainerNotEmpty);

    EXPECT_EQ(object->erase(), Acad::eOk);
    EXPECT_TRUE(object->extensionDictionary().isErased());
    EXPECT_TRUE(entry.isErased());
    EXPECT_EQ(object->erase(false), Acad::eOk);
    EXPECT_FALSE(entry.isErased());
    EXPECT_TRUE(early.isErased());

    erase(entry);
    EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eOk);
    EXPECT_TRUE(object->extensionDictionary().isNull());
    object->close();
    AcDbPlaceHolder homeless;
    EXPECT_EQ(homeless.createExtensionDictionary(), Acad::eNotInDatabase);
}

TEST_F(Dictionary, CancelledErasureBringsBackWhatFollowed)
{
    const AcDbObjectId id = put(L"A");
    AcDbObject* object = open(id, AcDb::kForWrite);
    object->createExtensionDictionary();
    object->close();
    object = open(id, AcDb::kForWrite);
    const AcDbObjectId extension = object->extensionDictionary();
    object->erase();
    EXPECT_TRUE(extension.isErased());
    object->cancel();
    EXPECT_FALSE(id.isErased());
    EXPECT_FALSE(extension.isErased());
}
