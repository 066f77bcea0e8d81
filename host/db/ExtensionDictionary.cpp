#include "DbObjectAccess.h"
#include "dbobject.h"

AcDbObjectId AcDbObject::extensionDictionary() const { return mExtras ? mExtras->extensionDictionary : AcDbObjectId(); }
