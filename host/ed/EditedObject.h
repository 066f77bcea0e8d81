#pragma once

/// Changes that the editor makes to views, which need no lock of the document.

#include "DbObjectAccess.h"
#include "Viewports.h"

namespace ed
{
/// Holds an object open for write. One that its user has open for write is used as it is and stays open.
template <class T>
class EditedObject
{
public:
    explicit EditedObject(AcDbObjectId id) : mObject(T::cast(residentObject(id)))
    {
        if (!mObject || id.isErased()) {
            mStatus = mObject ? Acad::eWasErased : Acad::eNullObjectId;
        } else if (!mObject->isWriteEnabled()) {
            mStatus = DbObjectAccess::openUnlocked(*mObject);
            mIsMine = mStatus == Acad::eOk;
        }
    }
    ~EditedObject()
    {
        if (mIsMine) mObject->close();
    }
    EditedObject(const EditedObject&) = delete;
    EditedObject& operator=(const EditedObject&) = delete;

    /// eNullObjectId, eWasErased, eWasOpenForRead, eWasOpenForNotify; only after eOk there is an object.
    Acad::ErrorStatus status() const { return mStatus; }
    T* operator->() const { return mObject; }
    T& operator*() const { return *mObject; }

private:
    T* mObject;
    Acad::ErrorStatus mStatus = Acad::eOk;
    bool mIsMine = false;
};

/// Opens what keeps a viewport's properties and calls `change` with it: with an AcDbViewportTableRecord& or
/// an AcDbViewport&. The statuses of EditedObject.
template <class Keeper, class Change>
Acad::ErrorStatus edit(AcDbObjectId id, Change change)
{
    EditedObject<Keeper> keeper(id);
    if (keeper.status() == Acad::eOk) change(*keeper);
    return keeper.status();
}

template <class Change>
Acad::ErrorStatus editViewport(const Viewport& viewport, Change change)
{
    if (viewport.kind == ViewportKind::tile) return edit<AcDbViewportTableRecord>(viewport.id, change);
    return edit<AcDbViewport>(viewport.id, change);
}
} // namespace ed
