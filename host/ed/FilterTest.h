#pragma once

/// One condition of a selection filter: a group, and how an entity's own must relate to it.

#include "adsdef.h"
#include "EntityGroups.h"
#include "WildcardPattern.h"

#include <array>
#include <optional>
#include <unordered_map>

namespace ed
{
enum class Relation { any, equal, notEqual, less, lessOrEqual, greater, greaterOrEqual, bitsInCommon, bitsAll };

/// One relation, or one for each coordinate.
struct Relations {
    std::array<Relation, 3> ofCoordinate{Relation::equal, Relation::equal, Relation::equal};
    /// "=", "!=" ...; coordinates that are not named may have any value. Nothing for a text that is no relation.
    static std::optional<Relations> read(const wchar_t* text);
};

class FilterTest
{
public:
    /// Nothing for a group without a value, and where the relation does not suit the kind of value.
    static std::optional<FilterTest> ofGroup(const resbuf& group, const Relations& relations);
    /// A test for extended data of applications that fit a pattern.
    static FilterTest ofApplication(const wchar_t* pattern);

    /// Whether every entity has the group at hand, so that no list of groups is made for it.
    bool isQuick() const;
    void addCode(GroupCodes& codes) const { codes.add(mCode); }
    bool fits(EntityGroups& groups) const;

private:
    FilterTest(int code, Relations relations) : mCode(code), mRelations(relations) {}
    bool takeValue(const resbuf& group, short type);
    bool fitsText(std::wstring_view text) const;
    bool fitsNumber(double number) const;
    bool fitsPoint(const AcGePoint3d& point) const;
    bool fitsId(AcDbObjectId id) const;
    bool fitsValue(const GroupValue& value) const;
    bool fitsProperty(const AcDbEntity& entity) const;
    bool fitsXData(const AcDbEntity& entity) const;
    /// The same answer for the same owner of a name: asked once.
    template <class Name>
    bool fitsNameOf(const void* key, Name name) const;

    int mCode;
    Relations mRelations;
    GroupValue mValue;
    std::optional<WildcardPattern> mPattern;
    mutable std::unordered_map<const void*, bool> mKnown;
};
} // namespace ed
