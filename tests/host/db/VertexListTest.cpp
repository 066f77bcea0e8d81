/// Polylines whose vertices are objects: where the vertices are before and after the polyline is added to a
/// drawing.

#include "DatabaseFixture.h"
#include "db2dpl.h"
#include "dbblock.h"
#include "dbobjiter.h"
#include "Stub.h"

#include <memory>

namespace
{
class Vertices : public DatabaseFixture
{
protected:
    AcDbObjectId addToModelSpace(AcDbEntity* entity)
    {
        AcDbBlockTable* table = nullptr;
        AcDbBlockTableRecord* space = nullptr;
        AcDbObjectId id;
        EXPECT_EQ(mDatabase.getBlockTable(table, AcDb::kForRead), Acad::eOk);
        EXPECT_EQ(table->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        space->close();
        table->close();
        return id;
    }

    static std::vector<AcGePoint3d> positions(const AcDb2dPolyline& polyline)
    {
        std::vector<AcGePoint3d> found;
        const std::unique_ptr<AcDbObjectIterator> at(polyline.vertexIterator());
        for (; !at->done(); at->step())
            found.push_back(polyline.vertexPosition(*AcDb2dVertex::cast(at->entity())));
        return found;
    }

    static AcDb2dPolyline* triangle()
    {
        AcGePoint3dArray points;
        for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 0), AcGePoint3d(4, 0, 0), AcGePoint3d(0, 3, 0)})
            points.append(p);
        return new AcDb2dPolyline(AcDb::k2dSimplePoly, points, 0.0, true);
    }
};
} // namespace

TEST_F(Vertices, FollowTheirPolylineIntoTheDrawing)
{
    AcDb2dPolyline* polyline = triangle();
    EXPECT_EQ(positions(*polyline).size(), 3u);
    const AcDbObjectId id = addToModelSpace(polyline);
    ASSERT_EQ(polyline->subentities()->ids.size(), 3u);
    EXPECT_EQ(residentObject(polyline->subentities()->ids[1])->ownerId(), id);
    EXPECT_TRUE(polyline->subentities()->sequenceEnd.isValid());
    EXPECT_TRUE(positions(*polyline)[1].isEqualTo({4, 0, 0}));
    double area = 0.0;
    EXPECT_EQ(polyline->getArea(area), Acad::eOk);
    EXPECT_DOUBLE_EQ(area, 6.0);
    polyline->close();
}

TEST_F(Vertices, AreInsertedBehindTheirPlace)
{
    AcDb2dPolyline* polyline = triangle();
    addToModelSpace(polyline);
    auto* first = new AcDb2dVertex(AcGePoint3d(-1, -1, 0));
    auto* second = new AcDb2dVertex(AcGePoint3d(4, 4, 0));
    AcDbObjectId id;
    ASSERT_EQ(polyline->insertVertexAt(nullptr, first), Acad::eOk);
    ASSERT_EQ(polyline->insertVertexAt(id, polyline->subentities()->ids[2], second), Acad::eOk);
    EXPECT_EQ(polyline->insertVertexAt(nullptr, second), Acad::eAlreadyInDb);
    EXPECT_EQ(polyline->appendVertex(nullptr), Acad::eNullEntityPointer);
    const std::vector<AcGePoint3d> found = positions(*polyline);
    ASSERT_EQ(found.size(), 5u);
    EXPECT_TRUE(found[0].isEqualTo({-1, -1, 0}));
    EXPECT_TRUE(found[3].isEqualTo({4, 4, 0}));
    first->close();
    second->close();
    polyline->close();
}

TEST_F(Vertices, AreErasedAndComeBackWithTheirPolyline)
{
    AcDb2dPolyline* polyline = triangle();
    addToModelSpace(polyline);
    const AcDbObjectId vertex = polyline->subentities()->ids[0];
    ASSERT_EQ(polyline->erase(), Acad::eOk);
    EXPECT_TRUE(vertex.isErased());
    ASSERT_EQ(polyline->erase(false), Acad::eOk);
    EXPECT_FALSE(vertex.isErased());
    polyline->close();
}

TEST_F(Vertices, OfACopyAreCopies)
{
    AcDb2dPolyline* polyline = triangle();
    addToModelSpace(polyline);
    const std::unique_ptr<AcRxObject> owned(polyline->clone());
    auto* copy = AcDb2dPolyline::cast(owned.get());
    ASSERT_EQ(copy->transformBy(AcGeMatrix3d::translation({10, 0, 0})), Acad::eOk);
    EXPECT_TRUE(positions(*copy)[1].isEqualTo({14, 0, 0}));
    EXPECT_TRUE(positions(*polyline)[1].isEqualTo({4, 0, 0}));
    EXPECT_TRUE(copy->subentities()->ids.empty());
    polyline->close();
}

TEST_F(Vertices, OneThatIsOpenKeepsThePolylineUnchanged)
{
    AcDb2dPolyline* polyline = triangle();
    addToModelSpace(polyline);
    AcDb2dVertex* vertex = nullptr;
    ASSERT_EQ(polyline->openVertex(vertex, polyline->subentities()->ids[2], AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(polyline->transformBy(AcGeMatrix3d::translation({10, 0, 0})), Acad::eWasOpenForRead);
    EXPECT_TRUE(positions(*polyline)[0].isEqualTo({0, 0, 0}));
    vertex->close();
    EXPECT_EQ(polyline->transformBy(AcGeMatrix3d::translation({10, 0, 0})), Acad::eOk);
    EXPECT_TRUE(positions(*polyline)[0].isEqualTo({10, 0, 0}));
    polyline->close();
}
