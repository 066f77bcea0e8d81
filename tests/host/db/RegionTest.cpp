#include "AcisText.h"
#include "DatabaseFixture.h"
#include "dbcircle.h"
#include "dbline.h"
#include "dbpl.h"
#include "dbregion.h"
#include "RecordLists.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;
using RegionPtr = std::unique_ptr<AcDbRegion>;

std::vector<RegionPtr> regionsOf(std::initializer_list<AcDbCurve*> curves,
                                 Acad::ErrorStatus expected = Acad::eOk)
{
    AcDbVoidPtrArray segments, made;
    for (AcDbCurve* const curve : curves)
        segments.append(curve);
    EXPECT_EQ(AcDbRegion::createFromCurves(segments, made), expected);
    std::vector<RegionPtr> regions;
    for (void* const region : made)
        regions.emplace_back(static_cast<AcDbRegion*>(region));
    return regions;
}

RegionPtr rectangle(double left, double bottom, double right, double top, double z = 0.0)
{
    AcDbPolyline outline;
    const AcGePoint2d corners[] = {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
    for (unsigned i = 0; i < 4; ++i)
        outline.addVertexAt(i, corners[i]);
    outline.setClosed(true);
    outline.setElevation(z);
    std::vector<RegionPtr> regions = regionsOf({&outline});
    return regions.size() == 1 ? std::move(regions[0]) : nullptr;
}

double areaOf(const AcDbRegion& region)
{
    double area = -1.0;
    EXPECT_EQ(region.getArea(area), Acad::eOk);
    return area;
}

/// A region as a file of R2000 has it.
PackedGroups recordOf(const AcDbRegion& region)
{
    return written(region, DxfVersion::r2000);
}
} // namespace

class RegionEntity : public DatabaseFixture
{
};

TEST_F(RegionEntity, EveryClosedChainBecomesARegion)
{
    AcDbLine a({0, 0, 0}, {4, 0, 0}), b({4, 3, 0}, {4, 0, 0}), c({0, 0, 0}, {4, 3, 0});
    AcDbCircle circle({10, 0, 0}, AcGeVector3d::kZAxis, 2);
    const std::vector<RegionPtr> regions = regionsOf({&a, &b, &circle, &c});
    ASSERT_EQ(regions.size(), 2u);
    EXPECT_NEAR(areaOf(*regions[0]), 6.0, 1e-9); // half of 4 by 3
    EXPECT_NEAR(areaOf(*regions[1]), 4.0 * pi, 1e-9);
    double perimeter = 0.0;
    EXPECT_EQ(regions[0]->getPerimeter(perimeter), Acad::eOk);
    EXPECT_NEAR(perimeter, 12.0, 1e-9); // 3, 4, 5
    EXPECT_EQ(regions[0]->numChanges(), 0u);
}

TEST_F(RegionEntity, CurvesThatEncloseNothingMakeNoRegion)
{
    AcDbLine a({0, 0, 0}, {4, 0, 0}), b({4, 0, 0}, {4, 3, 0});
    EXPECT_TRUE(regionsOf({&a, &b}, Acad::eInvalidInput).empty());
    EXPECT_TRUE(regionsOf({}, Acad::eInvalidInput).empty());
    EXPECT_TRUE(regionsOf({nullptr}, Acad::eInvalidInput).empty());
    AcDbLine c({4, 3, 0}, {0, 3, 5}), d({0, 3, 5}, {0, 0, 0});
    EXPECT_TRUE(regionsOf({&a, &b, &c, &d}, Acad::eNonPlanarEntity).empty());
}

TEST_F(RegionEntity, OperatorsJoinCutAndIntersect)
{
    const struct {
        AcDb::BoolOperType operation;
        double area;
    } cases[] = {{AcDb::kBoolUnite, 28.0}, {AcDb::kBoolIntersect, 4.0}, {AcDb::kBoolSubtract, 12.0}};
    for (const auto& at : cases) {
        // Two squares of 16 that share one of 4.
        const RegionPtr one = rectangle(0, 0, 4, 4), other = rectangle(2, 2, 6, 6);
        ASSERT_EQ(one->booleanOper(at.operation, other.get()), Acad::eOk);
        EXPECT_NEAR(areaOf(*one), at.area, 1e-9);
        EXPECT_TRUE(other->isNull());
        EXPECT_EQ(one->numChanges(), 1u);
    }
    const RegionPtr one = rectangle(0, 0, 4, 4), above = rectangle(0, 0, 4, 4, 1.0);
    EXPECT_EQ(one->booleanOper(AcDb::kBoolUnite, above.get()), Acad::eNonCoplanarGeometry);
    EXPECT_FALSE(above->isNull());
    EXPECT_EQ(one->booleanOper(AcDb::kBoolUnite, nullptr), Acad::eNullObjectPointer);
}

TEST_F(RegionEntity, AreaPropertiesAreThoseOfTheFormulas)
{
    const RegionPtr region = rectangle(0, 0, 4, 2);
    double perimeter, area, moments[2], product, principal[2], gyration[2];
    AcGePoint2d centroid, low, high;
    AcGeVector2d axes[2];
    ASSERT_EQ(region->getAreaProp(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, perimeter,
                                  area, centroid, moments, product, principal, axes, gyration, low, high),
              Acad::eOk);
    EXPECT_TRUE(centroid.isEqualTo({2, 1}));
    EXPECT_NEAR(moments[0], 4.0 * 8.0 / 3.0, 1e-9); // b h^3 / 3
    EXPECT_NEAR(moments[1], 2.0 * 64.0 / 3.0, 1e-9);
    EXPECT_NEAR(product, 16.0, 1e-9);                  // b^2 h^2 / 4
    EXPECT_NEAR(principal[0], 4.0 * 8.0 / 12.0, 1e-9); // b h^3 / 12
    EXPECT_NEAR(gyration[1], std::sqrt(moments[1] / 8.0), 1e-9);
    EXPECT_TRUE(high.isEqualTo({4, 2}));
    EXPECT_EQ(region->getAreaProp(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kZAxis, perimeter,
                                  area, centroid, moments, product, principal, axes, gyration, low, high),
              Acad::eInvalidInput);
}

TEST_F(RegionEntity, AMapAndItsInverseChangeNothing)
{
    const RegionPtr region = rectangle(1, 1, 5, 3);
    const AcGeMatrix3d map = AcGeMatrix3d().setToRotation(0.7, AcGeVector3d(1, 2, 3), AcGePoint3d(5, -4, 3)) *
                             AcGeMatrix3d().setToScaling(2.5, AcGePoint3d(1, 1, 0));
    ASSERT_EQ(region->transformBy(map), Acad::eOk);
    EXPECT_NEAR(areaOf(*region), 8.0 * 2.5 * 2.5, 1e-8);
    AcGeVector3d normal;
    ASSERT_EQ(region->getNormal(normal), Acad::eOk);
    EXPECT_TRUE(normal.isParallelTo(map * AcGeVector3d::kZAxis));
    ASSERT_EQ(region->transformBy(map.inverse()), Acad::eOk);
    AcDbExtents extents;
    ASSERT_EQ(region->getGeomExtents(extents), Acad::eOk);
    EXPECT_TRUE(extents.isEqualTo(AcDbExtents({1, 1, 0}, {5, 3, 0})));
}

TEST_F(RegionEntity, AFileGivesTheShapeBackAndKeepsItsText)
{
    const RegionPtr region = rectangle(0, 0, 4, 2);
    const PackedGroups groups = recordOf(*region);
    AcDbRegion read;
    EXPECT_EQ(rewritten(read, groups, &mDatabase, DxfVersion::r2018), textOf(groups));
    EXPECT_NEAR(areaOf(read), 8.0, 1e-9);
    ASSERT_EQ(read.transformBy(AcGeMatrix3d().setToTranslation({1, 0, 0})), Acad::eOk);
    AcDbRegion again;
    rewritten(again, written(read), &mDatabase);
    AcDbExtents extents;
    ASSERT_EQ(again.getGeomExtents(extents), Acad::eOk);
    EXPECT_TRUE(extents.maxPoint().isEqualTo({5, 2, 0}));
}

TEST_F(RegionEntity, AFormThatIsNotUnderstoodIsKeptAndSaidSo)
{
    const PackedGroups binary = groupsOf({{100, "AcDbEntity"},
                                          {8, "0"},
                                          {100, "AcDbModelerGeometry"},
                                          {290, 1.0},
                                          {2, "{4947ebc7-d030-324c-a853-307cea64983a}"}});
    const PackedGroups damaged = groupsOf(
        {{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbModelerGeometry"}, {70, 1.0}, {1, "no modeller text"}});
    for (const PackedGroups* groups : {&binary, &damaged}) {
        AcDbRegion region;
        EXPECT_EQ(rewritten(region, *groups, &mDatabase), textOf(*groups));
        double area = 0.0;
        EXPECT_EQ(region.getArea(area), Acad::eGeneralModelingFailure);
        EXPECT_EQ(region.transformBy(AcGeMatrix3d().setToTranslation({1, 0, 0})),
                  Acad::eGeneralModelingFailure);
        EXPECT_FALSE(region.isNull());
        AcDbExtents extents;
        EXPECT_EQ(region.getGeomExtents(extents), Acad::eInvalidExtents);
    }
}
