#pragma once

/// AcDbObject: what every object of a drawing database has in common: identity, ownership, open states, erasure,
/// extended data, reactors, and its description as DXF groups.

#include "acadstrc.h"
#include "dbid.h"
#include "rxboiler.h"

#include <cstdint>
#include <memory>
#include <string_view>

class AcDbDwgFiler;
class AcDbDxfFiler;
class AcDbIdMapping;
class AcDbObjectReactor;
class DxfClass;
struct DbObjectExtras;
struct resbuf;

namespace AcDb
{
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
}

/// States. A new object belongs to its maker, who may change it freely and deletes it, until it is added to a
/// database; from then on it is opened and closed, and never deleted by its users. The one who adds an object holds
/// it open for write and closes it.
///
/// Reading members may be called in every open mode. A setter on an object that is not open for write returns
/// eNotOpenForWrite, or does nothing where it returns nothing, and leaves the object unchanged.
class AcDbObject : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    ~AcDbObject() override;

    AcDbObjectId objectId() const { return mStub; }
    AcDbObjectId id() const { return mStub; }
    AcDbObjectId ownerId() const { return mOwner; }
    /// Names the owner. The owner's own list of children is not touched: containers do both.
    virtual Acad::ErrorStatus setOwnerId(AcDbObjectId owner);
    void getAcDbHandle(AcDbHandle& handle) const { handle = mStub.handle(); }
    AcDbHandle handle() const { return mStub.handle(); }
    /// The database the object is in; null for a new object.
    AcDbDatabase* database() const { return mStub.database(); }

    // Open states.

    /// From read to write. eHadMultipleReaders when others read the object too, eInvalidOpenState when it is not
    /// open for read; a lock of the document or the layer refuses as it does on opening.
    Acad::ErrorStatus upgradeOpen();
    /// From notify to write; `wasWritable` is told whether it was open for write already.
    Acad::ErrorStatus upgradeFromNotify(bool& wasWritable);
    Acad::ErrorStatus downgradeOpen();
    Acad::ErrorStatus downgradeToNotify(bool wasWritable);
    /// Ends one open. Changes are told to reactors when the last open for write ends. An object that a transaction
    /// holds stays open; eInvalidOpenState when only the transaction has opened it.
    Acad::ErrorStatus close();
    /// Ends an open for write and takes back every change made since, an erasure too; an object added in the same
    /// opening is erased. Like close in the other modes. Containers (tables, blocks) keep what was added to them.
    /// An object that a transaction holds is left to it: eInvalidOpenState.
    Acad::ErrorStatus cancel();

    bool isReadEnabled() const;
    bool isWriteEnabled() const { return !mStub || mOpenForWrite; }
    bool isNotifyEnabled() const { return !mStub || mOpenForNotify; }
    bool isModified() const { return mModified; }
    bool isModifiedGraphics() const { return mModifiedGraphics; }
    bool isModifiedXData() const { return mModifiedXData; }
    bool isNewObject() const { return mIsNew; }
    /// True while a change of the object is taken back or done again.
    bool isUndoing() const { return mIsUndoing; }
    /// Whether a transaction holds the object open.
    bool isTransactionResident() const { return mInTransaction; }
    /// True while the object tells its reactors of a change.
    bool isNotifying() const { return mNotifying; }
    int numReaders() const { return mReaders; }

    /// Called by every reading member of a class.
    void assertReadEnabled() const {}
    /// Called by every setter before it changes anything: eNotOpenForWrite when the object may not be changed.
    /// Keeps the state for cancel() and undo on the first change, unless `autoUndo` is false (for changes that need
    /// none: what is added is taken back itself), and tells reactors.
    Acad::ErrorStatus assertWriteEnabled(bool autoUndo = true, bool recordModified = true);
    /// What this opening for write changes is not undone, or is again. eNotOpenForWrite.
    Acad::ErrorStatus disableUndoRecording(bool disable);
    void assertNotifyEnabled() const {}

    // Erasure.

    bool isErased() const;
    bool isEraseStatusToggled() const { return mEraseToggled; }
    /// Erases the object, or brings it back. eWasErased / eWasNotErased when it is so already, eCannotBeErasedByCaller
    /// for objects that a drawing cannot be without.
    Acad::ErrorStatus erase(bool erasing = true);

    // Data that others attach.

    /// A chain of the extended data of one application, beginning with its 1001 group, or of all for null. The caller
    /// releases it with acutRelRb. Null when there is none.
    virtual resbuf* xData(const ACHAR* regappName = nullptr) const;
    /// Replaces the extended data of the applications in the chain (a -3 node may stand before it); an application
    /// with its name alone loses its data. eRegappIdNotFound for an unregistered name, eXdataSizeExceeded past 16 KiB,
    /// eInvalidResBuf for a chain that does not begin with 1001 or holds other groups; nothing is changed then.
    virtual Acad::ErrorStatus setXData(const resbuf* chain);

    /// The dictionary of what others attach; null when there is none.
    AcDbObjectId extensionDictionary() const;
    /// eAlreadyInDb when there is one; eNotInDatabase for a new object.
    Acad::ErrorStatus createExtensionDictionary();
    /// Erases the dictionary when it is empty; eKeyNotFound when there is none, eContainerNotEmpty otherwise.
    Acad::ErrorStatus releaseExtensionDictionary();

    void addReactor(AcDbObjectReactor* reactor) const;
    void removeReactor(AcDbObjectReactor* reactor) const;
    void addPersistentReactor(AcDbObjectId reactor);
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId reactor);
    bool hasReactor(const AcDbObjectReactor* reactor) const;
    bool hasPersistentReactor(AcDbObjectId reactor) const;

    // The description as DXF groups.

    /// The innermost table of fields; its ancestors hold those of the base classes.
    virtual const DxfClass* dxfClass() const;
    /// The name of the object's records in drawing files: that of its class, for proxies that of the absent class.
    virtual std::string_view dxfRecordName() const;

    // Filing. A module's class overrides these four, calling its base's first, and writes what it adds; its objects are
    // in drawing files, lists and copies what these say. The classes of the host file themselves by their description.

    /// Writes and reads everything, in memory: ids as they are, numbers in the machine's order.
    virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
    virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);
    /// Writes and reads the groups behind the record's handle and owner. Only filers that the host hands out are taken:
    /// eNotApplicable for others.
    virtual Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const;
    virtual Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer);
    Acad::ErrorStatus dwgOut(AcDbDwgFiler* filer) const;
    Acad::ErrorStatus dwgIn(AcDbDwgFiler* filer);
    virtual bool isAProxy() const { return false; }

    // Copies.

    /// A new object with the same contents, owned by the caller, in no database, without reactors.
    AcRxObject* clone() const override;
    Acad::ErrorStatus copyFrom(const AcRxObject* other) override;
    /// Copies the object, with what it owns, under an owner of the same drawing that is open for write: entities into
    /// blocks, other objects into dictionaries. The copy is open for write. The statuses of
    /// AcDbDatabase::deepCloneObjects; eNotInDatabase, eNotOpenForWrite.
    Acad::ErrorStatus deepClone(AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& map, bool isPrimary = true) const;
    /// The same into another drawing, with what the object cannot be without there: see
    /// AcDbDatabase::wblockCloneObjects. `copy` is null when the other drawing's own object of the name is taken.
    Acad::ErrorStatus wblockClone(AcRxObject* owner, AcDbObject*& copy, AcDbIdMapping& map, bool isPrimary = true) const;

    // The copy of this object while some are copied, within a drawing and between two. A module's class overrides them to
    // do more than its filing says: it calls its base's, and finds the copy open for write, with its references exchanged;
    // copies of other objects may not be there yet. An override that makes none leaves the object out. `isPrimary` is
    // true for what the caller named. The base's have no copy for callers outside of a copying: eInvalidContext.

    virtual Acad::ErrorStatus subDeepClone(AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& map,
                                           bool isPrimary = true) const;
    virtual Acad::ErrorStatus subWblockClone(AcRxObject* owner, AcDbObject*& copy, AcDbIdMapping& map,
                                             bool isPrimary = true) const;

    // Notifications to the object itself; overrides call the base.

    /// Told of each open and close; what they return is not looked at.
    virtual Acad::ErrorStatus subOpen(AcDb::OpenMode) { return Acad::eOk; }
    virtual Acad::ErrorStatus subClose() { return Acad::eOk; }
    virtual Acad::ErrorStatus subCancel() { return Acad::eOk; }
    /// Whether an open for write is granted, beside the lock of the document.
    virtual Acad::ErrorStatus subMayWrite() const { return Acad::eOk; }
    virtual Acad::ErrorStatus subErase(bool) { return Acad::eOk; }
    /// Called by cancel() before the state of `before` is put back: what lies outside the object follows.
    virtual void subCancel(const AcDbObject&) {}
    /// Told of changes of an object that this one is a persistent reactor of.
    virtual void modified(const AcDbObject*) {}
    virtual void modifyUndone(const AcDbObject*) {}
    virtual void erased(const AcDbObject*, bool) {}
    virtual void copied(const AcDbObject*, const AcDbObject*) {}
    virtual void goodbye(const AcDbObject*) {}
    virtual void openedForModify(const AcDbObject*) {}
    virtual void modifiedXData(const AcDbObject*) {}
    virtual void modifiedGraphics(const AcDbObject*) {}
    virtual void unappended(const AcDbObject*) {}
    virtual void reappended(const AcDbObject*) {}
    virtual void objectClosed(const AcDbObjectId) {}
    virtual void cancelled(const AcDbObject*) {}
    /// Of an entity in its list: a vertex, an attribute.
    virtual void subObjModified(const AcDbObject*, const AcDbObject*) {}

protected:
    AcDbObject();
    /// Contents are copied; identity, owner and open state are not.
    AcDbObject(const AcDbObject& other);
    AcDbObject& operator=(const AcDbObject& other);

    /// Pure state, by class: see ACDB_STATE_MEMBERS. Objects of a module's classes are copied through their filing.
    virtual AcDbObject* newCopy() const { return nullptr; }
    virtual void assignState(const AcDbObject&) {}
    /// Marks the picture of the object as changed; setters of geometry call it after assertWriteEnabled.
    void recordGraphicsModified(bool changed = true) { mModifiedGraphics |= changed; }

    /// What most setters do: the gate, then the value.
    template <class Member, class Value>
    Acad::ErrorStatus assign(Member& member, const Value& value)
    {
        const Acad::ErrorStatus status = assertWriteEnabled();
        if (status == Acad::eOk) member = value;
        return status;
    }

private:
    friend struct DbObjectAccess;

    AcDbObjectId mStub;
    AcDbObjectId mOwner;
    std::unique_ptr<DbObjectExtras> mExtras;
    std::uint16_t mReaders : 9;
    bool mIsStateKept : 1; ///< for cancel() and undo, in this opening
    bool mInTransaction : 1;
    bool mIsUndoing : 1;
    bool mIsUndoOff : 1;
    bool mOpenForWrite : 1;
    bool mOpenForNotify : 1;
    bool mIsNew : 1;
    bool mModified : 1;
    bool mModifiedGraphics : 1;
    bool mModifiedXData : 1;
    bool mNotifying : 1;
    bool mEraseToggled : 1;
};

/// In a concrete class: how its objects are copied and restored, from its own copy constructor and assignment.
#define ACDB_STATE_MEMBERS(CLASS)                                                                            \
protected:                                                                                                   \
    AcDbObject* newCopy() const override { return new CLASS(*this); }                                        \
    void assignState(const AcDbObject& other) override { *this = static_cast<const CLASS&>(other); }         \
                                                                                                             \
public:

/// Told of what happens to an object, while it is attached (addReactor) and not part of the drawing. `unappended` follows
/// the cancel of the opening that added the object, and undo of it; `reappended` its redo. `modifyUndone` follows undo and
/// redo of changes. Undo and redo tell when all of a step is done; what reactors change then is not undone itself.
class AcDbObjectReactor : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectReactor);
    virtual void cancelled(const AcDbObject*) {}
    virtual void copied(const AcDbObject*, const AcDbObject*) {}
    virtual void erased(const AcDbObject*, bool) {}
    virtual void goodbye(const AcDbObject*) {}
    virtual void openedForModify(const AcDbObject*) {}
    virtual void modified(const AcDbObject*) {}
    virtual void subObjModified(const AcDbObject*, const AcDbObject*) {}
    virtual void modifyUndone(const AcDbObject*) {}
    virtual void modifiedXData(const AcDbObject*) {}
    virtual void unappended(const AcDbObject*) {}
    virtual void reappended(const AcDbObject*) {}
    virtual void objectClosed(const AcDbObjectId) {}
};

/// Opens an object. Statuses: eNullObjectId; eUnknownHandle for an id whose object is gone; eWasErased unless
/// `openErased`; ePermanentlyErased when its making was undone; eWasOpenForRead, eWasOpenForWrite, eWasOpenForNotify, eAtMaxReaders (256) for a conflict; for write
/// also eLockViolation when the document is not locked and eOnLockedLayer. `object` is null on failure.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);

/// The same for an object of class T; an object of another class is closed again: eNotThatKindOfClass.
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false)
{
    AcDbObject* opened = nullptr;
    object = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, mode, openErased);
    if (status != Acad::eOk) return status;
    object = T::cast(opened);
    if (object) return Acad::eOk;
    opened->close();
    return Acad::eNotThatKindOfClass;
}
