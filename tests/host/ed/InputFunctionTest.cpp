#include "DrawingTest.h"

#include "CommandLine.h"
#include "CurrentUcs.h"
#include "InputSource.h"
#include "VariableStore.h"

#include "dbcircle.h"
#include "dbline.h"
#include "dbobjptr.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

class InputFunctions : public headless::EditorTest
{
protected:
    void set(const wchar_t* name, int value)
    {
        EXPECT_EQ(ed::writeVariable(name, ed::VariableValue::ofInteger(value)), ed::Written::done) << name;
    }
    void set(const wchar_t* name, double value)
    {
        EXPECT_EQ(ed::writeVariable(name, ed::VariableValue::ofReal(value)), ed::Written::done) << name;
    }

    /// The answer to acedGetPoint, as text; or the code.
    std::wstring pointFor(const std::wstring& keys, const double* base = nullptr)
    {
        answer(keys + L"\n");
        ads_point point = {};
        const int code = acedGetPoint(base, nullptr, point);
        return code == RTNORM ? text({point[X], point[Y], point[Z]}) : std::to_wstring(code);
    }
    static std::wstring text(const AcGePoint3d& point)
    {
        CString shown;
        shown.Format(L"%.6g,%.6g,%.6g", rounded(point.x), rounded(point.y), rounded(point.z));
        return shown.GetString();
    }
    static double rounded(double value) { return std::round(value * 1e9) / 1e9 + 0.0; }

    std::wstring word()
    {
        wchar_t text[64] = L"";
        acedGetInput(text);
        return text;
    }
    void add(AcDbEntity* entity)
    {
        const headless::DocumentLock lock;
        headless::addTo(database()->currentSpaceId(), entity);
    }
};

const ads_point base = {10, 10, 0};
} // namespace

TEST_F(InputFunctions, PointsAreTypedInEveryForm)
{
    EXPECT_EQ(pointFor(L"1,2"), L"1,2,0");
    EXPECT_EQ(pointFor(L"@3,4,5"), L"4,6,5"); // from the point before
    EXPECT_EQ(pointFor(L"@"), L"4,6,5");
    EXPECT_EQ(pointFor(L"@10<90"), L"4,16,5");
    EXPECT_EQ(pointFor(L"2<0<90"), L"0,0,2");
    EXPECT_EQ(pointFor(L"2<180,7"), L"-2,0,7");
    EXPECT_EQ(pointFor(L"#1e1,-.5"), L"10,-0.5,0");
    EXPECT_EQ(pointFor(L"@5,0", base), L"15,10,0"); // from the base point
    EXPECT_EQ(pointFor(L"7", base), L"17,10,0");
    EXPECT_EQ(pointFor(L"<90 7", base), L"10,17,0");
    EXPECT_EQ(pointFor(L"<0 30,40", base), L"30,10,0"); // the point falls onto the locked direction
    EXPECT_EQ(pointFor(L".x 1,2 8,9,3"), L"1,9,3");
    EXPECT_EQ(pointFor(L".xy 1,2 8,9,3"), L"1,2,3");
    EXPECT_EQ(pointFor(L"from 1,1 @2,2"), L"3,3,0");
    EXPECT_EQ(pointFor(L"m2p 0,0 4,6,2"), L"2,3,1");
}

TEST_F(InputFunctions, ADistanceGoesTowardsTheCursorOrItsAxis)
{
    ed::currentInput().give(ed::Answer::ofMove({10, 50, 0}));
    EXPECT_EQ(pointFor(L"7", base), L"10,17,0");
    set(L"ORTHOMODE", 1);
    ed::currentInput().give(ed::Answer::ofMove({-90, 50, 0}));
    EXPECT_EQ(pointFor(L"7", base), L"3,10,0");
}

TEST_F(InputFunctions, AnglesAndLengthsFollowTheDrawingsUnits)
{
    set(L"ELEVATION", 3.0);
    set(L"LUNITS", 4);
    EXPECT_EQ(pointFor(L"1'6\",1/2"), L"18,0.5,3");
    set(L"LUNITS", 2);
    set(L"ANGBASE", pi / 2);
    EXPECT_EQ(pointFor(L"2<0"), L"0,2,3");
    EXPECT_EQ(pointFor(L"2<<0"), L"2,0,3");
    set(L"ANGDIR", 1);
    EXPECT_EQ(pointFor(L"2<90"), L"2,0,3");
    set(L"AUNITS", 2);
    EXPECT_EQ(pointFor(L"2<100"), L"2,0,3");
    EXPECT_EQ(pointFor(L"2<<<100"), L"0,2,3"); // gradians from east
}

TEST_F(InputFunctions, WhatIsNoPointIsToldAndAskedAgain)
{
    answer(L"abc 1,2,3,4 1,nan 5 1,1\n");
    ads_point point = {};
    EXPECT_EQ(acedGetPoint(nullptr, L"\nPick: ", point), RTNORM);
    EXPECT_EQ(takeOutput(), L"\nPick: Invalid point.\n\nPick: Invalid point.\n\nPick: Invalid "
                            L"point.\n\nPick: Invalid point.\n\nPick: ");
    acedInitGet(RSG_NONULL, L"Yes");
    answer(L"\nabc 2,2\n");
    EXPECT_EQ(acedGetPoint(nullptr, L"\nPick: ", point), RTNORM);
    EXPECT_EQ(
        takeOutput(),
        L"\nPick: Point or option keyword required.\n\nPick: Point or option keyword required.\n\nPick: ");
    EXPECT_EQ(point[X], 2.0);
}

TEST_F(InputFunctions, EnterEscAndSilenceLeaveTheResultAlone)
{
    ads_point point = {7, 7, 7};
    EXPECT_EQ(acedGetPoint(nullptr, nullptr, point), RTCAN); // nobody answers
    answer(L"\n");
    EXPECT_EQ(acedGetPoint(nullptr, nullptr, point), RTNONE);
    answer(L"end ^C");
    EXPECT_EQ(acedGetPoint(nullptr, nullptr, point), RTCAN);
    EXPECT_EQ(acedGetPoint(nullptr, nullptr, nullptr), RTERROR);
    EXPECT_EQ(acedGetCorner(nullptr, nullptr, point), RTERROR);
    EXPECT_EQ(point[X], 7.0);
}

TEST_F(InputFunctions, KeywordsAndOtherTextAreReadWithGetInput)
{
    acedInitGet(0, L"Undo eXit");
    EXPECT_EQ(pointFor(L"x"), std::to_wstring(RTKWORD));
    EXPECT_EQ(word(), L"eXit");
    EXPECT_EQ(pointFor(L"x 1,1"), L"1,1,0"); // the keywords were for one question
    acedInitGet(RSG_OTHER, nullptr);
    EXPECT_EQ(pointFor(L"whatever"), std::to_wstring(RTKWORD));
    EXPECT_EQ(word(), L"whatever");
    acedInitGet(RSG_OTHER, nullptr);
    EXPECT_EQ(pointFor(L"5", base), std::to_wstring(RTKWORD));
    acedInitGet(RSG_OTHER | RSG_DDISTFIRST, nullptr);
    EXPECT_EQ(pointFor(L"5", base), L"15,10,0");
    wchar_t small[3] = L"";
    EXPECT_EQ(acedGetInput(small), RTNORM); // a point leaves the text of the question before
    EXPECT_STREQ(small, L"5");
}

TEST_F(InputFunctions, EnterAndTheLineFeedOfTheNextPromptAreOneStep)
{
    ed::echoAnswer(L"5");
    acutPrintf(L"\nNext: ");
    ed::beginLine(); // Enter at a terminal, which shows it itself
    acutPrintf(L"\nThird: ");
    acutPrintf(L"\nFourth: ");
    EXPECT_EQ(takeOutput(), L"5\nNext: Third: \nFourth: ");
}

TEST_F(InputFunctions, GetKwordTakesKeywordsOnly)
{
    wchar_t result[16] = L"old";
    EXPECT_EQ(acedGetKword(L"?", result), RTERROR);
    acedInitGet(RSG_NONULL, L"Yes No");
    answer(L"\nmaybe n\n");
    EXPECT_EQ(acedGetKword(L"Sure? ", result), RTNORM);
    EXPECT_STREQ(result, L"No");
    EXPECT_EQ(takeOutput(), L"Sure? Invalid option keyword.\nSure? Invalid option keyword.\nSure? ");
    acedInitGet(0, L"Yes No");
    answer(L"\n");
    EXPECT_EQ(acedGetKword(nullptr, result), RTNONE);
}

TEST_F(InputFunctions, StringsKeepBlanksWhereOnlyEnterEndsThem)
{
    wchar_t result[8] = L"";
    answer(L"a b\nc d \n");
    EXPECT_EQ(acedGetString(1, nullptr, result), RTNORM);
    EXPECT_STREQ(result, L"a b");
    EXPECT_EQ(acedGetString(0, nullptr, result), RTNORM);
    EXPECT_STREQ(result, L"c");
    EXPECT_EQ(acedGetString(0, nullptr, result), RTNORM);
    EXPECT_STREQ(result, L"d");
    EXPECT_EQ(acedGetString(0, nullptr, result), RTNORM);
    EXPECT_STREQ(result, L"");
    answer(L"abcdefghij\n");
    EXPECT_EQ(acedGetString(0, nullptr, result), RTINPUTTRUNCATED);
    EXPECT_STREQ(result, L"abcdefg");
}

TEST_F(InputFunctions, NumbersAreHeldToTheirRules)
{
    int whole = 0;
    acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
    answer(L"1.5 40000 0 -3 12\n");
    EXPECT_EQ(acedGetInt(L"", &whole), RTNORM);
    EXPECT_EQ(whole, 12);
    EXPECT_EQ(takeOutput(), L"Requires an integer value.\nRequires an integer between -32768 and 32767.\n"
                            L"Value must be positive and nonzero.\nValue must be positive and nonzero.\n");
    double real = 0.0;
    acedInitGet(RSG_NONEG, L"All");
    answer(L"x -1 1/4\n");
    EXPECT_EQ(acedGetReal(L"", &real), RTNORM);
    EXPECT_EQ(real, 0.25);
    EXPECT_EQ(takeOutput(), L"Requires numeric value or option keyword.\nValue must be positive.\n");
    acedInitGet(RSG_NOZERO, nullptr);
    answer(L"0 -2\n");
    EXPECT_EQ(acedGetReal(nullptr, &real), RTNORM);
    EXPECT_EQ(real, -2.0);
}

TEST_F(InputFunctions, DistancesAreTypedOrMeasured)
{
    double distance = 0.0;
    answer(L"7.5 13,14,12 0,0 3,4\n");
    EXPECT_EQ(acedGetDist(base, nullptr, &distance), RTNORM);
    EXPECT_EQ(distance, 7.5);
    EXPECT_EQ(acedGetDist(base, nullptr, &distance), RTNORM);
    EXPECT_EQ(distance, 13.0); // 3, 4, 12
    takeOutput();
    EXPECT_EQ(acedGetDist(nullptr, nullptr, &distance), RTNORM);
    EXPECT_EQ(distance, 5.0);
    EXPECT_EQ(takeOutput(), L"Specify second point: ");
    acedInitGet(RSG_2D | RSG_NOZERO, nullptr);
    answer(L"10,10,5 13,14,12\n");
    EXPECT_EQ(acedGetDist(base, nullptr, &distance), RTNORM);
    EXPECT_EQ(distance, 5.0);
    EXPECT_EQ(takeOutput(), L"Value must be nonzero.\n");
}

TEST_F(InputFunctions, AnglesCountFromTheirBaseAndOrientationsFromEast)
{
    set(L"ANGBASE", pi / 2);
    const auto angles = [this](const wchar_t* keys) {
        double angle = 9.0, orientation = 9.0;
        answer(std::wstring(keys) + L"\n" + keys + L"\n");
        EXPECT_EQ(acedGetAngle(base, nullptr, &angle), RTNORM);
        EXPECT_EQ(acedGetOrient(base, nullptr, &orientation), RTNORM);
        return std::to_wstring(std::lround(angle * 180 / pi)) + L" " +
               std::to_wstring(std::lround(orientation * 180 / pi));
    };
    EXPECT_EQ(angles(L"0"), L"0 90");
    EXPECT_EQ(angles(L"-90"), L"270 0");
    EXPECT_EQ(angles(L"<45"), L"45 135");
    EXPECT_EQ(angles(L"10,20"), L"0 90"); // straight up from the base point
    EXPECT_EQ(angles(L"<<0"), L"270 0");
}

TEST_F(InputFunctions, CornersLieAtTheElevation)
{
    set(L"ELEVATION", 4.0);
    ads_point corner = {};
    answer(L"@5,6,7\n");
    EXPECT_EQ(acedGetCorner(base, nullptr, corner), RTNORM);
    EXPECT_EQ(text({corner[X], corner[Y], corner[Z]}), L"15,16,4");
}

TEST_F(InputFunctions, PointsOutsideOfTheLimitsAreRefused)
{
    set(L"LIMCHECK", 1);
    answer(L"-1,5 1,5\n");
    ads_point point = {};
    EXPECT_EQ(acedGetPoint(nullptr, L"", point), RTNORM);
    EXPECT_EQ(takeOutput(), L"**Outside limits\n");
    acedInitGet(RSG_NOLIM, nullptr);
    EXPECT_EQ(pointFor(L"-1,5"), L"-1,5,0");
}

TEST_F(InputFunctions, ObjectSnapsFindPointsUnderTheAperture)
{
    set(L"ORTHOMODE", 0);
    add(new AcDbLine({0, 0, 0}, {100, 0, 0}));
    add(new AcDbLine({50, -50, 0}, {50, 40, 0}));
    add(new AcDbCircle({200, 0, 0}, AcGeVector3d::kZAxis, 25));
    EXPECT_EQ(pointFor(L"end 99,0.5"), L"100,0,0");
    EXPECT_EQ(pointFor(L"_mid 20,0.5"), L"50,0,0");
    EXPECT_EQ(pointFor(L"int 50.5,0.5"), L"50,0,0");
    EXPECT_EQ(pointFor(L"cen 225,0"), L"200,0,0");
    EXPECT_EQ(pointFor(L"cen,mid 50.2,39"), L"50,-5,0");
    EXPECT_EQ(pointFor(L"qua 224,-6"), L"225,0,0");
    EXPECT_EQ(pointFor(L"nea 30,0.5"), L"30,0,0");
    EXPECT_EQ(pointFor(L"per 30,0.5", base), L"10,0,0");
    EXPECT_EQ(pointFor(L"non 30,0.5"), L"30,0.5,0");
    takeOutput();
    EXPECT_EQ(pointFor(L"end 99,70 1,1"), L"1,1,0"); // nothing is there
    EXPECT_EQ(takeOutput(), L" of No end found for specified point.\n");
    set(L"OSMODE", 1);
    EXPECT_EQ(pointFor(L"99,0.5"), L"99,0.5,0"); // what is typed counts more than running snaps
    set(L"OSNAPCOORD", 0);
    EXPECT_EQ(pointFor(L"99,0.5"), L"100,0,0");
    const ads_point pick = {99, 0.5, 0};
    ads_point found = {};
    EXPECT_EQ(acedOsnap(pick, L"mid,end", found), RTNORM);
    EXPECT_EQ(found[X], 100.0);
    EXPECT_EQ(acedOsnap(pick, L"cen", found), RTERROR);
    EXPECT_EQ(acedOsnap(pick, L"nothing", found), RTERROR);
}
