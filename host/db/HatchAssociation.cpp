/// Hatches that follow the entities around them.

#include "DbObjectAccess.h"
#include "dbhatch.h"
#include "HatchSources.h"

#include <algorithm>

namespace
{
bool isSource(const hatch::Loop& loop, AcDbObjectId id)
{
    return std::find(loop.sources.begin(), loop.sources.end(), id) != loop.sources.end();
}

/// A source that cannot be opened now does not tell the hatch of its changes. One on a locked layer does: it
/// is not changed itself, and the layer may be unlocked later.
void attach(AcDbObjectId sourceId, AcDbObjectId hatch)
{
    AcDbObject* source = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(source, sourceId, AcDb::kForWrite);
    AcDbObject* const locked = status == Acad::eOnLockedLayer ? residentObject(sourceId) : nullptr;
    if (locked && DbObjectAccess::openUnlocked(*locked) == Acad::eOk) source = locked;
    if (!source) return;
    source->addPersistentReactor(hatch);
    source->close();
}

std::vector<AcDbObjectId> allSources(const std::vector<hatch::Loop>& loops)
{
    std::vector<AcDbObjectId> ids;
    for (const hatch::Loop& loop : loops)
        ids.insert(ids.end(), loop.sources.begin(), loop.sources.end());
    return ids;
}

using LoopPosition = std::vector<hatch::Loop>::const_iterator;

/// Behind the loops that a region makes together, which are neighbours; behind one of any other loop.
LoopPosition behindGroup(LoopPosition first, LoopPosition end)
{
    return std::find_if(std::next(first), end, [first](const hatch::Loop& loop) {
        return loop.sources.empty() || loop.sources != first->sources;
    });
}

/// The loops after a change of one of their sources: those that follow it are built anew, or all of them.
/// Loops that cannot be built are copied as they are; false then.
bool rebuilt(const std::vector<hatch::Loop>& loops, const AcDbEntity& source, const hatch::Plane& plane,
             bool all, std::vector<hatch::Loop>& result)
{
    bool isWhole = true;
    for (auto at = loops.begin(), next = at; at != loops.end(); at = next) {
        next = behindGroup(at, loops.end());
        const bool follows = all || isSource(*at, source.objectId());
        std::vector<hatch::Loop> made;
        if (follows && hatch::loopsOf(at->sources, &source, plane, at->type, made) == Acad::eOk) {
            for (hatch::Loop& loop : made)
                loop.sources = at->sources;
        } else {
            made.assign(at, next);
            isWhole = isWhole && !follows;
        }
        std::move(made.begin(), made.end(), std::back_inserter(result));
    }
    return isWhole;
}
} // namespace

Acad::ErrorStatus AcDbHatch::setAssociative(bool isAssociative)
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mAssociative = isAssociative;
    if (!isAssociative)
        for (hatch::Loop& loop : mLoops)
            loop.sources.clear();
    return status;
}

Acad::ErrorStatus AcDbHatch::getAssocObjIdsAt(int loopIndex, AcDbObjectIdArray& ids) const
{
    if (loopIndex < 0 || loopIndex >= numLoops()) return Acad::eInvalidIndex;
    for (const AcDbObjectId& id : mLoops[static_cast<std::size_t>(loopIndex)].sources)
        ids.append(id);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getAssocObjIds(AcDbObjectIdArray& ids) const
{
    for (int i = 0; i < numLoops(); ++i)
        getAssocObjIdsAt(i, ids);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::removeAssocObjIds()
{
    return setAssociative(false);
}

Acad::ErrorStatus AcDbHatch::subClose()
{
    writeExtraData();
    if (!mSourcesChanged || !database()) return AcDbEntity::subClose();
    mSourcesChanged = false;
    AcDbObjectIdArray ids;
    getAssocObjIds(ids);
    for (const AcDbObjectId& id : ids)
        attach(id, objectId());
    return AcDbEntity::subClose();
}

bool AcDbHatch::follows(AcDbObjectId id) const
{
    return associative() && std::any_of(mLoops.begin(), mLoops.end(),
                                        [id](const hatch::Loop& loop) { return isSource(loop, id); });
}

template <class Change>
void AcDbHatch::changeWhileTold(Change change)
{
    bool wasWritable = false;
    if (upgradeFromNotify(wasWritable) != Acad::eOk) return;
    if (beginPatternChange() == Acad::eOk) change();
    // The one who tells closes what it opened; an opening for write of somebody else goes on.
    if (wasWritable) downgradeToNotify(true);
}

void AcDbHatch::followAgain(const AcDbEntity& source)
{
    hatch::Plane place = plane();
    const bool hasLeft = !hatch::isIn(source, place);
    // Entities of a boundary are changed one after the other: until the last of them lies in the new plane,
    // or closes the chain again, the hatch waits.
    if (hasLeft && !hatch::commonPlane(allSources(mLoops), &source, place)) return;
    std::vector<hatch::Loop> loops;
    const bool isWhole = rebuilt(mLoops, source, place, hasLeft, loops);
    if (hasLeft && !isWhole) return;
    mLoops = std::move(loops);
    mNormal = place.normal;
    mElevation.z = place.elevation;
}

void AcDbHatch::modified(const AcDbObject* object)
{
    if (!object || !object->isModifiedGraphics() || !follows(object->objectId())) return;
    const AcDbEntity* const source = AcDbEntity::cast(object);
    if (source) changeWhileTold([&] { followAgain(*source); });
}

void AcDbHatch::erased(const AcDbObject* object, bool isErasing)
{
    if (!object || !isErasing || !follows(object->objectId())) return;
    changeWhileTold([&] {
        for (hatch::Loop& loop : mLoops)
            if (isSource(loop, object->objectId())) loop.sources.clear();
        mAssociative =
            std::any_of(mLoops.begin(), mLoops.end(), [](const auto& loop) { return !loop.sources.empty(); });
    });
}
