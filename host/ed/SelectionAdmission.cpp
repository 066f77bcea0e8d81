#include "SelectionAdmission.h"

#include "dbviewport.h"
#include "SelectableGroups.h"
#include "Stub.h"
#include "VariableStore.h"

namespace
{
bool picksGroups()
{
    const std::optional<ed::VariableValue> style = ed::readVariable(L"PICKSTYLE");
    return style && (style->integer & 1) != 0;
}
} // namespace

ed::Admitted ed::SelectionAdmission::admit(std::vector<AcDbObjectId> ids, bool byGeometry) const
{
    Admitted admitted;
    ids.erase(std::remove(ids.begin(), ids.end(), AcDbObjectId()), ids.end());
    if (byGeometry && picksGroups()) admitted.groups = addGroups(mDatabase, ids);
    admitted.found = ids.size();
    const auto isRefused = [&](AcDbObjectId id) {
        const auto* entity = AcDbEntity::cast(residentObject(id));
        if (!entity || id.isErased() || id.database() != &mDatabase) return true;
        if (mMode.rejectsViewports && entity->isKindOf(AcDbViewport::desc())) return ++admitted.filtered > 0;
        if (!mFilter.takesAll() && !mFilter.fits(*entity)) return ++admitted.filtered > 0;
        return mMode.rejectsLocked && mSearch.layers().of(entity->layerId()).isLocked && ++admitted.locked > 0;
    };
    ids.erase(std::remove_if(ids.begin(), ids.end(), isRefused), ids.end());
    admitted.ids = std::move(ids);
    return admitted;
}
