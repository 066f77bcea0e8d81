#pragma once

/// AcDbFace: a face in space with three or four corners (3DFACE).

#include "dbentity.h"

class AcDbFace : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbFace);
    ACDB_STATE_MEMBERS(AcDbFace)
    AcDbFace() = default;
    AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
             Adesk::Boolean e0vis = true, Adesk::Boolean e1vis = true, Adesk::Boolean e2vis = true,
             Adesk::Boolean e3vis = true);
    AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, Adesk::Boolean e0vis = true,
             Adesk::Boolean e1vis = true, Adesk::Boolean e2vis = true, Adesk::Boolean e3vis = true)
        : AcDbFace(p0, p1, p2, p2, e0vis, e1vis, e2vis, e3vis)
    {
    }

    /// Corner 0 to 3, in order around the face; a triangle's corner 3 is its corner 2. eInvalidFace3dVertexIndex for
    /// others.
    Acad::ErrorStatus getVertexAt(std::uint16_t index, AcGePoint3d& point) const;
    Acad::ErrorStatus setVertexAt(std::uint16_t index, const AcGePoint3d& point);
    /// Edge i runs from corner i to the next.
    Acad::ErrorStatus isEdgeVisibleAt(std::uint16_t index, Adesk::Boolean& visible) const;
    Acad::ErrorStatus makeEdgeVisibleAt(std::uint16_t index) { return setEdge(index, true); }
    Acad::ErrorStatus makeEdgeInvisibleAt(std::uint16_t index) { return setEdge(index, false); }

    bool isPlanar() const override;
    /// eNonPlanarEntity when the corners do not lie in a plane, eDegenerateGeometry when they lie on a line.
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    void intersectionCurves(Curves& curves, bool extended) const override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

private:
    friend struct FaceFields;
    Acad::ErrorStatus setEdge(std::uint16_t index, bool visible);
    AcGePoint3d& corner(int index);
    const AcGePoint3d& corner(int index) const { return const_cast<AcDbFace*>(this)->corner(index); }

    AcGePoint3d mCorner0, mCorner1, mCorner2, mCorner3;
    std::int16_t mHiddenEdges = 0; ///< bit i: edge i is not drawn
};
