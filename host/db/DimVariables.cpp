#include "DimVariables.h"

#include "DatabaseState.h"
#include "dbapserv.h"
#include "dbdatabase.h"
#include "dbdimsty.h"
#include "DbObjectAccess.h"

#include <algorithm>
#include <map>

namespace
{
using Member = std::variant<double DimVariables::*, int DimVariables::*, bool DimVariables::*,
                            CString DimVariables::*, AcDbObjectId DimVariables::*>;

const std::map<int, Member>& members()
{
#define DIM_MEMBER(name, Name, code, value) {code, &DimVariables::name},
    static const std::map<int, Member> all = {
        ACDB_DIM_REALS(DIM_MEMBER) ACDB_DIM_ANGLES(DIM_MEMBER) ACDB_DIM_INTEGERS(DIM_MEMBER)
            ACDB_DIM_SWITCHES(DIM_MEMBER) ACDB_DIM_COLORS(DIM_MEMBER) ACDB_DIM_FILL_COLOR(DIM_MEMBER)
                ACDB_DIM_LINEWEIGHTS(DIM_MEMBER) ACDB_DIM_TEXTS(DIM_MEMBER) ACDB_DIM_REFERENCES(DIM_MEMBER)};
#undef DIM_MEMBER
    return all;
}

/// Takes a group of a kind that its variable has; others are left alone.
struct Taker {
    DimVariables& variables;
    const DxfGroup& group;
    AcDbDatabase* database;

    void operator()(double DimVariables::*member) const
    {
        if (group.kind == DxfKind::real) variables.*member = group.real;
    }
    void operator()(int DimVariables::*member) const
    {
        if (group.kind == DxfKind::integer) variables.*member = static_cast<int>(group.integer);
    }
    void operator()(bool DimVariables::*member) const
    {
        if (group.kind == DxfKind::integer) variables.*member = group.integer != 0;
    }
    void operator()(CString DimVariables::*member) const
    {
        if (group.kind == DxfKind::text) variables.*member = group.wide();
    }
    void operator()(AcDbObjectId DimVariables::*member) const
    {
        if (group.kind != DxfKind::handle || !database) return;
        const auto handle = static_cast<std::uint64_t>(group.integer);
        AcDbObjectId id;
        if (handle) database->getAcDbObjectId(id, false, AcDbHandle(handle));
        variables.*member = id;
    }
};

void take(DimVariables& variables, int code, const DxfGroup& group, AcDbDatabase* database)
{
    const auto at = members().find(code);
    if (at != members().end()) std::visit(Taker{variables, group, database}, at->second);
}

void takeStyle(DimVariables& variables, const AcDbDimStyleTableRecord& style)
{
#define DIM_VALUE(name, Name, code, value) variables.name = style.name();
#define DIM_COLOR(name, Name, code, value) variables.name = style.name().colorIndex();
    ACDB_DIM_REALS(DIM_VALUE)
    ACDB_DIM_ANGLES(DIM_VALUE)
    ACDB_DIM_INTEGERS(DIM_VALUE)
    ACDB_DIM_SWITCHES(DIM_VALUE)
    ACDB_DIM_COLORS(DIM_COLOR)
    ACDB_DIM_FILL_COLOR(DIM_COLOR)
    ACDB_DIM_LINEWEIGHTS(DIM_VALUE)
    ACDB_DIM_TEXTS(DIM_VALUE)
    ACDB_DIM_REFERENCES(DIM_VALUE)
#undef DIM_VALUE
#undef DIM_COLOR
}

AcDbDatabase* databaseOf(const AcDbObject& object)
{
    return object.database() ? object.database() : acdbHostApplicationServices()->workingDatabase();
}

AcDbObjectId acadApplication(AcDbDatabase& database)
{
    AcDbObjectId id;
    const auto* table = AcDbRegAppTable::cast(residentObject(database.regAppTableId()));
    if (table) table->getAt(L"ACAD", id);
    return id;
}

AppXData* acadData(const AcDbObject& object)
{
    DbObjectExtras* extras = DbObjectAccess::extras(object);
    AcDbDatabase* database = databaseOf(object);
    if (!extras || !database) return nullptr;
    const AcDbObjectId acad = acadApplication(*database);
    const auto at = std::find_if(extras->xdata.begin(), extras->xdata.end(),
                                 [&](const AppXData& data) { return data.regapp == acad; });
    return at == extras->xdata.end() ? nullptr : &*at;
}

/// Extended data with a list "DSTYLE { code value code value ... }" in it: what stands before the list, in
/// it, and behind it.
struct OverrideList {
    PackedGroups before, pairs, after;
    bool isFound = false;
};

OverrideList overridesIn(const PackedGroups& groups)
{
    OverrideList list;
    enum { before, opening, inside, after } place = before;
    DxfGroup group;
    for (std::size_t at = 0; groups.read(at, group);) {
        const bool isMark = place == before && group.code == 1000 && group.text == "DSTYLE";
        if (isMark) {
            place = opening;
            list.isFound = true;
        } else if (place == opening) {
            place = inside;
        } else if (place == inside && group.code == 1002) {
            place = after;
        } else {
            (place == before ? list.before : place == inside ? list.pairs : list.after).append(group);
        }
    }
    return list;
}

/// Calls `visit` with the code and the value of each override.
template <class Visit>
void forEachPair(const PackedGroups& pairs, Visit visit)
{
    DxfGroup group;
    for (std::size_t at = 0; pairs.read(at, group);) {
        const int code = static_cast<int>(group.integer);
        if (group.code != 1070 || !pairs.read(at, group)) return;
        visit(code, group);
    }
}

struct ValueAppender {
    PackedGroups& groups;
    void operator()(double value) const { groups.appendReal(1040, value); }
    void operator()(int value) const { groups.appendInteger(1070, value); }
    void operator()(bool value) const { groups.appendInteger(1070, value ? 1 : 0); }
    void operator()(const CString& value) const { groups.appendText(1000, utf8Of(value)); }
    void operator()(AcDbObjectId value) const { groups.appendHandle(1005, value.handle()); }
};

PackedGroups joined(const OverrideList& list)
{
    PackedGroups groups = list.before;
    DxfGroup group;
    if (!list.pairs.empty()) {
        groups.appendText(1000, "DSTYLE");
        groups.appendText(1002, "{");
        for (std::size_t at = 0; list.pairs.read(at, group);)
            groups.append(group);
        groups.appendText(1002, "}");
    }
    for (std::size_t at = 0; list.after.read(at, group);)
        groups.append(group);
    return groups;
}

void putAcadData(AcDbObject& object, AcDbObjectId application, PackedGroups groups)
{
    std::vector<AppXData>& all = DbObjectAccess::needExtras(object).xdata;
    const auto at = std::find_if(all.begin(), all.end(),
                                 [&](const AppXData& data) { return data.regapp == application; });
    if (groups.empty()) {
        if (at != all.end()) all.erase(at);
    } else if (at != all.end()) {
        at->groups = std::move(groups);
    } else {
        all.push_back({application, std::move(groups)});
    }
    DbObjectAccess::markXDataModified(object);
}
} // namespace

DimVariables dimVariablesOf(AcDbObjectId style)
{
    DimVariables variables;
    const auto* record = AcDbDimStyleTableRecord::cast(residentObject(style));
    if (record) takeStyle(variables, *record);
    return variables;
}

DimVariables dimVariablesOf(AcDbObjectId style, const AcDbObject& object)
{
    DimVariables variables = dimVariablesOf(style);
    if (const AppXData* data = acadData(object)) {
        forEachPair(overridesIn(data->groups).pairs, [&](int code, const DxfGroup& group) {
            take(variables, code, group, databaseOf(object));
        });
    }
    return variables;
}

Acad::ErrorStatus setDimOverride(AcDbObject& object, int code, const DimValue& value)
{
    AcDbDatabase* database = databaseOf(object);
    if (!database) return Acad::eNoDatabase;
    const Acad::ErrorStatus status = object.assertWriteEnabled();
    if (status != Acad::eOk) return status;
    const AppXData* data = acadData(object);
    OverrideList list = data ? overridesIn(data->groups) : OverrideList();
    PackedGroups pairs;
    forEachPair(list.pairs, [&](int other, const DxfGroup& group) {
        if (other == code) return;
        pairs.appendInteger(1070, other);
        pairs.append(group);
    });
    pairs.appendInteger(1070, code);
    std::visit(ValueAppender{pairs}, value);
    list.pairs = std::move(pairs);
    putAcadData(object, acadApplication(*database), joined(list));
    return Acad::eOk;
}

Acad::ErrorStatus clearDimOverrides(AcDbObject& object)
{
    const Acad::ErrorStatus status = object.assertWriteEnabled();
    const AppXData* data = acadData(object);
    if (status != Acad::eOk || !data) return status;
    OverrideList list = overridesIn(data->groups);
    list.pairs.clear();
    putAcadData(object, data->regapp, joined(list));
    return status;
}
