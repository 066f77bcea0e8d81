#include "GridStyles.h"

#include "QmCADLib.h"

#include "arxHeaders.h"
#include "dbdimsty.h"
#include "dblinetp.h"
#include "dbobjptr.h"

namespace
{
struct LayerLook {
    const wchar_t* name;
    int color;
    bool isDashDotted;
    AcDb::LineWeight weight;
};

constexpr LayerLook layers[] = {
    {axisLayer, 1, true, AcDb::kLnWt013},        {labelLayer, 3, false, AcDb::kLnWt018},
    {outlineLayer, 4, false, AcDb::kLnWt050},    {hatchLayer, 253, false, AcDb::kLnWt000},
    {dimensionLayer, 5, false, AcDb::kLnWt013},
};

constexpr wchar_t axisLinetype[] = L"轴线";
constexpr double dash = 12.0, gap = 2.0, dot = 0.0; ///< millimetres of paper

AcDbDatabase* drawing() { return acdbHostApplicationServices()->workingDatabase(); }

/// The id of a record of a table of the drawing, made with `fill` when it is missing; null when it cannot be.
template <class Table, class Record, class Fill>
AcDbObjectId recordOf(AcDbObjectId tableId, const wchar_t* name, Fill fill)
{
    const AcDbObjectPointer<Table> table(tableId, AcDb::kForWrite);
    AcDbObjectId id;
    if (table.openStatus() != Acad::eOk || table->getAt(name, id) == Acad::eOk) return id;
    auto record = std::make_unique<Record>();
    if (record->setName(name) != Acad::eOk) return id;
    fill(*record);
    if (table->add(id, record.get()) == Acad::eOk) record.release()->close();
    return id;
}

AcDbObjectId makeAxisLinetype(double scale)
{
    return recordOf<AcDbLinetypeTable, AcDbLinetypeTableRecord>(
        drawing()->linetypeTableId(), axisLinetype, [scale](AcDbLinetypeTableRecord& record) {
            const double pieces[] = {dash, -gap, dot, -gap};
            record.setComments(L"____ . ____ . ____");
            record.setNumDashes(4);
            record.setPatternLength((dash + 2.0 * gap) * scale / drawing()->ltscale());
            for (int i = 0; i < 4; ++i) record.setDashLengthAt(i, pieces[i] * scale / drawing()->ltscale());
        });
}

bool makeLayer(const LayerLook& look, AcDbObjectId dashDotted)
{
    return !recordOf<AcDbLayerTable, AcDbLayerTableRecord>(
                drawing()->layerTableId(), look.name, [&](AcDbLayerTableRecord& layer) {
                    AcCmColor color;
                    color.setColorIndex(static_cast<Adesk::UInt16>(look.color));
                    layer.setColor(color);
                    layer.setLineWeight(look.weight);
                    if (look.isDashDotted) layer.setLinetypeObjectId(dashDotted);
                }).isNull();
}

bool makeDimensionStyle(double scale, int decimals)
{
    return !recordOf<AcDbDimStyleTable, AcDbDimStyleTableRecord>(
                drawing()->dimStyleTableId(), gridStyle, [=](AcDbDimStyleTableRecord& style) {
                    style.setDimscale(scale);
                    style.setDimtxt(3.0);
                    style.setDimexo(1.0);
                    style.setDimgap(0.8);
                    style.setDimdec(decimals);
                    style.setDimzin(8); // no zeros at the end
                    style.setDimtad(1);
                    const AcDbObjectPointer<AcDbTextStyleTable> styles(drawing()->textStyleTableId(), AcDb::kForRead);
                    AcDbObjectId textStyle;
                    if (styles.openStatus() == Acad::eOk && styles->getAt(gridStyle, textStyle) == Acad::eOk)
                        style.setDimtxsty(textStyle);
                }).isNull();
}
} // namespace

bool makeGridStyles(double scale, int decimals)
{
    const AcDbObjectId dashDotted = makeAxisLinetype(scale);
    if (dashDotted.isNull()) return false;
    for (const LayerLook& look : layers) {
        if (!makeLayer(look, dashDotted)) return false;
    }
    return CArxEntity::CMakeEnt::MakeTxtStyle(gridStyle, L"simsun.ttf", 0.0, 0.8, 0.0) &&
           makeDimensionStyle(scale, decimals);
}
