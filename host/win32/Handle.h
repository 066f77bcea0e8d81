#pragma once

#include "windef.h"

#include <memory>

namespace win32
{
/// What a handle names. A new kind of object derives from this; it is destroyed when its last handle is
/// closed and no call uses it any more.
class Object
{
public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;
};

/// A new handle of the object: never null, INVALID_HANDLE_VALUE or a value that was handed out before.
HANDLE openHandle(std::shared_ptr<Object> object);

/// The object of an open handle; null for any other value.
std::shared_ptr<Object> objectOf(HANDLE handle);

/// The same as the derived class; null when the handle is of another kind.
template <class Kind>
std::shared_ptr<Kind> objectOf(HANDLE handle)
{
    return std::dynamic_pointer_cast<Kind>(objectOf(handle));
}

/// Takes the handle out of the table. False when it was not open.
bool closeHandle(HANDLE handle);
} // namespace win32
