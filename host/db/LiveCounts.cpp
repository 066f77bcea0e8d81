#include "LiveCounts.h"

#include "DatabaseState.h"
#include "DbObjectAccess.h"

namespace live
{
std::int64_t& resbufs()
{
    static std::int64_t count = 0;
    return count;
}

int openObjects(const AcDbDatabase& database)
{
    int count = 0;
    for (AcDbStub& stub : DatabaseAccess::of(const_cast<AcDbDatabase&>(database)).stubs) {
        const AcDbObject* object = residentObject(AcDbObjectId(&stub));
        if (object && DbObjectAccess::isOpen(*object)) ++count;
    }
    return count;
}
} // namespace live
