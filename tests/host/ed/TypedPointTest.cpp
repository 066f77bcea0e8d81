#include "TypedPoint.h"

#include <gtest/gtest.h>

using ed::InputUnits;
using ed::parsePoint;
using ed::PointFrame;

namespace
{
/// A UCS at (100,0,0), turned a quarter about the vertical.
PointFrame turnedFrame()
{
    PointFrame frame;
    frame.ucsToWorld.setCoordSystem({100, 0, 0}, AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis,
                                    AcGeVector3d::kZAxis);
    frame.origin = {1, 2, 3};
    frame.elevation = 5.0;
    return frame;
}

AcGePoint3d at(const wchar_t* text)
{
    return ed::placed(*parsePoint(text, InputUnits()), turnedFrame());
}
} // namespace

TEST(TypedPoints, StandInTheUcsUnlessAStarSaysTheWorld)
{
    EXPECT_TRUE(at(L"7,8").isEqualTo({7, 8, 5}));
    EXPECT_TRUE(at(L"@7,8").isEqualTo({8, 10, 3}));
    // the world's (100,10,0) is 10 along the X axis of this UCS
    EXPECT_TRUE(at(L"*100,10,0").isEqualTo({10, 0, 0}));
    // one step along the world's X axis is one back along this Y axis
    EXPECT_TRUE(at(L"@*1,0").isEqualTo({1, 1, 3}));
    EXPECT_TRUE(at(L"*@1,0").isEqualTo({1, 1, 3}));
    EXPECT_TRUE(at(L"*2<0,4").isEqualTo({0, 98, 4}));
}

TEST(TypedPoints, HalfTypedOnesAreNone)
{
    for (const wchar_t* text :
         {L"", L"*", L",", L"1,", L",1", L"1,2,3,4", L"1<", L"<", L"1<2<", L"1<2,", L"1<2<3<4", L"1<2,3,4",
          L"@@1,2", L"1 2", L"1,2x", L"<<<<5", L"5<<<<5", L"<45,2", L"1,1e999"})
        EXPECT_FALSE(parsePoint(text, InputUnits())) << text;
}
