#pragma once

/// The groups of an entity that a filter asks for.

#include "dbentity.h"
#include "gepnt3d.h"

#include <bitset>
#include <string>
#include <vector>

namespace ed
{
/// The codes that are asked for.
class GroupCodes
{
public:
    static constexpr int count = 1072;
    void add(int code)
    {
        if (code >= 0 && code < count) mCodes.set(static_cast<std::size_t>(code));
    }
    bool has(int code) const { return code >= 0 && code < count && mCodes.test(static_cast<std::size_t>(code)); }

private:
    std::bitset<count> mCodes;
};

/// The value of one group; its kind says which member counts.
struct GroupValue {
    enum class Kind { text, number, point, id };
    int code = 0;
    Kind kind = Kind::number;
    double number = 0.0;
    AcGePoint3d point;
    AcDbObjectId id;
    std::wstring text;
};

/// Looks at the entity when it is first asked, and at all codes that may be asked for together.
class EntityGroups
{
public:
    EntityGroups(const AcDbEntity& entity, const GroupCodes& wanted) : mEntity(entity), mWanted(wanted) {}
    const AcDbEntity& entity() const { return mEntity; }
    /// Every value of a wanted code, in order, among others of other codes.
    const std::vector<GroupValue>& values();

private:
    const AcDbEntity& mEntity;
    const GroupCodes& mWanted;
    std::vector<GroupValue> mValues;
    bool mIsRead = false;
};
} // namespace ed
