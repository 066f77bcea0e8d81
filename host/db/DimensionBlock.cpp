/// The picture of a dimension: from its block, or made from its points.

#include "acgi.h"
#include "dbblock.h"
#include "dbdatabase.h"
#include "dbdimension.h"
#include "DimensionPicture.h"
#include "DimVariables.h"
#include "EntityAccess.h"
#include "gecurv3d.h"
#include "MappedExtents.h"
#include "PlanarCoords.h"
#include "Stub.h"
#include "SymbolTableAccess.h"

struct DimensionBlock {
    /// A dimension that shows another through blocks of a damaged drawing ends here.
    static constexpr int deepest = 16;
    static thread_local int depth;

    static bool showsBlock(const AcDbDimension& dimension)
    {
        return !dimension.mIsStale && AcDbBlockTableRecord::cast(residentObject(dimension.mBlock));
    }

    /// The entities made from the points; empty when they show nothing.
    static DimensionEntities made(const AcDbDimension& dimension, AcGePoint2d& textMiddle)
    {
        AcDbObjectId style = dimension.dimensionStyle();
        DimensionPicture picture(dimVariablesOf(style, dimension), dimension.normal(), dimension.elevation(),
                                 dimension.database());
        return dimension.draw(picture, textMiddle) ? picture.take() : DimensionEntities();
    }

    /// What is by block in the picture is the dimension's.
    static void takeProperties(AcDbEntity& entity, const AcDbDimension& dimension)
    {
        const AcCmColor color = entity.color();
        const AcDb::LineWeight weight = entity.lineWeight();
        EntityAccess::takeProperties(entity, dimension);
        if (!color.isByBlock()) entity.setColor(color);
        if (weight != AcDb::kLnWtByBlock) entity.setLineWeight(weight);
    }

    template <class Visit>
    static void forEachOfBlock(const AcDbDimension& dimension, Visit visit)
    {
        const auto* block = AcDbBlockTableRecord::cast(residentObject(dimension.mBlock));
        if (!block) return;
        for (const AcDbObjectId id : block->entityIds()) {
            const AcDbEntity* entity = id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
            if (entity && entity->visibility() == AcDb::kVisible) visit(*entity);
        }
    }

    /// Calls `visit` with each entity of the picture and the map from its coordinates to the world.
    template <class Visit>
    static void forEachShown(const AcDbDimension& dimension, Visit visit)
    {
        if (depth >= deepest) return;
        ++depth;
        AcGePoint2d middle;
        DimensionEntities entities;
        if (!showsBlock(dimension)) entities = made(dimension, middle);
        for (const auto& entity : entities) {
            takeProperties(*entity, dimension);
            visit(*entity, AcGeMatrix3d::kIdentity);
        }
        if (entities.empty()) {
            const AcGeMatrix3d map = dimension.blockTransform();
            forEachOfBlock(dimension, [&](const AcDbEntity& entity) { visit(entity, map); });
        }
        --depth;
    }

    /// The layer of definition points is not plotted.
    static void needPointLayer(AcDbDatabase& database)
    {
        const auto* layers = AcDbLayerTable::cast(residentObject(database.layerTableId()));
        AcDbLayerTable* table = nullptr;
        if (layers->has(L"Defpoints") || database.getLayerTable(table, AcDb::kForWrite) != Acad::eOk) return;
        auto record = std::make_unique<AcDbLayerTableRecord>();
        record->setName(L"Defpoints");
        record->setIsPlottable(false);
        if (table->add(record.get()) == Acad::eOk) record.release()->close();
        table->close();
    }

    /// Adds an anonymous block to the drawing, open for write.
    static Acad::ErrorStatus addBlock(AcDbDatabase& database, AcDbBlockTableRecord*& block)
    {
        AcDbBlockTable* table = nullptr;
        Acad::ErrorStatus status = database.getBlockTable(table, AcDb::kForWrite);
        if (status != Acad::eOk) return status;
        auto record = std::make_unique<AcDbBlockTableRecord>();
        SymbolTableAccess::setName(*record, L"*D");
        status = table->add(record.get());
        block = status == Acad::eOk ? record.release() : nullptr;
        table->close();
        return status;
    }

    /// The block that shows the dimension alone, emptied and open for write.
    static Acad::ErrorStatus openBlock(const AcDbDimension& dimension, AcDbBlockTableRecord*& block)
    {
        if (!dimension.mMadeBlock) return addBlock(*dimension.database(), block);
        const Acad::ErrorStatus status = acdbOpenObject(block, dimension.mBlock, AcDb::kForWrite);
        if (status != Acad::eOk) return addBlock(*dimension.database(), block);
        for (const AcDbObjectId id : block->entityIds()) {
            AcDbEntity* entity = nullptr;
            if (acdbOpenObject(entity, id, AcDb::kForWrite) != Acad::eOk) continue;
            entity->erase();
            entity->close();
        }
        return status;
    }

    static void fill(AcDbBlockTableRecord& block, DimensionEntities entities)
    {
        for (auto& entity : entities) {
            if (block.appendAcDbEntity(entity.get()) == Acad::eOk) entity.release()->close();
        }
    }

    static Acad::ErrorStatus recompute(AcDbDimension& dimension)
    {
        AcGePoint2d middle = dimension.textInPlane();
        needPointLayer(*dimension.database());
        DimensionEntities entities = made(dimension, middle);
        if (entities.empty()) return Acad::eNotApplicable;
        AcDbBlockTableRecord* block = nullptr;
        const Acad::ErrorStatus status = openBlock(dimension, block);
        if (status != Acad::eOk) return status;
        fill(*block, std::move(entities));
        dimension.mBlock = block->objectId();
        block->close();
        dimension.mBlockPosition = AcGePoint3d::kOrigin;
        dimension.mTextPosition.set(middle.x, middle.y, dimension.mTextPosition.z);
        dimension.mMadeBlock = true;
        dimension.mIsStale = false;
        return status;
    }
};

thread_local int DimensionBlock::depth = 0;

Acad::ErrorStatus AcDbDimension::recomputeDimBlock(bool forceUpdate)
{
    if (!database()) return Acad::eNotInDatabase;
    if (!forceUpdate && !mIsStale) return Acad::eOk;
    const Acad::ErrorStatus status = beginChange();
    return status == Acad::eOk ? DimensionBlock::recompute(*this) : status;
}

Acad::ErrorStatus AcDbDimension::subClose()
{
    if (mIsStale && database() && isWriteEnabled() && (isModified() || isNewObject()) && !isErased())
        DimensionBlock::recompute(*this);
    return AcDbEntity::subClose();
}

Acad::ErrorStatus AcDbDimension::subExplode(AcDbVoidPtrArray& entitySet) const
{
    const int before = entitySet.length();
    DimensionBlock::forEachShown(*this, [&](const AcDbEntity& entity, const AcGeMatrix3d& map) {
        AcDbEntity* piece = nullptr;
        if (entity.getTransformedCopy(map, piece) == Acad::eOk) entitySet.append(piece);
    });
    return entitySet.length() > before ? Acad::eOk : Acad::eCannotExplodeEntity;
}

Acad::ErrorStatus AcDbDimension::subGetGeomExtents(AcDbExtents& extents) const
{
    DimensionBlock::forEachShown(*this, [&](const AcDbEntity& entity, const AcGeMatrix3d& map) {
        AcDbExtents one;
        if (mappedExtents(entity, map, one)) extents.addExt(one);
    });
    return extents.isEmpty() ? Acad::eInvalidExtents : Acad::eOk;
}

bool AcDbDimension::subWorldDraw(AcGiWorldDraw* draw)
{
    DimensionBlock::forEachShown(*this, [&](const AcDbEntity& entity, const AcGeMatrix3d& map) {
        draw->geometry().pushModelTransform(map);
        entity.worldDraw(draw);
        draw->geometry().popModelTransform();
    });
    return true;
}

void AcDbDimension::intersectionCurves(Curves& curves, bool extended) const
{
    DimensionBlock::forEachShown(*this, [&](const AcDbEntity& entity, const AcGeMatrix3d& map) {
        AcDbEntity* mapped = nullptr;
        if (entity.getTransformedCopy(map, mapped) != Acad::eOk) return;
        const std::unique_ptr<AcDbEntity> owned(mapped);
        owned->intersectionCurves(curves, extended);
    });
}
