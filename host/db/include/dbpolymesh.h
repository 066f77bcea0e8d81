#pragma once

/// AcDbPolygonMesh: a surface of M by N vertices; AcDbPolyFaceMesh: faces that name their corners.

#include "dbvertexmesh.h"

/// The vertices stand row by row: N of the first row, then N of the next. A smoothed mesh has the M by N
/// vertices that steer it and, beside them, those of the surface, M density by N density.
class AcDbPolygonMesh : public VertexMesh
{
public:
    ACRX_DECLARE_MEMBERS(AcDbPolygonMesh);
    ACDB_STATE_MEMBERS(AcDbPolygonMesh)
    AcDbPolygonMesh() { mFlags = 16; }
    /// The mesh of all vertices given; its type says only what it is called, no surface is computed.
    AcDbPolygonMesh(AcDb::PolyMeshType type, Adesk::Int16 mSize, Adesk::Int16 nSize,
                    const AcGePoint3dArray& vertices, Adesk::Boolean mClosed = true,
                    Adesk::Boolean nClosed = true);

    AcDb::PolyMeshType polyMeshType() const;
    Acad::ErrorStatus setPolyMeshType(AcDb::PolyMeshType type);
    Adesk::Int16 mSize() const { return mRows; }
    /// Sizes: 2 to 256; eInvalidInput for others.
    Acad::ErrorStatus setMSize(Adesk::Int16 size) { return setSize(mRows, size); }
    Adesk::Int16 nSize() const { return mColumns; }
    Acad::ErrorStatus setNSize(Adesk::Int16 size) { return setSize(mColumns, size); }
    bool isMClosed() const { return (mFlags & 1) != 0; }
    Acad::ErrorStatus makeMClosed() { return setFlag(1, true); }
    Acad::ErrorStatus makeMOpen() { return setFlag(1, false); }
    bool isNClosed() const { return (mFlags & 32) != 0; }
    Acad::ErrorStatus makeNClosed() { return setFlag(32, true); }
    Acad::ErrorStatus makeNOpen() { return setFlag(32, false); }
    /// Densities: 3 to 201; eInvalidInput for others.
    Adesk::Int16 mSurfaceDensity() const { return mRowDensity; }
    Acad::ErrorStatus setMSurfaceDensity(Adesk::Int16 density) { return setDensity(mRowDensity, density); }
    Adesk::Int16 nSurfaceDensity() const { return mColumnDensity; }
    Acad::ErrorStatus setNSurfaceDensity(Adesk::Int16 density) { return setDensity(mColumnDensity, density); }

    Acad::ErrorStatus appendVertex(AcDbPolygonMeshVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDbPolygonMeshVertex* vertex);
    Acad::ErrorStatus openVertex(AcDbPolygonMeshVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) const
    {
        return open(vertex, id, mode, openErased);
    }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::vector<Facet> facets() const override;
    std::vector<Edge> edges() const override;

private:
    struct Grid;
    Grid grid() const;
    Acad::ErrorStatus setSize(std::int16_t& member, Adesk::Int16 size);
    Acad::ErrorStatus setDensity(std::int16_t& member, Adesk::Int16 density);

    std::int16_t mRows = 0, mColumns = 0, mRowDensity = 0, mColumnDensity = 0, mSmoothing = 0;
};

/// The vertices stand first, then the records of the faces.
class AcDbPolyFaceMesh : public VertexMesh
{
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyFaceMesh);
    ACDB_STATE_MEMBERS(AcDbPolyFaceMesh)
    AcDbPolyFaceMesh() { mFlags = 64; }

    /// How many there are now, erased ones left out.
    Adesk::Int16 numVertices() const;
    Adesk::Int16 numFaces() const;

    Acad::ErrorStatus appendVertex(AcDbPolyFaceMeshVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDbPolyFaceMeshVertex* vertex);
    Acad::ErrorStatus appendFaceRecord(AcDbFaceRecord* face);
    Acad::ErrorStatus appendFaceRecord(AcDbObjectId& id, AcDbFaceRecord* face);
    Acad::ErrorStatus openVertex(AcDbVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) const
    {
        return open(vertex, id, mode, openErased);
    }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::vector<Facet> facets() const override;

private:
    friend struct PolyFaceFields;
    std::int16_t mFileVertices = 0, mFileFaces = 0; ///< as the file counts them
};
