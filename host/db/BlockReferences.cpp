/// Who refers to a block. A block lists what shows it, and is asked without looking through the drawing.

#include "BlockAccess.h"
#include "Stub.h"
#include "dbblkref.h"

#include <unordered_set>

bool BlockAccess::isShownBy(const AcDbBlockTableRecord& block, AcDbObjectId id)
{
    if (!residentObject(id) || id.isEffectivelyErased()) return false;
    // What a file lists and is no reference itself shows the block in a way of its own: a table.
    const auto* reference = AcDbBlockReference::cast(residentObject(id));
    return !reference || reference->blockTableRecord() == block.objectId();
}

std::vector<AcDbObjectId> BlockAccess::livingReferences(const AcDbBlockTableRecord& block)
{
    std::vector<AcDbObjectId> living;
    std::unordered_set<AcDbObjectId> seen;
    for (const AcDbObjectId id : block.mReferences) {
        if (isShownBy(block, id) && seen.insert(id).second) living.push_back(id);
    }
    return living;
}

void BlockAccess::checkReferences(AcDbBlockTableRecord& block)
{
    for (const AcDbObjectId id : block.mReferences) {
        if (isShownBy(block, id) && AcDbBlockReference::cast(residentObject(id)))
            static_cast<AcDbBlockReference*>(residentObject(id))->mIsListed = true;
    }
}

Acad::ErrorStatus AcDbBlockTableRecord::getBlockReferenceIds(AcDbObjectIdArray& ids, bool directOnly, bool) const
{
    if (!database()) return Acad::eNotInDatabase;
    std::vector<const AcDbBlockTableRecord*> blocks{this};
    std::unordered_set<const AcDbBlockTableRecord*> met{this};
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        for (const AcDbObjectId id : BlockAccess::livingReferences(*blocks[i])) {
            ids.append(id);
            // References to a block that holds this one show this one too.
            const auto* holder = AcDbBlockTableRecord::cast(residentObject(residentObject(id)->ownerId()));
            if (!directOnly && holder && met.insert(holder).second) blocks.push_back(holder);
        }
    }
    return Acad::eOk;
}
