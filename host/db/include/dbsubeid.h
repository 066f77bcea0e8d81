#pragma once

/// Parts of entities by path: the entity, inside of block references, and one of its faces, edges or
/// vertices.

#include "acdb.h"
#include "dbidar.h"

namespace AcDb
{
enum SubentType {
    kNullSubentType = 0,
    kFaceSubentType,
    kEdgeSubentType,
    kVertexSubentType,
    kMlineSubentCache,
    kClassSubentType
};
}

class AcDbSubentId
{
public:
    AcDbSubentId() = default;
    AcDbSubentId(AcDb::SubentType type, Adesk::GsMarker index) : mType(type), mIndex(index) {}

    AcDb::SubentType type() const { return mType; }
    void setType(AcDb::SubentType type) { mType = type; }
    /// From 1; 0 for no part.
    Adesk::GsMarker index() const { return mIndex; }
    void setIndex(Adesk::GsMarker index) { mIndex = index; }
    bool operator==(const AcDbSubentId& other) const
    {
        return mType == other.mType && mIndex == other.mIndex;
    }
    bool operator!=(const AcDbSubentId& other) const { return !(*this == other); }

private:
    AcDb::SubentType mType = AcDb::kNullSubentType;
    Adesk::GsMarker mIndex = 0;
};

/// The ids run from the outermost block reference to the entity.
class AcDbFullSubentPath
{
public:
    AcDbFullSubentPath() = default;
    AcDbFullSubentPath(AcDb::SubentType type, Adesk::GsMarker index) : mSubentId(type, index) {}
    AcDbFullSubentPath(AcDbObjectId entity, AcDb::SubentType type, Adesk::GsMarker index)
        : mObjectIds{entity}, mSubentId(type, index)
    {
    }
    AcDbFullSubentPath(AcDbObjectId entity, const AcDbSubentId& subent)
        : mObjectIds{entity}, mSubentId(subent)
    {
    }
    AcDbFullSubentPath(const AcDbObjectIdArray& objectIds, const AcDbSubentId& subent)
        : mObjectIds(objectIds), mSubentId(subent)
    {
    }

    const AcDbSubentId& subentId() const { return mSubentId; }
    AcDbSubentId& subentId() { return mSubentId; }
    const AcDbObjectIdArray& objectIds() const { return mObjectIds; }
    AcDbObjectIdArray& objectIds() { return mObjectIds; }
    bool operator==(const AcDbFullSubentPath& other) const
    {
        return mSubentId == other.mSubentId && mObjectIds == other.mObjectIds;
    }
    bool operator!=(const AcDbFullSubentPath& other) const { return !(*this == other); }

private:
    AcDbObjectIdArray mObjectIds;
    AcDbSubentId mSubentId;
};
