/// What the members do with ids, texts and numbers that are none of theirs.

#include "QmCADLib.h"

#include "DrawingTest.h"

#include "dbents.h"
#include "dbpl.h"
#include "dbsymutl.h"

#include <limits>

namespace
{
using BadInput = headless::DrawingTest;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

// Each by its own: while it is open for write, it can be read by its pointer only.
TEST_F(BadInput, EntitiesOpenForWriteAreNotRead)
{
    const AcDbObjectId id = addLine({0, 0, 0}, {1, 1, 0});
    const AcDbObjectPointer<AcDbLine> writer(id, AcDb::kForWrite);
    AcGePoint3dArray points;
    EXPECT_EQ(CFamStuEnt::GetCurvePoints(id, points, 0), 0);
    EXPECT_TRUE(points.isEmpty());
    AcDbExtents box;
    AcDbObjectIdArray ids;
    ids.append(id);
    EXPECT_EQ(CFamStuEnt::GetEntExtents(box, id), Acad::eWasOpenForWrite);
    EXPECT_EQ(CFamStuEnt::GetEntExtents(box, ids), Acad::eWasOpenForWrite);
    CString handle = L"before";
    CFamStuPub::ObjectIdToHandleStr(id, handle);
    EXPECT_TRUE(handle.IsEmpty());
    EXPECT_EQ(CFamStuEnt::GetCurvePoints(writer.object(), points, 0), 1);
    EXPECT_EQ(points.length(), 2);
}

TEST_F(BadInput, ReadingNeedsNoLock)
{
    const AcDbObjectId id = addLine({0, 0, 0}, {1, 2, 3});
    unlock();
    AcGePoint3dArray points;
    EXPECT_EQ(CFamStuEnt::GetCurvePoints(id, points, 0), 1);
    AcDbExtents box;
    EXPECT_EQ(CFamStuEnt::GetEntExtents(box, id), Acad::eOk);
    EXPECT_EQ(box.maxPoint(), AcGePoint3d(1, 2, 3));
    CString handle;
    CFamStuPub::ObjectIdToHandleStr(id, handle);
    EXPECT_FALSE(handle.IsEmpty());
}

// Handles are looked up in the working database alone; ids lead to their own.
TEST_F(BadInput, ObjectsOfOtherDrawingsAreReadButNotFound)
{
    AcDbDatabase other;
    const AcDbObjectId space = acdbSymUtil()->blockModelSpaceId(&other);
    AcDbObjectId last;
    for (int i = 0; i < 500; ++i)
        last = headless::addTo(space, new AcDbLine({0, 0, 0}, {4, 5, 6}));
    AcDbExtents box;
    EXPECT_EQ(CFamStuEnt::GetEntExtents(box, last), Acad::eOk);
    EXPECT_EQ(box.maxPoint(), AcGePoint3d(4, 5, 6));
    CString handle;
    CFamStuPub::ObjectIdToHandleStr(last, handle);
    AcDbObjectId found = last;
    EXPECT_EQ(CFamStuPub::HandleStrToObjectId(handle, found), 0); // no object here has a handle as high
    EXPECT_TRUE(found.isNull());
}

TEST_F(BadInput, NullObjectsGiveZero)
{
    AcGePoint3dArray points;
    EXPECT_EQ(CFamStuEnt::GetPolylinePoints(static_cast<AcDbPolyline*>(nullptr), points, 1), 0);
    EXPECT_EQ(CFamStuEnt::Get2dPolylinePoints(nullptr, points, 1), 0);
    EXPECT_EQ(CFamStuEnt::GetCurvePoints(static_cast<AcDbEntity*>(nullptr), points, 1), 0);
    EXPECT_TRUE(points.isEmpty());
    AcDbPolyline empty;
    empty.setClosed(true);
    EXPECT_EQ(CFamStuEnt::GetPolylinePoints(&empty, points, 1), 1); // no vertex that could be repeated
    EXPECT_EQ(CFamStuEnt::GetCurvePoints(&empty, points, 1), 0);
    EXPECT_TRUE(points.isEmpty());
}

TEST_F(BadInput, TextsThatAreNoHandleFindNothing)
{
    addLine({0, 0, 0}, {1, 0, 0});
    for (const wchar_t* text :
         {L"", L" ", L"-1", L"g", L"\xFF11\xFF21", L"\x0661", L"{1F}", L"FFFFFFFFFFFFFFFFF"}) {
        AcDbObjectId id = database()->layerZero();
        EXPECT_EQ(CFamStuPub::HandleStrToObjectId(text, id), 0) << CStringA(text).GetString();
        EXPECT_TRUE(id.isNull());
    }
}

// 63 characters are kept: zeros in front of the digits count as well.
TEST_F(BadInput, OnlyTheFirst63CharactersOfAHandleCount)
{
    const AcDbObjectId line = addLine({0, 0, 0}, {1, 0, 0});
    CString digits;
    CFamStuPub::ObjectIdToHandleStr(line, digits);
    AcDbObjectId id, cut;
    for (const int length : {20, 62, 63}) {
        EXPECT_EQ(CFamStuPub::HandleStrToObjectId(CString(L'0', length - digits.GetLength()) + digits, id), 1)
            << length;
        EXPECT_EQ(id, line);
    }
    const int wanted = CFamStuPub::HandleStrToObjectId(digits.Left(digits.GetLength() - 1), cut);
    EXPECT_EQ(CFamStuPub::HandleStrToObjectId(CString(L'0', 64 - digits.GetLength()) + digits, id), wanted);
    EXPECT_EQ(id, cut);
    EXPECT_NE(id, line);
    for (const int length : {65, 1000}) {
        EXPECT_EQ(CFamStuPub::HandleStrToObjectId(CString(L'0', length) + digits, id), 0);
        EXPECT_TRUE(id.isNull());
    }
}

TEST_F(BadInput, HandlesNeedAWorkingDatabase)
{
    AcDbHostApplicationServices* const services = acdbHostApplicationServices();
    AcDbDatabase* const before = services->workingDatabase();
    services->setWorkingDatabase(nullptr);
    AcDbObjectId id = before->layerZero();
    EXPECT_EQ(CFamStuPub::HandleStrToObjectId(L"1", id), 0);
    EXPECT_TRUE(id.isNull());
    services->setWorkingDatabase(before);
}

TEST_F(BadInput, HandlesEndAtTheFirstOtherCharacter)
{
    const AcDbObjectId line = addLine({0, 0, 0}, {1, 0, 0});
    CString digits;
    CFamStuPub::ObjectIdToHandleStr(line, digits);
    for (const wchar_t* tail : {L"Z", L" 2", L"\t", L"-"}) {
        AcDbObjectId id;
        EXPECT_EQ(CFamStuPub::HandleStrToObjectId(digits + tail, id), 1);
        EXPECT_EQ(id, line);
    }
    EXPECT_EQ(CFamStuPub::HandleToStr(AcDbHandle()), CString(L"0"));
}

TEST_F(BadInput, ErasedObjectsAreFoundByTheirHandleAndPlacesWithoutObjectAreNot)
{
    const AcDbObjectId line = addLine({0, 0, 0}, {1, 0, 0});
    CString digits;
    CFamStuPub::ObjectIdToHandleStr(line, digits);
    erase(line);
    AcDbObjectId id;
    EXPECT_EQ(CFamStuPub::HandleStrToObjectId(digits, id), 1);
    EXPECT_EQ(id, line);
    AcDbObjectId reserved; // as a reference to an object that a file does not hold leaves it
    ASSERT_EQ(database()->getAcDbObjectId(reserved, true, AcDbHandle(std::uint64_t(0xABCDE))), Acad::eOk);
    EXPECT_EQ(CFamStuPub::HandleStrToObjectId(L"ABCDE", id), 0);
    EXPECT_TRUE(id.isNull());
}

TEST_F(BadInput, PointsAreCopiedWhateverTheyHold)
{
    ads_point point = {};
    CFamStuPub::pt3dToadsPt({infinity, nan, -infinity}, point);
    EXPECT_EQ(point[X], infinity);
    EXPECT_TRUE(std::isnan(point[Y]));
    AcGePoint3dArray points;
    points.append(AcGePoint3d(nan, -infinity, 0));
    const AcGePoint2dArray flat = CFamStuPub::pt3dTopt2d(points);
    ASSERT_EQ(flat.length(), 1);
    EXPECT_TRUE(std::isnan(flat[0].x));
    EXPECT_EQ(flat[0].y, -infinity);
}

// One coordinate of one of the three points at a time, and all of them.
TEST_F(BadInput, NumbersThatAreNoneLieNowhere)
{
    const AcGePoint3d good[] = {{0, 0, 0}, {10, 0, 0}, {5, 0, 0}};
    ASSERT_EQ(CFamStuEnt::JudgePointOnLine(good[0], good[1], good[2], 1), 3);
    for (const double bad : {nan, infinity, -infinity}) {
        for (int i = 0; i < 9; ++i) {
            AcGePoint3d points[] = {good[0], good[1], good[2]};
            points[i / 3][static_cast<unsigned>(i % 3)] = bad;
            for (const int extend : {0, 1})
                EXPECT_EQ(CFamStuEnt::JudgePointOnLine(points[0], points[1], points[2], extend), 0) << i;
        }
        const AcGePoint3d all(bad, bad, bad);
        EXPECT_EQ(CFamStuEnt::JudgePointOnLine(all, all, all, 1), 0);
    }
}

TEST_F(BadInput, PointsThatAreNoNumbersLeaveTheBox)
{
    AcGePoint3dArray points;
    for (const double bad : {nan, infinity, -infinity}) {
        points.append(AcGePoint3d(bad, 9, 9));
        points.append(AcGePoint3d(9, 9, bad));
    }
    AcDbExtents box;
    EXPECT_EQ(CFamStuEnt::GetEntExtents(box, points), 1);
    EXPECT_TRUE(box.isEmpty());
    points.append(AcGePoint3d(1, 2, 3));
    points.append(AcGePoint3d(1, 2, 3));
    EXPECT_EQ(CFamStuEnt::GetEntExtents(box, points), 1);
    EXPECT_EQ(box.minPoint(), AcGePoint3d(1, 2, 3));
    EXPECT_EQ(box.maxPoint(), AcGePoint3d(1, 2, 3));
}
} // namespace
