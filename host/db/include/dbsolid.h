#pragma once

/// AcDbSolid and AcDbTrace: filled figures with four corners in a plane.

#include "dbentity.h"

/// What both have in common. Corners are numbered as AutoCAD's SOLID asks for them: 0, 1, 3, 2 go round the figure; a
/// triangle's corner 3 is its corner 2.
class AcDbFilledQuad : public AcDbEntity
{
public:
    /// Corner 0 to 3 in world coordinates; eInvalidIndex for others.
    Acad::ErrorStatus getPointAt(std::uint16_t index, AcGePoint3d& point) const;
    /// Moves a corner; the others keep their place, the figure its plane. eInvalidInput for coordinates that are not
    /// finite.
    Acad::ErrorStatus setPointAt(std::uint16_t index, const AcGePoint3d& point);
    double thickness() const { return mThickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return mNormal; }
    /// Turns the plane; eInvalidInput for a zero vector and one that is not finite.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    void getEcs(AcGeMatrix3d& matrix) const override;

protected:
    AcDbFilledQuad() = default;
    AcDbFilledQuad(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
        : mCorner0(p0), mCorner1(p1), mCorner2(p2), mCorner3(p3)
    {
    }
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    void intersectionCurves(Curves& curves, bool extended) const override;
    static const DxfClass dxfOfQuad;

private:
    friend struct FilledQuadFields;
    AcGePoint3d& corner(int index);
    const AcGePoint3d& corner(int index) const { return const_cast<AcDbFilledQuad*>(this)->corner(index); }

    AcGePoint3d mCorner0, mCorner1, mCorner2, mCorner3; ///< in object coordinates
    double mThickness = 0.0;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
};

class AcDbSolid : public AcDbFilledQuad
{
public:
    ACRX_DECLARE_MEMBERS(AcDbSolid);
    ACDB_STATE_MEMBERS(AcDbSolid)
    AcDbSolid() = default;
    AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
        : AcDbFilledQuad(p0, p1, p2, p3)
    {
    }
    AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2) : AcDbSolid(p0, p1, p2, p2) {}

    const DxfClass* dxfClass() const override { return &dxfOfQuad; }
};

class AcDbTrace : public AcDbFilledQuad
{
public:
    ACRX_DECLARE_MEMBERS(AcDbTrace);
    ACDB_STATE_MEMBERS(AcDbTrace)
    AcDbTrace() = default;
    AcDbTrace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
        : AcDbFilledQuad(p0, p1, p2, p3)
    {
    }

    const DxfClass* dxfClass() const override { return &dxfOfQuad; }
};
