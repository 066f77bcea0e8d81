#pragma once

/// Symbol tables: the named things of a drawing, one table a kind, and the iterators over them. dbsymtb.h adds the
/// records.
///
/// Names are found without regard to case and kept as given. They are at most 255 characters, not empty, and hold
/// none of < > / \ " : ; ? * | , = ` (a record of the system's own may begin with "*").

#include "AcString.h"
#include "dbobject.h"

#include <atlstr.h>

#include <unordered_map>
#include <vector>

class AcDbSymbolTable;

class AcDbSymbolTableRecord : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);

    /// The name, as a copy that the caller releases with acutDelString.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    Acad::ErrorStatus getName(const ACHAR*& name) const;
    Acad::ErrorStatus getName(AcString& name) const;
    const CString& name() const { return mName; }
    /// Group 70, as files have it.
    int flags() const { return mFlags; }
    /// eInvalidSymbolTableName for a bad name, eDuplicateRecordName when the table has another record of that name,
    /// eIllegalReplacement for a record of the system's own ("0", "Standard", "ACAD" ...).
    virtual Acad::ErrorStatus setName(const ACHAR* name);
    /// True when the record came from another drawing (an external reference).
    bool isDependent() const { return (mFlags & 16) != 0; }
    bool isResolved() const { return (mFlags & 32) != 0; }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    AcDbSymbolTableRecord() = default;
    Acad::ErrorStatus subErase(bool erasing) override;
    void subCancel(const AcDbObject& before) override;
    /// True for records that a drawing cannot be without.
    virtual bool isPermanent() const { return false; }
    /// The name under which a table takes the record: one that asks for a number of its own is given it.
    virtual CString nameIn(const AcDbSymbolTable&) const { return mName; }
    /// Told that it has been added to a table, so that what it needs can follow.
    virtual void addedToTable() {}
    /// True for records that others of the table may share a name with, or that have none (shape files).
    virtual bool sharesName() const { return false; }
    /// Sets or clears a bit of group 70.
    Acad::ErrorStatus setFlag(int flag, bool on) { return assign(mFlags, on ? mFlags | flag : mFlags & ~flag); }

    CString mName;
    int mFlags = 0; ///< group 70

    friend class AcDbSymbolTable;
    friend struct SymbolTableAccess;
};

/// Walks the records of a table, in the order they were added.
class AcDbSymbolTableIterator
{
public:
    virtual ~AcDbSymbolTableIterator() = default;
    /// Goes back to the first record, or to the last; `skipDeleted` leaves erased ones out.
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const { return mAt >= mIds->size(); }
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus seek(AcDbObjectId id);
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
    /// Opens the record the iterator stands on; eIteratorDone past the end.
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const;

protected:
    friend class AcDbSymbolTable;
    AcDbSymbolTableIterator(const std::vector<AcDbObjectId>& ids, bool atBeginning, bool skipDeleted)
        : mIds(&ids)
    {
        start(atBeginning, skipDeleted);
    }

private:
    const std::vector<AcDbObjectId>* mIds;
    std::size_t mAt = 0; ///< past the end also means before the beginning
};

class AcDbSymbolTable : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);

    /// eKeyNotFound when no record has the name; an erased one counts only with `getErased`.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                            bool openErased = false) const;
    /// The first getAt under a name that overloads of getAt cannot hide.
    Acad::ErrorStatus getIdAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const
    {
        return getAt(name, id, getErased);
    }
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    /// Adds a new record, which stays open for write. eDuplicateRecordName, eInvalidSymbolTableName, eAlreadyInDb,
    /// eWrongObjectType for a record of another table; the record stays the caller's then.
    virtual Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    /// A new iterator that the caller deletes. It may not outlive the opening of the table.
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    /// Every record, erased ones too, in the order they were added.
    const std::vector<AcDbObjectId>& recordIds() const { return mIds; }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    AcDbSymbolTable() = default;
    /// The class of the records that the table takes.
    virtual const AcRxClass* recordClass() const = 0;

private:
    friend struct SymbolTableAccess;
    friend class AcDbSymbolTableRecord;

    AcDbObjectId find(const CString& name, bool erasedToo) const;
    void rename(AcDbObjectId id, const CString& from, const CString& to);
    void list(AcDbObjectId id, const CString& name);

    std::vector<AcDbObjectId> mIds;
    std::unordered_multimap<CString, AcDbObjectId> mByName; ///< keys in lower case
};

/// The members of a table whose records are of one class, and the iterator over them; MORE are further members.
#define ACDB_SYMBOL_TABLE(KIND) ACDB_SYMBOL_TABLE_WITH(KIND, )
#define ACDB_SYMBOL_TABLE_WITH(KIND, MORE)                                                                              \
class AcDb##KIND##TableRecord;                                                                               \
class AcDb##KIND##Table;                                                                                     \
class AcDb##KIND##TableIterator : public AcDbSymbolTableIterator                                             \
{                                                                                                            \
public:                                                                                                      \
    using AcDbSymbolTableIterator::getRecord;                                                                \
    Acad::ErrorStatus getRecord(AcDb##KIND##TableRecord*& record, AcDb::OpenMode mode = AcDb::kForRead,      \
                                bool openErased = false) const;                                              \
                                                                                                             \
private:                                                                                                     \
    friend class AcDb##KIND##Table;                                                                          \
    using AcDbSymbolTableIterator::AcDbSymbolTableIterator;                                                  \
};                                                                                                           \
class AcDb##KIND##Table : public AcDbSymbolTable                                                             \
{                                                                                                            \
public:                                                                                                      \
    ACRX_DECLARE_MEMBERS(AcDb##KIND##Table);                                                                 \
    AcDb##KIND##Table() = default;                                                                           \
    using AcDbSymbolTable::getAt;                                                                            \
    Acad::ErrorStatus getAt(const ACHAR* name, AcDb##KIND##TableRecord*& record, AcDb::OpenMode mode,        \
                            bool openErased = false) const;                                                  \
    using AcDbSymbolTable::add;                                                                              \
    using AcDbSymbolTable::newIterator;                                                                      \
    Acad::ErrorStatus newIterator(AcDb##KIND##TableIterator*& iterator, bool atBeginning = true,             \
                                  bool skipDeleted = true) const;                                            \
    MORE                                                                                                     \
                                                                                                             \
protected:                                                                                                   \
    const AcRxClass* recordClass() const override;                                                           \
}

ACDB_SYMBOL_TABLE(RegApp);
/// Finds out which layers are used; AcDbLayerTableRecord::isInUse tells it from then on.
ACDB_SYMBOL_TABLE_WITH(Layer, Acad::ErrorStatus generateUsageData(););
ACDB_SYMBOL_TABLE(Linetype);
ACDB_SYMBOL_TABLE(TextStyle);
ACDB_SYMBOL_TABLE(View);
ACDB_SYMBOL_TABLE(UCS);
ACDB_SYMBOL_TABLE(Viewport);
ACDB_SYMBOL_TABLE(DimStyle);
ACDB_SYMBOL_TABLE(Block);
