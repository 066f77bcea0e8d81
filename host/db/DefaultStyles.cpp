#include "DefaultStyles.h"

#include "DatabaseState.h"
#include "dbdict.h"
#include "dbdictdflt.h"
#include "dbproxy.h"
#include "DxfKept.h"

namespace
{
constexpr int byLayerWeight = -2;
// Colours in one number: the kind in the upper byte, C0 for ByLayer and C1 for ByBlock.
constexpr std::int64_t byBlockColor = -1056964608;

AcDbObjectId dictionaryIn(AcDbDatabase& database, const ACHAR* name)
{
    AcDbObjectId id;
    AcDbDictionary* root = nullptr;
    if (database.getNamedObjectsDictionary(root, AcDb::kForWrite) != Acad::eOk) return id;
    if (root->getAt(name, id) != Acad::eOk) {
        auto* made = new AcDbDictionary;
        root->setAt(name, made, id);
        made->close();
    }
    root->close();
    return id;
}

AcDbObjectId entryOf(AcDbObjectId dictionary, const ACHAR* name)
{
    AcDbObjectId id;
    if (const auto* opened = AcDbDictionary::cast(residentObject(dictionary))) opened->getAt(name, id);
    return id;
}

void appendReference(PackedGroups& groups, int code, AcDbObjectId id) { groups.appendHandle(code, id.handle().value()); }

void setHeaderReference(AcDbDatabase& database, const char* variable, int code, AcDbObjectId id)
{
    PackedGroups& groups = DatabaseAccess::of(database).header.at(variable);
    groups.clear();
    appendReference(groups, code, id);
}

/// A material without maps.
PackedGroups materialOf(const char* name)
{
    PackedGroups groups;
    groups.appendText(100, "AcDbMaterial");
    groups.appendText(1, name);
    for (const int map : {72, 77, 171, 175, 179})
        groups.appendInteger(map, 0);
    return groups;
}

void addMaterials(AcDbDatabase& database)
{
    const AcDbObjectId dictionary = database.materialDictionaryId();
    addKeptRecord(dictionary, L"ByBlock", "MATERIAL", materialOf("ByBlock"));
    const AcDbObjectId byLayer = addKeptRecord(dictionary, L"ByLayer", "MATERIAL", materialOf("ByLayer"));
    const AcDbObjectId global = addKeptRecord(dictionary, L"Global", "MATERIAL", materialOf("Global"));
    setHeaderReference(database, "$CMATERIAL", 347, byLayer);
    AcDbLayerTableRecord* zero = nullptr;
    if (acdbOpenObject(zero, database.layerZero(), AcDb::kForWrite) != Acad::eOk) return;
    zero->setMaterialId(global);
    zero->setPlotStyleName(entryOf(database.plotStyleNameDictionaryId(), L"Normal"));
    zero->close();
}

/// The cells of a table: of data, title and headings.
void appendCells(PackedGroups& groups, double height, int alignment)
{
    groups.appendText(7, "Standard");
    groups.appendReal(140, height);
    groups.appendInteger(170, alignment);
    groups.appendInteger(62, 0);
    groups.appendInteger(63, 7);
    groups.appendInteger(283, 0);
    groups.appendInteger(90, 512);
    groups.appendInteger(91, 0);
    groups.appendText(1, "");
    for (int border = 0; border < 6; ++border) {
        groups.appendInteger(274 + border, byLayerWeight);
        groups.appendInteger(284 + border, 1);
        groups.appendInteger(64 + border, 0);
    }
}

PackedGroups tableStyle()
{
    constexpr int topCenter = 2, middleCenter = 5;
    PackedGroups groups;
    groups.appendText(100, "AcDbTableStyle");
    groups.appendInteger(280, 0);
    groups.appendText(3, "Standard");
    groups.appendInteger(70, 0);
    groups.appendInteger(71, 0);
    groups.appendReal(40, 1.5);
    groups.appendReal(41, 1.5);
    groups.appendInteger(280, 0);
    groups.appendInteger(281, 0);
    appendCells(groups, 4.5, topCenter);
    appendCells(groups, 6.0, middleCenter);
    appendCells(groups, 4.5, middleCenter);
    return groups;
}

struct Number {
    int code;
    double value;
};

void append(PackedGroups& groups, std::initializer_list<Number> numbers)
{
    for (const Number& number : numbers) {
        if (dxfKindOf(number.code) == DxfKind::real) {
            groups.appendReal(number.code, number.value);
        } else {
            groups.appendInteger(number.code, static_cast<std::int64_t>(number.value));
        }
    }
}

PackedGroups multileaderStyle(const DatabaseState& state)
{
    constexpr double block = byBlockColor;
    PackedGroups groups;
    groups.appendText(100, "AcDbMLeaderStyle");
    append(groups, {{179, 2}, {170, 2}, {171, 1}, {172, 0}, {90, 2}, {40, 0}, {41, 0}, {173, 1}, {91, block}});
    appendReference(groups, 340, state.byBlock);
    append(groups, {{92, byLayerWeight}, {290, 1}, {42, 2}, {291, 1}, {43, 0.36}});
    groups.appendText(3, "Standard");
    append(groups, {{44, 4}});
    groups.appendText(300, "");
    appendReference(groups, 342, state.textstyle);
    append(groups, {{174, 1}, {178, 6},  {175, 1}, {176, 0}, {93, block}, {45, 4},  {292, 0}, {297, 0},
                    {46, 4},  {94, block}, {47, 1}, {49, 1},  {140, 1},    {293, 1}, {141, 0}, {294, 1},
                    {177, 0}, {142, 1},  {295, 0}, {296, 0}, {143, 0.125}, {271, 0}, {272, 9}, {273, 9}, {298, 1}});
    return groups;
}

void beginViewStyle(PackedGroups& groups, const char* section)
{
    groups.appendText(100, "AcDbModelDocViewStyle");
    append(groups, {{70, 0}});
    groups.appendText(3, "Metric50");
    append(groups, {{290, 0}});
    groups.appendText(300, "Metric50");
    append(groups, {{90, 0}});
    groups.appendText(100, section);
    append(groups, {{70, 0}, {71, 0}});
}

void appendTextLook(PackedGroups& groups, const DatabaseState& state)
{
    appendReference(groups, 340, state.textstyle);
    append(groups, {{62, 256}, {40, 5}});
}

void appendLineLook(PackedGroups& groups, const DatabaseState& state, int weight)
{
    appendReference(groups, 340, state.continuous);
    append(groups, {{90, static_cast<double>(weight)}, {62, 256}});
}

PackedGroups detailViewStyle(const DatabaseState& state)
{
    PackedGroups groups;
    beginViewStyle(groups, "AcDbDetailViewStyle");
    append(groups, {{90, 3}, {71, 1}});
    appendTextLook(groups, state);
    groups.appendHandle(340, 0);
    append(groups, {{62, 256}, {40, 5}});
    groups.appendText(300, "");
    append(groups, {{40, 0}, {280, 1}, {71, 2}});
    appendLineLook(groups, state, 25);
    append(groups, {{71, 3}});
    appendTextLook(groups, state);
    append(groups, {{90, 0}, {40, 15}, {90, 1}});
    groups.appendText(300, "%<\\AcVar ViewDetailId>% (%<\\AcVar ViewScale \\f \"%sn\">%)");
    append(groups, {{71, 4}});
    appendLineLook(groups, state, 25);
    appendLineLook(groups, state, 25);
    append(groups, {{280, 0}});
    return groups;
}

PackedGroups sectionViewStyle(const DatabaseState& state)
{
    constexpr double pi = 3.14159265358979323846;
    PackedGroups groups;
    beginViewStyle(groups, "AcDbSectionViewStyle");
    append(groups, {{90, 102}, {71, 1}});
    appendTextLook(groups, state);
    groups.appendHandle(340, 0);
    groups.appendHandle(340, 0);
    append(groups, {{62, 256}, {40, 5}});
    groups.appendText(300, "I, O, Q, S, X, Z");
    append(groups, {{40, 10}, {90, 0}, {40, 2.5}, {90, 0}, {71, 2}});
    appendLineLook(groups, state, 25);
    appendLineLook(groups, state, 50);
    append(groups, {{40, 5}, {40, 2.5}, {40, 5}, {71, 3}});
    appendTextLook(groups, state);
    append(groups, {{90, 0}, {40, 15}, {90, 1}});
    groups.appendText(300, "%<\\AcVar ViewSectionStartId>%-%<\\AcVar ViewSectionEndId>% "
                           "(%<\\AcVar ViewScale \\f \"%sn\">%)");
    append(groups, {{71, 4}, {62, 256}, {62, 257}});
    groups.appendText(300, "ANSI31");
    append(groups, {{40, 1},      {90, 0},           {290, 0},         {290, 0},          {90, 6},          {40, 0},
                    {40, pi / 2}, {40, pi / 12}, {40, pi * 5 / 12}, {40, -pi / 12}, {40, pi * 7 / 12}});
    return groups;
}

/// The settings of a drawing that are kept apart from the header.
void addVariables(AcDbDatabase& database)
{
    struct Variable {
        const wchar_t* name;
        const char* value;
    };
    constexpr Variable variables[] = {
        {L"CANNOSCALE", "1:1"},          {L"CMLEADERSTYLE", "Standard"},    {L"CTABLESTYLE", "Standard"},
        {L"CVIEWDETAILSTYLE", "Metric50"}, {L"CVIEWSECTIONSTYLE", "Metric50"}, {L"LAYEREVAL", "0"},
        {L"LAYERNOTIFY", "0"},           {L"LIGHTINGUNITS", "2"},           {L"MSLTSCALE", "1"},
    };
    const AcDbObjectId dictionary = dictionaryIn(database, L"AcDbVariableDictionary");
    for (const Variable& variable : variables) {
        PackedGroups groups;
        groups.appendText(100, "DictionaryVariables");
        groups.appendInteger(280, 0);
        groups.appendText(1, variable.value);
        addKeptRecord(dictionary, variable.name, "DICTIONARYVAR", groups);
    }
}
} // namespace

AcDbObjectId addKeptRecord(AcDbObjectId dictionaryId, const ACHAR* name, const char* recordName,
                           const PackedGroups& groups)
{
    AcDbObjectId id;
    AcDbDictionary* dictionary = nullptr;
    if (acdbOpenObject(dictionary, dictionaryId, AcDb::kForWrite) != Acad::eOk) return id;
    auto* object = new AcDbProxyObject(recordName);
    DxfGroup group;
    for (std::size_t at = 0; groups.read(at, group);)
        keepGroup(*object, nullptr, group);
    dictionary->setAt(name, object, id);
    object->close();
    dictionary->close();
    return id;
}

void addDefaultStyles(AcDbDatabase& database)
{
    const DatabaseState& state = DatabaseAccess::of(database);
    addMaterials(database);
    const AcDbObjectId visualStyles = database.visualStyleDictionaryId();
    addVisualStyles(visualStyles);
    setHeaderReference(database, "$INTERFEREOBJVS", 345, entryOf(visualStyles, L"Realistic"));
    setHeaderReference(database, "$INTERFEREVPVS", 346, entryOf(visualStyles, L"Wireframe"));
    addKeptRecord(database.tableStyleDictionaryId(), L"Standard", "TABLESTYLE", tableStyle());
    addKeptRecord(database.mleaderStyleDictionaryId(), L"Standard", "MLEADERSTYLE", multileaderStyle(state));
    addKeptRecord(dictionaryIn(database, L"ACAD_DETAILVIEWSTYLE"), L"Metric50", "ACDBDETAILVIEWSTYLE",
                  detailViewStyle(state));
    addKeptRecord(dictionaryIn(database, L"ACAD_SECTIONVIEWSTYLE"), L"Metric50", "ACDBSECTIONVIEWSTYLE",
                  sectionViewStyle(state));
    addVariables(database);
}
