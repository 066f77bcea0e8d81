/// Hatches that follow the entities around them.

#include "dbhatch.h"

#include <algorithm>

namespace
{
bool isSource(const hatch::Loop& loop, AcDbObjectId id)
{
    return std::find(loop.sources.begin(), loop.sources.end(), id) != loop.sources.end();
}

/// A source that cannot be opened now does not tell the hatch of its changes.
void attach(AcDbObjectId sourceId, AcDbObjectId hatch)
{
    AcDbObject* source = nullptr;
    if (acdbOpenAcDbObject(source, sourceId, AcDb::kForRead) != Acad::eOk) return;
    if (!source->hasPersistentReactor(hatch) && source->upgradeOpen() == Acad::eOk)
        source->addPersistentReactor(hatch);
    source->close();
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

void AcDbHatch::subClose()
{
    AcDbEntity::subClose();
    writeExtraData();
    if (!mSourcesChanged || !database()) return;
    mSourcesChanged = false;
    AcDbObjectIdArray ids;
    getAssocObjIds(ids);
    for (const AcDbObjectId& id : ids)
        attach(id, objectId());
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

void AcDbHatch::followAgain(const AcDbObject& source)
{
    for (hatch::Loop& loop : mLoops) {
        if (!isSource(loop, source.objectId())) continue;
        hatch::Loop rebuilt;
        rebuilt.type = loop.type;
        AcDbObjectIdArray ids;
        for (const AcDbObjectId& id : loop.sources)
            ids.append(id);
        const Acad::ErrorStatus status = loopOf(ids, AcDbEntity::cast(&source), rebuilt);
        // A source that somebody else changes at this moment tells of it when it is closed.
        if (status == Acad::eWasOpenForWrite) continue;
        if (status == Acad::eOk)
            rebuilt.sources = loop.sources;
        else
            rebuilt = loop, rebuilt.sources.clear();
        loop = std::move(rebuilt);
    }
}

void AcDbHatch::modified(const AcDbObject* object)
{
    if (!object || !object->isModifiedGraphics() || !follows(object->objectId())) return;
    changeWhileTold([&] { followAgain(*object); });
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
