#pragma once

/// Guards that open objects and close them again, on every path.

#include "dbblock.h"
#include "dbdatabase.h"
#include "dbdict.h"
#include "dbentity.h"
#include "dbobject.h"
#include "dbsymtb.h"

/// Holds one object of class T: open when it belongs to a drawing, deleted at the end when it does not.
///
/// An object that its maker added to a drawing while it was held is closed like any other.
template <class T>
class AcDbObjectPointer
{
public:
    AcDbObjectPointer() = default;
    /// Opens an object; openStatus() tells how that went. eNotThatKindOfClass for an object of another class.
    explicit AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false)
    {
        open(id, mode, openErased);
    }
    /// Takes over an object that is open, or new.
    explicit AcDbObjectPointer(T* object) { acquire(object); }
    AcDbObjectPointer(const AcDbObjectPointer&) = delete;
    AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;
    ~AcDbObjectPointer() { drop(); }

    /// eNullObjectPointer before anything was opened.
    Acad::ErrorStatus openStatus() const { return mStatus; }
    T* object() const { return mObject; }
    T* operator->() const { return mObject; }
    operator T*() const { return mObject; }

    /// Drops what is held and opens another object.
    Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false)
    {
        drop();
        return mStatus = acdbOpenObject(mObject, id, mode, openErased);
    }
    /// Drops what is held and takes over an object.
    Acad::ErrorStatus acquire(T*& object)
    {
        drop();
        mObject = object;
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
    /// Drops what is held and makes a new object.
    Acad::ErrorStatus create()
    {
        T* object = new T;
        return acquire(object);
    }
    /// Closes before the end; the status of close(), eObjectToBeDeleted for a new object, which goes.
    Acad::ErrorStatus close()
    {
        if (!mObject) return Acad::eNullObjectPointer;
        const bool isNew = !mObject->database();
        const Acad::ErrorStatus status = isNew ? Acad::eObjectToBeDeleted : mObject->close();
        if (isNew) delete mObject;
        mObject = nullptr;
        mStatus = Acad::eNullObjectPointer;
        return status;
    }

protected:
    void drop() { close(); }

    T* mObject = nullptr;
    Acad::ErrorStatus mStatus = Acad::eNullObjectPointer;
};

using AcDbEntityPointer = AcDbObjectPointer<AcDbEntity>;

/// What tells the table of a class of records.
template <class Record>
struct AcDbTableOfRecord;

#define ACDB_TABLE_OF_RECORD(KIND)                                                                           \
    template <>                                                                                              \
    struct AcDbTableOfRecord<AcDb##KIND##TableRecord> {                                                      \
        using Table = AcDb##KIND##Table;                                                                     \
    };
ACDB_TABLE_OF_RECORD(Block)
ACDB_TABLE_OF_RECORD(DimStyle)
ACDB_TABLE_OF_RECORD(Layer)
ACDB_TABLE_OF_RECORD(Linetype)
ACDB_TABLE_OF_RECORD(RegApp)
ACDB_TABLE_OF_RECORD(TextStyle)
ACDB_TABLE_OF_RECORD(UCS)
ACDB_TABLE_OF_RECORD(View)
ACDB_TABLE_OF_RECORD(Viewport)
#undef ACDB_TABLE_OF_RECORD

/// A record that may also be opened by its name: the statuses of the table's getAt.
template <class Record>
class AcDbSymbolTableRecordPointer : public AcDbObjectPointer<Record>
{
public:
    using AcDbObjectPointer<Record>::AcDbObjectPointer;
    using AcDbObjectPointer<Record>::open;
    AcDbSymbolTableRecordPointer() = default;
    AcDbSymbolTableRecordPointer(const ACHAR* name, AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false)
    {
        open(name, database, mode, openErased);
    }

    Acad::ErrorStatus open(const ACHAR* name, AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead,
                           bool openErased = false)
    {
        this->drop();
        if (!database) return this->mStatus = Acad::eNoDatabase;
        typename AcDbTableOfRecord<Record>::Table* table = nullptr;
        this->mStatus = database->getSymbolTable(table);
        if (this->mStatus != Acad::eOk) return this->mStatus;
        this->mStatus = table->getAt(name, this->mObject, mode, openErased);
        table->close();
        return this->mStatus;
    }
};

/// A symbol table of a database.
template <class Table>
class AcDbSymbolTablePointer : public AcDbObjectPointer<Table>
{
public:
    using AcDbObjectPointer<Table>::AcDbObjectPointer;
    using AcDbObjectPointer<Table>::open;
    AcDbSymbolTablePointer() = default;
    explicit AcDbSymbolTablePointer(AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead)
    {
        open(database, mode);
    }

    Acad::ErrorStatus open(AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead)
    {
        this->drop();
        return this->mStatus = database ? database->getSymbolTable(this->mObject, mode) : Acad::eNoDatabase;
    }
};

using AcDbBlockTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbBlockTableRecord>;
using AcDbDimStyleTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbDimStyleTableRecord>;
using AcDbLayerTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbLayerTableRecord>;
using AcDbLinetypeTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbLinetypeTableRecord>;
using AcDbRegAppTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbRegAppTableRecord>;
using AcDbTextStyleTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbTextStyleTableRecord>;
using AcDbUCSTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbUCSTableRecord>;
using AcDbViewTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbViewTableRecord>;
using AcDbViewportTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbViewportTableRecord>;

using AcDbBlockTablePointer = AcDbSymbolTablePointer<AcDbBlockTable>;
using AcDbDimStyleTablePointer = AcDbSymbolTablePointer<AcDbDimStyleTable>;
using AcDbLayerTablePointer = AcDbSymbolTablePointer<AcDbLayerTable>;
using AcDbLinetypeTablePointer = AcDbSymbolTablePointer<AcDbLinetypeTable>;
using AcDbRegAppTablePointer = AcDbSymbolTablePointer<AcDbRegAppTable>;
using AcDbTextStyleTablePointer = AcDbSymbolTablePointer<AcDbTextStyleTable>;
using AcDbUCSTablePointer = AcDbSymbolTablePointer<AcDbUCSTable>;
using AcDbViewTablePointer = AcDbSymbolTablePointer<AcDbViewTable>;
using AcDbViewportTablePointer = AcDbSymbolTablePointer<AcDbViewportTable>;

/// A dictionary, by its id.
using AcDbDictionaryPointer = AcDbObjectPointer<AcDbDictionary>;
