#pragma once

/// What the database may do to an object that its users may not.

#include "ObjectExtras.h"
#include "Stub.h"

struct DbObjectAccess {
    /// Makes a new object resident under a stub, open for write.
    static void makeResident(AcDbObject& object, AcDbStub& stub, AcDbObjectId owner);
    static void setOwner(AcDbObject& object, AcDbObjectId owner) { object.mOwner = owner; }
    static void setStub(AcDbObject& object, AcDbObjectId id) { object.mStub = id; }
    static DbObjectExtras* extras(const AcDbObject& object) { return object.mExtras.get(); }
    static DbObjectExtras& needExtras(AcDbObject& object);
    static Acad::ErrorStatus open(AcDbObject& object, AcDb::OpenMode mode);
    /// Whether nothing but open states can refuse an id: eNullObjectId, eUnknownHandle, eWasErased, ePermanentlyErased.
    static Acad::ErrorStatus find(AcDbObjectId id, bool openErased);
    /// Opens for write whatever the locks of the document say: views belong to the editor.
    static Acad::ErrorStatus openUnlocked(AcDbObject& object);
    static bool isOpen(const AcDbObject& object)
    {
        return object.mReaders || object.mOpenForWrite || object.mOpenForNotify;
    }
    /// Keeps the present state for cancel() and undo.
    static void keepState(AcDbObject& object);
    /// Notes a change of what is no part of the state; `make` gives the edit, before the change.
    template <class Make>
    static void note(AcDbObject& object, Make make)
    {
        if (object.mStub && !object.mIsNew) needExtras(object).edits.push_back(make());
    }
    /// Gives an object back what this opening has changed.
    static void takeBack(AcDbObject& object);
    static bool isUndoOff(const AcDbObject& object) { return object.mIsUndoOff; }
    /// The object counts as being undone while it lives.
    class Undoing
    {
    public:
        explicit Undoing(AcDbObject& object) : mObject(object) { mObject.mIsUndoing = true; }
        ~Undoing() { mObject.mIsUndoing = false; }
        Undoing(const Undoing&) = delete;
        Undoing& operator=(const Undoing&) = delete;

    private:
        AcDbObject& mObject;
    };

    /// The object takes contents without being opened: the gate of its setters is open and silent while this lives.
    class Filling
    {
    public:
        explicit Filling(AcDbObject& object)
            : mObject(object), mOpenForWrite(object.mOpenForWrite), mModified(object.mModified),
              mModifiedGraphics(object.mModifiedGraphics), mIsStateKept(object.mIsStateKept)
        {
            object.mOpenForWrite = object.mModified = object.mIsStateKept = true;
        }
        ~Filling()
        {
            mObject.mOpenForWrite = mOpenForWrite;
            mObject.mModified = mModified;
            mObject.mModifiedGraphics = mModifiedGraphics;
            mObject.mIsStateKept = mIsStateKept;
        }
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;

    private:
        AcDbObject& mObject;
        bool mOpenForWrite, mModified, mModifiedGraphics, mIsStateKept;
    };

    // Transactions.

    static void enterTransaction(AcDbObject& object) { object.mInTransaction = true; }
    static void leaveTransaction(AcDbObject& object);
    /// Gives what was changed so far to the undo journal; the object stays open.
    static void handOverChanges(AcDbObject& object);
    /// Ends an opening of any mode without telling reactors.
    static void abandon(AcDbObject& object);
    /// From read to write, `forced` on a locked layer too.
    static Acad::ErrorStatus raise(AcDbObject& object, bool forced);
    static Acad::ErrorStatus openOnLockedLayer(AcDbObject& object, AcDb::OpenMode mode);
    static Acad::ErrorStatus openInTransaction(AcDbObject& object, AcDb::OpenMode mode);
    static Acad::ErrorStatus closeInTransaction(AcDbObject& object);

    /// After reading a file, and at the end of an opening for write: no longer new, not modified, closed.
    static void settle(AcDbObject& object);
    static void setNotifying(AcDbObject& object, bool notifying) { object.mNotifying = notifying; }
    static AcDbObject* newCopy(const AcDbObject& object) { return object.newCopy(); }
    static void assignState(AcDbObject& to, const AcDbObject& from) { to.assignState(from); }
    static void markXDataModified(AcDbObject& object) { object.mModifiedXData = true; }
};
