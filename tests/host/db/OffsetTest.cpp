/// Offsets against closed forms: which side is positive, and what corners do.

#include "CurveSamples.h"

#include <gtest/gtest.h>

namespace
{
std::unique_ptr<AcDbCurve> offsetOf(const AcDbCurve& curve, double offset)
{
    AcDbVoidPtrArray made;
    EXPECT_EQ(curve.getOffsetCurves(offset, made), Acad::eOk);
    EXPECT_EQ(made.length(), 1);
    return std::unique_ptr<AcDbCurve>(made.isEmpty() ? nullptr : static_cast<AcDbCurve*>(made[0]));
}

std::unique_ptr<AcDbPolyline> rectangle(double width, double height)
{
    auto made = std::make_unique<AcDbPolyline>();
    const AcGePoint2d corners[] = {{0, 0}, {width, 0}, {width, height}, {0, height}};
    for (unsigned i = 0; i < 4; ++i)
        made->addVertexAt(i, corners[i]);
    made->setClosed(true);
    return made;
}
} // namespace

TEST(Offset, LinesMoveToTheRightForPositiveDistances)
{
    const auto moved = offsetOf(AcDbLine({1, 1, 4}, {6, 1, 4}), 2.0);
    ASSERT_NE(AcDbLine::cast(moved.get()), nullptr);
    EXPECT_TRUE(AcDbLine::cast(moved.get())->startPoint().isEqualTo({1, -1, 4}));
    EXPECT_TRUE(AcDbLine::cast(moved.get())->endPoint().isEqualTo({6, -1, 4}));
}

TEST(Offset, CirclesAndArcsGrowForPositiveDistances)
{
    const AcDbArc arc({1, 2, 3}, tiltedNormal, 5.0, 4.0, 1.0);
    const auto wider = offsetOf(arc, 1.5);
    EXPECT_DOUBLE_EQ(AcDbArc::cast(wider.get())->radius(), 6.5);
    EXPECT_TRUE(AcDbArc::cast(wider.get())->center().isEqualTo({1, 2, 3}));
    AcDbVoidPtrArray none;
    EXPECT_EQ(arc.getOffsetCurves(-5.0, none), Acad::eInvalidOffset);
    EXPECT_TRUE(none.isEmpty());
}

TEST(Offset, RectanglesKeepSharpCorners)
{
    // A rectangle that turns to the left grows to the right: 10 x 6 becomes 14 x 10.
    const auto plain = rectangle(10.0, 6.0);
    double area = 0.0;
    const auto wider = offsetOf(*plain, 2.0), narrower = offsetOf(*plain, -2.0);
    ASSERT_EQ(wider->getArea(area), Acad::eOk);
    EXPECT_NEAR(area, 140.0, 1e-9);
    EXPECT_EQ(AcDbPolyline::cast(wider.get())->numVerts(), 4u);
    EXPECT_TRUE(wider->isClosed());
    ASSERT_EQ(narrower->getArea(area), Acad::eOk);
    EXPECT_NEAR(area, 12.0, 1e-9);
    AcDbVoidPtrArray none;
    EXPECT_EQ(plain->getOffsetCurves(-3.5, none), Acad::eInvalidOffset);
}

TEST(Offset, OtherNormalTurnsTheSideRound)
{
    const auto plain = rectangle(10.0, 6.0);
    AcDbVoidPtrArray made;
    double area = 0.0;
    ASSERT_EQ(plain->getOffsetCurvesGivenPlaneNormal({0, 0, -1}, 2.0, made), Acad::eOk);
    ASSERT_EQ(made.length(), 1);
    const std::unique_ptr<AcDbCurve> owned(static_cast<AcDbCurve*>(made[0]));
    ASSERT_EQ(owned->getArea(area), Acad::eOk);
    EXPECT_NEAR(area, 12.0, 1e-9);
    EXPECT_EQ(plain->getOffsetCurvesGivenPlaneNormal({1, 0, 0}, 2.0, made), Acad::eInvalidInput);
}

TEST(Offset, ArcsOfPolylinesStayArcs)
{
    // 10 x 4 with half circles at its ends: the area of an offset by d is 10 (4 + 2d) + pi (2 + d)^2.
    AcDbPolyline capsule;
    capsule.addVertexAt(0, {0, 0});
    capsule.addVertexAt(1, {10, 0}, 1.0);
    capsule.addVertexAt(2, {10, 4});
    capsule.addVertexAt(3, {0, 4}, 1.0);
    capsule.setClosed(true);
    capsule.setNormal(tiltedNormal);
    for (const double d : {1.0, -1.5}) {
        const auto moved = offsetOf(capsule, d);
        double area = 0.0;
        ASSERT_NE(AcDbPolyline::cast(moved.get()), nullptr);
        ASSERT_EQ(moved->getArea(area), Acad::eOk);
        EXPECT_NEAR(area, 10.0 * (4.0 + 2.0 * d) + 3.14159265358979323846 * (2.0 + d) * (2.0 + d), 1e-9);
    }
}
