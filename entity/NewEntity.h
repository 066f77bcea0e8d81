#pragma once

/// The steps that the makers of entities share.

#include "dbentity.h"
#include "dbidar.h"
#include "Transaction.h"

#include <afxwin.h>

#include <memory>
#include <optional>

namespace entity
{
/// A new entity with what the working database gives to new ones.
template <class Entity>
std::unique_ptr<Entity> begin()
{
    auto made = std::make_unique<Entity>();
    made->setDatabaseDefaults();
    return made;
}

/// Takes a colour number; one below 0 is by block, one above 256 by layer.
bool setColor(AcDbEntity& entity, int color);
/// Takes a layer by its name; an empty name leaves the current one. False for a layer that is not there.
bool setLayer(AcDbEntity& entity, const CString& layer);

/// Whether all coordinates of a point are numbers.
bool isFinite(const AcGePoint3d& point);

/// Whether an entity reaches no further than numbers do. Coordinates that each can be held make sums that cannot, in
/// turned systems or as ends of lengths.
bool isWithinNumbers(const AcDbEntity& entity);

/// Adds an entity that has world coordinates to the current space and closes it. 0 when that fails, and for
/// an entity that reaches out of all numbers: it is deleted then and `id` is unchanged.
int addInWorld(std::unique_ptr<AcDbEntity> entity, AcDbObjectId& id);
/// The same for an entity in the coordinates of the current user coordinate system.
int add(std::unique_ptr<AcDbEntity> entity, AcDbObjectId& id);

/// The map from the current user coordinate system to the world.
AcGeMatrix3d ucsToWorld();

/// Entities that are added together or not at all.
class Batch
{
public:
    /// As entity::addInWorld.
    int addInWorld(std::unique_ptr<AcDbEntity> entity);
    /// Appends the ids to a list and leaves the entities in the drawing: those of a batch that is not kept
    /// are taken out of it. 1 for success.
    int keep(AcDbObjectIdArray& ids);

private:
    std::optional<Transaction> m_changes; ///< from the first one on
    AcDbObjectIdArray m_added;
};
} // namespace entity
