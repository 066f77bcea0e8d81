#include "EditorFixture.h"

#include "CurrentUcs.h"
#include "ScreenRecord.h"
#include "VariableStore.h"

#include "acdbads.h"
#include "acedselect.h"
#include "dbjig.h"
#include "dbline.h"
#include "dbobjptr.h"

namespace
{
std::vector<AcGePoint3d> followed;

/// Moves the set along with the cursor; one place does not please it.
int follow(ads_point point, ads_matrix matrix)
{
    followed.push_back({point[X], point[Y], point[Z]});
    if (point[X] == 666.0) return RTERROR;
    if (point[X] == 0.0) return RTNONE;
    for (const int axis : {X, Y, Z})
        matrix[axis][T] = point[axis];
    return RTNORM;
}

class Drags : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        ed::screen() = {};
        followed.clear();
        acedSSAdd(nullptr, nullptr, someSet);
    }
    void TearDown() override
    {
        acedSSFree(someSet);
        EditorTest::TearDown();
    }

    ads_name someSet;
};

/// Draws a line from a base point to the cursor.
class LineJig : public AcEdJig
{
public:
    explicit LineJig(const AcGePoint3d& base) : mBase(base), mLine(new AcDbLine(base, base)) {}
    ~LineJig() override
    {
        if (mLine && mLine->objectId().isNull()) delete mLine;
    }
    DragStatus sampler() override
    {
        ++samples;
        AcGePoint3d at;
        const DragStatus status = acquirePoint(at, mBase);
        if (status != kNormal) return status;
        if (at.isEqualTo(mEnd)) return kNoChange;
        mEnd = at;
        return kNormal;
    }
    Adesk::Boolean update() override
    {
        ++updates;
        mLine->setEndPoint(mEnd);
        return Adesk::kTrue;
    }
    AcDbEntity* entity() const override { return mLine; }

    int samples = 0, updates = 0;

private:
    AcGePoint3d mBase, mEnd;
    AcDbLine* mLine;
};

constexpr auto takesEnterAnd3d =
    static_cast<AcEdJig::UserInputControls>(AcEdJig::kNullResponseAccepted | AcEdJig::kAccept3dCoordinates);

/// Acquires what a test asks for.
class ValueJig : public AcEdJig
{
public:
    std::function<DragStatus(ValueJig&)> acquire;
    DragStatus sampler() override { return acquire(*this); }
};
} // namespace

TEST_F(Drags, TheSetFollowsTheCursorToThePick)
{
    moveCursor({1, 0, 0});
    moveCursor({0, 0, 0});
    pick({5, 6, 0});
    ads_point at = {};
    EXPECT_EQ(acedDragGen(someSet, L"\nWhere: ", 0, follow, at), RTNORM);
    EXPECT_EQ(at[Y], 6.0);
    ASSERT_EQ(followed.size(), 3u);
    ASSERT_EQ(ed::screen().dragged.size(), 2u); // nothing changed in the middle
    EXPECT_TRUE(ed::screen().dragged.back().translation().isEqualTo({5, 6, 0}));
    EXPECT_EQ(takeOutput(), L"\nWhere: ");
}

TEST_F(Drags, OtherAnswersEndADragWithTheirCodes)
{
    ads_point at = {7, 7, 7};
    acedInitGet(129, L"S");
    answer(L"s\n");
    EXPECT_EQ(acedDragGen(someSet, L"", 0, follow, at), RTKWORD);
    acedInitGet(129, L"S");
    answer(L"400\n");
    EXPECT_EQ(acedDragGen(someSet, L"", 0, follow, at), RTSTR);
    answer(L"\n");
    EXPECT_EQ(acedDragGen(someSet, L"", 0, follow, at), RTNONE);
    EXPECT_EQ(acedDragGen(someSet, L"", 0, follow, at), RTCAN);
    moveCursor({666, 0, 0});
    EXPECT_EQ(acedDragGen(someSet, L"", 0, follow, at), RTERROR);
    const ads_name none = {0, 0};
    EXPECT_EQ(acedDragGen(none, L"", 0, follow, at), RTERROR);
    EXPECT_EQ(at[X], 7.0);
}

TEST_F(Drags, RawInputGoesOnBehindAnAnswer)
{
    ACHAR word[20] = L"";
    int type = 0;
    resbuf got{};
    answer(L"ab cd");
    EXPECT_EQ(acedGetString(0, L"", word), RTNORM);
    for (const int key : {int('c'), int('d')}) {
        EXPECT_EQ(acedGrRead(0, &type, &got), RTNORM);
        EXPECT_EQ(got.resval.rint, key);
    }
}

TEST_F(Drags, RawInputIsKeysPicksAndWantedMoves)
{
    answer(L"a \n");
    moveCursor({1, 2, 3});
    pick({4, 5, 6});
    moveCursor({7, 8, 9});
    answer(L"^C");
    int type = 0;
    resbuf got{};
    for (const int key : {int('a'), 32, 13}) {
        EXPECT_EQ(acedGrRead(0, &type, &got), RTNORM);
        EXPECT_EQ(type, 2);
        EXPECT_EQ(got.resval.rint, key);
    }
    EXPECT_EQ(acedGrRead(0, &type, &got), RTNORM);
    EXPECT_EQ(type, 3);
    EXPECT_EQ(got.resval.rpoint[Z], 6.0);
    EXPECT_EQ(acedGrRead(1, &type, &got), RTNORM);
    EXPECT_EQ(type, 5);
    EXPECT_EQ(got.resval.rpoint[X], 7.0);
    EXPECT_EQ(acedGrRead(1, &type, &got), RTCAN);
    EXPECT_EQ(acedGrRead(1, &type, &got), RTCAN);
}

TEST_F(Drags, TemporaryGraphicsStayUntilARedraw)
{
    const ads_point a = {0, 0, 0}, b = {1, 0, 0};
    EXPECT_EQ(acedGrDraw(a, b, 1, 1), RTNORM);
    EXPECT_EQ(acedGrDraw(a, b, 257, 0), RTERROR);
    resbuf* list = acutBuildList(RTSHORT, -3, RT3DPOINT, a, RT3DPOINT, b, RTNONE);
    ads_matrix lift = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 4}, {0, 0, 0, 1}};
    EXPECT_EQ(acedGrVecs(list, lift), RTNORM);
    EXPECT_EQ(acedGrVecs(list->rbnext->rbnext, nullptr), RTERROR); // a single point
    acutRelRb(list);
    ASSERT_EQ(ed::screen().lines.size(), 2u);
    EXPECT_EQ(ed::screen().lines[1].to, AcGePoint3d(1, 0, 4));
    EXPECT_EQ(ed::screen().lines[1].color, 3);
    EXPECT_TRUE(ed::screen().lines[1].highlighted);
    EXPECT_EQ(acedRedraw(nullptr, 0), RTNORM);
    EXPECT_TRUE(ed::screen().lines.empty());
    EXPECT_EQ(acedGrText(-1, L"mode", 0), RTNORM);
    EXPECT_EQ(ed::screen().texts[-1], L"mode");
}

TEST_F(Drags, EntitiesAreHighlightedAndHiddenByName)
{
    LineJig jig({0, 0, 0});
    AcDbObjectId id;
    asCommand([&] { id = jig.append(); });
    ads_name line, layer;
    ASSERT_EQ(acdbGetAdsName(line, id), Acad::eOk);
    ASSERT_EQ(acdbGetAdsName(layer, database()->clayer()), Acad::eOk);
    EXPECT_EQ(acedRedraw(line, 3), RTNORM);
    EXPECT_EQ(acedRedraw(line, 2), RTNORM);
    EXPECT_EQ(ed::screen().highlighted.count(id), 1u);
    EXPECT_EQ(ed::screen().hidden.count(id), 1u);
    EXPECT_EQ(acedRedraw(line, 4), RTNORM);
    EXPECT_EQ(acedRedraw(line, 1), RTNORM);
    EXPECT_TRUE(ed::screen().highlighted.empty() && ed::screen().hidden.empty());
    EXPECT_EQ(acedRedraw(line, 5), RTERROR);
    EXPECT_EQ(acedRedraw(layer, 3), RTERROR);
    asCommand([&] { EXPECT_EQ(acdbEntDel(line), RTNORM); });
    EXPECT_EQ(acedRedraw(line, 3), RTERROR);
}

TEST_F(Drags, AJigSamplesMovesAndEndsWithThePick)
{
    LineJig jig({1, 1, 0});
    jig.setDispPrompt(L"\nTo %d: ", 7);
    jig.setUserInputControls(takesEnterAnd3d);
    moveCursor({2, 2, 0});
    moveCursor({2, 2, 0});
    answer(L"nonsense @3,4,5\n");
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_EQ(jig.samples, 3);
    EXPECT_EQ(jig.updates, 2); // it stood still once
    EXPECT_EQ(takeOutput(), L"\nTo 7: Invalid point.\n\nTo 7: ");
    ASSERT_EQ(ed::screen().images.size(), 2u);
    EXPECT_EQ(ed::screen().images[0][0].points[1], AcGePoint3d(2, 2, 0));
    EXPECT_EQ(ed::screen().images[1][0].points[1], AcGePoint3d(4, 5, 5));
    AcDbObjectId id;
    asCommand([&] { id = jig.append(); });
    const AcDbObjectPointer<AcDbLine> line(id);
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    EXPECT_EQ(line->endPoint(), AcGePoint3d(4, 5, 5));
}

TEST_F(Drags, AJigEndsWithKeywordsEnterAndSilence)
{
    LineJig jig({0, 0, 0});
    jig.setKeywordList(L"Undo eXit");
    jig.setUserInputControls(takesEnterAnd3d);
    answer(L"x\n\n");
    EXPECT_EQ(jig.drag(), AcEdJig::kKW2);
    EXPECT_EQ(jig.drag(AcEdDragStyle(AcEdDragStyle::kHide, AcEdDragStyle::kNone)), AcEdJig::kNull);
    EXPECT_EQ(jig.dragStyle().styleTypeForOriginal(), AcEdDragStyle::kHide);
    EXPECT_EQ(jig.drag(), AcEdJig::kCancel);
    jig.setUserInputControls(AcEdJig::kAcceptOtherInputString);
    answer(L"\nhello\n"); // Enter is no answer any more
    EXPECT_EQ(jig.drag(), AcEdJig::kOther);
    EXPECT_EQ(AcEdJig().drag(), AcEdJig::kCancel); // asks for nothing
    EXPECT_EQ(jig.updates, 0);
}

TEST_F(Drags, OrthoHoldsMovesWhereTheJigSaysSo)
{
    ed::writeVariable(L"ORTHOMODE", ed::VariableValue::ofInteger(1));
    ValueJig jig;
    std::vector<AcGePoint3d> seen;
    jig.acquire = [&](ValueJig& self) {
        seen.emplace_back();
        return self.acquirePoint(seen.back(), AcGePoint3d(1, 1, 0));
    };
    moveCursor({9, 3, 0});
    pick({2, 2, 8});
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    jig.setUserInputControls(AcEdJig::kGovernedByOrthoMode);
    moveCursor({9, 3, 0});
    pick({2, 2, 8});
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    ASSERT_EQ(seen.size(), 4u);
    EXPECT_EQ(seen[0], AcGePoint3d(9, 3, 0));
    EXPECT_EQ(seen[1], AcGePoint3d(2, 2, 0)); // at the elevation
    EXPECT_EQ(seen[2], AcGePoint3d(9, 1, 0));
}

TEST_F(Drags, JigsAcquireNumbersAndTexts)
{
    double distance = 0.0, angle = 0.0;
    wchar_t text[6] = L"";
    ValueJig jig;
    jig.acquire = [&](ValueJig& self) { return self.acquireDist(distance, AcGePoint3d(1, 1, 0)); };
    moveCursor({1, 9, 0});
    answer(L"4,5\n");
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_EQ(distance, 5.0);
    jig.acquire = [&](ValueJig& self) { return self.acquireAngle(angle); };
    answer(L"4,9\n"); // straight up from the point before
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_NEAR(angle, 1.5707963267948966, 1e-15);
    jig.acquire = [&](ValueJig& self) { return self.acquireString(text); };
    answer(L"two words\n");
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_STREQ(text, L"two w");
    EXPECT_EQ(jig.drag(), AcEdJig::kCancel);
}

TEST_F(Drags, ASetThatIsNotThereIsRefused)
{
    const ads_name freed = {77, 78}, null = {0, 0};
    ads_point at = {7, 7, 7};
    answer(L"1,2\n");
    EXPECT_EQ(acedDragGen(freed, L"", 0, follow, at), RTERROR);
    EXPECT_EQ(acedDragGen(null, L"", 0, follow, at), RTERROR);
    EXPECT_EQ(at[X], 7.0);
    acedDragGen(someSet, L"", 0, follow, at);
    EXPECT_EQ(at[X], 1.0) << "the answer is still there";
}
