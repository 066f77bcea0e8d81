/// Grids in turned and moved coordinate systems.

#include "AxisGridFixture.h"

#include "dbdim.h"
#include "dbmtext.h"
#include "dbregion.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

TEST_F(AxisGridCommand, TurnsWithTheGrid)
{
    run(L"_QMAXISGRID R 30 1000,0\n6000\n3000\n\n\n\nWithout\nNo\n");
    forEach([](AcDbEntity& entity) {
        const auto* line = AcDbLine::cast(&entity);
        if (!line) return;
        const AcGeVector3d way = line->endPoint() - line->startPoint();
        const double degrees = std::atan2(way.y, way.x) * 180.0 / 3.141592653589793;
        EXPECT_NEAR(std::fmod(degrees, 90.0), 30.0, 1e-9);
    });
    const std::map<std::wstring, int> counts = countByClass();
    EXPECT_EQ(counts.count(L"AcDbHatch") + counts.count(L"AcDbOrdinateDimension"), 0u);
    // The user's own coordinate system is back.
    AcGeMatrix3d ucs;
    ASSERT_EQ(acedGetCurrentUCS(ucs), Acad::eOk);
    EXPECT_EQ(ucs, AcGeMatrix3d::kIdentity);
}

TEST_F(AxisGridCommand, AnswersAreInTheUsersCoordinates)
{
    // The user's X axis is the world's Y axis, from (100,0): (20,0) there is (100,20) here.
    AcGeMatrix3d ucs;
    ucs.setCoordSystem(AcGePoint3d(100.0, 0.0, 0.0), AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis,
                       AcGeVector3d::kZAxis);
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    run(L"_QMAXISGRID 20,0\n6000\n3000\n\n\n\nWithout\nNo\n");
    AcDbExtents outline;
    forEach([&](AcDbEntity& entity) {
        if (AcDbRegion::cast(&entity)) entity.getGeomExtents(outline);
    });
    EXPECT_LT(outline.minPoint().distanceTo(AcGePoint3d(-2900.0, 20.0, 0.0)), 1e-6);
    EXPECT_LT(outline.maxPoint().distanceTo(AcGePoint3d(100.0, 6020.0, 0.0)), 1e-6);
}

/// Degrees that the user's X axis is turned by.
class AxisGridInUcs : public AxisGridCommand, public testing::WithParamInterface<int>
{
protected:
    void SetUp() override
    {
        AxisGridCommand::SetUp();
        AcGeMatrix3d turn;
        turn.setToRotation(GetParam() * pi / 180.0, AcGeVector3d::kZAxis);
        mUcs.setToTranslation(AcGeVector3d(5000.0, -3000.0, 0.0));
        mUcs *= turn;
    }
    void useUcs() { ASSERT_EQ(acedSetCurrentUCS(mUcs), Acad::eOk); }

    /// Where each entity stands, in the order of the drawing: points that turn as it does.
    std::vector<AcGePoint3d> places() const
    {
        std::vector<AcGePoint3d> points;
        forEach([&](AcDbEntity& entity) {
            AcDbExtents box;
            if (const auto* text = AcDbText::cast(&entity)) return points.push_back(text->alignmentPoint());
            if (const auto* dimension = AcDbOrdinateDimension::cast(&entity)) {
                points.push_back(dimension->definingPoint());
                return points.push_back(dimension->leaderEndPoint());
            }
            if (const auto* line = AcDbLine::cast(&entity)) points.push_back(line->startPoint());
            ASSERT_EQ(entity.getGeomExtents(box), Acad::eOk);
            points.push_back(box.minPoint() + (box.maxPoint() - box.minPoint()) / 2.0);
        });
        return points;
    }
    void eraseAll()
    {
        run(L"ERASE ALL \n");
        ASSERT_TRUE(countByClass().empty());
    }

    AcGeMatrix3d mUcs;
};

TEST_P(AxisGridInUcs, LiesThereAsItDoesInTheWorld)
{
    const std::wstring grid = L"_QMAXISGRID R 10 2000,1000\n2*6600 4500\n6000 3000\n\n\n100\n\n\n";
    run(grid);
    const std::vector<AcGePoint3d> inWorld = places();
    eraseAll();
    useUcs();
    run(grid);
    const std::vector<AcGePoint3d> inUcs = places();
    ASSERT_EQ(inUcs.size(), inWorld.size());
    for (std::size_t i = 0; i < inUcs.size(); ++i)
        EXPECT_LT(inUcs[i].distanceTo(mUcs * inWorld[i]), 0.01) << i;
}

TEST_P(AxisGridInUcs, IsProposedBesideWhatIsDrawn)
{
    run(L"LINE 1000,2000 101000,2000 101000,62000 1000,62000 C\n");
    AcDbExtents site;
    forEach([&](AcDbEntity& entity) {
        AcDbExtents box;
        entity.getGeomExtents(box);
        site.addExt(box);
    });
    site.transformBy(AcGeMatrix3d(mUcs).invert());
    useUcs();
    for (const wchar_t* rotation : {L"", L" R 90", L" R 200"}) {
        run(std::wstring(L"_QMAXISGRID") + rotation + L"\n\n\n\n\n\n\n\n\n");
        AcDbExtents grid;
        forEach([&](AcDbEntity& entity) {
            AcDbExtents box;
            if (!AcDbCircle::cast(&entity) && !AcDbRegion::cast(&entity)) return;
            entity.getGeomExtents(box);
            box.transformBy(AcGeMatrix3d(mUcs).invert());
            grid.addExt(box);
        });
        EXPECT_GT(grid.minPoint().x, site.maxPoint().x) << "right of the site";
        EXPECT_LT(grid.minPoint().y, site.maxPoint().y) << "and at its height";
        EXPECT_GT(grid.maxPoint().y, site.minPoint().y);
        run(L"U\n");
    }
}

/// True when a text of this direction can be read from below or from the right.
bool isReadable(const AcGeVector3d& along)
{
    const double degrees = std::atan2(along.y, along.x) * 180.0 / pi;
    return degrees > -90.0 + 1e-6 && degrees < 90.0 + 1e-6;
}

TEST_P(AxisGridInUcs, HasTextsThatCanBeRead)
{
    useUcs();
    run(L"_QMAXISGRID 0,0\n2*6600\n6000\n\n\n100\n\n\n");
    int read = 0;
    const auto check = [&read](AcDbEntity& entity) {
        const auto* label = AcDbText::cast(&entity);
        const auto* text = AcDbMText::cast(&entity);
        if (!label && !text) return;
        ++read;
        const AcGeVector3d along =
            text ? text->direction()
                 : AcGeVector3d(AcGeVector3d::kXAxis).rotateBy(label->rotation(), label->normal());
        EXPECT_TRUE(isReadable(along)) << "text " << read;
    };
    forEach([&](AcDbEntity& entity) {
        check(entity);
        if (const auto* dimension = AcDbDimension::cast(&entity)) forEachIn(dimension->dimBlockId(), check);
    });
    EXPECT_EQ(read, 5 + 1 + 5); // labels, area, dimensions
}

INSTANTIATE_TEST_SUITE_P(Degrees, AxisGridInUcs, testing::Values(0, 30, 90, 180, 270));
} // namespace
