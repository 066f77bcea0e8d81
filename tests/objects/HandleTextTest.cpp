#include "QmCADLib.h"

#include "DrawingTest.h"

#include "dbents.h"
#include "geassign.h"

namespace
{
using HandleText = headless::DrawingTest;

TEST_F(HandleText, LeadsBackToItsObject)
{
    const AcDbObjectId line = add(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)));
    CString text = L"before";
    CFamStuPub::ObjectIdToHandleStr(line, text);
    EXPECT_FALSE(text.IsEmpty());
    AcDbObjectId found;
    EXPECT_EQ(CFamStuPub::HandleStrToObjectId(text, found), 1);
    EXPECT_EQ(found, line);
    CString lower = text;
    lower.MakeLower();
    EXPECT_EQ(CFamStuPub::HandleStrToObjectId(lower, found), 1);
}

TEST_F(HandleText, UnknownHandlesAndObjectsGiveNothing)
{
    AcDbObjectId found = database()->layerZero();
    for (const wchar_t* text : {L"", L"FFFFFFFF", L"no handle", L"0"}) {
        EXPECT_EQ(CFamStuPub::HandleStrToObjectId(text, found), 0) << CStringA(text).GetString();
        EXPECT_TRUE(found.isNull());
    }
    EXPECT_EQ(CFamStuPub::HandleStrToObjectId(CString(L'A', 5000), found), 0);
    CString text = L"before";
    CFamStuPub::ObjectIdToHandleStr(AcDbObjectId(), text);
    EXPECT_TRUE(text.IsEmpty());
    const AcDbObjectId line = add(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)));
    erase(line);
    CFamStuPub::ObjectIdToHandleStr(line, text);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(HandleDigits, AreThoseOfAutoCAD)
{
    EXPECT_EQ(CFamStuPub::HandleToStr(AcDbHandle(0x1aBULL)), CString(L"1AB"));
    EXPECT_EQ(CFamStuPub::HandleToStr(AcDbHandle(0xFEDCBA9876543210ULL)), CString(L"FEDCBA9876543210"));
}

TEST(PointForms, KeepTheirCoordinates)
{
    ads_point point = {};
    CFamStuPub::pt3dToadsPt(AcGePoint3d(1, 2, 3), point);
    EXPECT_EQ(asPnt3d(point), AcGePoint3d(1, 2, 3));
    AcGePoint3dArray points;
    EXPECT_TRUE(CFamStuPub::pt3dTopt2d(points).isEmpty());
    for (const AcGePoint3d& point : {AcGePoint3d(1, 2, 3), AcGePoint3d(4, 5, 6)}) points.append(point);
    const AcGePoint2dArray flat = CFamStuPub::pt3dTopt2d(points);
    ASSERT_EQ(flat.length(), 2);
    EXPECT_EQ(flat[1], AcGePoint2d(4, 5));
    EXPECT_EQ(flat.growLength(), 8);
}
} // namespace
