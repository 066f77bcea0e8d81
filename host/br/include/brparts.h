#pragma once

/// The parts of a boundary representation: faces, their loops, the edges and vertices of those.

#include "brent.h"
#include "gecurv3d.h"
#include "geplane.h"

class AcBrFace : public AcBrEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcBrFace);
    AcBrFace() = default;

    AcBr::ErrorStatus getArea(double& area, double tolRequired = 0.0, double* tolAchieved = nullptr) const;
    AcBr::ErrorStatus getSurfaceType(AcGe::EntityId& type) const;
    /// The plane as a new object that the caller deletes.
    AcBr::ErrorStatus getSurface(AcGeSurface*& surface) const;
};

class AcBrLoop : public AcBrEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcBrLoop);
    AcBrLoop() = default;

    AcBr::ErrorStatus getType(AcBr::LoopType& type) const;
    AcBr::ErrorStatus getFace(AcBrFace& face) const;
};

class AcBrVertex : public AcBrEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcBrVertex);
    AcBrVertex() = default;

    AcBr::ErrorStatus getPoint(AcGePoint3d& point) const;
};

class AcBrEdge : public AcBrEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcBrEdge);
    AcBrEdge() = default;

    /// The curve, in the direction of its loop, as a new object that the caller deletes.
    AcBr::ErrorStatus getCurve(AcGeCurve3d*& curve) const;
    AcBr::ErrorStatus getCurveType(AcGe::EntityId& type) const;
    /// The curves of regions run like their edges: always true.
    AcBr::ErrorStatus getOrientToCurve(Adesk::Boolean& orient) const;
    /// The vertices at the start and at the end of the edge; equal for closed curves.
    AcBr::ErrorStatus getVertex1(AcBrVertex& vertex) const;
    AcBr::ErrorStatus getVertex2(AcBrVertex& vertex) const;
};
