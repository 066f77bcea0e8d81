#include "NestedPick.h"

#include "db2dpl.h"
#include "db3dpl.h"
#include "dbattdef.h"
#include "dbblkref.h"
#include "dbdim.h"
#include "dbline.h"
#include "SpaceOrder.h"
#include "Stub.h"

namespace
{
using ed::NestedHit;

/// The maps of a reference's copies, which only its class tells.
struct Copies : AcDbBlockReference {
    static std::vector<AcGeMatrix3d> of(const AcDbBlockReference& reference)
    {
        return (reference.*(&Copies::instances))();
    }
};

class Descent
{
public:
    Descent(ed::SelectionProbe& probe) : mProbe(probe) {}

    NestedHit from(const AcDbEntity& entity)
    {
        mHit.entity = entity.objectId();
        go(entity);
        return mHit;
    }

private:
    static constexpr std::size_t deepest = 64; // a damaged drawing may nest a block in itself

    void go(const AcDbEntity& entity)
    {
        if (const auto* reference = AcDbBlockReference::cast(&entity)) {
            if (goToAttribute(*reference)) return;
            for (const AcGeMatrix3d& map : Copies::of(*reference)) {
                if (goInto(entity, reference->blockTableRecord(), map)) return;
            }
        } else if (const auto* dimension = AcDbDimension::cast(&entity)) {
            goInto(entity, dimension->dimBlockId(), dimension->blockTransform());
        } else {
            goToVertex(entity);
        }
    }

    bool goToAttribute(const AcDbBlockReference& reference)
    {
        const DbSubentities* attributes = reference.subentities();
        for (const AcDbObjectId id : attributes ? attributes->ids : std::vector<AcDbObjectId>()) {
            const auto* attribute = id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
            if (!attribute || attribute->visibility() != AcDb::kVisible || !mProbe.touches(*attribute)) continue;
            mHit.entity = id;
            return true;
        }
        return false;
    }

    /// Takes the uppermost entity of a block that meets the area.
    bool goInto(const AcDbEntity& container, AcDbObjectId block, const AcGeMatrix3d& map)
    {
        if (mHit.containers.size() >= deepest) return false;
        mProbe.enterBlock(container.layerId(), map);
        const AcDbEntity* found = nullptr;
        for (const AcDbEntity* entity : ed::uppermostFirst(block)) {
            const auto* definition = AcDbAttributeDefinition::cast(entity);
            const bool isShown = entity->visibility() == AcDb::kVisible && (!definition || definition->isConstant());
            if (!isShown || !mProbe.touches(*entity)) continue;
            found = entity;
            break;
        }
        if (found) {
            mHit.containers.insert(mHit.containers.begin(), container.objectId());
            mHit.toWorld = mHit.toWorld * map;
            mHit.entity = found->objectId();
            go(*found);
        }
        mProbe.leaveBlock();
        return found != nullptr;
    }

    /// A polyline with vertices is named by the one that begins the segment.
    void goToVertex(const AcDbEntity& entity)
    {
        const auto* curve = AcDbCurve::cast(&entity);
        const bool hasVertices = entity.isKindOf(AcDb2dPolyline::desc()) || entity.isKindOf(AcDb3dPolyline::desc());
        const DbSubentities* vertices = curve && hasVertices ? const_cast<AcDbEntity&>(entity).subentities() : nullptr;
        for (std::size_t i = 0; vertices && i < vertices->ids.size(); ++i) {
            AcGePoint3d start, end;
            const auto param = static_cast<double>(i);
            if (curve->getPointAtParam(param, start) != Acad::eOk ||
                curve->getPointAtParam(param + 1.0, end) != Acad::eOk)
                continue;
            AcDbLine chord(start, end);
            chord.setPropertiesFrom(&entity);
            if (!mProbe.touches(chord)) continue;
            mHit.entity = vertices->ids[i];
            return;
        }
    }

    ed::SelectionProbe& mProbe;
    NestedHit mHit;
};
} // namespace

ed::NestedHit ed::nestedHit(SelectionSearch& search, const AcDbDatabase& database, const SelectionArea& area,
                            AcDbObjectId entity)
{
    SelectionProbe probe(area, search.view(), search.layers(), database.layerZero());
    return Descent(probe).from(*AcDbEntity::cast(residentObject(entity)));
}
