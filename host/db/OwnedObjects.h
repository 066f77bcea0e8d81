#pragma once

/// What an object owns hard follows it when it is erased or brought back: its extension dictionary, the entries of a
/// dictionary that owns them hard, vertices and attributes. An owned object that someone has open stays as it is; it counts as erased all the
/// same (AcDbObjectId::isEffectivelyErased).

#include "dbobject.h"

namespace owned
{
void followErase(AcDbObject& owner, bool erasing);
} // namespace owned
