#include "dbsolid.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "PlanarCoords.h"
#include "acgi.h"
#include "gecurv3d.h"
#include "gelnsg3d.h"

#include <cmath>

ACDB_DXF_CLASS(AcDbSolid, AcDbEntity, SOLID)
ACDB_DXF_CLASS(AcDbTrace, AcDbEntity, TRACE)

/// Names the members for the fields.
struct FilledQuadFields {
    static constexpr auto corner0 = &AcDbFilledQuad::mCorner0;
    static constexpr auto corner1 = &AcDbFilledQuad::mCorner1;
    static constexpr auto corner2 = &AcDbFilledQuad::mCorner2;
    static constexpr auto corner3 = &AcDbFilledQuad::mCorner3;
    static constexpr auto thickness = &AcDbFilledQuad::mThickness;
    static constexpr auto normal = &AcDbFilledQuad::mNormal;

    /// A file may leave out the fourth corner of a triangle.
    static void readCorner2(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        auto& quad = static_cast<AcDbFilledQuad&>(object);
        dxf::point<corner2>(12).read(object, field, source);
        quad.mCorner3 = quad.mCorner2;
    }
    static void writeCorner2(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        dxf::point<corner2>(12).write(object, field, sink);
    }
};

// Both records have the section of a trace.
const DxfClass AcDbFilledQuad::dxfOfQuad("AcDbTrace", &AcDbEntity::dxf,
                                         {
                                             dxf::point<FilledQuadFields::corner0>(10),
                                             dxf::point<FilledQuadFields::corner1>(11),
                                             dxf::custom(12, FilledQuadFields::readCorner2,
                                                         FilledQuadFields::writeCorner2),
                                             dxf::point<FilledQuadFields::corner3>(13),
                                             dxf::real<FilledQuadFields::thickness>(39).unless(0.0),
                                             dxf::direction<FilledQuadFields::normal>(210).unlessZAxis(),
                                         });

namespace
{
/// The corners in the order in which they go round the figure.
constexpr int around[] = {0, 1, 3, 2};
} // namespace

AcGePoint3d& AcDbFilledQuad::corner(int index)
{
    AcGePoint3d* corners[] = {&mCorner0, &mCorner1, &mCorner2, &mCorner3};
    return *corners[index];
}

Acad::ErrorStatus AcDbFilledQuad::getPointAt(std::uint16_t index, AcGePoint3d& point) const
{
    if (index > 3) return Acad::eInvalidIndex;
    point = ocsToWorld(mNormal) * corner(index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFilledQuad::setPointAt(std::uint16_t index, const AcGePoint3d& point)
{
    if (index > 3) return Acad::eInvalidIndex;
    if (!isFinite(point)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) corner(index) = worldToOcs(mNormal) * point;
    return status;
}

Acad::ErrorStatus AcDbFilledQuad::setThickness(double thickness)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mThickness = thickness;
    return status;
}

Acad::ErrorStatus AcDbFilledQuad::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength() || !std::isfinite(normal.length())) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mNormal = normal.normal();
    return status;
}

Acad::ErrorStatus AcDbFilledQuad::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(ocsToWorld(mNormal) * mCorner0, mNormal);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

void AcDbFilledQuad::getEcs(AcGeMatrix3d& matrix) const { matrix = ocsToWorld(mNormal); }

Acad::ErrorStatus AcDbFilledQuad::subTransformBy(const AcGeMatrix3d& xform)
{
    const AcGeVector3d normal = mappedNormal(xform, mNormal);
    const AcGeMatrix3d map = mappedCoordinates(xform, mNormal, normal);
    for (int i = 0; i < 4; ++i) corner(i).transformBy(map);
    mThickness = mappedThickness(xform, mNormal, mThickness);
    mNormal = normal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFilledQuad::subGetGeomExtents(AcDbExtents& extents) const
{
    const AcGeMatrix3d world = ocsToWorld(mNormal);
    for (int i = 0; i < 4; ++i) {
        if (!isFinite(corner(i))) return Acad::eInvalidExtents;
        extents.addPoint(world * corner(i));
    }
    if (mThickness != 0.0) extents.expandBy(mThickness * mNormal);
    return Acad::eOk;
}

bool AcDbFilledQuad::subWorldDraw(AcGiWorldDraw* draw)
{
    const AcGeMatrix3d world = ocsToWorld(mNormal);
    AcGePoint3d points[4];
    for (int i = 0; i < 4; ++i) points[i] = world * corner(around[i]);
    draw->subEntityTraits().setFillType(kAcGiFillAlways);
    draw->geometry().polygon(mCorner2 == mCorner3 ? 3 : 4, points);
    return true;
}

Acad::ErrorStatus AcDbFilledQuad::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    const AcGeMatrix3d world = ocsToWorld(mNormal);
    for (int i = 0; i < 4; ++i) gripPoints.append(world * corner(i));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFilledQuad::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    const AcGeVector3d moved = worldToOcs(mNormal) * offset;
    for (int i = 0; i < 4; ++i) {
        if (indices.contains(i)) corner(i) += moved;
    }
    return Acad::eOk;
}

void AcDbFilledQuad::intersectionCurves(Curves& curves, bool) const
{
    const AcGeMatrix3d world = ocsToWorld(mNormal);
    for (int i = 0; i < 4; ++i) {
        const AcGePoint3d from = world * corner(around[i]);
        const AcGePoint3d to = world * corner(around[(i + 1) % 4]);
        if (!from.isEqualTo(to)) curves.push_back(std::make_unique<AcGeLineSeg3d>(from, to));
    }
}
