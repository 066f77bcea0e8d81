#include "DisplayCoordinates.h"

#include "acdbads.h"
#include "acedviews.h"
#include "CurrentFrame.h"
#include "dbentity.h"
#include "Documents.h"
#include "PlanarCoords.h"
#include "Stub.h"
#include "Viewports.h"

namespace
{
using ed::CoordinateSystem;

/// Where one side of acedTrans stands.
struct Side {
    CoordinateSystem system = CoordinateSystem::wcs;
    AcGeMatrix3d toWorld; ///< of object coordinates
};

std::optional<Side> sideOfCode(int code)
{
    if (code < 0 || code > 3) return std::nullopt;
    return Side{static_cast<CoordinateSystem>(code), {}};
}

std::optional<Side> sideOfNormal(const ads_point normal)
{
    const AcGeVector3d direction(normal[X], normal[Y], normal[Z]);
    if (!isDirection(direction)) return std::nullopt;
    return Side{CoordinateSystem::wcs, AcGeMatrix3d::planeToWorld(direction)};
}

/// Of the entity's system only the directions count: its coordinates have the world's origin.
std::optional<Side> sideOfEntity(const ads_name name)
{
    AcDbObjectId id;
    if (acdbGetObjectId(id, name) != Acad::eOk || id.isErased()) return std::nullopt;
    const auto* entity = AcDbEntity::cast(residentObject(id));
    if (!entity) return std::nullopt;
    Side side;
    entity->getEcs(side.toWorld);
    side.toWorld.setTranslation(AcGeVector3d::kIdentity);
    return side;
}

std::optional<Side> sideOf(const resbuf* from)
{
    if (!from) return std::nullopt;
    switch (from->restype) {
    case RTSHORT:
        return sideOfCode(from->resval.rint);
    case RTLONG:
        return sideOfCode(from->resval.rlong);
    case RTPOINT:
    case RT3DPOINT:
        return sideOfNormal(from->resval.rpoint);
    case RTENAME:
        return sideOfEntity(from->resval.rlname);
    default:
        return std::nullopt;
    }
}

/// Between a window and the paper there is nothing but scale and place.
std::optional<AcGeMatrix3d> mapToPaper()
{
    const AcDbViewport* window = windowOf(ed::activeViewport());
    return window ? std::optional(ed::displayToPaper(*window)) : std::nullopt;
}
} // namespace

namespace ed
{
std::optional<AcGeMatrix3d> mapToWorld(CoordinateSystem from, bool isVector)
{
    const DocumentState* document = documents::current();
    if (!document || from == CoordinateSystem::paperDcs) return std::nullopt;
    if (from == CoordinateSystem::wcs) return AcGeMatrix3d::kIdentity;
    if (from == CoordinateSystem::ucs) return frames::current(*document->database);
    const DisplayView view = viewOf(activeViewport());
    return isVector ? parallelToWorld(view) : displayToWorld(view);
}

std::optional<AcGeMatrix3d> mapBetween(CoordinateSystem from, CoordinateSystem to, bool isVector)
{
    constexpr CoordinateSystem paper = CoordinateSystem::paperDcs, display = CoordinateSystem::dcs;
    if (from == paper && to == display) {
        const auto toPaper = mapToPaper();
        return toPaper ? std::optional(toPaper->inverse()) : std::nullopt;
    }
    if (from == display && to == paper) return mapToPaper();
    if (from == paper && to == paper)
        return mapToPaper() ? std::optional(AcGeMatrix3d::kIdentity) : std::nullopt;
    const auto fromWorld = mapToWorld(to, isVector), toWorld = mapToWorld(from, isVector);
    if (!fromWorld || !toWorld) return std::nullopt;
    return fromWorld->inverse() * *toWorld;
}
} // namespace ed

int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int displacement, ads_point result)
{
    const std::optional<Side> source = sideOf(from), target = sideOf(to);
    if (!point || !result || !source || !target || !isFinite(AcGePoint3d(point[X], point[Y], point[Z])))
        return RTERROR;
    const bool isVector = displacement != 0;
    const auto between = ed::mapBetween(source->system, target->system, isVector);
    if (!between) return RTERROR;
    const AcGeMatrix3d map = target->toWorld.inverse() * *between * source->toWorld;
    AcGePoint3d mapped(point[X], point[Y], point[Z]);
    mapped = isVector ? AcGePoint3d::kOrigin + map * mapped.asVector() : map * mapped;
    for (int i = 0; i < 3; ++i)
        result[i] = mapped[i];
    return RTNORM;
}
