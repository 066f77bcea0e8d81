#include "dbvertexmesh.h"

#include "acgi.h"
#include "dbblock.h"
#include "dbface.h"
#include "dbline.h"
#include "dbobjiter.h"
#include "dbpoint.h"
#include "gelnsg3d.h"
#include "Stub.h"

Acad::ErrorStatus VertexMesh::openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode)
{
    return acdbOpenObject(end, mVertices.stored().sequenceEnd, mode);
}

bool VertexMesh::owns(AcDbObjectId id) const
{
    const AcDbObject* object = residentObject(id);
    return !object || object->ownerId() == objectId();
}

Acad::ErrorStatus VertexMesh::setFlag(int flag, bool on)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(on ? mFlags | flag : mFlags & ~flag);
    return status;
}

std::vector<VertexMesh::Edge> VertexMesh::edges() const
{
    std::vector<Edge> found;
    for (const Facet& facet : facets()) {
        // A face of two corners is a line, which is not walked back.
        const int sides = facet.count == 2 ? 1 : facet.count;
        for (int i = 0; i < sides && facet.count > 1; ++i) {
            if (facet.edges[i]) found.push_back({facet.corners[i], facet.corners[(i + 1) % facet.count]});
        }
    }
    return found;
}

void VertexMesh::intersectionCurves(Curves& curves, bool) const
{
    for (const Edge& edge : edges()) {
        if (!edge.from.isEqualTo(edge.to))
            curves.push_back(std::make_unique<AcGeLineSeg3d>(edge.from, edge.to));
    }
}

AcRxObject* VertexMesh::clone() const
{
    auto* copy = static_cast<VertexMesh*>(newCopy());
    copy->mVertices.detach();
    return copy;
}

Acad::ErrorStatus VertexMesh::subTransformBy(const AcGeMatrix3d& xform)
{
    return mVertices.change([&](AcDbEntity& vertex) { vertex.transformBy(xform); });
}

Acad::ErrorStatus VertexMesh::subExplode(AcDbVoidPtrArray& entitySet) const
{
    for (const Facet& facet : facets()) {
        const AcGePoint3d* c = facet.corners;
        const bool* e = facet.edges;
        if (facet.count == 1) entitySet.append(new AcDbPoint(c[0]));
        if (facet.count == 2) entitySet.append(new AcDbLine(c[0], c[1]));
        // The third edge of a triangle leads from its doubled last corner back to the first.
        if (facet.count == 3) entitySet.append(new AcDbFace(c[0], c[1], c[2], e[0], e[1], true, e[2]));
        if (facet.count == 4) entitySet.append(new AcDbFace(c[0], c[1], c[2], c[3], e[0], e[1], e[2], e[3]));
    }
    return Acad::eOk;
}

Acad::ErrorStatus VertexMesh::subGetGeomExtents(AcDbExtents& extents) const
{
    for (const Facet& facet : facets()) {
        for (int i = 0; i < facet.count; ++i)
            extents.addPoint(facet.corners[i]);
    }
    return extents.isEmpty() ? Acad::eInvalidExtents : Acad::eOk;
}

bool VertexMesh::subWorldDraw(AcGiWorldDraw* draw)
{
    for (const Edge& edge : edges()) {
        const AcGePoint3d ends[] = {edge.from, edge.to};
        if (!edge.from.isEqualTo(edge.to)) draw->geometry().polyline(2, ends);
    }
    return true;
}

Acad::ErrorStatus VertexMesh::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                               AcDbIntArray&) const
{
    for (const AcDbVertex* vertex : mVertices.allOf<AcDbVertex>()) {
        if (!vertex->isKindOf(AcDbFaceRecord::desc())) gripPoints.append(vertex->position());
    }
    return Acad::eOk;
}

Acad::ErrorStatus VertexMesh::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    int index = 0;
    return mVertices.change([&](AcDbEntity& entity) {
        auto& vertex = static_cast<AcDbVertex&>(entity);
        if (!vertex.isKindOf(AcDbFaceRecord::desc()) && indices.contains(index++))
            vertex.setPosition(vertex.position() + offset);
    });
}
