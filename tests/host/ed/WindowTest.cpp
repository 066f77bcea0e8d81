#include "EditorFixture.h"

namespace
{
std::vector<std::wstring> heard;

BOOL swallowDigits(MSG* message)
{
    heard.push_back(L"filter");
    return message->wParam == L'1';
}
void watch(const MSG*) { heard.push_back(L"watch"); }

class Windows : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        heard.clear();
    }
};
} // namespace

TEST_F(Windows, FiltersSeeMessagesFirstAndMaySwallowThem)
{
    ASSERT_TRUE(acedRegisterWatchWinMsg(watch));
    ASSERT_TRUE(acedRegisterFilterWinMsg(swallowDigits));
    EXPECT_FALSE(acedRegisterFilterWinMsg(swallowDigits));
    acedGetAcadFrame()->PostMessage(WM_KEYUP, L'1');
    acedGetAcadFrame()->PostMessage(WM_KEYUP, L'2');
    EXPECT_EQ(pumpMessages(), 2);
    EXPECT_EQ(heard, (std::vector<std::wstring>{L"filter", L"filter", L"watch"}));
    EXPECT_TRUE(acedRemoveWatchWinMsg(watch));
    EXPECT_FALSE(acedRemoveWatchWinMsg(watch));
    EXPECT_TRUE(acedRemoveFilterWinMsg(swallowDigits));
}

TEST_F(Windows, TheCommandLineTypesWhatItGets)
{
    for (const wchar_t key : std::wstring(L"PICKBOX 6\r")) acedGetAcadTextCmdLine()->SendMessage(WM_CHAR, key);
    EXPECT_EQ(run(L""), 1);
    resbuf value{};
    acedGetVar(L"PICKBOX", &value);
    EXPECT_EQ(value.resval.rint, 6);
}

TEST_F(Windows, TheViewIsThereWithADocumentOnly)
{
    EXPECT_NE(acedGetAcadDwgView(), nullptr);
    acDocManager->closeDocument(document());
    EXPECT_EQ(acedGetAcadDwgView(), nullptr);
}

// The view shows VIEWSIZE (297) units over its height around VIEWCTR (210, 148.5).
TEST_F(Windows, PixelsBecomePointsOfTheView)
{
    resbuf size{};
    ASSERT_EQ(acedGetVar(L"SCREENSIZE", &size), RTNORM);
    const int width = static_cast<int>(size.resval.rpoint[X]), height = static_cast<int>(size.resval.rpoint[Y]);
    acedDwgPoint point;
    ASSERT_EQ(acedCoordFromPixelToWorld({width / 2, height / 2}, point), 2);
    EXPECT_DOUBLE_EQ(point[X], 210.0);
    EXPECT_DOUBLE_EQ(point[Y], 148.5);
    acedCoordFromPixelToWorld({width / 2, 0}, point);
    EXPECT_DOUBLE_EQ(point[Y], 297.0);
}

TEST_F(Windows, IndexColoursAreRedGreenBlue)
{
    EXPECT_EQ(acedGetRGB(1), 0xff0000u);
    EXPECT_EQ(acedGetRGB(5), 0x0000ffu);
    EXPECT_EQ(acedGetRGB(3), 0x00ff00u);
}

TEST_F(Windows, TheSupportPathIsAPropertyOfThePreferences)
{
    acedSetEnv(L"ACAD", L"C:\\a");
    LPDISPATCH at = acedGetAcadWinApp()->GetIDispatch(TRUE);
    DISPPARAMS none{nullptr, nullptr, 0, 0};
    VARIANT value;
    for (const wchar_t* name : {L"Preferences", L"Files", L"supportpath"}) {
        LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
        DISPID id = 0;
        ASSERT_EQ(at->GetIDsOfNames(IID_IUnknown, names, 1, 0, &id), S_OK);
        ASSERT_EQ(at->Invoke(id, IID_IUnknown, 0, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr), S_OK);
        if (value.vt == VT_DISPATCH) at = value.pdispVal;
    }
    ASSERT_EQ(value.vt, VT_BSTR);
    EXPECT_STREQ(value.bstrVal, L"C:\\a");
    VariantClear(&value);
    acedSetEnv(L"ACAD", L"");
}
