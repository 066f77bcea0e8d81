/// The groups that every entity has: layer, colour, line type ...

#include "dbentity.h"

#include "DxfFields.h"
#include "EntityAccess.h"
#include "Stub.h"
#include "dbblock.h"
#include "dbdatabase.h"

namespace
{
constexpr int byLayer = AcCmEntityColor::kACIbyLayer;

const AcDbEntity& entityOf(const AcDbObject& object) { return static_cast<const AcDbEntity&>(object); }
AcDbEntity& entityOf(AcDbObject& object) { return static_cast<AcDbEntity&>(object); }

/// The record of the space or block that an entity stands in; null for a new entity.
const AcDbBlockTableRecord* blockOf(const AcDbObject& object)
{
    return AcDbBlockTableRecord::cast(residentObject(object.ownerId()));
}

bool isInPaperSpace(const AcDbObject& object)
{
    const AcDbBlockTableRecord* block = blockOf(object);
    return block && block->isLayout() && block->name().CompareNoCase(ACDB_MODEL_SPACE) != 0;
}

void readPaperSpace(AcDbObject&, const DxfField&, DxfSource& source)
{
    source.paperSpace(source.peek()->integer != 0);
    source.take();
}

void writePaperSpace(const AcDbObject& object, const DxfField&, DxfSink& sink)
{
    if (isInPaperSpace(object)) sink.integer(67, 1);
}

void readLayoutName(AcDbObject& object, const DxfField&, DxfSource& source)
{
    EntityAccess::flags(entityOf(object)) |= EntityAccess::namesLayout;
    source.take();
}

void writeLayoutName(const AcDbObject& object, const DxfField&, DxfSink& sink)
{
    const AcDbBlockTableRecord* block = blockOf(object);
    if (!block || !block->isLayout()) return;
    const bool wasNamed = (EntityAccess::flags(entityOf(object)) & EntityAccess::namesLayout) != 0;
    if (!wasNamed && !isInPaperSpace(object)) return;
    const CString name = acdbLayoutNameOf(*block);
    if (!name.IsEmpty()) sink.wide(410, name);
}

void readColorIndex(AcDbObject& object, const DxfField&, DxfSource& source)
{
    const DxfGroup& group = *source.peek();
    AcDbEntity& entity = entityOf(object);
    AcCmEntityColor index;
    if (group.integer < 0 || index.setColorIndex(static_cast<int>(group.integer)) != Acad::eOk) {
        source.report(group, "colour number out of range");
    } else if (entity.entityColor().isByColor()) {
        EntityAccess::fileColorIndex(entity) = static_cast<std::int16_t>(group.integer);
    } else {
        EntityAccess::color(entity) = index;
    }
    source.take();
}

void writeColorIndex(const AcDbObject& object, const DxfField&, DxfSink& sink)
{
    const AcDbEntity& entity = entityOf(object);
    const int index =
        entity.entityColor().isByColor() ? EntityAccess::fileColorIndex(entity) : entity.entityColor().colorIndex();
    if (index != byLayer) sink.integer(62, index);
}

void readTrueColor(AcDbObject& object, const DxfField&, DxfSource& source)
{
    AcDbEntity& entity = entityOf(object);
    const std::int64_t rgb = source.peek()->integer;
    AcCmEntityColor& color = EntityAccess::color(entity);
    if (rgb >= 0) {
        EntityAccess::fileColorIndex(entity) = color.colorIndex();
        color.setRGB(static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
                     static_cast<std::uint8_t>(rgb));
    }
    source.take();
}

void writeTrueColor(const AcDbObject& object, const DxfField&, DxfSink& sink)
{
    const AcCmEntityColor color = entityOf(object).entityColor();
    if (color.isByColor()) sink.integer(420, color.color() & 0xFFFFFF);
}

void readTransparency(AcDbObject& object, const DxfField&, DxfSource& source)
{
    EntityAccess::transparency(entityOf(object)).serializeIn(static_cast<std::uint32_t>(source.peek()->integer));
    source.take();
}

void writeTransparency(const AcDbObject& object, const DxfField&, DxfSink& sink)
{
    const AcCmTransparency transparency = entityOf(object).transparency();
    if (!transparency.isByLayer()) sink.integer(440, transparency.serializeOut());
}

void readVisibility(AcDbObject& object, const DxfField&, DxfSource& source)
{
    std::uint8_t& flags = EntityAccess::flags(entityOf(object));
    flags = source.peek()->integer ? flags | EntityAccess::invisible : flags & ~EntityAccess::invisible;
    source.take();
}

void writeVisibility(const AcDbObject& object, const DxfField&, DxfSink& sink)
{
    if (entityOf(object).visibility() == AcDb::kInvisible) sink.integer(60, 1);
}

bool isByLayerLinetype(const AcDbObject& object, const DxfField&)
{
    const AcDbObjectId id = entityOf(object).linetypeId();
    return id.isNull() || id == id.database()->byLayerLinetype();
}
} // namespace

const DxfClass AcDbEntity::dxf("AcDbEntity", nullptr,
                               {
                                   dxf::custom(67, readPaperSpace, writePaperSpace),
                                   dxf::custom(410, readLayoutName, writeLayoutName).from(DxfVersion::r2000),
                                   dxf::record<&AcDbEntity::mLayer>(8),
                                   dxf::record<&AcDbEntity::mLinetype>(6).unlessIs(isByLayerLinetype),
                                   dxf::custom(62, readColorIndex, writeColorIndex),
                                   dxf::integer<&AcDbEntity::mLineWeight>(370).unless(-1).from(DxfVersion::r2000),
                                   dxf::real<&AcDbEntity::mLinetypeScale>(48).unless(1.0),
                                   dxf::custom(60, readVisibility, writeVisibility),
                                   dxf::custom(420, readTrueColor, writeTrueColor).from(DxfVersion::r2004),
                                   dxf::custom(440, readTransparency, writeTransparency).from(DxfVersion::r2004),
                               });
