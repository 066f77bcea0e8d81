#include "DefaultDrawing.h"

#include "AddRecord.h"
#include "DatabaseState.h"
#include "DxfKept.h"
#include "dbdict.h"
#include "dbproxy.h"

namespace
{
/// Puts a record that is nothing but groups into a dictionary.
void addKept(AcDbObjectId dictionaryId, const ACHAR* name, const char* recordName, const PackedGroups& groups)
{
    AcDbDictionary* dictionary = nullptr;
    if (acdbOpenObject(dictionary, dictionaryId, AcDb::kForWrite) != Acad::eOk) return;
    auto* object = new AcDbProxyObject(recordName);
    DxfGroup group;
    for (std::size_t at = 0; groups.read(at, group);) keepGroup(*object, nullptr, group);
    AcDbObjectId id;
    dictionary->setAt(name, object, id);
    object->close();
    dictionary->close();
}

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
        addKept(database.scaleListDictionaryId(), entry, "SCALE", scaleOf(scale.name, scale.paper, scale.drawing));
    }
}
} // namespace

void addDefaultContents(AcDbDatabase& database)
{
    DatabaseState& state = DatabaseAccess::of(database);
    addRecord<AcDbDimStyleTable>(database, new AcDbDimStyleTableRecord, L"Standard");
    state.dimstyle = addRecord<AcDbDimStyleTable>(database, new AcDbDimStyleTableRecord, L"ISO-25");
    auto* viewport = new AcDbViewportTableRecord;
    viewport->setCenterPoint({210.0, 148.5}); // the limits of a new metric drawing, over the whole height
    viewport->setHeight(297.0);
    viewport->setWidth(297.0 * 16.0 / 9.0);
    viewport->setGridIncrements({10.0, 10.0});
    viewport->setSnapIncrements({10.0, 10.0});
    addRecord<AcDbViewportTable>(database, viewport, L"*Active");
    addKept(database.mLStyleDictionaryId(), L"Standard", "MLINESTYLE", multilineStyle());
    addScales(database);
}
