// The functions of the list interface on points, units and patterns.

#include "DatabaseFixture.h"

#include "acdbads.h"
#include "acutads.h"
#include "DatabaseState.h"
#include "dbmain.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

class ListMath : public testing::Test
{
protected:
    ListMath() : mBefore(acdbHostApplicationServices()->workingDatabase()), db(true)
    {
        acdbHostApplicationServices()->setWorkingDatabase(&db);
        setDimzin(0);
    }
    ~ListMath() override { acdbHostApplicationServices()->setWorkingDatabase(mBefore); }

    void setDimzin(int bits) { DatabaseAccess::of(db).header.setInteger("$DIMZIN", bits); }
    static std::wstring length(double value, int unit, int precision)
    {
        wchar_t text[64] = L"<error>";
        acdbRToS(value, unit, precision, text);
        return text;
    }
    static std::wstring angle(double value, int unit, int precision)
    {
        wchar_t text[64] = L"<error>";
        acdbAngToS(value, unit, precision, text);
        return text;
    }
    static double readLength(const wchar_t* text, int unit)
    {
        double value = std::nan("");
        acdbDisToF(text, unit, &value);
        return value;
    }
    static double readAngle(const wchar_t* text, int unit)
    {
        double value = std::nan("");
        acdbAngToF(text, unit, &value);
        return value;
    }
    static double converted(double value, const wchar_t* from, const wchar_t* to)
    {
        double result = std::nan("");
        acutCvUnit(value, from, to, &result);
        return result;
    }

private:
    AcDbDatabase* mBefore;

protected:
    AcDbDatabase db;
};

bool matches(const wchar_t* text, const wchar_t* pattern)
{
    return acutWcMatch(text, pattern) == RTNORM;
}
} // namespace

TEST_F(ListMath, LengthsAreWrittenInEveryUnit)
{
    EXPECT_EQ(length(17.5, 1, 2), L"1.75E+01");
    EXPECT_EQ(length(17.5, 2, 2), L"17.50");
    EXPECT_EQ(length(17.5, 3, 2), L"1'-5.50\"");
    EXPECT_EQ(length(17.5, 4, 2), L"1'-5 1/2\"");
    EXPECT_EQ(length(17.5, 5, 2), L"17 1/2");
    EXPECT_EQ(length(17.5, 6, 2), L"<error>");
    db.setLunits(5);
    db.setLuprec(1);
    EXPECT_EQ(length(2.5, -1, -1), L"2 1/2");
    db.setUnitmode(1);
    EXPECT_EQ(length(17.5, 4, 2), L"1'5-1/2\"");
    setDimzin(8);
    EXPECT_EQ(length(17.5, 2, 4), L"17.5");
}

TEST_F(ListMath, ATextThatDoesNotFitIsAnErrorAndNotWritten)
{
    wchar_t room[5] = L"old";
    EXPECT_EQ(acdbRToS(17.5, 2, 2, room), RTERROR); // five characters and the end
    EXPECT_STREQ(room, L"old");
    EXPECT_EQ(acdbRToS(17.5, 2, 1, room), RTNORM);
    EXPECT_STREQ(room, L"17.5");
}

TEST_F(ListMath, AnglesAreWrittenInEveryUnitAndQuarter)
{
    EXPECT_EQ(angle(0.330297, 0, 0), L"19");
    EXPECT_EQ(angle(0.330297, 0, 4), L"18.9246");
    EXPECT_EQ(angle(0.330297, 1, 4), L"18d55'29\""); // 18.92462... degrees: 55.477 minutes, 28.6 seconds
    EXPECT_EQ(angle(0.330297, 2, 4), L"21.0274g");
    EXPECT_EQ(angle(0.330297, 3, 4), L"0.3303r");
    EXPECT_EQ(angle(-pi / 4, 0, 0), L"315");
    EXPECT_EQ(angle(2 * pi - 1e-9, 0, 2), L"0.00");
    EXPECT_EQ(angle(pi / 4, 4, 0), L"N 45d E");
    EXPECT_EQ(angle(3 * pi / 4, 4, 0), L"N 45d W");
    EXPECT_EQ(angle(5 * pi / 4, 4, 0), L"S 45d W");
    EXPECT_EQ(angle(7 * pi / 4, 4, 0), L"S 45d E");
    EXPECT_EQ(angle(3 * pi / 2, 4, 0), L"S");
    EXPECT_EQ(angle(0.0, 5, 0), L"<error>");
}

TEST_F(ListMath, AnglesCountFromTheBaseInItsDirectionAndAreReadBack)
{
    db.setAngbase(pi / 2);
    EXPECT_EQ(angle(0.0, 0, 0), L"270");
    db.setAngdir(true);
    EXPECT_EQ(angle(0.0, 0, 0), L"90");
    for (const int unit : {0, 1, 2, 3, 4})
        EXPECT_NEAR(readAngle(angle(1.0, unit, 8).c_str(), unit), 1.0, 1e-7) << unit;
}

TEST_F(ListMath, LengthsAreReadAsTheirUnitIsTyped)
{
    EXPECT_EQ(readLength(L"-12.5e1", 2), -125.0);
    EXPECT_EQ(readLength(L"1/4", 2), 0.25);
    EXPECT_EQ(readLength(L"3-1/2", 2), 3.5);
    EXPECT_EQ(readLength(L"1'6", 4), 18.0);
    EXPECT_EQ(readLength(L"1'-6 1/2\"", 4), 18.5);
    EXPECT_EQ(readLength(L"5\"", 3), 5.0);
    EXPECT_EQ(readLength(L"-2'", 3), -24.0);
    for (const wchar_t* wrong :
         {L"", L"-", L"1'6", L"1/0", L"1-", L"nan", L"inf", L"0x10", L"1e999", L"1 2", L"12a"})
        EXPECT_TRUE(std::isnan(readLength(wrong, 2))) << wrong;
    double untouched = 7.0;
    EXPECT_EQ(acdbDisToF(L"x", 2, &untouched), RTERROR);
    EXPECT_EQ(untouched, 7.0);
}

TEST_F(ListMath, SignsInAnglesCountMoreThanTheUnit)
{
    EXPECT_NEAR(readAngle(L"90", 0), pi / 2, 1e-15);
    EXPECT_NEAR(readAngle(L"100g", 0), pi / 2, 1e-15);
    EXPECT_NEAR(readAngle(L"1.5r", 0), 1.5, 1e-15);
    EXPECT_NEAR(readAngle(L"45d30'36\"", 3), 45.51 * pi / 180, 1e-15); // 30' 36" are 0.51 degrees
    EXPECT_NEAR(readAngle(L"s45d30'e", 0), 1.5 * pi + 45.5 * pi / 180, 1e-15);
    EXPECT_NEAR(readAngle(L"-90", 0), 1.5 * pi, 1e-15);
    EXPECT_EQ(readAngle(L"W", 4), pi);
    for (const wchar_t* wrong : {L"", L"N45", L"N100dE", L"45d'", L"90x", L"d"})
        EXPECT_TRUE(std::isnan(readAngle(wrong, 0))) << wrong;
}

TEST_F(ListMath, UnitsConvertByNamePrefixPowerAndQuotient)
{
    EXPECT_NEAR(converted(1, L"inch", L"cm"), 2.54, 1e-15);
    EXPECT_NEAR(converted(1, L"acre", L"sq yard"), 4840, 1e-9); // by definition
    EXPECT_NEAR(converted(1, L"minute", L"seconds"), 60, 1e-12);
    EXPECT_NEAR(converted(36, L"km/hour", L"m/s"), 10, 1e-12);
    EXPECT_NEAR(converted(1, L"kg*m/s^2", L"newtons"), 1, 1e-15);
    EXPECT_NEAR(converted(2, L"cubic feet", L"in^3"), 2 * 1728, 1e-9);
    EXPECT_NEAR(converted(180, L"degrees", L"rad"), pi, 1e-15);
    EXPECT_NEAR(converted(1, L"MPa", L"mPa"), 1e9, 1e-3);
    for (const wchar_t* wrong : {L"furlong", L"nothing", L"", L"cm^", L"*"})
        EXPECT_TRUE(std::isnan(converted(1, L"gallon", wrong))) << wrong;
}

TEST_F(ListMath, AnglesAndDistancesOfPoints)
{
    const ads_point a = {1, 1, 5}, b = {1, -1, 5}, above = {1, 1, 9};
    EXPECT_NEAR(acutAngle(a, b), 1.5 * pi, 1e-15);
    EXPECT_EQ(acutAngle(a, above), 0.0);
    EXPECT_EQ(acutDistance(a, above), 4.0);
    ads_point moved;
    acutPolar(a, pi / 2, 3.0, moved);
    EXPECT_NEAR(moved[X], 1.0, 1e-15);
    EXPECT_EQ(moved[Y], 4.0);
    EXPECT_EQ(moved[Z], 5.0);
}

TEST_F(ListMath, LinesCrossWhereTheyMeetInSpace)
{
    const ads_point o = {0, 0, 0}, x = {10, 0, 0}, low = {20, -5, 0}, high = {20, 5, 0}, lifted = {20, 5, 3},
                    side = {0, 1, 0}, parallel = {10, 1, 0};
    ads_point met = {7, 7, 7};
    EXPECT_EQ(acdbInters(o, x, low, high, 1, met), RTERROR); // beyond the end of the first
    EXPECT_EQ(met[X], 7.0);
    EXPECT_EQ(acdbInters(o, x, low, high, 0, met), RTNORM);
    EXPECT_EQ(met[X], 20.0);
    EXPECT_EQ(met[Y], 0.0);
    EXPECT_EQ(acdbInters(o, x, low, lifted, 0, met), RTERROR); // passes above
    EXPECT_EQ(acdbInters(o, x, side, parallel, 0, met), RTERROR);
    EXPECT_EQ(acdbInters(o, o, low, high, 0, met), RTERROR);
}

TEST(WildcardMatch, EveryWildcardTakesWhatItStandsFor)
{
    EXPECT_TRUE(matches(L"Name", L"N*"));
    EXPECT_TRUE(matches(L"Name", L"???,*m*"));
    EXPECT_FALSE(matches(L"Name", L"n*"));
    EXPECT_FALSE(matches(L"Name", L"???"));
    EXPECT_FALSE(matches(L"Name", L"~*m*,N"));
    EXPECT_TRUE(matches(L"A1-", L"@#."));
    EXPECT_FALSE(matches(L"1A-", L"@#."));
    EXPECT_TRUE(matches(L"x5", L"x[0-9a]"));
    EXPECT_FALSE(matches(L"x5", L"x[~0-9]"));
    EXPECT_TRUE(matches(L"x-", L"x[a-]"));
    EXPECT_TRUE(matches(L"a*b", L"a`*b"));
    EXPECT_FALSE(matches(L"axb", L"a`*b"));
    EXPECT_TRUE(matches(L"a,b", L"a`,b"));
    EXPECT_TRUE(matches(L"a[b", L"a[b"));
    EXPECT_TRUE(matches(L"", L"*"));
    EXPECT_TRUE(matches(L"墙体A", L"墙@*"));
    EXPECT_EQ(acutWcMatch(nullptr, L"*"), RTERROR);
}

TEST(WildcardMatch, ManyRunsDoNotExplode)
{
    // Trying every split of the text between forty runs would take longer than the universe is old.
    std::wstring pattern;
    for (int i = 0; i < 40; ++i)
        pattern += L"*a";
    EXPECT_FALSE(matches(std::wstring(5000, L'a').append(L"b").c_str(), pattern.c_str()));
}
