#pragma once

/// Changes that the editor makes to views, which need no lock of the document.

#include "DbObjectAccess.h"

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
} // namespace ed
