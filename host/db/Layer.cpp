#include "dblayer.h"

#include "DxfFields.h"
#include "LineWeights.h"
#include "RecordNames.h"
#include "ResbufSink.h"
#include "Stub.h"
#include "SymbolTableMembers.h"
#include "dbblock.h"
#include "dbdatabase.h"
#include "dbdictdflt.h"

#include <algorithm>
#include <unordered_set>

ACDB_DXF_CLASS(AcDbLayerTableRecord, AcDbSymbolTableRecord, LAYER)
ACDB_SYMBOL_TABLE_MEMBERS(Layer)

struct LayerAccess {
    static AcDbLayerTableRecord& of(AcDbObject& object) { return static_cast<AcDbLayerTableRecord&>(object); }
    static const AcDbLayerTableRecord& of(const AcDbObject& object)
    {
        return static_cast<const AcDbLayerTableRecord&>(object);
    }

    /// A layer that is off has a negative number.
    static void readColor(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        AcDbLayerTableRecord& layer = of(object);
        const std::int64_t number = source.peek()->integer;
        AcCmEntityColor color;
        layer.mIsOff = number < 0;
        if (color.setColorIndex(static_cast<int>(std::min<std::int64_t>(std::abs(number), 999))) == Acad::eOk) {
            layer.mFileColorIndex = static_cast<std::int16_t>(std::abs(number));
            if (!layer.mColor.isByColor()) layer.mColor = color;
        } else {
            source.report(*source.peek(), "colour number out of range");
        }
        source.take();
    }

    static void writeColor(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const AcDbLayerTableRecord& layer = of(object);
        const int index = layer.mColor.isByColor() ? layer.mFileColorIndex : layer.mColor.colorIndex();
        sink.integer(62, layer.mIsOff ? -index : index);
    }

    static void readTrueColor(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        const std::int64_t rgb = source.peek()->integer;
        if (rgb >= 0)
            of(object).mColor.setRGB(static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
                                     static_cast<std::uint8_t>(rgb));
        source.take();
    }

    static void writeTrueColor(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const AcCmEntityColor color = of(object).mColor;
        if (color.isByColor()) sink.integer(420, color.color() & 0xFFFFFF);
    }

    /// A layer of no line type draws continuous lines.
    static void writeLinetype(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const AcDbLayerTableRecord& layer = of(object);
        const AcDbDatabase* database = layer.database();
        const bool hasOwn = layer.mLinetype.isValid();
        if (hasOwn || database) {
            sink.record(6, hasOwn ? layer.mLinetype : database->continuousLinetype());
        } else {
            sink.text(6, "Continuous");
        }
    }
};

const DxfClass AcDbLayerTableRecord::dxf(
    "AcDbLayerTableRecord", &AcDbSymbolTableRecord::dxf,
    {
        dxf::text<&AcDbLayerTableRecord::mName>(2),
        dxf::integer<&AcDbLayerTableRecord::mFlags>(70),
        dxf::custom(62, LayerAccess::readColor, LayerAccess::writeColor),
        dxf::custom(420, LayerAccess::readTrueColor, LayerAccess::writeTrueColor).from(DxfVersion::r2004),
        dxf::record<&AcDbLayerTableRecord::mLinetype>(6).readOnly(),
        dxf::custom(6, nullptr, LayerAccess::writeLinetype),
        dxf::integer<&AcDbLayerTableRecord::mIsPlottable>(290).from(DxfVersion::r2000),
        dxf::integer<&AcDbLayerTableRecord::mLineWeight>(370).from(DxfVersion::r2000),
        dxf::reference<&AcDbLayerTableRecord::mPlotStyle>(390).unlessDefault().from(DxfVersion::r2000),
        dxf::reference<&AcDbLayerTableRecord::mMaterial>(347).unlessDefault().from(DxfVersion::r2007),
        dxf::reference<&AcDbLayerTableRecord::mVisualStyle>(348).from(DxfVersion::r2010),
    });

namespace
{
constexpr const wchar_t* descriptionApplication = L"AcAecLayerStandard";
constexpr const wchar_t* transparencyApplication = L"AcCmTransparency";

void registerApplication(AcDbDatabase& database, const wchar_t* name)
{
    AcDbRegAppTable* table = nullptr;
    if (recordNamed(database, 1001, utf8Of(name)) ||
        database.getRegAppTable(table, AcDb::kForWrite) != Acad::eOk)
        return;
    auto record = std::make_unique<AcDbRegAppTableRecord>();
    record->setName(name);
    if (table->add(record.get()) == Acad::eOk) record.release()->close();
    table->close();
}

bool standsOn(AcDbObjectId id, AcDbObjectId layer)
{
    const auto* entity = AcDbEntity::cast(residentObject(id));
    return entity && !id.isErased() && entity->layerId() == layer;
}

void addLayersOf(const AcDbBlockTableRecord& block, std::unordered_set<AcDbObjectId>& layers)
{
    for (const AcDbObjectId id : block.entityIds()) {
        const auto* entity = AcDbEntity::cast(residentObject(id));
        if (entity && !id.isErased()) layers.insert(entity->layerId());
    }
}
} // namespace

AcCmEntityColor AcDbLayerTableRecord::white()
{
    AcCmEntityColor color;
    color.setColorIndex(AcCmEntityColor::kACIforeground);
    return color;
}

Acad::ErrorStatus AcDbLayerTableRecord::subErase(bool erasing)
{
    if (erasing && database() && database()->clayer() == objectId()) return Acad::eCannotBeErasedByCaller;
    return AcDbSymbolTableRecord::subErase(erasing);
}

void AcDbLayerTableRecord::addedToTable()
{
    if (mLinetype.isNull()) mLinetype = database()->continuousLinetype();
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen)
{
    if (frozen && database() && database()->clayer() == objectId()) return Acad::eInvalidLayer;
    return setFlag(frozenFlag, frozen);
}

Acad::ErrorStatus AcDbLayerTable::generateUsageData()
{
    const auto* blocks = database() ? AcDbBlockTable::cast(residentObject(database()->blockTableId())) : nullptr;
    if (!blocks) return Acad::eNotInDatabase;
    std::unordered_set<AcDbObjectId> used;
    for (const AcDbObjectId blockId : blocks->recordIds()) {
        if (!blockId.isErased()) addLayersOf(*static_cast<AcDbBlockTableRecord*>(residentObject(blockId)), used);
    }
    using Usage = AcDbLayerTableRecord::Usage;
    for (const AcDbObjectId layer : recordIds()) {
        if (auto* record = AcDbLayerTableRecord::cast(residentObject(layer)))
            record->mUsage = used.count(layer) ? Usage::used : Usage::unused;
    }
    return Acad::eOk;
}

bool AcDbLayerTableRecord::isInUse() const
{
    if (mUsage != Usage::unknown) return mUsage == Usage::used;
    const auto* blocks = database() ? AcDbBlockTable::cast(residentObject(database()->blockTableId())) : nullptr;
    if (!blocks) return false;
    return std::any_of(blocks->recordIds().begin(), blocks->recordIds().end(), [&](AcDbObjectId blockId) {
        const auto& ids = static_cast<AcDbBlockTableRecord*>(residentObject(blockId))->entityIds();
        return !blockId.isErased() &&
               std::any_of(ids.begin(), ids.end(), [&](AcDbObjectId id) { return standsOn(id, objectId()); });
    });
}

void AcDbLayerTableRecord::setColor(const AcCmColor& color)
{
    if (color.isByLayer() || color.isByBlock() || assign(mColor, color.entityColor()) != Acad::eOk) return;
    mFileColorIndex = color.colorIndex();
}

void AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id)
{
    const AcRxClass* found = id.objectClass();
    if (found && found->isDerivedFrom(AcDbLinetypeTableRecord::desc()) && (!database() || id.database() == database()))
        assign(mLinetype, id);
}

Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight)
{
    const bool isWeight = weight == AcDb::kLnWtByLwDefault || lineweights::isLineWeight(weight);
    return isWeight ? assign(mLineWeight, static_cast<std::int16_t>(weight)) : Acad::eBadLineWeightValue;
}

ACHAR* AcDbLayerTableRecord::plotStyleName() const
{
    ACHAR* name = nullptr;
    AcDbDictionaryWithDefault* styles = nullptr;
    if (!database() || database()->getPlotStyleNameDictionary(styles) != Acad::eOk) return name;
    styles->nameAt(mPlotStyle, name);
    styles->close();
    return name;
}

Acad::ErrorStatus AcDbLayerTableRecord::setPlotStyleName(const ACHAR* name)
{
    if (!database()) return Acad::eNoDatabase;
    AcDbDictionaryWithDefault* styles = nullptr;
    const Acad::ErrorStatus status = database()->getPlotStyleNameDictionary(styles);
    if (status != Acad::eOk) return status;
    AcDbObjectId id;
    const bool has = styles->has(name) && styles->getAt(name, id) == Acad::eOk;
    styles->close();
    return has ? setPlotStyleName(id) : Acad::eKeyNotFound;
}

ACHAR* AcDbLayerTableRecord::description() const
{
    const ResbufList data(xData(descriptionApplication));
    ACHAR* text = nullptr;
    // The first text is the application's own.
    const resbuf* node = data ? data->rbnext : nullptr;
    if (node) node = node->rbnext;
    acutNewString(node && node->restype == 1000 ? node->resval.rstring : L"", text);
    return text;
}

Acad::ErrorStatus AcDbLayerTableRecord::setDescription(const ACHAR* description)
{
    if (!database()) return Acad::eNotInDatabase;
    registerApplication(*database(), descriptionApplication);
    const ResbufList data(acutBuildList(1001, descriptionApplication, 1000, L"", 1000, description ? description : L"",
                                        RTNONE));
    return setXData(data.get());
}

AcCmTransparency AcDbLayerTableRecord::transparency() const
{
    const ResbufList data(xData(transparencyApplication));
    AcCmTransparency transparency(255);
    const resbuf* node = data ? data->rbnext : nullptr;
    if (node && node->restype == 1071) transparency.serializeIn(static_cast<std::uint32_t>(node->resval.rlong));
    return transparency.isByAlpha() ? transparency : AcCmTransparency(255);
}

Acad::ErrorStatus AcDbLayerTableRecord::setTransparency(const AcCmTransparency& transparency)
{
    if (!transparency.isByAlpha()) return Acad::eInvalidInput;
    if (!database()) return Acad::eNotInDatabase;
    registerApplication(*database(), transparencyApplication);
    const ResbufList data(acutBuildList(1001, transparencyApplication, 1071,
                                        static_cast<std::int32_t>(transparency.serializeOut()), RTNONE));
    return setXData(data.get());
}
