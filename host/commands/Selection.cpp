#include "Selection.h"

#include "acdbads.h"
#include "acedads.h"

namespace
{
std::vector<AcDbObjectId> idsOf(const ads_name set)
{
    std::vector<AcDbObjectId> ids;
    Adesk::Int32 count = 0;
    acedSSLength(set, &count);
    for (Adesk::Int32 i = 0; i < count; ++i) {
        ads_name name;
        AcDbObjectId id;
        if (acedSSName(set, i, name) == RTNORM && acdbGetObjectId(id, name) == Acad::eOk) ids.push_back(id);
    }
    return ids;
}
} // namespace

std::vector<AcDbObjectId> commands::selectObjects()
{
    ads_name set;
    if (acedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM) return {};
    std::vector<AcDbObjectId> ids = idsOf(set);
    acedSSFree(set);
    return ids;
}
