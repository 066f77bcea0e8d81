#pragma once

/// What the meshes made of vertices have in common.

#include "dbvertex.h"
#include "VertexList.h"

class AcDbFace;
class AcDbObjectIterator;
class AcDbSequenceEnd;

/// Vertices may be appended before and after the mesh is added to a drawing. Erasing it erases them.
class VertexMesh : public AcDbEntity
{
public:
    /// A new iterator over the vertices, face records too, that the caller deletes.
    AcDbObjectIterator* vertexIterator() const { return mVertices.iterator(); }
    Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode);

    DbSubentities* subentities() override { return &mVertices.stored(); }
    void addedToDrawing() override { mVertices.addToDrawing(*this); }
    void intersectionCurves(Curves& curves, bool extended) const override;
    AcRxObject* clone() const override;

protected:
    /// An edge that is shown.
    struct Edge {
        AcGePoint3d from, to;
    };
    /// A face with the edges that are shown; null corners repeat the last.
    struct Facet {
        AcGePoint3d corners[4];
        bool edges[4] = {true, true, true, true};
        int count = 0; ///< of corners: 1 to 4
    };
    virtual std::vector<Facet> facets() const = 0;
    /// What is drawn.
    virtual std::vector<Edge> edges() const;

    /// Opens a vertex of this mesh; eInvalidInput for another's.
    template <class Vertex>
    Acad::ErrorStatus open(Vertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) const
    {
        vertex = nullptr;
        return owns(id) ? acdbOpenObject(vertex, id, mode, openErased) : Acad::eInvalidInput;
    }
    Acad::ErrorStatus setFlag(int flag, bool on);

    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    /// Into faces, lines and points.
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

    VertexList mVertices;
    AcGePoint3d mOrigin; ///< means nothing; kept from files
    std::int16_t mFlags = 0;
    std::uint8_t mGiven = 0; ///< which optional groups the file gave

private:
    bool owns(AcDbObjectId id) const;
};
