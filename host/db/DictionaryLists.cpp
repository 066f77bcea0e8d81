/// Dictionaries and extended data for the list functions.

#include "DbObjectAccess.h"
#include "EntityLists.h"
#include "ResbufSource.h"
#include "acdbads.h"
#include "dbdatabase.h"
#include "dbobjptr.h"

#include <unordered_map>

namespace
{
const AcDbDictionary* dictionaryOf(const ads_name name) { return AcDbDictionary::cast(residentObject(idOf(name))); }

resbuf* listOfId(AcDbObjectId id)
{
    ads_name name;
    return giveName(id, name) == RTNORM ? acdbEntGet(name) : nullptr;
}

/// Where the walk of each dictionary stands.
std::size_t& positionIn(const AcDbDictionary& dictionary)
{
    static std::unordered_map<AcDbObjectId, std::size_t> positions;
    return positions[dictionary.objectId()];
}

std::vector<AcDbObjectId> entriesOf(const AcDbDictionary& dictionary)
{
    std::vector<AcDbObjectId> ids;
    const std::unique_ptr<AcDbDictionaryIterator> walk(dictionary.newIterator());
    for (; !walk->done(); walk->next()) ids.push_back(walk->objectId());
    return ids;
}

std::int32_t sizeOf(const std::vector<AppXData>& all)
{
    std::size_t bytes = 0;
    for (const AppXData& data : all) bytes += data.groups.size();
    return static_cast<std::int32_t>(bytes);
}
} // namespace

int acdbNamedObjDict(ads_name result)
{
    const AcDbDatabase* database = workingDatabase();
    return database ? giveName(database->namedObjectsDictionaryId(), result) : RTERROR;
}

resbuf* acdbDictSearch(const ads_name dictionary, const ACHAR* name, int setNext)
{
    const AcDbDictionary* found = dictionaryOf(dictionary);
    AcDbObjectId id;
    if (!found || found->getAt(name, id) != Acad::eOk) return nullptr;
    if (setNext) {
        std::size_t& position = positionIn(*found);
        position = 0;
        for (const AcDbObjectId entry : entriesOf(*found)) {
            ++position;
            if (entry == id) break;
        }
    }
    return listOfId(id);
}

resbuf* acdbDictNext(const ads_name dictionary, int rewind)
{
    const AcDbDictionary* found = dictionaryOf(dictionary);
    if (!found) return nullptr;
    std::size_t& position = positionIn(*found);
    if (rewind) position = 0;
    const std::vector<AcDbObjectId> entries = entriesOf(*found);
    return position < entries.size() ? listOfId(entries[position++]) : nullptr;
}

int acdbDictAdd(const ads_name dictionary, const ACHAR* name, const ads_name object)
{
    const AcDbDictionaryPointer owner(idOf(dictionary), AcDb::kForWrite);
    const AcDbObjectPointer<AcDbObject> added(idOf(object), AcDb::kForWrite);
    if (owner.openStatus() != Acad::eOk || added.openStatus() != Acad::eOk || owner->has(name)) return RTERROR;
    AcDbObjectId id;
    return owner->setAt(name, added.object(), id) == Acad::eOk ? RTNORM : RTERROR;
}

int acdbDictRemove(const ads_name dictionary, const ACHAR* name)
{
    const AcDbDictionaryPointer owner(idOf(dictionary), AcDb::kForWrite);
    return owner.openStatus() == Acad::eOk && owner->remove(name) == Acad::eOk ? RTNORM : RTERROR;
}

int acdbDictRename(const ads_name dictionary, const ACHAR* oldName, const ACHAR* newName)
{
    const AcDbDictionaryPointer owner(idOf(dictionary), AcDb::kForWrite);
    return owner.openStatus() == Acad::eOk && owner->setName(oldName, newName) ? RTNORM : RTERROR;
}

int acdbXdRoom(const ads_name name, std::int32_t* result)
{
    constexpr std::int32_t room = 16383;
    const AcDbObject* object = residentObject(idOf(name));
    if (!object || !result) return RTERROR;
    const DbObjectExtras* extras = DbObjectAccess::extras(*object);
    *result = room - (extras ? sizeOf(extras->xdata) : 0);
    return RTNORM;
}

int acdbXdSize(const resbuf* list, std::int32_t* result)
{
    if (!list || !result) return RTERROR;
    if (list->restype == -3) list = list->rbnext;
    PackedGroups groups;
    ResbufSource source(list, workingDatabase());
    for (; const DxfGroup* group = source.peek(); source.take()) {
        if (group->code < 1000 || group->code > 1071) return RTERROR;
        if (!group->is(1001)) groups.append(*group);
    }
    if (source.hasFault()) return RTERROR;
    *result = static_cast<std::int32_t>(groups.size());
    return RTNORM;
}

int acdbXStrCase(ACHAR* text)
{
    if (!text) return RTERROR;
    const CString capitals = CString(text).MakeUpper();
    for (int i = 0; i < capitals.GetLength() && text[i]; ++i) text[i] = capitals[i];
    return RTNORM;
}
