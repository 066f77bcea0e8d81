#include "DatabaseFixture.h"
#include "dbblock.h"
#include "dbcircle.h"
#include "dbhatch.h"
#include "dbline.h"
#include "dbpl.h"
#include "gearc2d.h"
#include "geell2d.h"
#include "gelnsg2d.h"
#include "genurb2d.h"
#include "RecordLists.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

AcGePoint2dArray square(double low, double high)
{
    return {{low, low}, {high, low}, {high, high}, {low, high}};
}

Acad::ErrorStatus addSquare(AcDbHatch& hatch, double low, double high)
{
    return hatch.appendLoop(AcDbHatch::kDefault, square(low, high), AcGeDoubleArray());
}

/// Level lines at a distance, through the origin.
void setLevelLines(AcDbHatch& hatch, double distance)
{
    EXPECT_EQ(hatch.setPatternSpace(distance), Acad::eOk);
    EXPECT_EQ(hatch.setPattern(AcDbHatch::kUserDefined, L"_USER"), Acad::eOk);
}

double areaOf(const AcDbHatch& hatch)
{
    double area = -1.0;
    EXPECT_EQ(hatch.getArea(area), Acad::eOk);
    return area;
}

/// A pattern of every edge kind, as newer programs write it, with an old spline (no fit points) at the end.
PackedGroups edgeRecord()
{
    return groupsOf({{100, "AcDbEntity"}, {8, "0"},   {100, "AcDbHatch"}, {10, 0.0},  {20, 0.0},
                     {30, 2.0},           {210, 0.0}, {220, 0.0},         {230, 1.0}, {2, "ANSI33"},
                     {70, 0.0},           {71, 0.0},  {91, 2.0},          {92, 1.0},  {93, 4.0},
                     {72, 1.0},           {10, 0.0},  {20, 0.0},          {11, 4.0},  {21, 0.0},
                     {72, 2.0},           {10, 4.0},  {20, 1.0},          {40, 1.0},  {50, 270.0},
                     {51, 450.0},         {73, 1.0},  {72, 3.0},          {10, 2.0},  {20, 2.0},
                     {11, 2.0},           {21, 0.0},  {40, 0.5},          {50, 0.0},  {51, 180.0},
                     {73, 1.0},           {72, 4.0},  {94, 1.0},          {73, 0.0},  {74, 0.0},
                     {95, 4.0},           {96, 2.0},  {40, 0.0},          {40, 0.0},  {40, 1.0},
                     {40, 1.0},           {10, 0.0},  {20, 2.0},          {10, 0.0},  {20, 0.0},
                     {97, 2.0},           {11, 0.0},  {21, 2.0},          {11, 0.0},  {21, 0.0},
                     {12, 0.0},           {22, -1.0}, {13, 0.0},          {23, -1.0}, {97, 0.0},
                     {92, 2.0},           {72, 1.0},  {73, 1.0},          {93, 2.0},  {10, 1.0},
                     {20, 1.0},           {42, 1.0},  {10, 2.0},          {20, 1.0},  {42, 1.0},
                     {97, 0.0},           {75, 0.0},  {76, 1.0},          {52, 0.0},  {41, 1.0},
                     {77, 0.0},           {78, 2.0},  {53, 45.0},         {43, 0.0},  {44, 0.0},
                     {45, -4.5},          {46, 4.5},  {79, 0.0},          {53, 45.0}, {43, 4.5},
                     {44, 0.0},           {45, -4.5}, {46, 4.5},          {79, 2.0},  {49, 3.0},
                     {49, -1.5},          {47, 0.02}, {98, 2.0},          {10, 0.5},  {20, 0.5},
                     {10, 0.75},          {20, 0.5}});
}

PackedGroups gradientRecord()
{
    return groupsOf({{100, "AcDbEntity"}, {8, "0"},     {100, "AcDbHatch"}, {10, 0.0},   {20, 0.0},
                     {30, 0.0},           {210, 0.0},   {220, 0.0},         {230, -1.0}, {2, "SOLID"},
                     {70, 1.0},           {71, 0.0},    {91, 1.0},          {92, 7.0},   {72, 0.0},
                     {73, 1.0},           {93, 3.0},    {10, 0.0},          {20, 0.0},   {10, 4.0},
                     {20, 0.0},           {10, 4.0},    {20, 3.0},          {97, 0.0},   {75, 1.0},
                     {76, 1.0},           {98, 0.0},    {450, 1.0},         {451, 0.0},  {460, 0.5},
                     {461, 0.25},         {452, 0.0},   {462, 0.0},         {453, 2.0},  {463, 0.0},
                     {63, 5.0},           {421, 255.0}, {463, 1.0},         {63, 2.0},   {421, 16776960.0},
                     {470, "SPHERICAL"}});
}

std::unique_ptr<AcDbHatch> read(const PackedGroups& groups, AcDbDatabase& database)
{
    auto hatch = std::make_unique<AcDbHatch>();
    rewritten(*hatch, groups, &database);
    return hatch;
}
} // namespace

class HatchEntity : public DatabaseFixture
{
protected:
    AcDbObjectId add(std::unique_ptr<AcDbEntity> entity)
    {
        AcDbBlockTable* blocks = nullptr;
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(mDatabase.getBlockTable(blocks, AcDb::kForRead), Acad::eOk);
        EXPECT_EQ(blocks->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite), Acad::eOk);
        blocks->close();
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity.get()), Acad::eOk);
        space->close();
        entity.release()->close();
        return id;
    }
    template <class T, class Change>
    void change(AcDbObjectId id, Change change)
    {
        T* object = nullptr;
        ASSERT_EQ(acdbOpenObject(object, id, AcDb::kForWrite), Acad::eOk);
        change(*object);
        object->close();
    }
};

TEST_F(HatchEntity, RecordsAreWrittenAsTheyWereRead)
{
    for (const PackedGroups& groups : {edgeRecord(), gradientRecord()}) {
        AcDbHatch hatch;
        EXPECT_EQ(rewritten(hatch, groups, &mDatabase), textOf(groups));
    }
}

TEST_F(HatchEntity, OldSplinesTakeTheNumberOfSourcesForWhatItIs)
{
    for (const double sources : {0.0, 1.0}) {
        PackedGroups groups = groupsOf({{100, "AcDbHatch"},
                                        {91, 1.0},
                                        {92, 1.0},
                                        {93, 1.0},
                                        {72, 4.0},
                                        {94, 1.0},
                                        {73, 0.0},
                                        {74, 0.0},
                                        {95, 4.0},
                                        {96, 2.0},
                                        {40, 0.0},
                                        {40, 0.0},
                                        {40, 1.0},
                                        {40, 1.0},
                                        {10, 0.0},
                                        {20, 2.0},
                                        {10, 0.0},
                                        {20, 0.0},
                                        {97, sources}});
        if (sources > 0.0) groups.appendHandle(330, 0x2F);
        groups.appendInteger(75, 2);
        const auto hatch = read(groups, mDatabase);
        AcDbObjectIdArray ids;
        EXPECT_EQ(hatch->getAssocObjIdsAt(0, ids), Acad::eOk);
        EXPECT_EQ(ids.length(), static_cast<int>(sources));
        EXPECT_EQ(hatch->hatchStyle(), AcDbHatch::kIgnore);
    }
}

TEST_F(HatchEntity, RecordsThatAreCutOffGiveWhatIsThere)
{
    const PackedGroups whole = edgeRecord();
    const std::string text = textOf(whole);
    DxfGroup group;
    std::size_t groupCount = 0;
    for (std::size_t at = 0; whole.read(at, group);)
        ++groupCount;
    for (std::size_t kept = 0; kept < groupCount; ++kept) {
        PackedGroups cut;
        std::size_t at = 0;
        for (std::size_t i = 0; i < kept && whole.read(at, group); ++i) {
            if (group.kind == DxfKind::real)
                cut.appendReal(group.code, group.real);
            else if (group.kind == DxfKind::text)
                cut.appendText(group.code, group.text);
            else
                cut.appendInteger(group.code, group.integer);
        }
        const auto hatch = read(cut, mDatabase);
        EXPECT_LE(hatch->numLoops(), 2);
        AcDbExtents extents;
        hatch->getGeomExtents(extents);
        hatch->evaluateHatch();
    }
}

TEST_F(HatchEntity, EdgesFromAFileAreTheCurvesTheyName)
{
    const auto hatch = read(edgeRecord(), mDatabase);
    // The rectangle 4 by 2 with half a circle of radius 1 at its right, half an ellipse of radii 2 and 1 on
    // top, and a circle of diameter 1 as an island.
    EXPECT_NEAR(areaOf(*hatch), 8.0 + 0.5 * pi + pi - 0.25 * pi, 1e-9);
    AcDbExtents extents;
    ASSERT_EQ(hatch->getGeomExtents(extents), Acad::eOk);
    EXPECT_TRUE(extents.isEqualTo(AcDbExtents({0, 0, 2}, {5, 3, 2})));
    Adesk::Int32 type = 0;
    AcGeVoidPointerArray edges;
    AcGeIntArray types;
    ASSERT_EQ(hatch->getLoopAt(0, type, edges, types), Acad::eOk);
    ASSERT_EQ(types.length(), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(types[i], i + 1);
        delete static_cast<AcGeCurve2d*>(edges[i]);
    }
    AcGePoint2dArray vertices;
    AcGeDoubleArray bulges;
    EXPECT_EQ(hatch->getLoopAt(0, type, vertices, bulges), Acad::eInvalidInput);
    EXPECT_EQ(hatch->getLoopAt(2, type, vertices, bulges), Acad::eInvalidIndex);
    ASSERT_EQ(hatch->getLoopAt(1, type, vertices, bulges), Acad::eOk);
    EXPECT_EQ(vertices.length(), 3); // the first is repeated
}

TEST_F(HatchEntity, AMapAndItsInverseChangeNothing)
{
    const AcGeMatrix3d map =
        AcGeMatrix3d().setToRotation(0.7, AcGeVector3d(1, 2, 3), AcGePoint3d(5, -4, 3)) *
        AcGeMatrix3d().setToScaling(2.5, AcGePoint3d(1, 1, 0)) *
        AcGeMatrix3d().setToMirroring(AcGePlane(AcGePoint3d(2, 0, 0), AcGeVector3d(1, 1, 0)));
    for (const PackedGroups& groups : {edgeRecord(), gradientRecord()}) {
        const auto hatch = read(groups, mDatabase);
        AcDbExtents before, after;
        ASSERT_EQ(hatch->getGeomExtents(before), Acad::eOk);
        const double area = areaOf(*hatch);
        ASSERT_EQ(hatch->transformBy(map), Acad::eOk);
        EXPECT_NEAR(areaOf(*hatch), area * 2.5 * 2.5, 1e-8);
        ASSERT_EQ(hatch->transformBy(map.inverse()), Acad::eOk);
        ASSERT_EQ(hatch->getGeomExtents(after), Acad::eOk);
        EXPECT_TRUE(after.isEqualTo(before, AcGeTol()));
        EXPECT_NEAR(hatch->patternScale(), 1.0, 1e-9);
    }
}

TEST_F(HatchEntity, UnevenScalesMakeEllipsesOfArcs)
{
    const auto hatch = read(edgeRecord(), mDatabase);
    const double area = areaOf(*hatch);
    AcGeMatrix3d wide;
    wide.entry[0][0] = 3.0;
    ASSERT_EQ(hatch->transformBy(wide), Acad::eOk);
    EXPECT_NEAR(areaOf(*hatch), 3.0 * area, 1e-8);
}

TEST_F(HatchEntity, EdgesInAnyDirectionMakeALoopAndOpenOnesDoNot)
{
    using P = AcGePoint2d;
    AcGeLineSeg2d bottom(P(0, 0), P(4, 0)), left(P(0, 0), P(0, 2)), top(P(4, 2), P(0, 2));
    AcGeCircArc2d right({4, 0}, {4, 2}, 1.0, false);
    AcDbHatch hatch;
    const AcGeVoidPointerArray edges = {&bottom, &left, &top, &right};
    const AcGeIntArray types = {AcDbHatch::kLine, AcDbHatch::kLine, AcDbHatch::kLine, AcDbHatch::kCirArc};
    ASSERT_EQ(hatch.appendLoop(AcDbHatch::kExternal, edges, types), Acad::eOk);
    EXPECT_NEAR(areaOf(hatch), 8.0 + 0.5 * pi, 1e-9);
    EXPECT_EQ(hatch.loopTypeAt(0), AcDbHatch::kExternal);
    EXPECT_EQ(hatch.appendLoop(AcDbHatch::kExternal, {&bottom, &left}, {1, 1}), Acad::eInvalidInput);
    EXPECT_EQ(hatch.appendLoop(AcDbHatch::kExternal, {&bottom, nullptr}, {1, 1}), Acad::eInvalidInput);
    EXPECT_EQ(hatch.appendLoop(AcDbHatch::kExternal, edges, {2, 2, 2, 2}), Acad::eInvalidInput);
    EXPECT_EQ(hatch.insertLoopAt(5, AcDbHatch::kExternal, edges, types), Acad::eInvalidIndex);
    EXPECT_EQ(hatch.numLoops(), 1);
}

TEST_F(HatchEntity, VerticesThatSpanNothingAreRefused)
{
    AcDbHatch hatch;
    EXPECT_EQ(hatch.appendLoop(0, AcGePoint2dArray{{0, 0}, {1, 0}}, AcGeDoubleArray()), Acad::eInvalidInput);
    EXPECT_EQ(hatch.appendLoop(0, square(0, 1), AcGeDoubleArray{1.0}), Acad::eInvalidInput);
    EXPECT_EQ(hatch.appendLoop(0, AcGePoint2dArray{{0, 0}, {1, 0}, {NAN, 1}}, AcGeDoubleArray()),
              Acad::eInvalidInput);
    EXPECT_EQ(hatch.removeLoopAt(0), Acad::eInvalidIndex);
    double area = 7.0;
    EXPECT_EQ(hatch.getArea(area), Acad::eInvalidInput);
    EXPECT_EQ(area, 7.0);
    AcDbExtents extents;
    EXPECT_EQ(hatch.getGeomExtents(extents), Acad::eInvalidExtents);
}

TEST_F(HatchEntity, StylesDecideAboutIslands)
{
    AcDbHatch hatch;
    ASSERT_EQ(addSquare(hatch, 0, 10), Acad::eOk); // 100
    ASSERT_EQ(addSquare(hatch, 2, 8), Acad::eOk);  // 36
    ASSERT_EQ(addSquare(hatch, 4, 6), Acad::eOk);  // 4
    const struct {
        AcDbHatch::HatchStyle style;
        double area;
    } cases[] = {{AcDbHatch::kNormal, 68.0}, {AcDbHatch::kOuter, 64.0}, {AcDbHatch::kIgnore, 100.0}};
    for (const auto& at : cases) {
        ASSERT_EQ(hatch.setHatchStyle(at.style), Acad::eOk);
        EXPECT_NEAR(areaOf(hatch), at.area, 1e-9);
    }
    EXPECT_EQ(hatch.setHatchStyle(static_cast<AcDbHatch::HatchStyle>(3)), Acad::eInvalidInput);
}

TEST_F(HatchEntity, LinesLieInsideTheLoops)
{
    AcDbHatch hatch;
    ASSERT_EQ(addSquare(hatch, 0.5, 10.5), Acad::eOk);
    setLevelLines(hatch, 2.0);
    EXPECT_EQ(hatch.numHatchLines(), 0);
    ASSERT_EQ(hatch.evaluateHatch(), Acad::eOk);
    ASSERT_EQ(hatch.numHatchLines(), 5); // at 2, 4, 6, 8 and 10
    AcGePoint2d start, end;
    ASSERT_EQ(hatch.getHatchLineDataAt(0, start, end), Acad::eOk);
    EXPECT_TRUE(start.isEqualTo({0.5, 2.0}));
    EXPECT_TRUE(end.isEqualTo({10.5, 2.0}));
    EXPECT_EQ(hatch.getHatchLineDataAt(5, start, end), Acad::eInvalidIndex);
    ASSERT_EQ(hatch.setOriginPoint({0.0, 1.0}), Acad::eOk);
    EXPECT_EQ(hatch.numHatchLines(), 0);
    ASSERT_EQ(hatch.evaluateHatch(), Acad::eOk);
    ASSERT_EQ(hatch.getHatchLineDataAt(0, start, end), Acad::eOk);
    EXPECT_NEAR(start.y, 1.0, 1e-12);
    ASSERT_EQ(hatch.setPatternSpace(1e-6), Acad::eOk);
    EXPECT_EQ(hatch.evaluateHatch(), Acad::eHatchTooDense);
}

TEST_F(HatchEntity, PatternsAreScaledAndTurnedAboutTheOrigin)
{
    AcDbHatch hatch;
    ASSERT_EQ(hatch.setPatternScale(2.0), Acad::eOk);
    ASSERT_EQ(hatch.setPattern(AcDbHatch::kPreDefined, L"angle"), Acad::eOk);
    EXPECT_STREQ(hatch.patternName(), L"ANGLE");
    EXPECT_FALSE(hatch.isSolidFill());
    ASSERT_EQ(hatch.numPatternDefinitions(), 2);
    double angle, baseX, baseY, offsetX, offsetY;
    AcGeDoubleArray dashes;
    ASSERT_EQ(hatch.getPatternDefinitionAt(1, angle, baseX, baseY, offsetX, offsetY, dashes), Acad::eOk);
    // As drawings have it at scale 2.
    EXPECT_NEAR(angle, pi / 2, 1e-12);
    EXPECT_NEAR(offsetX, -13.97, 1e-9);
    EXPECT_NEAR(offsetY, 0.0, 1e-9);
    ASSERT_EQ(dashes.length(), 2);
    EXPECT_NEAR(dashes[0], 10.16, 1e-9);
    EXPECT_NEAR(dashes[1], -3.81, 1e-9);
    ASSERT_EQ(hatch.setPatternAngle(pi / 2), Acad::eOk);
    ASSERT_EQ(hatch.setPatternScale(1.0), Acad::eOk);
    ASSERT_EQ(hatch.getPatternDefinitionAt(0, angle, baseX, baseY, offsetX, offsetY, dashes), Acad::eOk);
    EXPECT_NEAR(offsetX, -6.985, 1e-9);
    EXPECT_NEAR(dashes[0], 5.08, 1e-9);
}

TEST_F(HatchEntity, UnknownPatternsAndSizesAreRefused)
{
    AcDbHatch hatch;
    EXPECT_EQ(hatch.setPattern(AcDbHatch::kPreDefined, L"NO SUCH"), Acad::eInvalidInput);
    EXPECT_EQ(hatch.setPattern(AcDbHatch::kPreDefined, nullptr), Acad::eInvalidInput);
    for (const double bad : {0.0, -1.0, static_cast<double>(NAN)}) {
        EXPECT_EQ(hatch.setPatternScale(bad), Acad::eInvalidInput);
        EXPECT_EQ(hatch.setPatternSpace(bad), Acad::eInvalidInput);
    }
    EXPECT_STREQ(hatch.patternName(), L"SOLID");
    EXPECT_TRUE(hatch.isSolidFill());
}

TEST_F(HatchEntity, ExplodingGivesItsLinesInTheWorld)
{
    AcDbHatch hatch;
    ASSERT_EQ(addSquare(hatch, 0.5, 4.5), Acad::eOk);
    AcDbVoidPtrArray parts;
    EXPECT_EQ(hatch.explode(parts), Acad::eCannotExplodeEntity);
    setLevelLines(hatch, 1.0);
    ASSERT_EQ(hatch.setElevation(3.0), Acad::eOk);
    ASSERT_EQ(hatch.explode(parts), Acad::eOk);
    EXPECT_EQ(parts.length(), 4);
    for (void* const part : parts) {
        const std::unique_ptr<AcDbLine> line(AcDbLine::cast(static_cast<AcRxObject*>(part)));
        ASSERT_TRUE(line);
        EXPECT_NEAR(line->startPoint().z, 3.0, 1e-12);
        EXPECT_NEAR(line->startPoint().distanceTo(line->endPoint()), 4.0, 1e-12);
    }
}

TEST_F(HatchEntity, GradientColoursLieBetweenTheirStops)
{
    const auto hatch = read(gradientRecord(), mDatabase);
    EXPECT_TRUE(hatch->isGradient());
    EXPECT_STREQ(hatch->gradientName(), L"SPHERICAL");
    AcCmColor color;
    ASSERT_EQ(hatch->evaluateGradientColorAt(0.5F, color), Acad::eOk);
    // Half way from blue (0, 0, 255) to yellow (255, 255, 0).
    EXPECT_EQ(color.red(), 128);
    EXPECT_EQ(color.blue(), 128);
    EXPECT_EQ(hatch->evaluateGradientColorAt(2.0F, color), Acad::eInvalidInput);
    EXPECT_EQ(hatch->setGradient(AcDbHatch::kPreDefinedGradient, L"none"), Acad::eInvalidInput);
    EXPECT_EQ(hatch->setGradient(AcDbHatch::kPreDefinedGradient, L"curved"), Acad::eOk);
    EXPECT_STREQ(hatch->gradientName(), L"CURVED");
}

TEST_F(HatchEntity, AssociativeHatchesFollowTheirBoundary)
{
    const AcDbObjectId circle =
        add(std::make_unique<AcDbCircle>(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, 1.0));
    auto made = std::make_unique<AcDbHatch>();
    ASSERT_EQ(made->setAssociative(true), Acad::eOk);
    ASSERT_EQ(made->appendLoop(AcDbHatch::kDefault, AcDbObjectIdArray{circle}), Acad::eOk);
    const AcDbObjectId id = add(std::move(made));
    change<AcDbCircle>(circle, [](AcDbCircle& at) { at.setRadius(2.0); });
    change<AcDbHatch>(id, [](AcDbHatch& hatch) { EXPECT_NEAR(areaOf(hatch), 4.0 * pi, 1e-9); });
    change<AcDbCircle>(circle, [](AcDbCircle& at) { EXPECT_EQ(at.erase(), Acad::eOk); });
    change<AcDbHatch>(id, [](AcDbHatch& hatch) {
        EXPECT_FALSE(hatch.associative());
        EXPECT_NEAR(areaOf(hatch), 4.0 * pi, 1e-9);
    });
}

TEST_F(HatchEntity, EntitiesThatMakeNoLoopAreRefused)
{
    const AcDbObjectId line = add(std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)));
    AcDbHatch hatch;
    EXPECT_EQ(hatch.appendLoop(AcDbHatch::kDefault, AcDbObjectIdArray{line}), Acad::eInvalidInput);
    EXPECT_EQ(hatch.appendLoop(AcDbHatch::kDefault, AcDbObjectIdArray{}), Acad::eInvalidInput);
    EXPECT_EQ(hatch.appendLoop(AcDbHatch::kDefault, AcDbObjectIdArray{AcDbObjectId()}), Acad::eNullObjectId);
    EXPECT_EQ(hatch.numLoops(), 0);
}

TEST_F(HatchEntity, OriginAndBackgroundAreKeptAsExtendedData)
{
    auto made = std::make_unique<AcDbHatch>();
    ASSERT_EQ(addSquare(*made, 0, 1), Acad::eOk);
    AcCmColor color;
    color.setColorIndex(3);
    ASSERT_EQ(made->setBackgroundColor(color), Acad::eOk);
    ASSERT_EQ(made->setOriginPoint({2.0, 5.0}), Acad::eOk);
    const AcDbObjectId id = add(std::move(made));
    change<AcDbHatch>(id, [](AcDbHatch& hatch) { hatch.completeRead(); });
    change<AcDbHatch>(id, [](AcDbHatch& hatch) {
        EXPECT_TRUE(hatch.originPoint().isEqualTo({2.0, 5.0}));
        EXPECT_EQ(hatch.backgroundColor().colorIndex(), 3);
        resbuf* chain = hatch.xData(L"HATCHBACKGROUNDCOLOR");
        EXPECT_NE(chain, nullptr);
        acutRelRb(chain);
    });
}
