#include "DatabaseFixture.h"
#include "RecordLists.h"
#include "dbmtext.h"
#include "dbtext.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

/// The groups that every record has, around those of a test; contents come last but for the direction.
PackedGroups record(std::initializer_list<TestGroup> contents, std::initializer_list<TestGroup> rest = {})
{
    PackedGroups groups = groupsOf({{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbMText"}, {10, 1.0}, {20, 2.0},
                                    {30, 0.0}, {40, 2.5}, {41, 40.0}, {46, 0.0}, {71, 5.0}, {72, 1.0}});
    const auto add = [&](const PackedGroups& more) {
        DxfGroup group;
        for (std::size_t at = 0; more.read(at, group);) groups.append(group);
    };
    add(groupsOf(contents));
    add(groupsOf({{11, 0.0}, {21, 2.0}, {31, 0.0}}));
    add(groupsOf(rest));
    return groups;
}

AcDbMText made(const wchar_t* contents)
{
    AcDbMText text;
    text.setTextHeight(2.5);
    text.setContents(contents);
    return text;
}

AcGePoint3dArray cornersOf(const AcDbMText& text)
{
    AcGePoint3dArray corners;
    text.getBoundingPoints(corners);
    return corners;
}

class MTextTest : public DatabaseFixture
{
};
} // namespace

TEST_F(MTextTest, RecordIsWrittenAsItWasRead)
{
    const std::string usual(250, 'a');
    const PackedGroups records[] = {
        record({{1, "one"}}, {{73, 1.0}, {44, 1.0}}),
        record({{3, usual.c_str()}, {3, usual.c_str()}, {1, "end"}}, {{73, 2.0}, {44, 1.5}}),
        // Pieces of another length, and an empty last one.
        record({{3, "short"}, {3, "er"}, {1, ""}}, {{73, 1.0}, {44, 1.0}}),
        record({{1, "filled"}}, {{42, 11.5}, {43, 2.25}, {73, 1.0}, {44, 1.0}, {90, 1.0}, {63, 3.0}, {421, 255.0},
                                 {45, 1.5}, {441, 33554482.0}}),
        record({{1, "turned"}}, {{50, 30.0}, {73, 1.0}, {44, 1.0}}),
        record({{1, "columns"}}, {{73, 1.0}, {44, 1.0}, {75, 1.0}, {76, 2.0}, {78, 0.0}, {79, 0.0}, {48, 18.0},
                                  {49, 4.0}, {50, 7.0}, {50, 5.0}}),
        record({{1, "newer"}}, {{73, 1.0}, {44, 1.0}, {101, "Embedded Object"}, {70, 1.0}, {10, 1.0}, {20, 0.0},
                                {30, 0.0}, {71, 2.0}, {72, 3.0}, {44, 18.0}, {45, 4.0}, {46, 0.0}}),
    };
    for (const PackedGroups& groups : records) {
        AcDbMText text;
        EXPECT_EQ(rewritten(text, groups, &mDatabase), textOf(groups));
    }
}

TEST_F(MTextTest, DirectionOfTheFileMayBeLong)
{
    AcDbMText text;
    rewritten(text, record({{1, "x"}}), &mDatabase);
    EXPECT_NEAR(text.rotation(), pi / 2, 1e-12);
    EXPECT_TRUE(text.direction().isEqualTo(AcGeVector3d::kYAxis));
}

TEST_F(MTextTest, ColumnsOfTheEmbeddedObjectOutliveItWhenTheTextChanges)
{
    auto* text = new AcDbMText;
    AcDbObjectId id;
    const PackedGroups groups =
        record({{1, "x"}}, {{101, "Embedded Object"}, {70, 1.0}, {71, 1.0}, {72, 3.0}, {44, 18.0}, {45, 4.0}});
    ListSource source(groups, &mDatabase);
    dxfRead(*text, source);
    text->completeRead();
    ASSERT_EQ(mDatabase.addAcDbObject(id, text), Acad::eOk);
    int count = 0;
    double width = 0.0;
    EXPECT_EQ(text->getColumnCount(count), Acad::eOk);
    EXPECT_EQ(text->getColumnWidth(width), Acad::eOk);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(width, 18.0);
    EXPECT_EQ(text->setColumnWidth(20.0), Acad::eOk);
    text->close();
    const std::string now = textOf(written(*text));
    EXPECT_EQ(now.find("Embedded"), std::string::npos) << "it would say 18 for the width";
    EXPECT_NE(now.find("75 1\n76 3\n78 0\n79 1\n48 20\n49 4\n"), std::string::npos) << now;
}

TEST_F(MTextTest, NewContentsAreCutAtEvery250Characters)
{
    AcDbMText text;
    rewritten(text, record({{3, "short"}, {1, "end"}}), &mDatabase);
    ASSERT_EQ(text.setContents(CString(L'b', 251)), 1);
    const std::string now = textOf(written(text));
    EXPECT_NE(now.find("3 " + std::string(250, 'b') + "\n1 b\n"), std::string::npos) << now;
}

TEST_F(MTextTest, FrameHangsOnTheAttachmentPoint)
{
    AcDbMText text = made(L"AV\\PA");
    text.setLocation({10, 20, 0});
    const double width = text.actualWidth(), height = text.actualHeight();
    EXPECT_NEAR(height, 2.5 * (1 + 5.0 / 3), 1e-9); // baselines are 5/3 heights apart
    const struct {
        AcDbMText::AttachmentPoint attachment;
        double left, bottom; // in widths and heights of the frame from the location
    } cases[] = {{AcDbMText::kTopLeft, 0, -1},
                 {AcDbMText::kMiddleCenter, -0.5, -0.5},
                 {AcDbMText::kBottomRight, -1, 0}};
    for (const auto& one : cases) {
        ASSERT_EQ(text.setAttachment(one.attachment), Acad::eOk);
        AcDbExtents box;
        ASSERT_EQ(text.getGeomExtents(box), Acad::eOk);
        EXPECT_NEAR(box.minPoint().x, 10 + one.left * width, 1e-9);
        EXPECT_NEAR(box.minPoint().y, 20 + one.bottom * height, 1e-9);
        EXPECT_NEAR(box.maxPoint().x - box.minPoint().x, width, 1e-9);
    }
}

TEST_F(MTextTest, AttachmentMovingTheLocationLeavesTheTextInPlace)
{
    AcDbMText text = made(L"words of several lines");
    text.setWidth(20);
    text.setRotation(0.5);
    const AcGePoint3dArray before = cornersOf(text);
    ASSERT_EQ(text.setAttachmentMovingLocation(AcDbMText::kBottomRight), Acad::eOk);
    const AcGePoint3dArray after = cornersOf(text);
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(before[i].isEqualTo(after[i])) << i;
    EXPECT_FALSE(text.location().isEqualTo(AcGePoint3d::kOrigin));
}

TEST_F(MTextTest, TransformAndItsInverseGiveTheTextBack)
{
    AcGeMatrix3d turn, grow;
    turn.setToRotation(0.7, AcGeVector3d(1, 2, 3));
    grow.setToScaling(4.0, {1, 1, 1});
    const AcGeMatrix3d map = turn * grow;
    AcDbMText text = made(L"A \\H5.0;high \\H0.5x;low \\\\H9;");
    text.setWidth(30);
    const AcGePoint3dArray before = cornersOf(text);
    ASSERT_EQ(text.transformBy(map), Acad::eOk);
    EXPECT_NEAR(text.textHeight(), 10.0, 1e-9);
    CString contents;
    text.contents(contents);
    EXPECT_EQ(contents, L"A \\H20;high \\H0.5x;low \\\\H9;");
    const AcGePoint3dArray mapped = cornersOf(text);
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(mapped[i].isEqualTo(map * before[i], AcGeTol())) << i;
    ASSERT_EQ(text.transformBy(map.inverse()), Acad::eOk);
    const AcGePoint3dArray back = cornersOf(text);
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(back[i].isEqualTo(before[i])) << i;
}

TEST_F(MTextTest, MirroredTextStaysReadable)
{
    AcGeMatrix3d mirror;
    mirror.entry[0][0] = -1.0;
    AcDbMText text = made(L"A");
    ASSERT_EQ(text.transformBy(mirror), Acad::eOk);
    const AcGePoint3dArray corners = cornersOf(text); // top left, top right, bottom left, bottom right
    const AcGeVector3d along = corners[1] - corners[0], up = corners[0] - corners[2];
    EXPECT_GT(along.crossProduct(up).dotProduct(text.normal()), 0.0);
}

TEST_F(MTextTest, ExplodeGivesTextsWithTheirOwnColours)
{
    AcDbMText text = made(L"{\\C1;red} 50%%d\\P\\S1/2;");
    text.setColorIndex(5);
    AcDbVoidPtrArray pieces;
    ASSERT_EQ(text.explode(pieces), Acad::eOk);
    std::vector<std::unique_ptr<AcDbEntity>> owned;
    for (int i = 0; i < pieces.length(); ++i) owned.emplace_back(static_cast<AcDbEntity*>(pieces[i]));
    ASSERT_GE(owned.size(), 5u); // "red", the rest of the line, 1, 2, the bar
    const auto* first = AcDbText::cast(owned.front().get());
    ASSERT_NE(first, nullptr);
    EXPECT_STREQ(first->textStringConst(), L"red");
    EXPECT_EQ(first->colorIndex(), 1);
    EXPECT_EQ(owned.back()->colorIndex(), 5);
    EXPECT_EQ(AcDbText::cast(owned.back().get()), nullptr);
}

TEST_F(MTextTest, FragmentsStopWhenAsked)
{
    const AcDbMText text = made(L"one\\Ptwo\\Pthree");
    int calls = 0;
    text.explodeFragments(
        [](AcDbMTextFragment* fragment, void* data) {
            EXPECT_NE(fragment->text, nullptr);
            return ++*static_cast<int*>(data) < 2 ? 1 : 0;
        },
        &calls);
    EXPECT_EQ(calls, 2);
}

TEST_F(MTextTest, RefusesWhatCannotBe)
{
    AcDbMText text = made(L"x");
    EXPECT_EQ(text.setTextHeight(0.0), Acad::eInvalidInput);
    EXPECT_EQ(text.setTextHeight(NAN), Acad::eInvalidInput);
    EXPECT_EQ(text.setWidth(-1.0), Acad::eInvalidInput);
    EXPECT_EQ(text.setRotation(INFINITY), Acad::eInvalidInput);
    EXPECT_EQ(text.setNormal(AcGeVector3d(0, 0, 0)), Acad::eInvalidInput);
    EXPECT_EQ(text.setDirection(AcGeVector3d::kZAxis), Acad::eInvalidInput); // along the normal
    EXPECT_EQ(text.setLineSpacingFactor(4.5), Acad::eInvalidInput);
    EXPECT_EQ(text.setBackgroundScaleFactor(2.0), Acad::eInvalidInput); // there is no background
    EXPECT_EQ(text.setColumnCount(2), Acad::eNotApplicable);
    EXPECT_EQ(text.setContents(nullptr), 0);
    EXPECT_EQ(text.textHeight(), 2.5);
    CString contents;
    text.contents(contents);
    EXPECT_EQ(contents, L"x");
}
