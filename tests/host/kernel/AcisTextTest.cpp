#include "AcisText.h"

#include "Shapes.h"

#include <gtest/gtest.h>

using namespace kernel;

namespace
{
/// A rectangle as a modeller wrote it: loops run against the edges.
const std::vector<std::string>& foreignRectangle()
{
    static const std::vector<std::string> lines{
        "400 26 1 0",
        "7 foreign 8 ACIS 4.0 24 Thu Jan 01 00:00:00 1970",
        "1 9.999999999999999547e-07 1.000000000000000036e-10",
        "body $-1 $1 $-1 $-1 #",
        "lump $-1 $-1 $2 $0 #",
        "shell $-1 $-1 $-1 $3 $-1 $1 #",
        "face $-1 $-1 $4 $2 $-1 $5 forward double out #",
        "loop $-1 $-1 $6 $3 #",
        "plane-surface $-1 -5234.186669031270867 1968.766094356862595 0 0 0 1 1 0 0 forward_v I I I I #",
        "coedge $-1 $7 $8 $-1 $9 reversed $4 $-1 #",
        "coedge $-1 $10 $6 $-1 $11 reversed $4 $-1 #",
        "coedge $-1 $6 $10 $-1 $12 reversed $4 $-1 #",
        "edge $-1 $13 $14 $6 $15 forward #",
        "coedge $-1 $8 $7 $-1 $16 reversed $4 $-1 #",
        "edge $-1 $17 $13 $7 $18 forward #",
        "edge $-1 $14 $19 $8 $20 forward #",
        "vertex $-1 $9 $21 #",
        "vertex $-1 $9 $22 #",
        "straight-curve $-1 -6836.331483613786986 3983.339979056661832 0 1 0 0 I I #",
        "edge $-1 $19 $17 $10 $23 forward #",
        "vertex $-1 $16 $24 #",
        "straight-curve $-1 -6836.331483613786986 -45.80779034293664154 0 0 1 0 I I #",
        "vertex $-1 $12 $25 #",
        "straight-curve $-1 -3632.041854448754748 3983.339979056661832 0 0 -1 0 I I #",
        "point $-1 -6836.331483613786986 3983.339979056661832 0 #",
        "point $-1 -3632.041854448754748 3983.339979056661832 0 #",
        "straight-curve $-1 -3632.041854448754748 -45.80779034293664154 0 -1 0 0 I I #",
        "point $-1 -6836.331483613786986 -45.80779034293664154 0 #",
        "point $-1 -3632.041854448754748 -45.80779034293664154 0 #"};
    return lines;
}

Region regionOf(const std::vector<std::string>& lines)
{
    AcisFaces faces;
    EXPECT_EQ(readAcisText(lines, faces), AcisStatus::kOk);
    RegionStatus status = RegionStatus::kNoCurves;
    const Region region = Region::fromFaces(faces.faces, faces.normal, status);
    EXPECT_EQ(status, RegionStatus::kOk);
    return region;
}
} // namespace

TEST(AcisText, ForeignTextIsRead)
{
    const Region region = regionOf(foreignRectangle());
    const double width = 6836.331483613786986 - 3632.041854448754748,
                 height = 3983.339979056661832 + 45.80779034293664154;
    EXPECT_NEAR(region.area(), width * height, 1e-6);
    EXPECT_TRUE(region.normal().isEqualTo(AcGeVector3d::kZAxis));
}

TEST(AcisText, RegionsComeBackExactly)
{
    for (const int version : {400, 700})
        for (unsigned seed = 0; seed < 60; ++seed) {
            RandomShapes shapes(seed);
            Region region;
            shapes.region().combine(seed % 3 == 0 ? BooleanKind::kUnion : BooleanKind::kSubtract,
                                    shapes.region(), region);
            if (region.isEmpty()) continue;
            region.transformBy(AcGeMatrix3d::rotation(shapes.real(0, 6), AcGeVector3d(1, 2, 3).normal()));
            const std::vector<std::string> lines = writeAcisText(region, version);
            const Region back = regionOf(lines);
            EXPECT_NEAR(back.area(), region.area(), 1e-9) << seed;
            EXPECT_NEAR(back.perimeter(), region.perimeter(), 1e-8) << seed;
            EXPECT_TRUE(back.centroid().isEqualTo(region.centroid(), AcGeTol().setEqualPoint(1e-8))) << seed;
            EXPECT_TRUE(back.normal().isEqualTo(region.normal(), AcGeTol().setEqualVector(1e-9))) << seed;
            EXPECT_EQ(back.faces().size(), region.faces().size()) << seed;
        }
    EXPECT_EQ(writeAcisText(Region()).size(), 3u);
}

TEST(AcisText, TransformOfTheBodyApplies)
{
    // Turned by a right angle about Z, doubled, moved by (10, 0, 5).
    std::vector<std::string> lines = foreignRectangle();
    lines[3] = "body $-1 $1 $-1 $26 #";
    lines.emplace_back("transform $-1 0 1 0 -1 0 0 0 0 1 10 0 5 2 rotate no_reflect no_shear #");
    const Region turned = regionOf(lines), plain = regionOf(foreignRectangle());
    EXPECT_NEAR(turned.area(), 4 * plain.area(), 1e-5);
    const AcGePoint3d c = plain.centroid();
    EXPECT_TRUE(turned.centroid().isEqualTo({10 - 2 * c.y, 2 * c.x, 5}, AcGeTol().setEqualPoint(1e-8)));
}

TEST(AcisText, CodingIsThatOfDrawingFiles)
{
    EXPECT_EQ(acisCoded("400 26 1 0"), "koo mi n o");
    EXPECT_EQ(acisCoded("A body $-1 #"), "^ =0;& {rn |");
    const std::vector<std::string> lines{"short", std::string(600, 'x'), "", std::string(255, 'y')};
    const std::vector<AcisGroup> groups = acisGroups(lines);
    ASSERT_EQ(groups.size(), 6u);
    EXPECT_EQ(groups[2].code, 3);
    EXPECT_EQ(acisLines(groups), lines);
}

TEST(AcisText, DamagedTextsAreRefusedWithTheirLine)
{
    AcisFaces faces;
    int line = 0;
    EXPECT_EQ(readAcisText({}, faces), AcisStatus::kNoHeader);
    EXPECT_EQ(readAcisText({"x", "y", "z"}, faces), AcisStatus::kNoHeader);
    EXPECT_EQ(readAcisText({"106 0 1 0", "", ""}, faces), AcisStatus::kVersion);
    const auto damaged = [&](std::size_t at, const std::string& with) {
        std::vector<std::string> lines = foreignRectangle();
        lines[at] = with;
        return readAcisText(lines, faces, &line);
    };
    EXPECT_EQ(damaged(8, "cone-surface $-1 #"), AcisStatus::kUnsupported);
    EXPECT_EQ(line, 9);
    EXPECT_EQ(damaged(9, "coedge $-1 $99 $8 $-1 $9 reversed $4 $-1 #"), AcisStatus::kDamaged);
    EXPECT_EQ(damaged(10, "coedge $-1 $7 $6 $-1 $11 reversed $4 $-1 #"), AcisStatus::kDamaged); // a ring
    EXPECT_EQ(damaged(24, "point $-1 nan 0 0 #"), AcisStatus::kDamaged);
    EXPECT_EQ(damaged(28, "point $-1 1 2"), AcisStatus::kDamaged);
    EXPECT_TRUE(faces.faces.empty());
}

TEST(AcisText, NoDamagedByteCrashes)
{
    const std::vector<std::string> good = writeAcisText(RandomShapes(3).region());
    RandomShapes dice(1);
    int refused = 0;
    for (int i = 0; i < 3000; ++i) {
        std::vector<std::string> lines = good;
        std::string& line =
            lines[static_cast<std::size_t>(dice.whole(0, static_cast<int>(lines.size()) - 1))];
        line[static_cast<std::size_t>(dice.whole(0, static_cast<int>(line.size()) - 1))] =
            "$-1#9 {x"[dice.whole(0, 7)];
        AcisFaces faces;
        RegionStatus status;
        const bool read = readAcisText(lines, faces) == AcisStatus::kOk;
        refused += !read;
        if (read) Region::fromFaces(faces.faces, faces.normal, status);
    }
    EXPECT_GT(refused, 100);
}
