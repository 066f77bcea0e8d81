/// Meshes of vertices: polygon meshes and polyface meshes.

#include "dbpolymesh.h"

#include "DatabaseFixture.h"
#include "dbface.h"
#include "dbline.h"
#include "dbobjiter.h"
#include "dbobjptr.h"
#include "Drawn.h"
#include "RecordLists.h"

#include <memory>

namespace
{
/// 2 rows of 3 vertices, one unit apart along X, the rows one apart along Y.
AcGePoint3dArray gridPoints()
{
    AcGePoint3dArray points;
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column)
            points.append(AcGePoint3d(column, row, 0.0));
    }
    return points;
}

std::unique_ptr<AcDbPolygonMesh> gridMesh(bool closed = false)
{
    return std::make_unique<AcDbPolygonMesh>(AcDb::kSimpleMesh, 2, 3, gridPoints(), false, closed);
}

/// A square whose diagonal is hidden, and a line.
std::unique_ptr<AcDbPolyFaceMesh> squareMesh()
{
    auto mesh = std::make_unique<AcDbPolyFaceMesh>();
    for (const AcGePoint3d& point :
         {AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0), AcGePoint3d(2, 2, 0), AcGePoint3d(0, 2, 4)})
        mesh->appendVertex(new AcDbPolyFaceMeshVertex(point));
    mesh->appendFaceRecord(new AcDbFaceRecord(1, 2, -3));
    mesh->appendFaceRecord(new AcDbFaceRecord(-1, 3, 4));
    mesh->appendFaceRecord(new AcDbFaceRecord(2, 4, 0));
    return mesh;
}

/// Explodes, and says of each piece its class; the pieces are deleted.
std::string piecesOf(const AcDbEntity& entity)
{
    AcDbVoidPtrArray pieces;
    EXPECT_EQ(entity.explode(pieces), Acad::eOk);
    std::string text;
    for (void* piece : pieces) {
        const std::unique_ptr<AcDbEntity> owned(static_cast<AcDbEntity*>(piece));
        text += AcDbFace::cast(owned.get()) ? "F" : AcDbLine::cast(owned.get()) ? "L" : "?";
    }
    return text;
}

std::size_t edgesOf(const AcDbEntity& entity)
{
    AcDbEntity::Curves curves;
    entity.intersectionCurves(curves, false);
    return curves.size();
}

AcDbExtents extentsOf(const AcDbEntity& entity)
{
    AcDbExtents extents;
    EXPECT_EQ(entity.getGeomExtents(extents), Acad::eOk);
    return extents;
}

using Mesh = DatabaseFixture;
} // namespace

TEST(PolygonMesh, HasFacesBetweenItsRows)
{
    // 2 x 3 vertices: 1 x 2 faces; 2 rows of 2 edges and 3 edges between the rows.
    EXPECT_EQ(piecesOf(*gridMesh()), "FF");
    EXPECT_EQ(edgesOf(*gridMesh()), 7u);
    // Closed along N: a third face, and an edge more in each row.
    EXPECT_EQ(piecesOf(*gridMesh(true)), "FFF");
    EXPECT_EQ(edgesOf(*gridMesh(true)), 9u);
    EXPECT_EQ(extentsOf(*gridMesh()).maxPoint(), AcGePoint3d(2, 1, 0));
}

TEST(PolygonMesh, KeepsToItsRanges)
{
    AcDbPolygonMesh mesh;
    EXPECT_EQ(mesh.polyMeshType(), AcDb::kSimpleMesh);
    for (const Adesk::Int16 size : {-1, 0, 1, 257}) {
        EXPECT_EQ(mesh.setMSize(size), Acad::eInvalidInput) << size;
        EXPECT_EQ(mesh.setNSurfaceDensity(size), Acad::eInvalidInput) << size;
    }
    EXPECT_EQ(mesh.setPolyMeshType(static_cast<AcDb::PolyMeshType>(7)), Acad::eInvalidInput);
    EXPECT_EQ(mesh.setPolyMeshType(AcDb::kCubicSurfaceMesh), Acad::eOk);
    EXPECT_EQ(mesh.polyMeshType(), AcDb::kCubicSurfaceMesh);
    // Sizes that promise more than there is show nothing.
    mesh.setMSize(200);
    mesh.setNSize(200);
    AcDbExtents extents;
    EXPECT_EQ(mesh.getGeomExtents(extents), Acad::eInvalidExtents);
    EXPECT_EQ(edgesOf(mesh), 0u);
}

TEST(PolyFaceMesh, HidesTheEdgesWithNegativeNumbers)
{
    const auto mesh = squareMesh();
    EXPECT_EQ(mesh->numVertices(), 4);
    EXPECT_EQ(mesh->numFaces(), 3);
    EXPECT_EQ(piecesOf(*mesh), "FFL");
    // Two triangles share a diagonal: 1-2, 2-3, 3-4, 4-1, and the line.
    EXPECT_EQ(edgesOf(*mesh), 5u);
    EXPECT_EQ(extentsOf(*mesh).maxPoint(), AcGePoint3d(2, 2, 4));
    mesh->appendFaceRecord(new AcDbFaceRecord(90, -32768, 0));
    EXPECT_EQ(piecesOf(*mesh), "FFL") << "numbers of no vertices";
}

TEST_F(Mesh, IsMovedByMapsAndGrips)
{
    for (const bool isPolyFace : {false, true}) {
        std::unique_ptr<AcDbEntity> mesh;
        if (isPolyFace)
            mesh = squareMesh();
        else
            mesh = gridMesh();
        AcDbEntity* entity = mesh.get();
        AcDbObjectId id;
        {
            const AcDbBlockTableRecordPointer space(mDatabase.modelSpaceId(), AcDb::kForWrite);
            ASSERT_EQ(space->appendAcDbEntity(id, mesh.release()), Acad::eOk);
        }
        const AcDbExtents before = extentsOf(*entity);
        const AcGeMatrix3d map =
            AcGeMatrix3d::rotation(0.7, AcGeVector3d(1, 2, 3).normal(), AcGePoint3d(5, 0, 1));
        ASSERT_EQ(entity->transformBy(map), Acad::eOk);
        EXPECT_FALSE(extentsOf(*entity).minPoint().isEqualTo(before.minPoint()));
        ASSERT_EQ(entity->transformBy(map.inverse()), Acad::eOk);
        EXPECT_TRUE(extentsOf(*entity).minPoint().isEqualTo(before.minPoint()));
        AcGePoint3dArray grips, after;
        AcDbIntArray modes, ids, second;
        ASSERT_EQ(entity->getGripPoints(grips, modes, ids), Acad::eOk);
        EXPECT_EQ(grips.length(), isPolyFace ? 4 : 6);
        second.append(1);
        ASSERT_EQ(entity->moveGripPointsAt(second, AcGeVector3d(0, 0, 7)), Acad::eOk);
        entity->getGripPoints(after, modes, ids);
        EXPECT_TRUE(after[1].isEqualTo(grips[1] + AcGeVector3d(0, 0, 7)));
        EXPECT_TRUE(after[2].isEqualTo(grips[2]));
        const std::vector<AcDbObjectId> vertices = entity->subentities()->ids;
        entity->erase();
        EXPECT_TRUE(vertices.front().isErased());
        entity->close();
    }
}

TEST_F(Mesh, RecordsAreWrittenAsTheyWereRead)
{
    const PackedGroups grid = groupsOf({{100, "AcDbPolygonMesh"},
                                        {66, 1.0},
                                        {10, 0.0},
                                        {20, 0.0},
                                        {30, 0.0},
                                        {70, 49.0},
                                        {71, 4.0},
                                        {72, 3.0},
                                        {73, 7.0},
                                        {74, 0.0},
                                        {75, 5.0}});
    AcDbPolygonMesh mesh;
    PackedGroups entity = groupsOf({{100, "AcDbEntity"}, {8, "0"}});
    DxfGroup group;
    for (std::size_t at = 0; grid.read(at, group);)
        entity.append(group);
    const std::string text = rewritten(mesh, entity, &mDatabase);
    EXPECT_NE(text.find(textOf(grid)), std::string::npos) << text;
    EXPECT_TRUE(mesh.isMClosed() && mesh.isNClosed());
    EXPECT_EQ(mesh.mSize(), 4);
    EXPECT_EQ(mesh.mSurfaceDensity(), 7);
}
