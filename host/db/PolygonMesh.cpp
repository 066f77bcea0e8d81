#include "ClassRegistration.h"
#include "dbpolymesh.h"
#include "DxfFollowed.h"
#include "DxfOptional.h"

ACDB_DXF_CLASS(AcDbPolygonMesh, AcDbEntity, POLYLINE)

#define MESH_NUMBER(MEMBER, BIT, CODE)                                                                       \
    dxf::givenInteger<&AcDbPolygonMesh::MEMBER, &AcDbPolygonMesh::mGiven, BIT>(CODE)

const DxfClass AcDbPolygonMesh::dxf("AcDbPolygonMesh", &AcDbEntity::dxf,
                                    {
                                        dxf::followed(),
                                        dxf::point<&AcDbPolygonMesh::mOrigin>(10),
                                        dxf::integer<&AcDbPolygonMesh::mFlags>(70),
                                        MESH_NUMBER(mRows, 1u, 71),
                                        MESH_NUMBER(mColumns, 2u, 72),
                                        MESH_NUMBER(mRowDensity, 4u, 73),
                                        MESH_NUMBER(mColumnDensity, 8u, 74),
                                        MESH_NUMBER(mSmoothing, 16u, 75),
                                    });
#undef MESH_NUMBER

namespace
{
constexpr int smoothed = 4;
}

/// The vertices that are shown, in rows and columns; empty when there are too few.
struct AcDbPolygonMesh::Grid {
    std::vector<AcGePoint3d> points;
    int rows = 0, columns = 0;
    bool rowsClosed = false, columnsClosed = false;

    const AcGePoint3d& at(int row, int column) const
    {
        return points[static_cast<std::size_t>(row % rows) * static_cast<std::size_t>(columns) +
                      static_cast<std::size_t>(column % columns)];
    }
    int lastRow() const { return rowsClosed ? rows : rows - 1; }
    int lastColumn() const { return columnsClosed ? columns : columns - 1; }
};

AcDbPolygonMesh::AcDbPolygonMesh(AcDb::PolyMeshType type, Adesk::Int16 mSize, Adesk::Int16 nSize,
                                 const AcGePoint3dArray& vertices, Adesk::Boolean mClosed,
                                 Adesk::Boolean nClosed)
    : AcDbPolygonMesh()
{
    setMSize(mSize);
    setNSize(nSize);
    setPolyMeshType(type);
    if (mClosed) makeMClosed();
    if (nClosed) makeNClosed();
    for (const AcGePoint3d& point : vertices)
        appendVertex(new AcDbPolygonMeshVertex(point));
}

AcDb::PolyMeshType AcDbPolygonMesh::polyMeshType() const
{
    return mFlags & smoothed ? static_cast<AcDb::PolyMeshType>(mSmoothing) : AcDb::kSimpleMesh;
}

Acad::ErrorStatus AcDbPolygonMesh::setPolyMeshType(AcDb::PolyMeshType type)
{
    const bool isKnown = type == AcDb::kSimpleMesh || type == AcDb::kQuadSurfaceMesh ||
                         type == AcDb::kCubicSurfaceMesh || type == AcDb::kBezierSurfaceMesh;
    if (!isKnown) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setFlag(smoothed, type != AcDb::kSimpleMesh);
    if (status == Acad::eOk) mSmoothing = static_cast<std::int16_t>(type);
    return status;
}

Acad::ErrorStatus AcDbPolygonMesh::setSize(std::int16_t& member, Adesk::Int16 size)
{
    if (size < 2 || size > 256) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) member = size;
    return status;
}

Acad::ErrorStatus AcDbPolygonMesh::setDensity(std::int16_t& member, Adesk::Int16 density)
{
    if (density < 3 || density > 201) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) member = density;
    return status;
}

Acad::ErrorStatus AcDbPolygonMesh::appendVertex(AcDbPolygonMeshVertex* vertex)
{
    AcDbObjectId id;
    return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDbPolygonMesh::appendVertex(AcDbObjectId& id, AcDbPolygonMeshVertex* vertex)
{
    return mVertices.append(*this, id, vertex);
}

AcDbPolygonMesh::Grid AcDbPolygonMesh::grid() const
{
    Grid grid;
    const std::vector<AcDbPolygonMeshVertex*> vertices = mVertices.allOf<AcDbPolygonMeshVertex>();
    bool hasSurface = false;
    for (const AcDbPolygonMeshVertex* vertex : vertices)
        hasSurface |= vertex->vertexType() == AcDb::k3dFitVertex;
    const bool showsSurface = (mFlags & smoothed) && hasSurface;
    for (const AcDbPolygonMeshVertex* vertex : vertices) {
        if (!showsSurface || vertex->vertexType() == AcDb::k3dFitVertex)
            grid.points.push_back(vertex->position());
    }
    grid.rows = showsSurface ? mRowDensity : mRows;
    grid.columns = showsSurface ? mColumnDensity : mColumns;
    grid.rowsClosed = isMClosed();
    grid.columnsClosed = isNClosed();
    // Damaged sizes show nothing instead of what is not there.
    const bool isWhole =
        grid.rows > 0 && grid.columns > 0 &&
        grid.points.size() >= static_cast<std::size_t>(grid.rows) * static_cast<std::size_t>(grid.columns);
    return isWhole ? grid : Grid();
}

std::vector<VertexMesh::Facet> AcDbPolygonMesh::facets() const
{
    std::vector<Facet> found;
    const Grid all = grid();
    for (int row = 0; row < all.lastRow(); ++row) {
        for (int column = 0; column < all.lastColumn(); ++column) {
            Facet facet;
            facet.count = 4;
            facet.corners[0] = all.at(row, column);
            facet.corners[1] = all.at(row, column + 1);
            facet.corners[2] = all.at(row + 1, column + 1);
            facet.corners[3] = all.at(row + 1, column);
            found.push_back(facet);
        }
    }
    return found;
}

// Neighbours share their edges, which are drawn once.
std::vector<VertexMesh::Edge> AcDbPolygonMesh::edges() const
{
    std::vector<Edge> found;
    const Grid all = grid();
    for (int row = 0; row < all.rows; ++row) {
        for (int column = 0; column < all.columns; ++column) {
            if (column < all.lastColumn()) found.push_back({all.at(row, column), all.at(row, column + 1)});
            if (row < all.lastRow()) found.push_back({all.at(row, column), all.at(row + 1, column)});
        }
    }
    return found;
}
