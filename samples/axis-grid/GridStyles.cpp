#include "GridStyles.h"

#include "QmCADLib.h"

#include "arxHeaders.h"
#include "dbdimsty.h"
#include "dblinetp.h"
#include "dbobjptr.h"
#include "dbtxtsty.h"

#include <algorithm>
#include <cmath>

namespace
{
struct LayerLook {
    const wchar_t* name;
    int color;
    bool isDashDotted;
    AcDb::LineWeight weight;
};

// Colours that can be read on black screens and on white paper.
constexpr LayerLook layers[] = {
    {axisLayer, 1, true, AcDb::kLnWt013},       {labelLayer, 7, false, AcDb::kLnWt018},
    {outlineLayer, 150, false, AcDb::kLnWt050}, {areaLayer, 7, false, AcDb::kLnWt018},
    {hatchLayer, 253, false, AcDb::kLnWt000},   {dimensionLayer, 94, false, AcDb::kLnWt013},
};

constexpr wchar_t axisLinetype[] = L"轴线";
constexpr double dashes[] = {12.0, -2.0, 0.0, -2.0}; ///< a dash, a gap, a dot, a gap: millimetres of paper
constexpr double dashesLength = 16.0;

AcDbDatabase* drawing()
{
    return acdbHostApplicationServices()->workingDatabase();
}

template <class Table>
AcDbObjectId idOf(AcDbObjectId tableId, const wchar_t* name)
{
    AcDbObjectId id;
    const AcDbObjectPointer<Table> table(tableId, AcDb::kForRead);
    if (table.openStatus() == Acad::eOk) table->getAt(name, id);
    return id;
}

/// The id of a record of a table of the drawing, made with `fill` when it is missing; null when it cannot be.
template <class Table, class Record, class Fill>
AcDbObjectId recordOf(AcDbObjectId tableId, const wchar_t* name, Fill fill)
{
    AcDbObjectId id = idOf<Table>(tableId, name);
    if (!id.isNull()) return id;
    const AcDbObjectPointer<Table> table(tableId, AcDb::kForWrite);
    auto record = std::make_unique<Record>();
    if (table.openStatus() != Acad::eOk || record->setName(name) != Acad::eOk) return id;
    fill(*record);
    if (table->add(id, record.get()) == Acad::eOk) record.release()->close();
    return id;
}

AcDbObjectId makeAxisLinetype()
{
    return recordOf<AcDbLinetypeTable, AcDbLinetypeTableRecord>(
        drawing()->linetypeTableId(), axisLinetype, [](AcDbLinetypeTableRecord& record) {
            record.setComments(L"____ . ____ . ____");
            record.setNumDashes(static_cast<int>(std::size(dashes)));
            record.setPatternLength(dashesLength);
            for (int i = 0; i < record.numDashes(); ++i)
                record.setDashLengthAt(i, dashes[i]);
        });
}

void fillLayer(AcDbLayerTableRecord& layer, const LayerLook& look, AcDbObjectId dashDotted)
{
    AcCmColor color;
    color.setColorIndex(static_cast<Adesk::UInt16>(look.color));
    layer.setColor(color);
    layer.setLineWeight(look.weight);
    if (look.isDashDotted) layer.setLinetypeObjectId(dashDotted);
}

bool openLayer(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
    if (layer.openStatus() != Acad::eOk) return false;
    layer->setIsOff(false);
    layer->setIsLocked(false);
    return layer->setIsFrozen(false) == Acad::eOk;
}

bool makeLayer(const LayerLook& look, AcDbObjectId dashDotted)
{
    const AcDbObjectId id = recordOf<AcDbLayerTable, AcDbLayerTableRecord>(
        drawing()->layerTableId(), look.name,
        [&](AcDbLayerTableRecord& layer) { fillLayer(layer, look, dashDotted); });
    return !id.isNull() && openLayer(id);
}

bool makeTextStyle()
{
    return !idOf<AcDbTextStyleTable>(drawing()->textStyleTableId(), gridStyle).isNull() ||
           CArxEntity::CMakeEnt::MakeTxtStyle(gridStyle, L"simsun.ttf", 0.0, 0.8, 0.0);
}

/// Coordinates are told as finely as could be measured on paper, to about 0.005 mm.
int decimalsOf(double paperUnit)
{
    return std::clamp(static_cast<int>(std::lround(-std::log10(0.005 * paperUnit))), 0, 8);
}

bool makeDimensionStyle(const CString& name, double paperUnit)
{
    return !recordOf<AcDbDimStyleTable, AcDbDimStyleTableRecord>(
                drawing()->dimStyleTableId(), name,
                [=](AcDbDimStyleTableRecord& style) {
                    style.setDimscale(paperUnit);
                    style.setDimtxt(3.0);
                    style.setDimexo(1.0);
                    style.setDimgap(0.8);
                    style.setDimdec(decimalsOf(paperUnit));
                    style.setDimzin(8); // no zeros at the end
                    style.setDimtad(1);
                    style.setDimtxsty(idOf<AcDbTextStyleTable>(drawing()->textStyleTableId(), gridStyle));
                })
                .isNull();
}
} // namespace

CString dimensionStyleOf(double paperUnit)
{
    CString name;
    name.Format(L"%s-%g", gridStyle, paperUnit);
    return name;
}

bool makeGridStyles(double paperUnit)
{
    const AcDbObjectId dashDotted = makeAxisLinetype();
    if (dashDotted.isNull()) return false;
    for (const LayerLook& look : layers) {
        if (!makeLayer(look, dashDotted)) return false;
    }
    return makeTextStyle() && makeDimensionStyle(dimensionStyleOf(paperUnit), paperUnit);
}
