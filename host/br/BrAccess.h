#pragma once

/// How parts, breps and traversers hand shapes to each other.

#include "brbrep.h"
#include "brtrav.h"
#include "Region.h"

namespace br
{
struct Shape {
    kernel::Region region;
    std::vector<kernel::FaceCurves> faces;
};
} // namespace br

struct BrAccess {
    static const std::shared_ptr<const br::Shape>& shape(const AcBrEntity& entity) { return entity.mShape; }
    static const br::Place& place(const AcBrEntity& entity) { return entity.mPlace; }
    static void set(AcBrEntity& entity, std::shared_ptr<const br::Shape> shape, const br::Place& place)
    {
        entity.mShape = std::move(shape);
        entity.mPlace = place;
    }

    static const kernel::LoopCurves& loop(const AcBrEntity& entity)
    {
        return entity.mShape->faces[entity.mPlace.face][entity.mPlace.loop];
    }
    static const AcGeCurve3d& curve(const AcBrEntity& entity) { return *loop(entity)[entity.mPlace.edge]; }
    /// One face as a region of its own.
    static kernel::Region face(const AcBrEntity& entity)
    {
        kernel::RegionStatus status = kernel::RegionStatus::kOk;
        return kernel::Region::fromFaces({entity.mShape->faces[entity.mPlace.face]},
                                         entity.mShape->region.normal(), status);
    }

    /// Puts a traverser before the parts of a parent.
    static void start(AcBrTraverser& traverser, std::shared_ptr<const br::Shape> shape,
                      const br::Place& parent, std::size_t places)
    {
        traverser.mShape = std::move(shape);
        traverser.mParent = parent;
        traverser.mAt = 0;
        traverser.mPlaces = places;
    }
};
