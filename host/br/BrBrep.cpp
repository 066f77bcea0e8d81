#include "brbrep.h"

#include "BrAccess.h"
#include "ClassRegistration.h"
#include "RegionAccess.h"

ACDB_ABSTRACT_CLASS(AcBrBrep, AcBrEntity)

AcBr::ErrorStatus AcBrBrep::set(const AcDbEntity& entity)
{
    const AcDbRegion* region = AcDbRegion::cast(&entity);
    if (!region) return AcBr::eWrongObjectType;
    auto shape = std::make_shared<br::Shape>();
    if (RegionAccess::shape(*region, shape->region) != Acad::eOk) return AcBr::eInvalidObject;
    shape->faces = shape->region.faces();
    BrAccess::set(*this, std::move(shape), {});
    mPath = AcDbFullSubentPath();
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrBrep::setSubentPath(AcDbFullSubentPath& path)
{
    if (path.objectIds().isEmpty()) return AcBr::eInvalidInput;
    if (path.objectIds().length() > 1) return AcBr::eNotImplementedYet;
    AcDbEntity* entity = nullptr;
    const Acad::ErrorStatus opened = acdbOpenObject(entity, path.objectIds().last());
    if (opened == Acad::eNotThatKindOfClass) return AcBr::eWrongObjectType;
    if (opened != Acad::eOk) return static_cast<AcBr::ErrorStatus>(opened);
    const AcBr::ErrorStatus status = set(*entity);
    entity->close();
    if (status == AcBr::eOk) mPath = path;
    return status;
}

AcBr::ErrorStatus AcBrBrep::getSubentPath(AcDbFullSubentPath& path) const
{
    if (isNull() || mPath.objectIds().isEmpty()) return AcBr::eUninitialisedObject;
    path = mPath;
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrBrep::getPointRelationToBrep(const AcGePoint3d& point,
                                                   AcGe::PointContainment& relation) const
{
    AcBrEntity* container = nullptr;
    const AcBr::ErrorStatus status = getPointContainment(point, relation, container);
    if (status == AcBr::eOk) delete container;
    return status;
}
