/// What a block reference shows: the entities of its block, mapped.

#include "acgi.h"
#include "dbattdef.h"
#include "dbattrib.h"
#include "dbblkref.h"
#include "dbblock.h"
#include "gecurv3d.h"
#include "MappedExtents.h"
#include "PlanarCoords.h"
#include "Stub.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <map>

namespace
{
/// The blocks that are being shown, from the outermost. A damaged drawing may nest a block in itself: it is
/// shown once.
class Nesting
{
public:
    explicit Nesting(AcDbObjectId block)
        : mEnds(path.size() >= deepest || std::find(path.begin(), path.end(), block) != path.end())
    {
        path.push_back(block);
    }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
    ~Nesting()
    {
        path.pop_back();
        if (path.empty()) boxes.clear();
    }
    /// Whether the block is not to be shown here.
    bool ends() const { return mEnds; }

    /// The box of a block's entities, of which an outer one may be made of the same block thousands of times.
    struct Box {
        bool isThere;
        AcDbExtents extents;
        AcGeVector3d place; ///< where the block's origin was
    };
    /// What was measured before of a block that is turned, scaled and sheared alike, as long as an outer one
    /// is being measured; null for the first time and for the outermost.
    static const Box* find(AcDbObjectId block, const AcGeMatrix3d& map)
    {
        const auto at = boxes.find(keyOf(block, map));
        return at == boxes.end() ? nullptr : &at->second;
    }
    static void keep(AcDbObjectId block, const AcGeMatrix3d& map, const Box& box)
    {
        if (path.size() > 1) boxes.emplace(keyOf(block, map), box);
    }

private:
    /// The bits of the numbers: damaged drawings have some that no order holds for.
    using Key = std::pair<AcDbStub*, std::array<std::uint64_t, 9>>;
    static Key keyOf(AcDbObjectId block, const AcGeMatrix3d& map)
    {
        Key key{block, {}};
        for (std::size_t i = 0; i < 9; ++i)
            std::memcpy(&key.second[i], &map.entry[i / 3][i % 3], sizeof(double));
        return key;
    }

    static thread_local std::map<Key, Box> boxes;
    static constexpr std::size_t deepest = 64;
    static thread_local std::vector<AcDbObjectId> path;
    bool mEnds;
};

thread_local std::vector<AcDbObjectId> Nesting::path;
thread_local std::map<Nesting::Key, Nesting::Box> Nesting::boxes;

const AcDbBlockTableRecord* blockOf(AcDbObjectId id) { return AcDbBlockTableRecord::cast(residentObject(id)); }

/// Calls `visit` for each entity of a block that is there.
template <class Visit>
void forEachEntity(AcDbObjectId blockId, Visit visit)
{
    const AcDbBlockTableRecord* block = blockOf(blockId);
    if (!block) return;
    for (const AcDbObjectId id : block->entityIds()) {
        const AcDbEntity* entity = id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
        if (entity) visit(*entity);
    }
}

/// A definition is a pattern: what is seen is the attribute.
bool isShown(const AcDbEntity& entity)
{
    const auto* definition = AcDbAttributeDefinition::cast(&entity);
    return !definition || definition->isConstant();
}

Nesting::Box boxOf(AcDbObjectId block, const AcGeMatrix3d& map)
{
    Nesting::Box box{false, {}, map.translation()};
    AcDbExtents one;
    forEachEntity(block, [&](const AcDbEntity& entity) {
        if (!isShown(entity) || !mappedExtents(entity, map, one)) return;
        box.extents.addExt(one);
        box.isThere = true;
    });
    Nesting::keep(block, map, box);
    return box;
}

/// Adds what the entities of a block reach under a map.
void addContents(AcDbObjectId block, const AcGeMatrix3d& map, AcDbExtents& extents)
{
    const Nesting::Box* const known = Nesting::find(block, map);
    Nesting::Box box = known ? *known : boxOf(block, map);
    if (!box.isThere) return;
    if (known) box.extents.transformBy(AcGeMatrix3d::translation(map.translation() - box.place));
    extents.addExt(box.extents);
}
} // namespace

AcGeMatrix3d AcDbBlockReference::blockTransform() const
{
    AcGeMatrix3d move, turn, scale, origin;
    move.setToTranslation(mPosition.asVector());
    turn.setToRotation(mRotation, AcGeVector3d::kZAxis);
    scale.entry[0][0] = mScale.sx;
    scale.entry[1][1] = mScale.sy;
    scale.entry[2][2] = mScale.sz;
    if (const AcDbBlockTableRecord* block = blockOf(mBlock)) origin.setToTranslation(-block->origin().asVector());
    return ocsToWorld(mNormal) * move * turn * scale * origin;
}

Acad::ErrorStatus AcDbBlockReference::setBlockTransform(const AcGeMatrix3d& xform)
{
    if (xform.isSingular() || !xform.isScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    xform.getCoordSystem(origin, x, y, z);
    // A map that mirrors does so along X; the plane's upper side stays up.
    const bool mirrors = x.crossProduct(y).dotProduct(z) < 0.0;
    mScale.set(mirrors ? -x.length() : x.length(), y.length(), z.length());
    mNormal = z.normal();
    const AcGeVector3d along = worldToOcs(mNormal) * (mirrors ? -x : x);
    mRotation = std::atan2(along.y, along.x);
    const AcDbBlockTableRecord* block = blockOf(mBlock);
    mPosition = worldToOcs(mNormal) * (xform * (block ? block->origin() : AcGePoint3d::kOrigin));
    return status;
}

Acad::ErrorStatus AcDbBlockReference::changeAttributes(const AcGeMatrix3d& xform)
{
    if (!mAttributes) return Acad::eOk;
    for (const AcDbObjectId id : mAttributes->ids) {
        AcDbAttribute* attribute = nullptr;
        if (acdbOpenObject(attribute, id, AcDb::kForWrite) != Acad::eOk) continue;
        attribute->transformBy(xform);
        attribute->close();
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::subTransformBy(const AcGeMatrix3d& xform)
{
    const AcGeScale3d before = mScale;
    const Acad::ErrorStatus status = setBlockTransform(xform * blockTransform());
    if (status != Acad::eOk) return status;
    // A reference that was mirrored stays so in the same axes, where that says the same.
    if ((before.sx < 0.0) != (mScale.sx < 0.0) && (before.sy < 0.0) != (mScale.sy < 0.0)) {
        mScale.set(-mScale.sx, -mScale.sy, mScale.sz);
        mRotation += 3.14159265358979323846;
    }
    return changeAttributes(xform);
}

Acad::ErrorStatus AcDbBlockReference::subExplode(AcDbVoidPtrArray& entitySet) const
{
    if (!blockOf(mBlock)) return Acad::eCannotExplodeEntity;
    Acad::ErrorStatus result = Acad::eOk;
    for (const AcGeMatrix3d& map : instances()) {
        forEachEntity(mBlock, [&](const AcDbEntity& entity) {
            AcDbEntity* mapped = nullptr;
            const Acad::ErrorStatus status = entity.getTransformedCopy(map, mapped);
            if (status == Acad::eOk) {
                entitySet.append(mapped);
            } else {
                result = status;
            }
        });
    }
    return result;
}

Acad::ErrorStatus AcDbBlockReference::explodeToOwnerSpace() const
{
    AcDbVoidPtrArray pieces;
    AcDbBlockTableRecord* owner = nullptr;
    Acad::ErrorStatus status = acdbOpenObject(owner, ownerId(), AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    status = explode(pieces);
    for (int i = 0; i < pieces.length(); ++i) {
        auto* piece = static_cast<AcDbEntity*>(pieces[i]);
        if (status == Acad::eOk && owner->appendAcDbEntity(piece) == Acad::eOk) {
            piece->close();
        } else {
            delete piece;
        }
    }
    owner->close();
    return status;
}

Acad::ErrorStatus AcDbBlockReference::subGetGeomExtents(AcDbExtents& extents) const
{
    return geomExtentsBestFit(extents);
}

Acad::ErrorStatus AcDbBlockReference::geomExtentsBestFit(AcDbExtents& extents,
                                                         const AcGeMatrix3d& parentXform) const
{
    const Nesting nesting(mBlock);
    if (nesting.ends()) return Acad::eInvalidExtents;
    AcDbExtents all, one;
    for (const AcGeMatrix3d& map : instances()) {
        addContents(mBlock, parentXform * map, all);
    }
    if (mAttributes) {
        for (const AcDbObjectId id : mAttributes->ids) {
            const auto* attribute = id.isErased() ? nullptr : AcDbAttribute::cast(residentObject(id));
            if (attribute && !attribute->isInvisible() && mappedExtents(*attribute, parentXform, one))
                all.addExt(one);
        }
    }
    if (all.isEmpty()) return Acad::eInvalidExtents;
    extents = all;
    return Acad::eOk;
}

bool AcDbBlockReference::subWorldDraw(AcGiWorldDraw* draw)
{
    const Nesting nesting(mBlock);
    if (nesting.ends()) return true;
    for (const AcGeMatrix3d& map : instances()) {
        draw->geometry().pushModelTransform(map);
        forEachEntity(mBlock, [&](const AcDbEntity& entity) {
            if (isShown(entity) && entity.visibility() == AcDb::kVisible) entity.worldDraw(draw);
        });
        draw->geometry().popModelTransform();
    }
    if (!mAttributes) return true;
    for (const AcDbObjectId id : mAttributes->ids) {
        const auto* attribute = id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
        if (attribute && attribute->visibility() == AcDb::kVisible) attribute->worldDraw(draw);
    }
    return true;
}

void AcDbBlockReference::intersectionCurves(Curves& curves, bool extended) const
{
    const Nesting nesting(mBlock);
    if (nesting.ends()) return;
    for (const AcGeMatrix3d& map : instances()) {
        forEachEntity(mBlock, [&](const AcDbEntity& entity) {
            AcDbEntity* mapped = nullptr;
            if (!isShown(entity) || entity.getTransformedCopy(map, mapped) != Acad::eOk) return;
            const std::unique_ptr<AcDbEntity> owned(mapped);
            owned->intersectionCurves(curves, extended);
        });
    }
}

void AcDbBlockReference::getEcs(AcGeMatrix3d& matrix) const
{
    AcGeMatrix3d move, turn;
    move.setToTranslation(mPosition.asVector());
    turn.setToRotation(mRotation, AcGeVector3d::kZAxis);
    matrix = ocsToWorld(mNormal) * move * turn;
}

Acad::ErrorStatus AcDbBlockReference::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    gripPoints.append(position());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d&, const AcGePoint3d&,
                                                        AcGePoint3dArray& points) const
{
    if (mode == AcDb::kOsModeIns) points.append(position());
    return Acad::eOk;
}

std::vector<AcGeMatrix3d> AcDbMInsertBlock::instances() const
{
    constexpr std::size_t most = 1000000; // a damaged file may ask for 65535 times 65535
    std::vector<AcGeMatrix3d> maps;
    AcGeMatrix3d ecs;
    getEcs(ecs);
    const AcGeMatrix3d first = blockTransform();
    for (int row = 0; row < mRows; ++row) {
        for (int column = 0; column < mColumns && maps.size() < most; ++column) {
            const AcGeVector3d step(column * mColumnSpacing, row * mRowSpacing, 0.0);
            maps.push_back(AcGeMatrix3d().setToTranslation(ecs * step) * first);
        }
    }
    return maps;
}
