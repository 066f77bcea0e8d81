#pragma once

/// AcBrBrep: the boundary of a whole entity.

#include "brent.h"

class AcDbEntity;

class AcBrBrep : public AcBrEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcBrBrep);
    AcBrBrep() = default;

    /// Takes the shape of a region, which is open for read or in no database. eWrongObjectType for other
    /// entities; eInvalidObject for a region whose shape is not known. Nothing is changed on failure.
    AcBr::ErrorStatus set(const AcDbEntity& entity);
    /// The same of the entity at the end of a path, which is opened for read. Through block references:
    /// eNotImplementedYet.
    AcBr::ErrorStatus setSubentPath(AcDbFullSubentPath& path);
    /// eUninitialisedObject for a brep that was set to an entity.
    AcBr::ErrorStatus getSubentPath(AcDbFullSubentPath& path) const;
    /// Inside, outside or on the boundary, within 1e-8 units; points out of the plane of a region are
    /// outside.
    AcBr::ErrorStatus getPointRelationToBrep(const AcGePoint3d& point,
                                             AcGe::PointContainment& relation) const;

private:
    AcDbFullSubentPath mPath;
};
