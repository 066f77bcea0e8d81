#include "QmCADLib.h"

#include "acdbads.h"
#include "arxHeaders.h"
#include "dbcircle.h"
#include "DrawingTest.h"

#include <memory>

namespace
{
struct ReleaseList {
    void operator()(resbuf* list) const { acutRelRb(list); }
};
using List = std::unique_ptr<resbuf, ReleaseList>;

List kind(const wchar_t* name)
{
    return List(acutBuildList(RTDXF0, name, RTNONE));
}

/// Three lines y = 10, 20, 30 from x = 0 to 100, and a circle of radius 5 around (50, 50).
class Picking : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        asCommand([this] {
            for (const double y : {10.0, 20.0, 30.0})
                m_lines.append(add(new AcDbLine({0, y, 0}, {100, y, 0})));
            m_circle = add(new AcDbCircle({50, 50, 0}, AcGeVector3d::kZAxis, 5));
        });
    }
    AcDbObjectId add(AcDbEntity* entity) { return headless::addTo(database()->currentSpaceId(), entity); }
    static int pickStyle()
    {
        int style = -1;
        CFamStuSysVar::Get(L"PICKSTYLE", style);
        return style;
    }

    AcDbObjectIdArray m_lines;
    AcDbObjectId m_circle;
};

TEST_F(Picking, WholeDrawingComesThroughTheFilter)
{
    AcDbObjectIdArray ids;
    ids.append(m_circle); // goes
    asCommand([&] {
        EXPECT_EQ(CFamStuGlobe::SelectObjects(ids, L"", kind(L"LINE").get(), nullptr, nullptr, 1), 3);
    });
    EXPECT_EQ(ids.length(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(ids.contains(m_lines[i]));
    EXPECT_EQ(CFamStuGlobe::SelectObjects(ids, L"", kind(L"ARC").get(), nullptr, nullptr, 1), 0);
    EXPECT_TRUE(ids.isEmpty());
}

TEST_F(Picking, WindowOfTwoPointsTakesWhatItTouches)
{
    AcGePoint3d low(90, 5, 0), high(95, 25, 0);
    AcDbObjectIdArray ids;
    EXPECT_EQ(CFamStuGlobe::SelectObjects(ids, L"", nullptr, &low, &high, 1), 2);
    EXPECT_TRUE(ids.contains(m_lines[0]) && ids.contains(m_lines[1]));
}

TEST_F(Picking, UserSelectsWithThePromptAndPickStyleStays)
{
    const CFamStuSysVar style(L"PICKSTYLE", 3, TRUE);
    AcDbObjectIdArray ids;
    asCommand([&] { EXPECT_EQ(CFamStuGlobe::SelectObjects(ids, L"\n选择墙线: ", nullptr), 2); },
              L"50,10 50,30 \n");
    EXPECT_NE(takeOutput().find(L"选择墙线: "), std::wstring::npos);
    EXPECT_TRUE(ids.contains(m_lines[0]) && ids.contains(m_lines[2]));
    asCommand([&] { EXPECT_EQ(CFamStuGlobe::SelectObjects(ids, L"\n选择墙线: ", nullptr), 0); },
              L"50,10 \x1b");
    EXPECT_TRUE(ids.isEmpty());
    EXPECT_EQ(pickStyle(), 3);
}

TEST_F(Picking, PickGoesOnUntilAnObjectFits)
{
    AcGePoint3d point;
    AcDbObjectId id;
    // Nothing there; a line; the circle.
    asCommand([&] { id = CFamStuGlobe::PickObject(point, kind(L"CIRCLE").get(), L"\n圆: "); },
              L"50,80 50,10 55,50 ");
    EXPECT_EQ(id, m_circle);
    EXPECT_NEAR(point.distanceTo({55, 50, 0}), 0.0, 1e-9);
    asCommand([&] { id = CFamStuGlobe::PickObject(point, nullptr, L"\n任意: "); }, L"50,30 ");
    EXPECT_EQ(id, m_lines[2]);
}

TEST_F(Picking, GivingUpLeavesThePoint)
{
    for (const wchar_t* answers : {L"\n", L"\x1b", L""}) {
        AcGePoint3d point(1, 2, 3);
        AcDbObjectId id = m_circle;
        asCommand([&] { id = CFamStuGlobe::PickObject(point, nullptr, L"\n: "); }, answers);
        EXPECT_TRUE(id.isNull());
        EXPECT_EQ(point.x, 1.0);
    }
}

TEST_F(Picking, IdsAndSetsLeadToEachOther)
{
    AcDbObjectIdArray ids;
    ids.append(m_circle);
    ids.append(AcDbObjectId::kNull);
    ids.append(m_lines[0]);
    ads_name ss;
    EXPECT_EQ(CFamStuGlobe::Idstoss(ss, ids), 2);
    const AcDbObjectIdArray back = CFamStuGlobe::SStoIds(ss);
    ASSERT_EQ(back.length(), 2);
    EXPECT_TRUE(back[0] == m_circle && back[1] == m_lines[0]);
    EXPECT_EQ(acedSSFree(ss), RTNORM);
    EXPECT_TRUE(CFamStuGlobe::SStoIds(ss).isEmpty()); // no set any more
}

TEST_F(Picking, SnapRangeIsThePickBoxInTheDrawing)
{
    const CFamStuSysVar box(L"PICKBOX", 6, TRUE);
    double height = 0.0;
    AcGePoint3d screen;
    CFamStuSysVar::Get(L"VIEWSIZE", height);
    CFamStuSysVar::Get(L"SCREENSIZE", screen);
    EXPECT_DOUBLE_EQ(CFamStuGlobe::GetSnapRange(), 6 * height / screen.y);
}
} // namespace
