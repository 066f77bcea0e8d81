#pragma once

/// Smart pointers: like those of dbobjptr.h, and they reach an object that is open already.

#include "dbobjptr.h"

namespace smartptr
{
/// The object of an id, which its caller knows to be open.
AcDbObject* openedObject(AcDbObjectId id);

#define ACDB_TABLE_ID(KIND, ID)                                                                              \
    inline AcDbObjectId idOf(const AcDbDatabase& database, const AcDb##KIND##Table*) { return database.ID(); }
ACDB_TABLE_ID(Block, blockTableId)
ACDB_TABLE_ID(DimStyle, dimStyleTableId)
ACDB_TABLE_ID(Layer, layerTableId)
ACDB_TABLE_ID(Linetype, linetypeTableId)
ACDB_TABLE_ID(RegApp, regAppTableId)
ACDB_TABLE_ID(TextStyle, textStyleTableId)
ACDB_TABLE_ID(UCS, UCSTableId)
ACDB_TABLE_ID(View, viewTableId)
ACDB_TABLE_ID(Viewport, viewportTableId)
#undef ACDB_TABLE_ID
} // namespace smartptr

/// Holds one object of class T, open as asked for.
///
/// An object that someone has open is shared: one that is open for read stays so, one open for write is used as it is, also for
/// reading. For writing, the one reader that stands in the way is raised to a writer for as long as the pointer lives
/// (eHadMultipleReaders when there are more); an object that is open for notify is borrowed from there. At the end each is left
/// as it was found. Erased objects are opened when asked for.
template <class T>
class AcDbSmartObjectPointer
{
public:
    AcDbSmartObjectPointer() = default;
    explicit AcDbSmartObjectPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false,
                                    bool openOnLockedLayer = false)
    {
        open(id, mode, openErased, openOnLockedLayer);
    }
    /// Takes over an object that is open, or new.
    explicit AcDbSmartObjectPointer(T* object) { acquire(object); }
    AcDbSmartObjectPointer(const AcDbSmartObjectPointer&) = delete;
    AcDbSmartObjectPointer& operator=(const AcDbSmartObjectPointer&) = delete;
    ~AcDbSmartObjectPointer() { close(); }

    /// eNullObjectPointer before anything was opened.
    Acad::ErrorStatus openStatus() const { return mStatus; }
    T* object() const { return mObject; }
    T* operator->() const { return mObject; }
    operator T*() const { return mObject; }

    /// Leaves what is held and opens another object. `openOnLockedLayer` is not supported: eOnLockedLayer.
    Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false,
                           bool = false)
    {
        close();
        mStatus = acdbOpenObject(mObject, id, mode, openErased);
        mLeave = Leave::close;
        if (mStatus == Acad::eWasOpenForWrite) shareWriter(id);
        if (mStatus == Acad::eWasOpenForNotify) borrowFromNotify(id, mode);
        if (mStatus == Acad::eWasOpenForRead && mode == AcDb::kForWrite) raiseReader(id);
        return mStatus;
    }
    /// Leaves what is held and takes over an object.
    Acad::ErrorStatus acquire(T*& object)
    {
        close();
        mObject = object;
        mLeave = Leave::close;
        object = nullptr;
        return mStatus = mObject ? Acad::eOk : Acad::eNullObjectPointer;
    }
    /// Gives the object up, open as it is.
    Acad::ErrorStatus release(T*& object)
    {
        object = mObject;
        mObject = nullptr;
        mStatus = Acad::eNullObjectPointer;
        return object ? Acad::eOk : Acad::eNullObjectPointer;
    }
    /// Leaves what is held and makes a new object.
    Acad::ErrorStatus create()
    {
        T* object = new T;
        return acquire(object);
    }
    /// Leaves the object before the end; eObjectToBeDeleted for a new one, which goes.
    Acad::ErrorStatus close()
    {
        T* const left = mObject;
        mObject = nullptr;
        mStatus = Acad::eNullObjectPointer;
        if (!left) return Acad::eNullObjectPointer;
        if (!left->database()) {
            delete left;
            return Acad::eObjectToBeDeleted;
        }
        switch (mLeave) {
        case Leave::close: return left->close();
        case Leave::toReader: return left->downgradeOpen();
        case Leave::toNotify: return left->downgradeToNotify(mWasWritable);
        default: return Acad::eOk;
        }
    }

protected:
    Acad::ErrorStatus mStatus = Acad::eNullObjectPointer;

private:
    /// How the object is to be left.
    enum class Leave { close, asItIs, toReader, toNotify };

    void take(AcDbObject* object, Leave leave)
    {
        mObject = T::cast(object);
        mStatus = mObject ? Acad::eOk : Acad::eNotThatKindOfClass;
        mLeave = leave;
    }
    void shareWriter(AcDbObjectId id) { take(smartptr::openedObject(id), Leave::asItIs); }
    void raiseReader(AcDbObjectId id)
    {
        AcDbObject* const object = smartptr::openedObject(id);
        if (!T::cast(object)) return take(object, Leave::asItIs);
        mStatus = object->upgradeOpen();
        if (mStatus == Acad::eOk) take(object, Leave::toReader);
    }
    void borrowFromNotify(AcDbObjectId id, AcDb::OpenMode mode)
    {
        AcDbObject* const object = smartptr::openedObject(id);
        if (mode != AcDb::kForWrite || !T::cast(object)) return take(object, Leave::asItIs);
        mStatus = object->upgradeFromNotify(mWasWritable);
        if (mStatus == Acad::eOk) take(object, Leave::toNotify);
    }

    T* mObject = nullptr;
    Leave mLeave = Leave::close;
    bool mWasWritable = false;
};

using AcDbSmartEntityPointer = AcDbSmartObjectPointer<AcDbEntity>;

/// A record that may also be opened by its name: the statuses of the table's getAt.
template <class Record>
class AcDbSmartSymbolTableRecordPointer : public AcDbSmartObjectPointer<Record>
{
public:
    using AcDbSmartObjectPointer<Record>::AcDbSmartObjectPointer;
    using AcDbSmartObjectPointer<Record>::open;
    AcDbSmartSymbolTableRecordPointer() = default;
    AcDbSmartSymbolTableRecordPointer(const ACHAR* name, AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead)
    {
        open(name, database, mode);
    }

    Acad::ErrorStatus open(const ACHAR* name, AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead)
    {
        using Table = typename AcDbTableOfRecord<Record>::Table;
        if (!database) return this->mStatus = Acad::eNoDatabase;
        const AcDbSmartObjectPointer<Table> table(smartptr::idOf(*database, static_cast<const Table*>(nullptr)));
        AcDbObjectId id;
        this->close();
        this->mStatus = table.openStatus() == Acad::eOk ? table->getIdAt(name, id) : table.openStatus();
        return this->mStatus == Acad::eOk ? open(id, mode) : this->mStatus;
    }
};

using AcDbSmartBlockTableRecordPointer = AcDbSmartSymbolTableRecordPointer<AcDbBlockTableRecord>;
using AcDbSmartDimStyleTableRecordPointer = AcDbSmartSymbolTableRecordPointer<AcDbDimStyleTableRecord>;
using AcDbSmartLayerTableRecordPointer = AcDbSmartSymbolTableRecordPointer<AcDbLayerTableRecord>;
using AcDbSmartLinetypeTableRecordPointer = AcDbSmartSymbolTableRecordPointer<AcDbLinetypeTableRecord>;
using AcDbSmartTextStyleTableRecordPointer = AcDbSmartSymbolTableRecordPointer<AcDbTextStyleTableRecord>;
using AcDbSmartDictionaryPointer = AcDbSmartObjectPointer<AcDbDictionary>;
