#pragma once

/// Dictionaries: objects under names. The named objects dictionary of a drawing is the root of all others.

#include "acdb.h"
#include "dbobject.h"
#include "NotCopied.h"

#include <atlstr.h>

#include <unordered_map>
#include <vector>

class AcDbDictionary;

namespace AcDb
{
/// The order of a walk: by name without regard to case, or that in which the entries were added.
enum DictIterType { kDictSorted = 0, kDictCollated = 1 };
} // namespace AcDb

/// Walks the entries of a dictionary; erased ones are passed over. It stands on the first entry when made, and does
/// not see what is added or removed later. It may not outlive the opening of the dictionary.
class AcDbDictionaryIterator
{
public:
    /// The name of the entry, which holds as long as the iterator; null past the end.
    const ACHAR* name() const;
    /// Opens the object of the entry; eIteratorDone past the end.
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode = AcDb::kForRead) const;
    AcDbObjectId objectId() const;
    bool done() const { return mAt >= mEntries.size(); }
    /// Moves on; false when that was the last entry.
    bool next();
    /// Goes to the entry of an object; false, and nothing moves, when there is none.
    bool setPosition(AcDbObjectId id);

private:
    friend class AcDbDictionary;
    struct Entry {
        CString name;
        AcDbObjectId id;
    };

    std::vector<Entry> mEntries;
    std::size_t mAt = 0;
};

/// Names are found without regard to case and kept as given; the order in which entries were added is kept too. An
/// entry whose object is erased counts as absent, and is there again when the object is brought back.
class AcDbDictionary : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionary);
    ACDB_STATE_MEMBERS(AcDbDictionary)
    AcDbDictionary() = default;

    /// eKeyNotFound when there is no entry of that name.
    virtual Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;
    /// Opens the object too: also the statuses of acdbOpenObject.
    template <class T>
    Acad::ErrorStatus getAt(const ACHAR* name, T*& object, AcDb::OpenMode mode, bool openErased = false) const
    {
        AcDbObjectId id;
        object = nullptr;
        const Acad::ErrorStatus status = getAt(name, id);
        return status == Acad::eOk ? acdbOpenObject(object, id, mode, openErased) : status;
    }
    /// The name of an entry; the pointer form is a copy that the caller releases with acutDelString.
    Acad::ErrorStatus nameAt(AcDbObjectId id, ACHAR*& name) const;
    Acad::ErrorStatus nameAt(AcDbObjectId id, CString& name) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    std::uint32_t numEntries() const;

    /// Puts an object under a name, in place of an object of that name, which is erased. A new object becomes one of
    /// the drawing, owned by the dictionary, and stays open for write; one of the drawing must be open for write, and
    /// its owner becomes the dictionary. The dictionary becomes a persistent reactor of the object. The name "*" asks for
    /// a free one of the form "*A1". eInvalidKey for an empty name, eNullObjectPointer, eWrongDatabase, eNotInDatabase
    /// for a dictionary that is in no drawing, eNotOpenForWrite; the status of the old object when it cannot be erased.
    /// Nothing is changed then.
    Acad::ErrorStatus setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id);
    /// Takes an entry out; its object is not erased and still names the dictionary as its owner. eKeyNotFound.
    Acad::ErrorStatus remove(const ACHAR* name);
    Acad::ErrorStatus remove(const ACHAR* name, AcDbObjectId& id);
    Acad::ErrorStatus remove(AcDbObjectId id);
    /// Renames an entry in its place. False when there is no `oldName`, when another entry has `newName`, when that is
    /// empty, or when the dictionary is not open for write.
    bool setName(const ACHAR* oldName, const ACHAR* newName);

    /// Whether the objects are owned hard: they are copied and erased together with the dictionary.
    bool isTreatElementsAsHard() const { return mIsHardOwner; }
    void setTreatElementsAsHard(bool hard = true);
    /// What copying between drawings does with names that both have.
    AcDb::DuplicateRecordCloning mergeStyle() const { return static_cast<AcDb::DuplicateRecordCloning>(mMergeStyle); }
    void setMergeStyle(AcDb::DuplicateRecordCloning style);

    /// A new iterator that the caller deletes.
    AcDbDictionaryIterator* newIterator(AcDb::DictIterType type = AcDb::kDictSorted) const;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    friend struct DictionaryAccess;
    struct Entry {
        CString name;
        AcDbObjectId id;
        std::int16_t code; ///< the group of the reference in the file; 0: as the dictionary owns
    };

    AcDbObjectId find(const ACHAR* name) const;
    std::vector<Entry>::iterator entryOf(AcDbObjectId id);
    void add(const ACHAR* name, AcDbObjectId id, int code = 0);
    void drop(std::vector<Entry>::iterator entry);
    void forget(std::vector<Entry>::iterator entry);
    void noteEntries();
    Acad::ErrorStatus adopt(AcDbObject& object, AcDbObjectId& id);

    NotCopied<std::vector<Entry>> mEntries;
    NotCopied<std::unordered_multimap<CString, AcDbObjectId>> mByName; ///< keys in lower case
    bool mIsHardOwner = false;
    std::uint8_t mMergeStyle = AcDb::kDrcIgnore;
};
