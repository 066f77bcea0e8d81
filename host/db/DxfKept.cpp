#include "DxfKept.h"

#include "DbObjectAccess.h"

void keepGroup(AcDbObject& object, const DxfClass* section, const DxfGroup& group)
{
    std::vector<KeptGroups>& kept = DbObjectAccess::needExtras(object).keptGroups;
    if (kept.empty() || kept.back().section != section) kept.push_back({section, {}});
    kept.back().groups.append(group);
}

void writeKeptGroups(const AcDbObject& object, const DxfClass* section, DxfSink& sink)
{
    const DbObjectExtras* extras = DbObjectAccess::extras(object);
    if (!extras) return;
    for (const KeptGroups& kept : extras->keptGroups) {
        if (kept.section == section) writeGroups(kept.groups, sink);
    }
}
