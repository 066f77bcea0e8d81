#pragma once

/// Copies of an object's contents: by its class for those of the host, through filing for those of modules.

#include "dbfiler.h"
#include "dbobject.h"

#include <memory>

namespace filing
{
/// A new object of the same class and contents, in no drawing; null for classes whose objects are not copied
/// (containers, proxies). `type` is what a module's class is told that its filing is for.
std::unique_ptr<AcDbObject> copyOf(const AcDbObject& object, AcDb::FilerType type = AcDb::kCopyFiler);
/// Puts the contents of an object of the same class in place of another's, whether that is open or not; nobody is told.
void assign(AcDbObject& to, const AcDbObject& from, AcDb::FilerType type = AcDb::kCopyFiler);
/// Whether an object is of a module's class.
bool isOfModule(const AcDbObject& object);
} // namespace filing
