#include "DatabaseFixture.h"
#include "dbapserv.h"
#include "dbblock.h"
#include "dbdim.h"
#include "dbline.h"
#include "dbobjptr.h"
#include "dbtext.h"
#include "Drawn.h"
#include "RecordLists.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

CString shown(const AcDbDimension& dimension)
{
    CString text, user;
    dimension.dimensionText(user);
    EXPECT_EQ(dimension.formatMeasurement(text, dimension.measurement(), user), Acad::eOk);
    return text;
}
} // namespace

class Dimension : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        acdbHostApplicationServices()->setWorkingDatabase(&mDatabase);
    }
    void TearDown() override
    {
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        DatabaseFixture::TearDown();
    }

    AcDbObjectId add(AcDbEntity* entity)
    {
        AcDbBlockTableRecord* space = nullptr;
        AcDbObjectId id;
        EXPECT_EQ(acdbOpenObject(space, mDatabase.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        space->close();
        entity->close();
        return id;
    }
};

TEST_F(Dimension, OrdinateMeasuresAlongItsAxis)
{
    AcDbOrdinateDimension x(true, {30.0, -40.0, 0.0}, {30.0, -60.0, 0.0});
    EXPECT_DOUBLE_EQ(x.measurement(), 30.0);
    EXPECT_TRUE(x.isUsingXAxis());
    ASSERT_EQ(x.useYAxis(), Acad::eOk);
    EXPECT_DOUBLE_EQ(x.measurement(), 40.0);
    ASSERT_EQ(x.setOrigin({0.0, -15.0, 0.0}), Acad::eOk);
    EXPECT_DOUBLE_EQ(x.measurement(), 25.0);
    // The horizontal direction turned to +Y: its X axis is the world's Y axis.
    x.useXAxis();
    x.setHorizontalRotation(-pi / 2.0);
    EXPECT_NEAR(x.measurement(), 25.0, 1e-12);
}

TEST_F(Dimension, LinearKindsMeasureTheirLines)
{
    const AcGePoint3d a(0.0, 0.0, 0.0), b(3.0, 4.0, 0.0);
    EXPECT_DOUBLE_EQ(AcDbAlignedDimension(a, b, {0.0, 5.0, 0.0}).measurement(), 5.0);
    EXPECT_DOUBLE_EQ(AcDbRotatedDimension(0.0, a, b, {0.0, 6.0, 0.0}).measurement(), 3.0);
    EXPECT_NEAR(AcDbRotatedDimension(pi / 2.0, a, b, {6.0, 0.0, 0.0}).measurement(), 4.0, 1e-12);
}

TEST_F(Dimension, CircularKindsMeasureTheirArcs)
{
    EXPECT_DOUBLE_EQ(AcDbRadialDimension({1, 1, 0}, {4, 5, 0}, 1.0).measurement(), 5.0);
    EXPECT_DOUBLE_EQ(AcDbDiametricDimension({1, 1, 0}, {7, 9, 0}, 1.0).measurement(), 10.0);
    // Lines along X and Y through the origin: 90 degrees, the sector opposite too; from the left side as
    // well.
    const AcGePoint3d o(0, 0, 0), x(10, 0, 0), y(0, 10, 0);
    EXPECT_NEAR(AcDb2LineAngularDimension(o, x, o, y, {2, 2, 0}).measurement(), pi / 2.0, 1e-12);
    EXPECT_NEAR(AcDb2LineAngularDimension(o, {10, 10, 0}, o, y, {1, 5, 0}).measurement(), pi / 4.0, 1e-12);
    EXPECT_NEAR(AcDb2LineAngularDimension(o, {10, 10, 0}, o, y, {-5, 1, 0}).measurement(), 3.0 * pi / 4.0,
                1e-12);
    EXPECT_NEAR(AcDb3PointAngularDimension(o, x, y, {2, 2, 0}).measurement(), pi / 2.0, 1e-12);
    EXPECT_NEAR(AcDb3PointAngularDimension(o, x, y, {-2, -2, 0}).measurement(), 1.5 * pi, 1e-12);
    EXPECT_NEAR(AcDbArcDimension(o, x, y, {9, 9, 0}).measurement(), 5.0 * pi, 1e-9);
}

TEST_F(Dimension, TextFollowsStyleOverridesAndUser)
{
    AcDbAlignedDimension dimension({0, 0, 0}, {12.3456, 0, 0}, {0, 2, 0});
    EXPECT_EQ(shown(dimension), L"12.3456");
    ASSERT_EQ(dimension.setDimdec(2), Acad::eOk);
    EXPECT_EQ(dimension.dimdec(), 2);
    EXPECT_EQ(shown(dimension), L"12.35");
    dimension.setDimlfac(10.0);
    dimension.setDimrnd(0.5);
    EXPECT_EQ(shown(dimension), L"123.50");
    dimension.setDimpost(L"<> mm");
    dimension.setDimzin(8);
    EXPECT_EQ(shown(dimension), L"123.5 mm");
    dimension.setDimdsep(',');
    dimension.setDimensionText(L"L=<>, seen");
    EXPECT_EQ(shown(dimension), L"L=123,5 mm, seen");
    dimension.setDimensionText(L" ");
    EXPECT_EQ(shown(dimension), L"");
    EXPECT_EQ(AcDbAlignedDimension().dimdec(), 4);
}

TEST_F(Dimension, TolerancesAndAlternativesStandBesideTheMeasure)
{
    AcDbAlignedDimension dimension({0, 0, 0}, {2, 0, 0}, {0, 1, 0});
    dimension.setDimdec(1);
    dimension.setDimtdec(1);
    dimension.setDimtol(true);
    dimension.setDimtp(0.2);
    dimension.setDimtm(0.2);
    EXPECT_EQ(shown(dimension), L"2.0{\u00B10.2}");
    dimension.setDimtm(0.1);
    EXPECT_EQ(shown(dimension), L"2.0{\\S+0.2^-0.1;}");
    dimension.setDimlim(true);
    EXPECT_EQ(shown(dimension), L"{\\S2.2^1.9;}");
    dimension.setDimlim(false);
    dimension.setDimtol(false);
    dimension.setDimalt(true);
    EXPECT_EQ(shown(dimension), L"2.0 [50.80]"); // 25.4 times
}

TEST_F(Dimension, SignsStandBeforeRadiiAndAngles)
{
    EXPECT_EQ(shown(AcDbRadialDimension({0, 0, 0}, {5, 0, 0}, 0.0)), L"R5.0000");
    AcDbDiametricDimension diameter({5, 0, 0}, {-5, 0, 0}, 0.0);
    EXPECT_EQ(shown(diameter), L"\u220510.0000");
    diameter.setDimpost(L"D <>");
    EXPECT_EQ(shown(diameter), L"D 10.0000");
    EXPECT_EQ(shown(AcDb3PointAngularDimension({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0})), L"90\u00B0");
}

TEST_F(Dimension, OverridesLeaveOtherDataAlone)
{
    const AcDbObjectId id = add(new AcDbAlignedDimension({0, 0, 0}, {2, 0, 0}, {0, 1, 0}));
    auto* dimension = AcDbDimension::cast(open(id, AcDb::kForWrite));
    resbuf* chain = acutBuildList(1001, L"ACAD", 1000, L"OTHER", 1070, 7, RTNONE);
    ASSERT_EQ(dimension->setXData(chain), Acad::eOk);
    acutRelRb(chain);
    ASSERT_EQ(dimension->setDimtxt(3.5), Acad::eOk);
    ASSERT_EQ(dimension->setDimtad(1), Acad::eOk);
    ASSERT_EQ(dimension->setDimtxt(5.0), Acad::eOk);
    EXPECT_DOUBLE_EQ(dimension->dimtxt(), 5.0);
    chain = dimension->xData(L"ACAD");
    const short codes[] = {1001, 1000, 1070, 1000, 1002, 1070, 1070, 1070, 1040, 1002};
    const resbuf* at = chain;
    for (const short code : codes) {
        ASSERT_NE(at, nullptr);
        EXPECT_EQ(at->restype, code);
        at = at->rbnext;
    }
    EXPECT_EQ(at, nullptr);
    acutRelRb(chain);
    dimension->setDimstyleData(dimension->dimensionStyle());
    dimension->close();
}

TEST_F(Dimension, VariablesOfANewDrawingAreThoseOfItsStyle)
{
    AcDbDatabase drawing;
    AcDbDimStyleTableRecord* variables = nullptr;
    ASSERT_EQ(drawing.getDimstyleData(variables), Acad::eOk);
    const std::unique_ptr<AcDbDimStyleTableRecord> owned(variables);
    const AcDbObjectPointer<AcDbDimStyleTableRecord> style(drawing.dimstyle(), AcDb::kForRead);
    for (const AcDbDimStyleTableRecord* record : {variables, style.object()}) {
        EXPECT_EQ(record->dimtxt(), 2.5);
        EXPECT_EQ(record->dimdsep(), L',');
        EXPECT_NEAR(record->dimjogang(), std::atan(1.0), 1e-12) << "radians, in headers too";
        EXPECT_EQ(record->dimtxsty(), drawing.textstyle());
    }
}

TEST_F(Dimension, DefaultsOfTheDrawingAreItsStyle)
{
    AcDbOrdinateDimension dimension(false, {1, 2, 0}, {3, 2, 0});
    dimension.setDatabaseDefaults(&mDatabase);
    EXPECT_EQ(dimension.dimensionStyle(), mDatabase.dimstyle());
    EXPECT_EQ(dimension.dimtxt(), 2.5) << "of ISO-25";
}

TEST_F(Dimension, VariablesThatHeadersNameOtherwiseOrNotAreKeptInTheirPlaces)
{
    AcDbDatabase drawing;
    AcDbDimStyleTableRecord wanted;
    wanted.setDimjogang(0.5);
    wanted.setDimfxlen(7.0);
    wanted.setDimexo(3.0);
    ASSERT_EQ(drawing.setDimstyleData(&wanted), Acad::eOk);
    AcDbDimStyleTableRecord* variables = nullptr;
    ASSERT_EQ(drawing.getDimstyleData(variables), Acad::eOk);
    const std::unique_ptr<AcDbDimStyleTableRecord> owned(variables);
    EXPECT_EQ(variables->dimjogang(), 0.5);
    EXPECT_EQ(variables->dimfxlen(), 7.0);
    EXPECT_EQ(variables->dimexo(), 3.0);
    EXPECT_EQ(variables->dimtxsty(), drawing.textstyle()) << "dimensions need one";
}

TEST_F(Dimension, OrdinatePictureIsThatOfTheDrawing)
{
    // From a drawing: feature, leader end and the middle of the text of a Y ordinate, in the default style.
    AcDbOrdinateDimension dimension(false, {73.54, 56.0832, 0}, {80.1, 56.0832, 0});
    const std::vector<DrawnLine> lines = drawnLines(dimension);
    ASSERT_FALSE(lines.empty());
    EXPECT_LT(lines[0].start.distanceTo({73.6025, 56.0832, 0}), 1e-9); // behind an extension offset of 0.0625
    EXPECT_LT(lines[0].end.distanceTo({80.1, 56.0832, 0}), 1e-9);
    AcDbExtents extents;
    ASSERT_EQ(dimension.getGeomExtents(extents), Acad::eOk);
    EXPECT_GT(extents.maxPoint().x, 80.19); // the text begins a gap of 0.09 behind the leader
}

TEST_F(Dimension, OrdinateLeaderBendsInThreeLegs)
{
    // Points, style and lines of an X ordinate in a drawing. Its last line goes on below the text.
    AcDbOrdinateDimension dimension(true, {4630.52, 4515.68, 0}, {4820.77, 4198.78, 0});
    dimension.setDimasz(2.5);
    dimension.setDimexo(0.625);
    dimension.setDimgap(0.625);
    dimension.setDimtxt(2.5);
    dimension.setDimtad(1);
    dimension.setDimtih(false);
    const std::vector<DrawnLine> lines = drawnLines(dimension);
    ASSERT_EQ(lines.size(), 3u);
    const AcGePoint3d path[] = {{4630.52, 4515.055, 0}, {4630.52, 4208.78, 0}, {4820.77, 4203.78, 0}};
    for (int i = 0; i < 3; ++i)
        EXPECT_LT(lines[i].start.distanceTo(path[i]), 1e-9) << i;
    EXPECT_NEAR(lines[2].end.x, 4820.77, 1e-9);
    EXPECT_LT(lines[2].end.y, 4198.78 - 2.5);
    dimension.setDimtad(0);
    EXPECT_LT(drawnLines(dimension)[2].end.distanceTo({4820.77, 4198.78, 0}), 1e-9);
}

TEST_F(Dimension, ClosingMakesAnAnonymousBlock)
{
    const AcDbObjectId id = add(new AcDbOrdinateDimension(true, {10, 5, 0}, {10, 20, 0}));
    auto* dimension = AcDbOrdinateDimension::cast(open(id, AcDb::kForWrite));
    const AcDbObjectId blockId = dimension->dimBlockId();
    auto* block = AcDbBlockTableRecord::cast(open(blockId, AcDb::kForRead));
    ASSERT_NE(block, nullptr);
    EXPECT_TRUE(block->isAnonymous());
    EXPECT_EQ(block->name().Left(2), L"*D");
    block->close();
    AcDbExtents before, after;
    ASSERT_EQ(dimension->getGeomExtents(before), Acad::eOk);
    ASSERT_EQ(dimension->setLeaderEndPoint({10, 60, 0}), Acad::eOk);
    dimension->close();
    dimension = AcDbOrdinateDimension::cast(open(id, AcDb::kForRead));
    EXPECT_EQ(dimension->dimBlockId(), blockId); // the block is its own: it is filled anew
    ASSERT_EQ(dimension->getGeomExtents(after), Acad::eOk);
    EXPECT_NEAR(after.maxPoint().y - before.maxPoint().y, 40.0, 1e-9);
    AcDbVoidPtrArray pieces;
    ASSERT_EQ(dimension->explode(pieces), Acad::eOk);
    int texts = 0;
    for (int i = 0; i < pieces.length(); ++i) {
        const std::unique_ptr<AcDbEntity> piece(static_cast<AcDbEntity*>(pieces[i]));
        texts += AcDbLine::cast(piece.get()) || piece->layerId() != dimension->layerId() ? 0 : 1;
    }
    EXPECT_GE(texts, 1);
    dimension->close();
}

TEST_F(Dimension, CopyGetsABlockOfItsOwn)
{
    const AcDbObjectId id = add(new AcDbAlignedDimension({0, 0, 0}, {20, 0, 0}, {0, 5, 0}));
    auto* first = AcDbAlignedDimension::cast(open(id, AcDb::kForRead));
    auto* copy = AcDbAlignedDimension::cast(first->clone());
    const AcDbObjectId firstBlock = first->dimBlockId();
    first->close();
    const AcDbObjectId copyId = add(copy);
    copy = AcDbAlignedDimension::cast(open(copyId, AcDb::kForRead));
    EXPECT_FALSE(copy->dimBlockId().isNull());
    EXPECT_NE(copy->dimBlockId(), firstBlock);
    copy->close();
}

TEST_F(Dimension, AlignedPictureHasLinesArrowsAndText)
{
    // The default style: extension lines from 0.0625 off the points to 0.18 past the line, arrows of 0.18.
    AcDbAlignedDimension dimension({0, 0, 0}, {10, 0, 0}, {10, 3, 0});
    const std::vector<DrawnLine> lines = drawnLines(dimension);
    ASSERT_GE(lines.size(), 4u);
    EXPECT_LT(lines[0].start.distanceTo({0, 0.0625, 0}), 1e-9);
    EXPECT_LT(lines[0].end.distanceTo({0, 3.18, 0}), 1e-9);
    EXPECT_LT(lines[1].start.distanceTo({10, 0.0625, 0}), 1e-9);
    EXPECT_LT(lines[2].start.distanceTo({0.18, 3, 0}), 1e-9);
    EXPECT_LT(lines[3].end.distanceTo({9.82, 3, 0}), 1e-9);
    // The line is broken for the text in its middle, symmetrically.
    EXPECT_NEAR(lines[2].end.x + lines[3].start.x, 10.0, 1e-9);
    EXPECT_LT(lines[2].end.x, 5.0 - 0.09);
    EXPECT_EQ(drawnAreas(dimension), 2); // two filled arrowheads
    dimension.setDimtsz(0.2);
    EXPECT_EQ(drawnAreas(dimension), 0); // ticks are lines
}

TEST_F(Dimension, NarrowLineMovesArrowsAndText)
{
    // 0.4141 between the points: arrows outside, with tails of their own length; the text leaves.
    AcDbRotatedDimension dimension(0.0, {0, 0, 0}, {0.4141, 0, 0}, {0, 1, 0});
    dimension.setDimtofl(true);
    AcDbExtents extents;
    ASSERT_EQ(dimension.getGeomExtents(extents), Acad::eOk);
    EXPECT_NEAR(extents.minPoint().x, -0.36, 1e-9);
    EXPECT_GT(extents.maxPoint().x, 0.4141 + 0.36 + 0.09);
    dimension.setDimtix(true);
    dimension.setDimsoxd(true);
    EXPECT_EQ(drawnAreas(dimension), 0);
}

struct DimensionMaker {
    const char* name;
    AcDbDimension* (*make)();
};

class DimensionKind : public testing::TestWithParam<DimensionMaker>
{
protected:
    std::unique_ptr<AcDbDimension> mDimension{GetParam().make()};
};

TEST_P(DimensionKind, MapAndInverseGiveItBack)
{
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(0.7, {1.0, 1.0, -0.5});
    const AcGeMatrix3d map = AcGeMatrix3d::translation({10, -20, 5}) * AcGeMatrix3d::scaling(2.0) * turn;
    const double before = mDimension->measurement();
    const double scale = CString(GetParam().name).Find(L"Angular") >= 0 ? 1.0 : 2.0;
    ASSERT_EQ(mDimension->transformBy(map), Acad::eOk);
    EXPECT_NEAR(mDimension->measurement(), scale * before, 1e-9);
    ASSERT_EQ(mDimension->transformBy(map.inverse()), Acad::eOk);
    EXPECT_NEAR(mDimension->measurement(), before, 1e-9);
    AcDbExtents extents;
    EXPECT_EQ(mDimension->getGeomExtents(extents), Acad::eOk);
}

TEST_P(DimensionKind, GroupsGiveTheSameDimension)
{
    for (const DxfVersion version : {DxfVersion::r12, DxfVersion::r2000, DxfVersion::r2018}) {
        const std::unique_ptr<AcRxObject> made(mDimension->isA()->create());
        auto* copy = AcDbDimension::cast(made.get());
        const std::string groups = textOf(written(*mDimension, version));
        EXPECT_EQ(rewritten(*copy, written(*mDimension, version), nullptr, version), groups);
        EXPECT_NEAR(copy->measurement(), mDimension->measurement(), 1e-12);
    }
}

TEST_P(DimensionKind, GripsMoveItsPoints)
{
    AcGePoint3dArray before, after;
    AcDbIntArray modes, ids, all;
    ASSERT_EQ(mDimension->getGripPoints(before, modes, ids), Acad::eOk);
    for (int i = 0; i < before.length(); ++i)
        all.append(i);
    ASSERT_EQ(mDimension->moveGripPointsAt(all, {1, 2, 0}), Acad::eOk);
    mDimension->getGripPoints(after, modes, ids);
    for (int i = 0; i < before.length(); ++i)
        EXPECT_LT(after[i].distanceTo(before[i] + AcGeVector3d(1, 2, 0)), 1e-9);
}

TEST_P(DimensionKind, RefusesWhatIsNoNumber)
{
    EXPECT_EQ(mDimension->setTextPosition({std::nan(""), 0, 0}), Acad::eInvalidInput);
    EXPECT_EQ(mDimension->setTextRotation(std::nan("")), Acad::eInvalidInput);
    EXPECT_EQ(mDimension->setNormal(AcGeVector3d()), Acad::eInvalidInput);
    EXPECT_EQ(mDimension->setTextLineSpacingFactor(5.0), Acad::eInvalidInput);
    EXPECT_EQ(mDimension->setDimensionStyle(AcDbObjectId()), Acad::eInvalidDimStyle);
    EXPECT_TRUE(mDimension->isUsingDefaultTextPosition());
}

INSTANTIATE_TEST_SUITE_P(
    All, DimensionKind,
    testing::Values(
        DimensionMaker{"Ordinate",
                       []() -> AcDbDimension* {
                           return new AcDbOrdinateDimension(false, {3, 4, 0}, {9, 6, 0});
                       }},
        DimensionMaker{"Aligned",
                       []() -> AcDbDimension* {
                           return new AcDbAlignedDimension({0, 0, 0}, {3, 4, 0}, {0, 5, 0}, L"<> m");
                       }},
        DimensionMaker{"Rotated",
                       []() -> AcDbDimension* {
                           return new AcDbRotatedDimension(0.5, {0, 0, 0}, {3, 4, 0}, {0, 5, 0});
                       }},
        DimensionMaker{"Radial",
                       []() -> AcDbDimension* {
                           return new AcDbRadialDimension({1, 1, 0}, {4, 5, 0}, 1.0);
                       }},
        DimensionMaker{"Diametric",
                       []() -> AcDbDimension* {
                           return new AcDbDiametricDimension({1, 1, 0}, {4, 5, 0}, 1.0);
                       }},
        DimensionMaker{
            "RadialLarge",
            []() -> AcDbDimension* {
                return new AcDbRadialDimensionLarge({0, 0, 0}, {30, 0, 0}, {10, 2, 0}, {15, 1, 0}, pi / 4.0);
            }},
        DimensionMaker{
            "Angular2Line",
            []() -> AcDbDimension* {
                return new AcDb2LineAngularDimension({0, 0, 0}, {10, 0, 0}, {0, 0, 0}, {0, 10, 0}, {2, 2, 0});
            }},
        DimensionMaker{
            "Angular3Point",
            []() -> AcDbDimension* {
                return new AcDb3PointAngularDimension({0, 0, 0}, {10, 0, 0}, {0, 10, 0}, {2, 2, 0});
            }},
        DimensionMaker{"Arc",
                       []() -> AcDbDimension* {
                           return new AcDbArcDimension({0, 0, 0}, {10, 0, 0}, {0, 10, 0}, {9, 9, 0});
                       }}),
    [](const testing::TestParamInfo<DimensionMaker>& info) { return info.param.name; });
