#pragma once

/// Tells the failed openings of objects to the place that all of them are told to.

#include "CDebugError.h"
#include "dbobjptr.h"

namespace entity
{
/// Whether an object could be opened; when not, the status is reported under the name of the member that
/// needs it.
inline bool isOpen(Acad::ErrorStatus status, const wchar_t* member)
{
    if (status != Acad::eOk) CArxUtils::CDebugError::RxErrorMsg(status, member);
    return status == Acad::eOk;
}

template <class Object>
bool isOpen(const AcDbObjectPointer<Object>& object, const wchar_t* member)
{
    return isOpen(object.openStatus(), member);
}
} // namespace entity
