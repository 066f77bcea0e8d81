#pragma once

/// Copies of an object's contents: by its class for those of the host, through filing for those of modules.

#include "dbobject.h"

#include <memory>

namespace filing
{
/// A new object of the same class and contents, in no drawing; null for classes whose objects are not copied
/// (containers, proxies).
std::unique_ptr<AcDbObject> copyOf(const AcDbObject& object);
/// Puts the contents of an object of the same class in place of another's.
void assign(AcDbObject& to, const AcDbObject& from);
} // namespace filing
