/// Selection sets by their names.

#include "acdbads.h"
#include "acedselect.h"
#include "dbentity.h"
#include "Documents.h"
#include "ResbufCopy.h"
#include "SelectionState.h"
#include "Stub.h"

namespace
{
/// What names of sets have in the place of an id: no object, so that those who take the name for an entity's find none.
AcDbStub noObject;

std::int64_t nextNumber()
{
    static std::int64_t last = 0;
    return ++last;
}

/// The entity of a name, also an erased one; null for what is none.
AcDbObjectId entityOf(const ads_name name)
{
    AcDbObjectId id;
    if (!name || name[1] != 0 || acdbGetObjectId(id, name) != Acad::eOk) return AcDbObjectId();
    return AcDbEntity::cast(residentObject(id)) ? id : AcDbObjectId();
}

/// Null, or all zeros.
bool isNone(const ads_name name)
{
    return !name || ads_name_nil(name);
}

int give(const ed::SelectionSet& set, resbuf** result)
{
    if (!result) return RTNORM;
    *result = nullptr;
    ads_name name;
    if (!ed::giveSelectionSet(set, name)) return RTERROR;
    *result = acutNewRb(RTPICKS);
    ads_name_set(name, (*result)->resval.rlname);
    return RTNORM;
}
} // namespace

namespace ed
{
SelectionState* currentSelection()
{
    DocumentState* state = documents::current();
    return state ? &state->selection : nullptr;
}

SelectionSet* selectionSet(const ads_name name)
{
    SelectionState* state = currentSelection();
    if (!state || !name || name[0] != reinterpret_cast<std::intptr_t>(&noObject)) return nullptr;
    const auto found = state->sets.find(name[1]);
    return found == state->sets.end() ? nullptr : &found->second;
}

bool giveSelectionSet(SelectionSet set, ads_name name)
{
    ads_name_clear(name);
    SelectionState* state = currentSelection();
    if (!state || state->sets.size() >= mostSelectionSets) return false;
    name[0] = reinterpret_cast<std::intptr_t>(&noObject);
    name[1] = nextNumber();
    state->sets.emplace(name[1], std::move(set));
    return true;
}
} // namespace ed

int acedSSAdd(const ads_name entity, const ads_name ss, ads_name result)
{
    const AcDbObjectId id = isNone(entity) ? AcDbObjectId() : entityOf(entity);
    if (!result || (!isNone(entity) && (id.isNull() || id.isErased()))) return RTERROR;
    if (isNone(ss)) {
        ed::SelectionSet made;
        if (!id.isNull()) made.add(id);
        return ed::giveSelectionSet(std::move(made), result) ? RTNORM : RTERROR;
    }
    ed::SelectionSet* set = ed::selectionSet(ss);
    if (!set) return RTERROR;
    if (!id.isNull()) set->add(id);
    ads_name_set(ss, result);
    return RTNORM;
}

int acedSSDel(const ads_name entity, const ads_name ss)
{
    ed::SelectionSet* set = ed::selectionSet(ss);
    return set && set->remove(entityOf(entity)) ? RTNORM : RTERROR;
}

int acedSSFree(const ads_name ss)
{
    if (!ed::selectionSet(ss)) return RTERROR;
    ed::currentSelection()->sets.erase(ss[1]);
    return RTNORM;
}

int acedSSLength(const ads_name ss, Adesk::Int32* length)
{
    const ed::SelectionSet* set = ed::selectionSet(ss);
    if (!set || !length) return RTERROR;
    *length = static_cast<Adesk::Int32>(set->size());
    return RTNORM;
}

int acedSSLength(const ads_name ss, long* length)
{
    Adesk::Int32 count = 0;
    if (!length || acedSSLength(ss, &count) != RTNORM) return RTERROR;
    *length = count;
    return RTNORM;
}

int acedSSName(const ads_name ss, Adesk::Int32 index, ads_name entity)
{
    const ed::SelectionSet* set = ed::selectionSet(ss);
    if (!set || !entity || index < 0 || static_cast<std::size_t>(index) >= set->size()) return RTERROR;
    entity[0] = set->at(static_cast<std::size_t>(index)).asOldId();
    entity[1] = 0;
    return RTNORM;
}

int acedSSMemb(const ads_name entity, const ads_name ss)
{
    const ed::SelectionSet* set = ed::selectionSet(ss);
    return set && set->contains(entityOf(entity)) ? RTNORM : RTERROR;
}

int acedSSGetFirst(resbuf** grips, resbuf** pickfirst)
{
    for (resbuf** result : {grips, pickfirst}) {
        if (result) *result = nullptr;
    }
    const ed::SelectionState* state = ed::currentSelection();
    if (!state || state->implied.empty()) return RTERROR;
    if (give(state->implied, grips) != RTNORM) return RTERROR;
    if (give(state->implied, pickfirst) == RTNORM) return RTNORM;
    if (grips) {
        acedSSFree((*grips)->resval.rlname);
        acutRelRb(*grips);
        *grips = nullptr;
    }
    return RTERROR;
}

int acedSSSetFirst(const ads_name grips, const ads_name pickfirst)
{
    ed::SelectionState* state = ed::currentSelection();
    const std::int64_t* chosen = isNone(pickfirst) ? grips : pickfirst;
    const ed::SelectionSet* set = isNone(chosen) ? nullptr : ed::selectionSet(chosen);
    if (!state || (!set && !isNone(chosen))) return RTERROR;
    state->implied = set ? ed::SelectionSet(set->ids()) : ed::SelectionSet();
    return RTNORM;
}

Acad::ErrorStatus acedGetCurrentSelectionSet(AcDbObjectIdArray& ids)
{
    const ed::SelectionState* state = ed::currentSelection();
    if (!state) return Acad::eInvalidInput;
    ids.setLogicalLength(0);
    const ed::SelectionSet& current = state->gathering ? *state->gathering : state->implied;
    for (const AcDbObjectId id : current.ids()) ids.append(id);
    return Acad::eOk;
}
