#include "SelectableGroups.h"

#include "dbdatabase.h"
#include "dbdict.h"
#include "dbentity.h"
#include "dbgroup.h"
#include "Stub.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>

namespace
{
using Ids = std::vector<AcDbObjectId>;

const AcDbDictionary* groupsOf(const AcDbDatabase& database)
{
    return AcDbDictionary::cast(residentObject(database.groupDictionaryId()));
}

Ids livingEntities(const AcDbGroup& group)
{
    AcDbObjectIdArray all;
    group.allEntityIds(all);
    Ids living;
    for (const AcDbObjectId id : all) {
        if (!id.isErased() && AcDbEntity::cast(residentObject(id))) living.push_back(id);
    }
    return living;
}

/// The groups that are selected as a whole, by their entities.
using Membership = std::unordered_multimap<AcDbObjectId, const AcDbGroup*>;

Membership selectableGroups(const AcDbDatabase& database)
{
    Membership membership;
    const AcDbDictionary* groups = groupsOf(database);
    if (!groups) return membership;
    for (const std::unique_ptr<AcDbDictionaryIterator> at(groups->newIterator()); !at->done(); at->next()) {
        const auto* group = AcDbGroup::cast(residentObject(at->objectId()));
        if (!group || !group->isSelectable()) continue;
        for (const AcDbObjectId id : livingEntities(*group)) membership.emplace(id, group);
    }
    return membership;
}
} // namespace

std::size_t ed::addGroups(const AcDbDatabase& database, Ids& ids)
{
    const Membership membership = selectableGroups(database);
    if (membership.empty()) return 0;
    const AcDbObjectId space = database.currentSpaceId();
    std::unordered_set<AcDbObjectId> listed(ids.begin(), ids.end());
    std::unordered_set<const AcDbGroup*> taken;
    Ids all;
    for (const AcDbObjectId id : ids) {
        all.push_back(id);
        const auto range = membership.equal_range(id);
        for (auto at = range.first; at != range.second; ++at) {
            if (!taken.insert(at->second).second) continue;
            for (const AcDbObjectId member : livingEntities(*at->second)) {
                const bool isHere = residentObject(member)->ownerId() == space;
                if (isHere && listed.insert(member).second) all.push_back(member);
            }
        }
    }
    ids = std::move(all);
    return taken.size();
}

std::vector<AcDbObjectId> ed::entitiesOfGroup(const AcDbDatabase& database, const std::wstring& name)
{
    const AcDbDictionary* groups = groupsOf(database);
    AcDbObjectId id;
    if (!groups || groups->getAt(name.c_str(), id) != Acad::eOk) return {};
    const auto* group = AcDbGroup::cast(residentObject(id));
    return group ? livingEntities(*group) : Ids();
}
