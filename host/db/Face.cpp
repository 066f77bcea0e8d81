#include "dbface.h"

#include "acgi.h"
#include "ClassRegistration.h"
#include "DxfFields.h"
#include "gecurv3d.h"
#include "gelnsg3d.h"
#include "PlanarCoords.h"

ACDB_DXF_CLASS(AcDbFace, AcDbEntity, 3DFACE)

struct FaceFields {
    /// A file may leave out the fourth corner of a triangle.
    static void readCorner2(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        auto& face = static_cast<AcDbFace&>(object);
        dxf::point<&AcDbFace::mCorner2>(12).read(object, field, source);
        face.mCorner3 = face.mCorner2;
    }
    static void writeCorner2(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        dxf::point<&AcDbFace::mCorner2>(12).write(object, field, sink);
    }
};

const DxfClass AcDbFace::dxf("AcDbFace", &AcDbEntity::dxf,
                             {
                                 dxf::point<&AcDbFace::mCorner0>(10),
                                 dxf::point<&AcDbFace::mCorner1>(11),
                                 dxf::custom(12, FaceFields::readCorner2, FaceFields::writeCorner2),
                                 dxf::point<&AcDbFace::mCorner3>(13),
                                 dxf::integer<&AcDbFace::mHiddenEdges>(70),
                             });

AcDbFace::AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                   Adesk::Boolean e0vis, Adesk::Boolean e1vis, Adesk::Boolean e2vis, Adesk::Boolean e3vis)
    : mCorner0(p0), mCorner1(p1), mCorner2(p2), mCorner3(p3),
      mHiddenEdges(static_cast<std::int16_t>((e0vis ? 0 : 1) | (e1vis ? 0 : 2) | (e2vis ? 0 : 4) | (e3vis ? 0 : 8)))
{
}

AcGePoint3d& AcDbFace::corner(int index)
{
    AcGePoint3d* corners[] = {&mCorner0, &mCorner1, &mCorner2, &mCorner3};
    return *corners[index];
}

Acad::ErrorStatus AcDbFace::getVertexAt(std::uint16_t index, AcGePoint3d& point) const
{
    if (index > 3) return Acad::eInvalidFace3dVertexIndex;
    point = corner(index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::setVertexAt(std::uint16_t index, const AcGePoint3d& point)
{
    if (index > 3) return Acad::eInvalidFace3dVertexIndex;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) corner(index) = point;
    return status;
}

Acad::ErrorStatus AcDbFace::isEdgeVisibleAt(std::uint16_t index, Adesk::Boolean& visible) const
{
    if (index > 3) return Acad::eInvalidFace3dVertexIndex;
    visible = !(mHiddenEdges >> index & 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::setEdge(std::uint16_t index, bool visible)
{
    if (index > 3) return Acad::eInvalidFace3dVertexIndex;
    const Acad::ErrorStatus status = beginChange();
    const int bit = 1 << index;
    if (status == Acad::eOk) mHiddenEdges = static_cast<std::int16_t>(visible ? mHiddenEdges & ~bit : mHiddenEdges | bit);
    return status;
}

bool AcDbFace::isPlanar() const
{
    AcGePlane plane;
    AcDb::Planarity planarity;
    return getPlane(plane, planarity) == Acad::eOk;
}

Acad::ErrorStatus AcDbFace::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    // The diagonals span the plane of every figure but the folded one, where two sides do.
    AcGeVector3d normal = (mCorner2 - mCorner0).crossProduct(mCorner3 - mCorner1);
    if (normal.isZeroLength()) normal = (mCorner1 - mCorner0).crossProduct(mCorner2 - mCorner0);
    if (normal.isZeroLength()) return Acad::eDegenerateGeometry;
    normal.normalize();
    for (int i = 1; i < 4; ++i) {
        if (std::fabs(normal.dotProduct(corner(i) - mCorner0)) > AcGeContext::gTol.equalPoint())
            return Acad::eNonPlanarEntity;
    }
    plane.set(mCorner0, normal);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::subTransformBy(const AcGeMatrix3d& xform)
{
    for (int i = 0; i < 4; ++i) corner(i).transformBy(xform);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::subGetGeomExtents(AcDbExtents& extents) const
{
    for (int i = 0; i < 4; ++i) {
        if (!isFinite(corner(i))) return Acad::eInvalidExtents;
        extents.addPoint(corner(i));
    }
    return Acad::eOk;
}

bool AcDbFace::subWorldDraw(AcGiWorldDraw* draw)
{
    for (int i = 0; i < 4; ++i) {
        const AcGePoint3d edge[] = {corner(i), corner((i + 1) % 4)};
        if (!(mHiddenEdges >> i & 1) && !edge[0].isEqualTo(edge[1])) draw->geometry().polyline(2, edge);
    }
    return true;
}

Acad::ErrorStatus AcDbFace::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    for (int i = 0; i < 4; ++i) gripPoints.append(corner(i));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    for (int i = 0; i < 4; ++i) {
        if (indices.contains(i)) corner(i) += offset;
    }
    return Acad::eOk;
}

void AcDbFace::intersectionCurves(Curves& curves, bool) const
{
    for (int i = 0; i < 4; ++i) {
        const AcGePoint3d& to = corner((i + 1) % 4);
        if (!corner(i).isEqualTo(to)) curves.push_back(std::make_unique<AcGeLineSeg3d>(corner(i), to));
    }
}
