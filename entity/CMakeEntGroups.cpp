/// Groups.

#include "CMakeEnt.h"

#include "dbapserv.h"
#include "dbdict.h"
#include "dbgroup.h"
#include "dbsymutl.h"
#include "OpenReport.h"

#include <memory>

namespace
{
AcDbDatabase* workingDatabase()
{
    return acdbHostApplicationServices()->workingDatabase();
}

/// The group dictionary of the working drawing.
class Groups : public AcDbObjectPointer<AcDbDictionary>
{
public:
    explicit Groups(AcDb::OpenMode mode)
    {
        if (AcDbDatabase* const database = workingDatabase()) open(database->groupDictionaryId(), mode);
    }
};

/// Model space or the sheet of a layout: what is inside a block definition is selected with its references.
bool isOfSpace(const AcDbEntity& entity, const wchar_t* member)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> owner(entity.ownerId(), AcDb::kForRead);
    return entity::isOpen(owner, member) && owner->isLayout();
}

bool canBeGrouped(AcDbObjectId id, const wchar_t* member)
{
    const AcDbEntityPointer entity(id, AcDb::kForRead);
    return entity::isOpen(entity, member) && entity->database() == workingDatabase() &&
           isOfSpace(*entity, member);
}

bool canBeGrouped(const AcDbObjectIdArray& ids, const wchar_t* member)
{
    for (const AcDbObjectId& id : ids)
        if (!canBeGrouped(id, member)) return false;
    return !ids.isEmpty();
}

/// An empty group in the dictionary, open for write; null when the name is taken. The dictionary is closed
/// again, for giving the group another name opens it.
AcDbGroup* newGroup(const CString& name, const wchar_t* member)
{
    const Groups groups(AcDb::kForWrite);
    if (!entity::isOpen(groups, member) || groups->has(name)) return nullptr;
    auto group = std::make_unique<AcDbGroup>(L"");
    AcDbObjectId id;
    return groups->setAt(name, group.get(), id) == Acad::eOk ? group.release() : nullptr;
}

/// Adds a group of entities; a name that begins with "*" leaves the number to the drawing.
int addGroup(const CString& name, const AcDbObjectIdArray& ids, AcDbObjectId& id, const wchar_t* member)
{
    if (!canBeGrouped(ids, member)) return 0;
    const AcDbObjectPointer<AcDbGroup> group(newGroup(name, member));
    if (!group) return 0;
    bool isWhole = group->append(ids) == Acad::eOk;
    if (isWhole && name[0] == L'*') isWhole = group->setAnonymous() == Acad::eOk;
    if (!isWhole) {
        group->erase();
        return 0;
    }
    id = group->objectId();
    return 1;
}

constexpr const wchar_t* dissolver = L"ExplodNoNameGroup";

AcDbObjectIdArray anonymousGroups(const CString& name)
{
    AcDbObjectIdArray found;
    const Groups groups(AcDb::kForRead);
    if (!entity::isOpen(groups, dissolver)) return found;
    const std::unique_ptr<AcDbDictionaryIterator> entry(groups->newIterator());
    for (; !entry->done(); entry->next()) {
        const AcDbObjectPointer<AcDbGroup> group(entry->objectId(), AcDb::kForRead);
        const bool isMeant = name.IsEmpty() || name.CompareNoCase(entry->name()) == 0;
        if (isMeant && entity::isOpen(group, dissolver) && group->isAnonymous())
            found.append(entry->objectId());
    }
    return found;
}
} // namespace

int CArxEntity::CMakeEnt::MakeGroup(CGTStringW name, const AcDbObjectIdArray& ids, AcDbObjectId& id)
{
    constexpr bool withVerticalBar = false;
    const bool isName = acdbSymUtil()->validateSymbolName(name, withVerticalBar) == Acad::eOk;
    return isName ? addGroup(name, ids, id, L"MakeGroup") : 0;
}

int CArxEntity::CMakeEnt::MakeNoNameGroup(const AcDbObjectIdArray& ids, AcDbObjectId& id)
{
    return addGroup(L"*A", ids, id, L"MakeNoNameGroup");
}

int CArxEntity::CMakeEnt::ExplodNoNameGroup(CGTStringW name)
{
    int dissolved = 0;
    for (const AcDbObjectId& id : anonymousGroups(name)) {
        const AcDbObjectPointer<AcDbGroup> group(id, AcDb::kForWrite);
        if (entity::isOpen(group, dissolver) && group->erase() == Acad::eOk) dissolved = 1;
    }
    return dissolved;
}
