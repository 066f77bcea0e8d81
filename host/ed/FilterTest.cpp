#include "FilterTest.h"

#include "acutads.h"
#include "dbblock.h"
#include "dbdatabase.h"
#include "DbObjectAccess.h"
#include "EntityAccess.h"
#include "Stub.h"

#include <algorithm>
#include <cmath>

namespace
{
using ed::GroupValue;
using ed::Relation;

constexpr int kindCode = 0, linetypeCode = 6, layerCode = 8, visibilityCode = 60, colorCode = 62, paperCode = 67,
              ownerCode = 330, layoutCode = 410, xdataCode = -3;
constexpr int quickCodes[] = {kindCode,  linetypeCode, layerCode, visibilityCode,
                              colorCode, paperCode,    ownerCode, layoutCode};

std::optional<Relation> relationOf(std::wstring_view text)
{
    static constexpr std::pair<std::wstring_view, Relation> all[] = {
        {L"*", Relation::any},          {L"=", Relation::equal},     {L"!=", Relation::notEqual},
        {L"/=", Relation::notEqual},    {L"<>", Relation::notEqual}, {L"<", Relation::less},
        {L"<=", Relation::lessOrEqual}, {L">", Relation::greater},   {L">=", Relation::greaterOrEqual},
        {L"&", Relation::bitsInCommon}, {L"&=", Relation::bitsAll},
    };
    for (const auto& [name, relation] : all) {
        if (name == text) return relation;
    }
    return std::nullopt;
}

bool isForBits(Relation relation)
{
    return relation == Relation::bitsInCommon || relation == Relation::bitsAll;
}
bool isForAll(Relation relation)
{
    return relation == Relation::any || relation == Relation::equal || relation == Relation::notEqual;
}

/// Numbers of drawings are equal when they differ in the last digits only.
bool areEqual(double a, double b)
{
    return std::fabs(a - b) <= 1e-9 * std::max({1.0, std::fabs(a), std::fabs(b)});
}

bool relates(double a, Relation relation, double b)
{
    const auto bits = static_cast<std::int64_t>(a), mask = static_cast<std::int64_t>(b);
    switch (relation) {
    case Relation::any:
        return true;
    case Relation::equal:
        return areEqual(a, b);
    case Relation::notEqual:
        return !areEqual(a, b);
    case Relation::less:
        return a < b && !areEqual(a, b);
    case Relation::lessOrEqual:
        return a < b || areEqual(a, b);
    case Relation::greater:
        return a > b && !areEqual(a, b);
    case Relation::greaterOrEqual:
        return a > b || areEqual(a, b);
    case Relation::bitsInCommon:
        return (bits & mask) != 0;
    case Relation::bitsAll:
        return (bits & mask) == mask;
    }
    return false;
}

/// Contents of texts are what they are; all other texts are names.
bool isName(int code)
{
    return code != 1;
}

const AcDbBlockTableRecord* blockOf(const AcDbEntity& entity)
{
    return AcDbBlockTableRecord::cast(residentObject(entity.ownerId()));
}

int paperFlagOf(const AcDbEntity& entity)
{
    const AcDbBlockTableRecord* block = blockOf(entity);
    return block && block->isLayout() && block->name().CompareNoCase(ACDB_MODEL_SPACE) != 0;
}

std::wstring layoutOf(const AcDbEntity& entity)
{
    const AcDbBlockTableRecord* block = blockOf(entity);
    return block && block->isLayout() ? acdbLayoutNameOf(*block).GetString() : L"";
}

int colorOf(const AcDbEntity& entity)
{
    return entity.entityColor().isByColor() ? EntityAccess::fileColorIndex(entity) : entity.entityColor().colorIndex();
}

std::wstring recordName(AcDbObjectId id)
{
    const auto* record = AcDbSymbolTableRecord::cast(residentObject(id));
    return record ? record->name().GetString() : L"";
}
} // namespace

namespace ed
{
std::optional<Relations> Relations::read(const wchar_t* text)
{
    if (!text) return std::nullopt;
    std::wstring_view rest = text;
    Relations made;
    made.ofCoordinate.fill(Relation::any);
    for (Relation& relation : made.ofCoordinate) {
        const std::size_t comma = rest.find(L',');
        const std::optional<Relation> one = relationOf(rest.substr(0, comma));
        if (!one) return std::nullopt;
        relation = *one;
        if (comma == std::wstring_view::npos) return made;
        rest.remove_prefix(comma + 1);
    }
    return std::nullopt;
}

std::optional<FilterTest> FilterTest::ofGroup(const resbuf& group, const Relations& relations)
{
    FilterTest made(group.restype == RTDXF0 ? 0 : group.restype, relations);
    const short type = acdbGroupCodeToType(static_cast<short>(made.mCode));
    if (!made.takeValue(group, type)) return std::nullopt;
    const auto& all = relations.ofCoordinate;
    const bool isWhole = type == RTSHORT || type == RTLONG || type == RTINT64;
    if (!isWhole && std::any_of(all.begin(), all.end(), isForBits)) return std::nullopt;
    const bool isOrdered = isWhole || type == RTREAL || type == RT3DPOINT;
    if (!isOrdered && !isForAll(all[0])) return std::nullopt;
    return made;
}

FilterTest FilterTest::ofApplication(const wchar_t* pattern)
{
    FilterTest made(xdataCode, {});
    made.mPattern.emplace(pattern, true);
    return made;
}

bool FilterTest::takeValue(const resbuf& group, short type)
{
    switch (type) {
    case RTSTR:
        if (!group.resval.rstring) return false;
        mValue.text = group.resval.rstring;
        mPattern.emplace(mValue.text, isName(mCode));
        return true;
    case RTREAL:
        mValue.number = group.resval.rreal;
        return std::isfinite(mValue.number);
    case RTSHORT:
        mValue.number = group.resval.rint;
        return true;
    case RTLONG:
        mValue.number = group.resval.rlong;
        return true;
    case RTINT64:
        mValue.number = static_cast<double>(group.resval.mnInt64);
        return true;
    case RT3DPOINT:
        mValue.point.set(group.resval.rpoint[X], group.resval.rpoint[Y], group.resval.rpoint[Z]);
        return std::isfinite(mValue.point.x) && std::isfinite(mValue.point.y) && std::isfinite(mValue.point.z);
    case RTENAME:
        mValue.id.setFromOldId(static_cast<std::intptr_t>(group.resval.rlname[0]));
        return true;
    default:
        return false;
    }
}

bool FilterTest::isQuick() const
{
    return mCode == xdataCode || std::find(std::begin(quickCodes), std::end(quickCodes), mCode) != std::end(quickCodes);
}

bool FilterTest::fits(EntityGroups& groups) const
{
    if (mCode == xdataCode) return fitsXData(groups.entity());
    if (isQuick()) return fitsProperty(groups.entity());
    const std::vector<GroupValue>& values = groups.values();
    return std::any_of(values.begin(), values.end(),
                       [this](const GroupValue& value) { return value.code == mCode && fitsValue(value); });
}

bool FilterTest::fitsText(std::wstring_view text) const
{
    if (mRelations.ofCoordinate[0] == Relation::any) return true;
    return mPattern->matches(text) == (mRelations.ofCoordinate[0] == Relation::equal);
}

bool FilterTest::fitsNumber(double number) const
{
    return relates(number, mRelations.ofCoordinate[0], mValue.number);
}

bool FilterTest::fitsPoint(const AcGePoint3d& point) const
{
    const auto& all = mRelations.ofCoordinate;
    return relates(point.x, all[0], mValue.point.x) && relates(point.y, all[1], mValue.point.y) &&
           relates(point.z, all[2], mValue.point.z);
}

bool FilterTest::fitsId(AcDbObjectId id) const
{
    if (mRelations.ofCoordinate[0] == Relation::any) return true;
    return (id == mValue.id) == (mRelations.ofCoordinate[0] == Relation::equal);
}

bool FilterTest::fitsValue(const GroupValue& value) const
{
    switch (value.kind) {
    case GroupValue::Kind::text:
        return mPattern && fitsText(value.text);
    case GroupValue::Kind::point:
        return fitsPoint(value.point);
    case GroupValue::Kind::id:
        return fitsId(value.id);
    case GroupValue::Kind::number:
        break;
    }
    return fitsNumber(value.number);
}

template <class Name>
bool FilterTest::fitsNameOf(const void* key, Name name) const
{
    const auto [known, isNew] = mKnown.try_emplace(key, false);
    if (isNew) known->second = fitsText(name());
    return known->second;
}

bool FilterTest::fitsProperty(const AcDbEntity& entity) const
{
    switch (mCode) {
    case kindCode: {
        const std::string_view kind = entity.dxfRecordName();
        return fitsNameOf(kind.data(), [kind] { return std::wstring(kind.begin(), kind.end()); });
    }
    case layerCode:
        return fitsNameOf(entity.layerId(), [&] { return recordName(entity.layerId()); });
    case linetypeCode:
        return fitsNameOf(entity.linetypeId(), [&] { return recordName(entity.linetypeId()); });
    case layoutCode:
        return fitsNameOf(entity.ownerId(), [&] { return layoutOf(entity); });
    case ownerCode:
        return fitsId(entity.ownerId());
    case visibilityCode:
        return fitsNumber(entity.visibility() == AcDb::kInvisible);
    case colorCode:
        return fitsNumber(colorOf(entity));
    default:
        return fitsNumber(paperFlagOf(entity));
    }
}

bool FilterTest::fitsXData(const AcDbEntity& entity) const
{
    const DbObjectExtras* extras = DbObjectAccess::extras(entity);
    if (!extras) return false;
    return std::any_of(extras->xdata.begin(), extras->xdata.end(), [this](const AppXData& data) {
        return fitsNameOf(data.regapp, [&] { return recordName(data.regapp); });
    });
}
} // namespace ed
