#include "DatabaseFixture.h"

#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbtext.h"
#include "dbtxtsty.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;
constexpr double quarter = pi / 2;

struct Alignment {
    AcDb::TextHorzMode horizontal;
    AcDb::TextVertMode vertical;
};

const Alignment hanging[] = {{AcDb::kTextCenter, AcDb::kTextBase},   {AcDb::kTextRight, AcDb::kTextBase},
                             {AcDb::kTextMid, AcDb::kTextBase},      {AcDb::kTextLeft, AcDb::kTextTop},
                             {AcDb::kTextCenter, AcDb::kTextTop},    {AcDb::kTextRight, AcDb::kTextTop},
                             {AcDb::kTextLeft, AcDb::kTextVertMid},  {AcDb::kTextCenter, AcDb::kTextVertMid},
                             {AcDb::kTextRight, AcDb::kTextVertMid}, {AcDb::kTextLeft, AcDb::kTextBottom},
                             {AcDb::kTextCenter, AcDb::kTextBottom}, {AcDb::kTextRight, AcDb::kTextBottom}};

class TextPlace : public DatabaseFixture
{
protected:
    AcDbObjectId addStyle(const wchar_t* name, const wchar_t* file, bool vertical)
    {
        const AcDbTextStyleTablePointer table(&mDatabase, AcDb::kForWrite);
        auto* style = new AcDbTextStyleTableRecord;
        style->setName(name);
        style->setFileName(file);
        style->setIsVertical(vertical);
        AcDbObjectId id;
        table->add(id, style);
        style->close();
        return id;
    }
    /// 2 high, hung on the origin.
    static AcDbText text(AcDbObjectId style, const wchar_t* string, double rotation, Alignment alignment)
    {
        AcDbText made(AcGePoint3d::kOrigin, string, style, 2.0, rotation);
        made.setHorizontalMode(alignment.horizontal);
        made.setVerticalMode(alignment.vertical);
        made.setAlignmentPoint(AcGePoint3d::kOrigin);
        return made;
    }
    static AcDbExtents boxOf(const AcDbText& text)
    {
        AcDbExtents box;
        EXPECT_EQ(text.getGeomExtents(box), Acad::eOk);
        return box;
    }
};

/// The letters of a column are 1.5 heights apart: three of them reach over 2 * 3 + 2.
constexpr double columnOfThree = 8.0;

TEST_F(TextPlace, ColumnRunsAlongItsRotationFromTheMiddleOfItsTop)
{
    const AcDbObjectId style = addStyle(L"DOWN", L"txt.shx", true);
    const Alignment left{AcDb::kTextLeft, AcDb::kTextBase};
    const AcDbExtents down = boxOf(text(style, L"HHH", 3 * quarter, left));
    EXPECT_NEAR(down.maxPoint().y, 0.0, 0.05);
    EXPECT_NEAR(down.minPoint().y, -columnOfThree, 0.05);
    EXPECT_NEAR(down.minPoint().x + down.maxPoint().x, 0.0, 0.2) << "side bearings differ";
    EXPECT_LT(down.maxPoint().x - down.minPoint().x, 2.0);
    const AcDbExtents lying = boxOf(text(style, L"HHH", 0.0, left));
    EXPECT_NEAR(lying.minPoint().x, 0.0, 0.05);
    EXPECT_NEAR(lying.maxPoint().x, columnOfThree, 0.05);
}

TEST_F(TextPlace, AlignmentsCountAlongTheColumnAlone)
{
    const AcDbObjectId style = addStyle(L"DOWN", L"txt.shx", true);
    for (const Alignment& alignment : hanging) {
        const AcDbText column = text(style, L"HHH", 3 * quarter, alignment);
        const AcDbExtents box = boxOf(column);
        const bool isRight = alignment.horizontal == AcDb::kTextRight;
        const double above = alignment.horizontal == AcDb::kTextLeft ? 0.0 : isRight ? 1.0 : 0.5;
        EXPECT_NEAR(box.maxPoint().y, above * columnOfThree, 0.05) << alignment.horizontal;
        EXPECT_NEAR(box.minPoint().x + box.maxPoint().x, 0.0, 0.2) << alignment.vertical;
        // The position follows, so that other programs find the same place.
        AcDbText adjusted = column;
        ASSERT_EQ(adjusted.adjustAlignment(), Acad::eOk);
        EXPECT_LT(adjusted.position().distanceTo({0, above * columnOfThree, 0}), 1e-9);
        EXPECT_TRUE(boxOf(adjusted).minPoint().isEqualTo(box.minPoint()));
    }
}

TEST_F(TextPlace, AlignedColumnGrowsAndAFittedOneOnlyTurns)
{
    const AcDbObjectId style = addStyle(L"DOWN", L"txt.shx", true);
    for (const AcDb::TextHorzMode mode : {AcDb::kTextAlign, AcDb::kTextFit}) {
        AcDbText column = text(style, L"HHH", 0.0, {mode, AcDb::kTextBase});
        column.setAlignmentPoint({0.0, -2 * columnOfThree, 0.0});
        ASSERT_EQ(column.adjustAlignment(), Acad::eOk);
        EXPECT_NEAR(std::cos(column.rotation() - 3 * quarter), 1.0, 1e-12);
        EXPECT_NEAR(column.height(), mode == AcDb::kTextAlign ? 4.0 : 2.0, 1e-9);
        EXPECT_NEAR(column.widthFactor(), 1.0, 1e-12);
    }
}

TEST_F(TextPlace, ColumnKeepsItsLettersWhenItIsStretched)
{
    const AcDbObjectId style = addStyle(L"DOWN", L"txt.shx", true);
    AcDbText column = text(style, L"HHH", 3 * quarter, {AcDb::kTextLeft, AcDb::kTextBase});
    const AcDbExtents before = boxOf(column);
    AcGeMatrix3d stretch;
    stretch.entry[0][0] = 3.0; // across the column
    ASSERT_EQ(column.transformBy(stretch), Acad::eOk);
    EXPECT_NEAR(column.height(), 2.0, 1e-9);
    EXPECT_NEAR(boxOf(column).maxPoint().x, 3 * before.maxPoint().x, 1e-9);
    EXPECT_NEAR(boxOf(column).minPoint().y, before.minPoint().y, 1e-9);
}

TEST_F(TextPlace, ColumnsOfMultilineTextsExplodeWhereTheyStand)
{
    AcDbMText text;
    text.setTextStyle(addStyle(L"DOWN", L"txt.shx", true));
    text.setTextHeight(2.0);
    text.setContents(L"AB\\PC");
    text.setFlowDirection(AcDbMText::kByStyle);
    text.setRotation(0.4);
    text.setLocation({5, 6, 0});
    AcDbVoidPtrArray pieces;
    ASSERT_EQ(text.explode(pieces), Acad::eOk);
    ASSERT_EQ(pieces.length(), 3);
    const AcGeVector3d right(std::cos(0.4), std::sin(0.4), 0), down(right.y, -right.x, 0);
    // The middles of the columns are 1 and 1 + 4/3 * 2 from the edge; letters are 3 apart.
    const AcGePoint3d starts[] = {text.location() + right, text.location() + right + 3 * down,
                                  text.location() + (1 + 8.0 / 3) * right};
    for (int i = 0; i < 3; ++i) {
        const std::unique_ptr<AcDbText> letter(static_cast<AcDbText*>(pieces[i]));
        EXPECT_LT(letter->position().distanceTo(starts[i]), 1e-9) << i;
        EXPECT_NEAR(std::remainder(letter->rotation() - 0.4 - 3 * quarter, 4 * quarter), 0.0, 1e-9);
    }
}

TEST_F(TextPlace, TypefacesAreNotWrittenDownwards)
{
    const AcDbObjectId style = addStyle(L"FACE", L"simsun.ttf", true);
    const AcDbExtents box = boxOf(text(style, L"HHH", 0.0, {AcDb::kTextLeft, AcDb::kTextBase}));
    EXPECT_NEAR(box.maxPoint().y, 2.0, 0.05);
}

TEST_F(TextPlace, MirroredTextIsTheMirrorImageInItsAlignmentPoint)
{
    const AcDbObjectId style = addStyle(L"PLAIN", L"txt.shx", false);
    for (const Alignment& alignment : hanging) {
        AcDbText plain = text(style, L"Right p", 0.0, alignment);
        const AcDbExtents box = boxOf(plain);
        plain.mirrorInX(true);
        EXPECT_NEAR(boxOf(plain).minPoint().x, -box.maxPoint().x, 1e-9) << alignment.horizontal;
        EXPECT_NEAR(boxOf(plain).maxPoint().y, box.maxPoint().y, 1e-9);
        plain.mirrorInY(true);
        EXPECT_NEAR(boxOf(plain).minPoint().y, -box.maxPoint().y, 1e-9) << alignment.vertical;
        EXPECT_NEAR(boxOf(plain).minPoint().x, -box.maxPoint().x, 1e-9);
    }
}

TEST_F(TextPlace, MirroredTextIsAlignedBetweenItsPoints)
{
    const AcDbObjectId style = addStyle(L"PLAIN", L"txt.shx", false);
    AcDbText plain = text(style, L"HHHH", 0.0, {AcDb::kTextFit, AcDb::kTextBase});
    plain.setAlignmentPoint({-30.0, 0.0, 0.0});
    plain.mirrorInX(true);
    ASSERT_EQ(plain.adjustAlignment(), Acad::eOk);
    EXPECT_NEAR(plain.rotation(), 0.0, 1e-12);
    EXPECT_GT(boxOf(plain).minPoint().x, -30.0);
    EXPECT_LT(boxOf(plain).maxPoint().x, 0.0);
    EXPECT_NEAR(boxOf(plain).maxPoint().y, 2.0, 0.05) << "its letters stand on the line";
}

TEST_F(TextPlace, MiddleIsThatOfWhatIsDrawnAndBottomThatOfTheFont)
{
    const AcDbObjectId style = addStyle(L"PLAIN", L"simplex.shx", false);
    for (const wchar_t* string : {L"HIH", L"ace", L"Xxp"}) {
        const AcDbExtents box = boxOf(text(style, string, 0.0, {AcDb::kTextMid, AcDb::kTextBase}));
        EXPECT_NEAR(box.minPoint().y + box.maxPoint().y, 0.0, 1e-9) << string;
    }
    // AutoCAD puts the baseline of "simplex" a third of the height above the point.
    AcDbText low = text(style, L"HIH", 0.0, {AcDb::kTextLeft, AcDb::kTextBottom});
    ASSERT_EQ(low.adjustAlignment(), Acad::eOk);
    EXPECT_NEAR(low.position().y, 2.0 / 3, 1e-12);
}
/// A mirror through the origin whose line runs at an angle.
AcGeMatrix3d mirrorAt(double angle)
{
    const AcGeVector3d across(-std::sin(angle), std::cos(angle), 0.0);
    return AcGeMatrix3d().setToMirroring(AcGePlane(AcGePoint3d(3, 1, 0), across));
}

/// Whether a text is read to the right, or upwards.
bool readsRight(double rotation)
{
    return std::cos(rotation) > 1e-9 || (std::cos(rotation) > -1e-9 && std::sin(rotation) > 0.0);
}

TEST_F(TextPlace, ReflectedTextReadsRightWhereItsImageWouldStand)
{
    const AcDbObjectId style = addStyle(L"PLAIN", L"txt.shx", false);
    for (const Alignment& alignment : hanging)
        for (const double mirror : {0.0, quarter, quarter / 2, 1.0})
            for (const double rotation : {0.0, 0.3, quarter, -0.5}) {
                SCOPED_TRACE(testing::Message() << alignment.horizontal << "/" << alignment.vertical
                                                << " mirrored at " << mirror << ", turned by " << rotation);
                // As wide before the first as behind the last letter, as low as high: the box is its own
                // image.
                AcDbText before = text(style, L"HIH", rotation, alignment);
                ASSERT_EQ(before.adjustAlignment(), Acad::eOk);
                AcDbText after = before;
                ASSERT_EQ(after.transformBy(mirrorAt(mirror)), Acad::eOk);
                EXPECT_TRUE(readsRight(after.rotation())) << after.rotation();
                EXPECT_NEAR(std::sin(after.rotation() + rotation - 2 * mirror), 0.0, 1e-9);
                EXPECT_NEAR(after.height(), 2.0, 1e-9);
                AcGePoint3d was[4], is[4];
                ASSERT_TRUE(before.boundingPoints(was) && after.boundingPoints(is));
                const AcGePoint3d middle = was[0] + (was[2] - was[0]) / 2;
                EXPECT_LT((is[0] + (is[2] - is[0]) / 2).distanceTo(mirrorAt(mirror) * middle), 1e-6);
                AcDbText adjusted = after;
                ASSERT_EQ(adjusted.adjustAlignment(), Acad::eOk);
                EXPECT_LT(adjusted.position().distanceTo(after.position()), 1e-9) << "both points moved";
            }
}

TEST_F(TextPlace, ReflectedTextBetweenTwoPointsStaysBetweenThem)
{
    const AcDbObjectId style = addStyle(L"PLAIN", L"txt.shx", false);
    AcDbText fitted = text(style, L"HIH", 0.0, {AcDb::kTextFit, AcDb::kTextBase});
    fitted.setAlignmentPoint({30.0, 0.0, 0.0});
    ASSERT_EQ(fitted.adjustAlignment(), Acad::eOk);
    const double factor = fitted.widthFactor();
    AcGeMatrix3d flip;
    flip.entry[0][0] = -1.0;
    ASSERT_EQ(fitted.transformBy(flip), Acad::eOk);
    ASSERT_EQ(fitted.adjustAlignment(), Acad::eOk);
    EXPECT_LT(fitted.position().distanceTo({-30.0, 0.0, 0.0}), 1e-9);
    EXPECT_LT(fitted.alignmentPoint().distanceTo(AcGePoint3d::kOrigin), 1e-9);
    EXPECT_NEAR(fitted.rotation(), 0.0, 1e-9);
    EXPECT_NEAR(fitted.widthFactor(), factor, 1e-9);
}

TEST_F(TextPlace, ReflectedMultilineTextReadsRightWhereItsImageWouldStand)
{
    for (int attachment = AcDbMText::kTopLeft; attachment <= AcDbMText::kBottomRight; ++attachment)
        for (const double mirror : {0.0, quarter, 1.0}) {
            AcDbMText text;
            text.setTextHeight(2.0);
            text.setContents(L"first line\\Psecond");
            text.setAttachment(static_cast<AcDbMText::AttachmentPoint>(attachment));
            text.setLocation({5, 6, 0});
            text.setRotation(0.3);
            AcGePoint3dArray was, is;
            text.getBoundingPoints(was);
            ASSERT_EQ(text.transformBy(mirrorAt(mirror)), Acad::eOk);
            text.getBoundingPoints(is);
            EXPECT_TRUE(readsRight(text.rotation())) << text.rotation();
            const AcGePoint3d before = was[0] + (was[3] - was[0]) / 2, after = is[0] + (is[3] - is[0]) / 2;
            EXPECT_LT(after.distanceTo(mirrorAt(mirror) * before), 1e-9) << attachment << " at " << mirror;
        }
}
} // namespace
