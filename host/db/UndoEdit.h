#pragma once

/// Changes of a drawing as undo and cancel() keep them.

#include "AttachedData.h"

#include <memory>

/// One change, with the state of one side of it: what was, and after an exchange what came of it.
class UndoEdit
{
public:
    UndoEdit() = default;
    UndoEdit(const UndoEdit&) = delete;
    UndoEdit& operator=(const UndoEdit&) = delete;
    virtual ~UndoEdit() = default;

    /// Puts the kept state in the place of the present one, and keeps that.
    virtual void exchange(AcDbDatabase& database) = 0;
    /// Tells reactors of an exchange, when all of a step is exchanged.
    virtual void tell(AcDbDatabase&) const {}
    /// The object that keeps the state; null for changes of other kinds.
    virtual const AcDbObject* copy() const { return nullptr; }
};

/// The state of an object: its members, what is attached to it, its owner, and whether it is erased.
class ObjectEdit final : public UndoEdit
{
public:
    /// The present state of an object of a drawing.
    explicit ObjectEdit(const AcDbObject& object);

    /// Gives an object back its members and what was attached, for cancel(); erasure is the caller's.
    void restore(AcDbObject& object);

    void exchange(AcDbDatabase& database) override;
    void tell(AcDbDatabase& database) const override;
    const AcDbObject* copy() const override { return mCopy.get(); }

private:
    void put(AcDbObject& object);

    AcDbStub* mStub;
    std::unique_ptr<AcDbObject> mCopy; ///< null for classes that have no state to copy
    std::unique_ptr<AttachedData> mAttached;
    AcDbObjectId mOwner;
    bool mIsErased;
    bool mIsPropertiesOnly = false; ///< the copy holds but the common properties of an entity
};

/// Whether an object is erased, where nothing else of it changes: a vertex that goes with its polyline.
class EraseEdit final : public UndoEdit
{
public:
    explicit EraseEdit(AcDbStub& stub);
    void exchange(AcDbDatabase& database) override;
    void tell(AcDbDatabase& database) const override;

private:
    AcDbStub& mStub;
    bool mIsErased;
};
