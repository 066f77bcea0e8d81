#include "DefaultDrawing.h"

#include "AddRecord.h"
#include "DatabaseState.h"
#include "dbdict.h"
#include "DefaultStyles.h"
#include "DrawingStamps.h"
#include "Stub.h"

namespace
{
/// Two lines, half a unit to each side.
PackedGroups multilineStyle()
{
    PackedGroups groups;
    groups.appendText(100, "AcDbMlineStyle");
    groups.appendText(2, "Standard");
    groups.appendInteger(70, 0);
    groups.appendText(3, "");
    groups.appendInteger(62, 256);
    groups.appendReal(51, 90.0);
    groups.appendReal(52, 90.0);
    groups.appendInteger(71, 2);
    for (const double offset : {0.5, -0.5}) {
        groups.appendReal(49, offset);
        groups.appendInteger(62, 256);
        groups.appendText(6, "BYLAYER");
    }
    return groups;
}

PackedGroups scaleOf(const char* name, double paper, double drawing)
{
    PackedGroups groups;
    groups.appendText(100, "AcDbScale");
    groups.appendInteger(70, 0);
    groups.appendText(300, name);
    groups.appendReal(140, paper);
    groups.appendReal(141, drawing);
    groups.appendInteger(290, paper == drawing);
    return groups;
}

void addScales(AcDbDatabase& database)
{
    struct Scale {
        const char* name;
        double paper, drawing;
    };
    static const Scale scales[] = {{"1:1", 1, 1},   {"1:2", 1, 2},   {"1:4", 1, 4},   {"1:5", 1, 5},
                                   {"1:8", 1, 8},   {"1:10", 1, 10}, {"1:16", 1, 16}, {"1:20", 1, 20},
                                   {"1:30", 1, 30}, {"1:40", 1, 40}, {"1:50", 1, 50}, {"1:100", 1, 100},
                                   {"2:1", 2, 1},   {"4:1", 4, 1},   {"8:1", 8, 1},   {"10:1", 10, 1},
                                   {"100:1", 100, 1}};
    CString entry;
    int number = 0;
    for (const Scale& scale : scales) {
        entry.Format(L"A%d", number++);
        addKeptRecord(database.scaleListDictionaryId(), entry, "SCALE", scaleOf(scale.name, scale.paper, scale.drawing));
    }
}

AcDbObjectId visualStyleOf(AcDbDatabase& database)
{
    AcDbObjectId id;
    const auto* styles = AcDbDictionary::cast(residentObject(database.visualStyleDictionaryId()));
    if (styles) styles->getAt(L"2dWireframe", id);
    return id;
}

/// The current style of a drawing in whose dimension variables nothing was changed yet.
AcDbDimStyleTableRecord* styleOfVariables(const AcDbDatabase& database)
{
    AcDbDimStyleTableRecord* style = nullptr;
    database.getDimstyleData(style);
    return style;
}
} // namespace

void addDefaultContents(AcDbDatabase& database)
{
    DatabaseState& state = DatabaseAccess::of(database);
    addDefaultStyles(database);
    auto* standard = new AcDbDimStyleTableRecord;
    standard->setDimtxsty(state.textstyle);
    addRecord<AcDbDimStyleTable>(database, standard, L"Standard");
    state.dimstyle = addRecord<AcDbDimStyleTable>(database, styleOfVariables(database), L"ISO-25");
    auto* viewport = new AcDbViewportTableRecord;
    viewport->setCenterPoint({210.0, 148.5}); // the limits of a new metric drawing, over the whole height
    viewport->setHeight(297.0);
    viewport->setWidth(297.0 * 16.0 / 9.0);
    viewport->setGridIncrements({10.0, 10.0});
    viewport->setSnapIncrements({10.0, 10.0});
    viewport->setVisualStyle(visualStyleOf(database));
    addRecord<AcDbViewportTable>(database, viewport, L"*Active");
    addKeptRecord(database.mLStyleDictionaryId(), L"Standard", "MLINESTYLE", multilineStyle());
    addScales(database);
    stamps::create(database);
}
