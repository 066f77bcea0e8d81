#include "EditorFixture.h"

namespace
{
class Variables : public headless::EditorTest
{
protected:
    int set(const wchar_t* name, short type, double value)
    {
        resbuf node{};
        node.restype = type;
        if (type == RTREAL) node.resval.rreal = value;
        if (type == RTSHORT) node.resval.rint = static_cast<short>(value);
        if (type == RTLONG) node.resval.rlong = static_cast<std::int32_t>(value);
        return acedSetVar(name, &node);
    }
    int set(const wchar_t* name, const wchar_t* text)
    {
        resbuf node{};
        node.restype = RTSTR;
        node.resval.rstring = const_cast<wchar_t*>(text);
        return acedSetVar(name, &node);
    }
    std::wstring get(const wchar_t* name)
    {
        resbuf node{};
        if (acedGetVar(name, &node) != RTNORM) return L"<error>";
        CString text;
        switch (node.restype) {
        case RTSTR: {
            const std::wstring copy = node.resval.rstring;
            acutDelString(node.resval.rstring);
            return copy;
        }
        case RTSHORT:
            text.Format(L"%d", node.resval.rint);
            break;
        case RTREAL:
            text.Format(L"%g r", node.resval.rreal);
            break;
        default:
            text.Format(L"%g,%g,%g", node.resval.rpoint[0], node.resval.rpoint[1], node.resval.rpoint[2]);
        }
        return text.GetString();
    }
};
} // namespace

// Types and defaults are those of AutoCAD's documentation for metric drawings.
TEST_F(Variables, HaveTheirTypesAndDefaults)
{
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {
        {L"DYNMODE", L"3"},       {L"PICKBOX", L"3"},
        {L"PICKSTYLE", L"1"},     {L"FILEDIA", L"1"},
        {L"TILEMODE", L"1"},      {L"CVPORT", L"2"},
        {L"ORTHOMODE", L"0"},     {L"LTSCALE", L"1 r"},
        {L"CLAYER", L"0"},        {L"CECOLOR", L"BYLAYER"},
        {L"VIEWDIR", L"0,0,1"},   {L"TARGET", L"0,0,0"},
        {L"VIEWTWIST", L"0 r"},   {L"FRONTZ", L"0 r"},
        {L"BACKZ", L"0 r"},       {L"VIEWMODE", L"0"},
        {L"FRAME", L"3"},         {L"HPORIGIN", L"0,0,0"},
        {L"QPMODE", L"-1"},       {L"CTABLESTYLE", L"Standard"},
        {L"LENSLENGTH", L"50 r"}, {L"cmdnames", L""},
        {L"CMDACTIVE", L"0"},     {L"SORTENTS", L"127"},
    };
    for (const auto& [name, value] : rows)
        EXPECT_EQ(get(name), value) << CStringA(name).GetString();
}

TEST_F(Variables, AcadPrefixIsTheSupportPathWithBackslashes)
{
    ACHAR before[2048] = L"";
    ASSERT_EQ(acedGetEnv(L"ACAD", before), RTNORM);
    acedSetEnv(L"ACAD", L"C:\\a;D:\\b\\;");
    EXPECT_EQ(get(L"ACADPREFIX"), L"C:\\a\\;D:\\b\\");
    EXPECT_EQ(set(L"ACADPREFIX", L"C:\\"), RTERROR);
    acedSetEnv(L"ACAD", before);
}

TEST_F(Variables, RefuseWhatTheyCannotBe)
{
    EXPECT_EQ(set(L"VTFPS", RTSHORT, 31), RTERROR); // 1 to 30
    EXPECT_EQ(set(L"PFACEVMAX", RTSHORT, 4), RTERROR);
    EXPECT_EQ(set(L"NOSUCHVARIABLE", RTSHORT, 1), RTERROR);
    EXPECT_EQ(get(L"NOSUCHVARIABLE"), L"<error>");
    EXPECT_EQ(set(L"CMDNAMES", L"x"), RTERROR);
    EXPECT_EQ(set(L"PICKBOX", RTSHORT, 51), RTERROR);
    EXPECT_EQ(set(L"PICKBOX", RTREAL, 5), RTERROR);
    EXPECT_EQ(set(L"PICKBOX", L"5"), RTERROR);
    EXPECT_EQ(set(L"LTSCALE", RTREAL, 0.0), RTERROR);
    EXPECT_EQ(acedSetVar(nullptr, nullptr), RTERROR);
    EXPECT_EQ(acedGetVar(L"PICKBOX", nullptr), RTERROR);
    EXPECT_EQ(get(L"PICKBOX"), L"3");
    EXPECT_EQ(get(L"LTSCALE"), L"1 r");
}

TEST_F(Variables, AreKeptWhereTheyBelong)
{
    ASSERT_EQ(set(L"LTSCALE", RTSHORT, 2), RTNORM); // an integer does for a real
    ASSERT_EQ(set(L"PICKBOX", RTLONG, 9), RTNORM);
    ASSERT_EQ(set(L"USERS1", L"mine"), RTNORM);
    acDocManager->appContextNewDocument(nullptr);
    EXPECT_EQ(get(L"LTSCALE"), L"1 r");
    EXPECT_EQ(get(L"PICKBOX"), L"9");
    EXPECT_EQ(get(L"USERS1"), L"");
    acDocManager->activateDocument(document());
    EXPECT_EQ(get(L"LTSCALE"), L"2 r");
    EXPECT_EQ(get(L"USERS1"), L"mine");
}

TEST_F(Variables, AreSetAtTheCommandLine)
{
    run(L"PICKBOX 7 SETVAR LTSCALE 0.5 ");
    EXPECT_EQ(get(L"PICKBOX"), L"7");
    EXPECT_EQ(get(L"LTSCALE"), L"0.5 r");
    run(L"PICKBOX 99 ");
    EXPECT_EQ(get(L"PICKBOX"), L"7");
}

TEST_F(Variables, SettingsOfTheProfileStay)
{
    wchar_t value[64];
    ASSERT_EQ(acedSetEnv(L"ACAD", L"C:\\one;C:\\two"), RTNORM);
    ASSERT_EQ(acedGetEnv(L"acad", value), RTNORM);
    EXPECT_STREQ(value, L"C:\\one;C:\\two");
    wchar_t small[5];
    EXPECT_EQ(acedGetEnv(L"ACAD", small), RTERROR);
    EXPECT_EQ(acedGetEnv(L"NoSuchSetting", value), RTERROR);
    EXPECT_EQ(acedSetEnv(L"", L"x"), RTERROR);
    acedSetEnv(L"ACAD", L"");
}
