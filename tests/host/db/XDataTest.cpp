#include "DatabaseFixture.h"

#include <vector>

namespace
{
class XData : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        addApplication(L"QM_A");
        addApplication(L"QM_B");
        mObject = open(addApplication(L"holder"), AcDb::kForWrite);
    }
    void TearDown() override
    {
        mObject->close();
        DatabaseFixture::TearDown();
    }

    Acad::ErrorStatus set(resbuf* chain)
    {
        const Acad::ErrorStatus status = mObject->setXData(chain);
        acutRelRb(chain);
        return status;
    }

    std::vector<int> codes(const wchar_t* application)
    {
        std::vector<int> all;
        resbuf* chain = mObject->xData(application);
        for (const resbuf* node = chain; node; node = node->rbnext) all.push_back(node->restype);
        acutRelRb(chain);
        return all;
    }

    AcDbObject* mObject = nullptr;
};
} // namespace

TEST_F(XData, ValuesComeBackAsTheyWentIn)
{
    const ads_point point = {1.5, -2.0, 1e300};
    char bytes[] = {0, 1, -1};
    ads_binary chunk{3, bytes};
    ASSERT_EQ(set(acutBuildList(1001, L"QM_A", 1000, L"轴网", 1010, point, 1040, 0.1, 1070, -7, 1071, 70000, 1005,
                                L"1aF", 1004, &chunk, RTNONE)),
              Acad::eOk);
    resbuf* chain = mObject->xData(L"qm_a");
    ASSERT_NE(chain, nullptr);
    const resbuf* node = chain->rbnext;
    EXPECT_STREQ(node->resval.rstring, L"轴网");
    node = node->rbnext;
    for (int i = 0; i < 3; ++i) EXPECT_EQ(node->resval.rpoint[i], point[i]);
    node = node->rbnext;
    EXPECT_EQ(node->resval.rreal, 0.1);
    node = node->rbnext;
    EXPECT_EQ(node->resval.rint, -7);
    node = node->rbnext;
    EXPECT_EQ(node->resval.rlong, 70000);
    node = node->rbnext;
    EXPECT_STREQ(node->resval.rstring, L"1AF");
    node = node->rbnext;
    EXPECT_EQ(std::string(node->resval.rbinary.buf, 3), std::string(bytes, 3));
    EXPECT_EQ(node->rbnext, nullptr);
    acutRelRb(chain);
}

TEST_F(XData, EachApplicationHasItsOwn)
{
    ASSERT_EQ(set(acutBuildList(1001, L"QM_A", 1070, 1, 1001, L"QM_B", 1040, 2.0, RTNONE)), Acad::eOk);
    ASSERT_EQ(set(acutBuildList(1001, L"QM_A", 1000, L"new", RTNONE)), Acad::eOk);
    EXPECT_EQ(codes(L"QM_A"), (std::vector<int>{1001, 1000}));
    EXPECT_EQ(codes(nullptr), (std::vector<int>{1001, 1000, 1001, 1040}));
    ASSERT_EQ(set(acutBuildList(1001, L"QM_A", RTNONE)), Acad::eOk);
    EXPECT_TRUE(codes(L"QM_A").empty());
    EXPECT_EQ(codes(L"QM_B"), (std::vector<int>{1001, 1040}));
}

TEST_F(XData, RefusedChainsChangeNothing)
{
    ASSERT_EQ(set(acutBuildList(1001, L"QM_A", 1070, 1, RTNONE)), Acad::eOk);
    EXPECT_EQ(mObject->setXData(nullptr), Acad::eInvalidResBuf);
    EXPECT_EQ(set(acutBuildList(1070, 1, RTNONE)), Acad::eInvalidResBuf);
    EXPECT_EQ(set(acutBuildList(1001, L"QM_A", 40, 1.0, RTNONE)), Acad::eInvalidResBuf);
    EXPECT_EQ(set(acutBuildList(1001, L"unregistered", 1070, 2, RTNONE)), Acad::eRegappIdNotFound);
    // 17 texts of 1000 bytes pass 16 KiB; 16 do not.
    const std::wstring text(1000, L'x');
    resbuf* big = acutBuildList(1001, L"QM_B", RTNONE);
    resbuf* last = big;
    for (int i = 0; i < 17; ++i) last = last->rbnext = acutBuildList(1000, text.c_str(), RTNONE);
    EXPECT_EQ(set(big), Acad::eXdataSizeExceeded);
    EXPECT_EQ(codes(nullptr), (std::vector<int>{1001, 1070}));
}
