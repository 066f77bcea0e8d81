#include "ViewFixture.h"

#include <random>

namespace
{
class CoordinateSystems : public ViewTest
{
protected:
    /// Points and vectors come back from every pair of systems, and a way by a third one leads to the same
    /// place.
    void checkRoundTrips(short codes)
    {
        std::mt19937 random(7);
        std::uniform_real_distribution<double> any(-40.0, 40.0);
        for (int i = 0; i < 20; ++i) {
            const AcGePoint3d point(any(random), any(random), any(random));
            for (short from = 0; from < codes; ++from) {
                for (short to = 0; to < codes; ++to) {
                    for (const bool isVector : {false, true})
                        expectNear(trans(trans(point, from, to, isVector), to, from, isVector), point);
                    expectNear(trans(trans(point, from, 0), 0, to), trans(point, from, to));
                }
            }
        }
    }

    AcDbObjectId addCircle(const AcGeVector3d& normal)
    {
        const Lock lock;
        return headless::addTo(database()->currentSpaceId(), new AcDbCircle({1.0, 2.0, 3.0}, normal, 5.0));
    }

    static int transBy(const resbuf& from, const resbuf& to, const AcGePoint3d& point, ads_point result)
    {
        return acedTrans(&point.x, &from, &to, 0, result);
    }
};
} // namespace

TEST_F(CoordinateSystems, AreAllTheWorldInANewDrawing)
{
    for (const short code : {1, 2})
        expectNear(trans({3.0, 4.0, 5.0}, 0, code), {3.0, 4.0, 5.0});
}

// X of the UCS is the world's Y, its Y the world's -X: the world's (10, 21, 3) lies (1, 0, 0) from the origin
// (10, 20, 3).
TEST_F(CoordinateSystems, UcsPointsAreCountedFromItsOriginAlongItsAxes)
{
    ASSERT_EQ(acedSetCurrentUCS(frame({10.0, 20.0, 3.0}, AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis)),
              Acad::eOk);
    expectNear(trans({10.0, 21.0, 3.0}, 0, 1), {1.0, 0.0, 0.0});
    expectNear(trans({0.0, 1.0, 0.0}, 1, 0), {9.0, 20.0, 3.0});
    expectNear(trans({0.0, 1.0, 0.0}, 1, 0, true), {-1.0, 0.0, 0.0});
    expectNear(pointOf(L"UCSORG"), {10.0, 20.0, 3.0});
    expectNear(pointOf(L"UCSXDIR"), {0.0, 1.0, 0.0});
    expectNear(pointOf(L"UCSYDIR"), {-1.0, 0.0, 0.0});
    EXPECT_EQ(integerOf(L"WORLDUCS"), 0);
    AcGeMatrix3d current;
    ASSERT_TRUE(acdbUcsMatrix(current));
    expectNear(current * AcGePoint3d(1.0, 0.0, 0.0), {10.0, 21.0, 3.0});
    EXPECT_EQ(acedRestorePreviousUCS(), Acad::eOk);
    EXPECT_EQ(integerOf(L"WORLDUCS"), 1);
    EXPECT_EQ(acedRestorePreviousUCS(), Acad::eNotApplicable);
}

TEST_F(CoordinateSystems, RefuseAxesThatSpanNoRightHandedSpace)
{
    const AcGeVector3d x = AcGeVector3d::kXAxis, y = AcGeVector3d::kYAxis, z = AcGeVector3d::kZAxis;
    AcGeMatrix3d skew, left, flat, endless;
    skew.setCoordSystem({}, x, x + y, z);
    left.setCoordSystem({}, x, y, -z);
    flat.setCoordSystem({}, x, x * 0.0, z);
    endless.setCoordSystem({NAN, 0.0, 0.0}, x, y, z);
    for (const AcGeMatrix3d& bad : {skew, left, flat, endless})
        EXPECT_EQ(acedSetCurrentUCS(bad), Acad::eInvalidInput);
    EXPECT_EQ(integerOf(L"WORLDUCS"), 1);
}

// Seen from +X, twisted by 90 degrees: without the twist the world's Y is to the right and Z is up; the twist
// turns what is seen counter-clockwise, Y up and Z to the left. The target is the origin of display
// coordinates.
TEST_F(CoordinateSystems, DisplayLooksFromTheEyeAndTurnsByTheTwist)
{
    look(AcGeVector3d::kXAxis, 0.0, {5.0, 6.0, 7.0});
    expectNear(trans({8.0, 7.0, 9.0}, 0, 2), {1.0, 2.0, 3.0});
    look(AcGeVector3d::kXAxis, pi / 2.0, {5.0, 6.0, 7.0});
    expectNear(trans({8.0, 7.0, 9.0}, 0, 2), {-2.0, 1.0, 3.0});
}

TEST_F(CoordinateSystems, ComeBackThroughTurnedAndTwistedSystems)
{
    look({1.0, -2.0, 1.5}, 0.7, {5.0, 6.0, 7.0});
    const AcGeVector3d x = AcGeVector3d(1.0, 2.0, 2.0).normal(), y = AcGeVector3d(2.0, 1.0, -2.0).normal();
    ASSERT_EQ(acedSetCurrentUCS(frame({10.0, 20.0, 30.0}, x, y)), Acad::eOk);
    checkRoundTrips(3);
}

// The eye is 100 above the target: what lies half way to it is seen at twice its size, and what is in the
// target's plane at its own.
TEST_F(CoordinateSystems, PerspectiveShowsNearThingsLarger)
{
    look({0.0, 0.0, 100.0}, 0.0, {}, true);
    EXPECT_EQ(integerOf(L"VIEWMODE") & 1, 1);
    expectNear(trans({3.0, 4.0, 0.0}, 0, 2), {3.0, 4.0, 0.0});
    const AcGePoint3d near = trans({3.0, 4.0, 50.0}, 0, 2);
    EXPECT_NEAR(near.x, 6.0, 1e-9);
    EXPECT_NEAR(near.y, 8.0, 1e-9);
    checkRoundTrips(3);
}

TEST_F(CoordinateSystems, ThoseOfEntitiesFollowTheirNormal)
{
    // The arbitrary axis rule: a normal along +X has the world's Y as its X axis and Z as its Y axis.
    ads_point result;
    resbuf world = node(0), normal{}, entity{};
    normal.restype = RT3DPOINT;
    normal.resval.rpoint[X] = 1.0;
    ASSERT_EQ(transBy(world, normal, {1.0, 2.0, 3.0}, result), RTNORM);
    expectNear({result[X], result[Y], result[Z]}, {2.0, 3.0, 1.0});
    entity.restype = RTENAME;
    acdbGetAdsName(entity.resval.rlname, addCircle(AcGeVector3d::kXAxis));
    ASSERT_EQ(transBy(entity, world, {2.0, 3.0, 1.0}, result), RTNORM);
    expectNear({result[X], result[Y], result[Z]}, {1.0, 2.0, 3.0});
    acdbGetAdsName(entity.resval.rlname,
                   addLine({}, {1.0, 1.0, 1.0})); // lines are in the world whatever their normal
    ASSERT_EQ(transBy(entity, world, {2.0, 3.0, 1.0}, result), RTNORM);
    expectNear({result[X], result[Y], result[Z]}, {2.0, 3.0, 1.0});
}

TEST_F(CoordinateSystems, OfTheDatabaseAgreeWithTheEditors)
{
    ASSERT_EQ(acedSetCurrentUCS(frame({1.0, 2.0, 3.0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis)),
              Acad::eOk);
    const ads_point from = {4.0, 5.0, 6.0}, normal = {0.3, -0.4, 0.5}, zero = {0.0, 0.0, 0.0};
    ads_point to, back;
    for (const bool isVector : {false, true}) {
        ASSERT_TRUE(acdbUcs2Wcs(from, to, isVector));
        expectNear({to[X], to[Y], to[Z]}, trans({4.0, 5.0, 6.0}, 1, 0, isVector));
        ASSERT_TRUE(acdbWcs2Ucs(to, back, isVector));
        expectNear({back[X], back[Y], back[Z]}, {4.0, 5.0, 6.0});
        ASSERT_TRUE(acdbEcs2Ucs(from, to, normal, isVector) && acdbUcs2Ecs(to, back, normal, isVector));
        expectNear({back[X], back[Y], back[Z]}, {4.0, 5.0, 6.0});
        ASSERT_TRUE(acdbEcs2Wcs(from, to, normal, isVector) && acdbWcs2Ecs(to, to, normal, isVector));
        expectNear({to[X], to[Y], to[Z]}, {4.0, 5.0, 6.0});
    }
    EXPECT_FALSE(acdbEcs2Wcs(from, to, zero, false));
    EXPECT_FALSE(acdbUcs2Wcs(nullptr, to, false));
}

TEST_F(CoordinateSystems, RefuseWhatTheyDoNotKnow)
{
    const resbuf world = node(0), none = node(4), paper = node(3), display = node(2);
    resbuf flat{}, nobody{};
    flat.restype = RT3DPOINT;
    nobody.restype = RTENAME;
    ads_point result = {9.0, 9.0, 9.0};
    for (const resbuf& bad : {none, paper, flat, nobody})
        EXPECT_EQ(transBy(world, bad, {}, result), RTERROR);
    EXPECT_EQ(transBy(display, paper, {}, result), RTERROR); // the model tab has no paper
    EXPECT_EQ(transBy(world, world, {NAN, 0.0, 0.0}, result), RTERROR);
    EXPECT_EQ(acedTrans(nullptr, &world, &world, 0, result), RTERROR);
    EXPECT_EQ(result[X], 9.0);
}

// The window's scale is 1:4 and its centre (150, 100) shows the view's centre (40, 80): the point 8 to the
// right of that is 2 to the right on paper. z is scaled and not moved.
TEST_F(CoordinateSystems, PaperIsScaledAndMovedFromTheActiveWindow)
{
    const AcDbObjectId id = addWindow();
    edit(id, [](AcDbViewport& window) {
        window.setViewCenter({40.0, 80.0});
        window.setTwistAngle(0.3);
        window.setViewDirection({1.0, 1.0, 1.0});
        window.setViewTarget({5.0, 6.0, 7.0});
    });
    const resbuf display = node(2), paper = node(3);
    ads_point result;
    EXPECT_EQ(transBy(display, paper, {}, result), RTERROR); // the sheet is active
    ASSERT_EQ(acedMspace(), Acad::eOk);
    expectNear(trans({48.0, 80.0, 4.0}, 2, 3), {152.0, 100.0, 1.0});
    expectNear(trans({48.0, 80.0, 4.0}, 2, 3, true), {12.0, 20.0, 1.0});
    expectNear(trans(trans({1.0, 2.0, 3.0}, 2, 3), 3, 2), {1.0, 2.0, 3.0});
    EXPECT_EQ(transBy(node(0), paper, {}, result), RTERROR); // only with the DCS
    checkRoundTrips(3);
    // The drawing's plots see model space through the same map.
    AcDbObjectPointer<AcDbViewport> window(id);
    const AcGePoint3d onPaper = window->modelToPaper() * AcGePoint3d(9.0, 8.0, 7.0);
    const AcGePoint3d mapped = trans(trans({9.0, 8.0, 7.0}, 0, 2), 2, 3);
    EXPECT_NEAR(mapped.x, onPaper.x, 1e-9);
    EXPECT_NEAR(mapped.y, onPaper.y, 1e-9);
}

TEST_F(CoordinateSystems, SpacesHaveAUcsEach)
{
    const AcDbObjectId window = addWindow();
    ASSERT_EQ(acedSetCurrentUCS(frame({7.0, 0.0, 0.0}, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis)),
              Acad::eOk);
    ASSERT_EQ(acedMspace(), Acad::eOk);
    EXPECT_EQ(integerOf(L"WORLDUCS"), 1);
    ASSERT_EQ(acedSetCurrentUCS(frame({8.0, 0.0, 0.0}, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis)),
              Acad::eOk);
    ASSERT_EQ(acedPspace(), Acad::eOk);
    expectNear(pointOf(L"UCSORG"), {7.0, 0.0, 0.0});
    AcDbObjectPointer<AcDbViewport> keeper(window);
    AcGePoint3d origin;
    AcGeVector3d x, y;
    keeper->getUcs(origin, x, y);
    expectNear(origin, {8.0, 0.0, 0.0});
}

// PLAN of a system whose Z axis is the world's X: it is seen from there, with its own X axis to the right.
TEST_F(CoordinateSystems, FollowedViewsTurnToThePlan)
{
    ASSERT_EQ(setInteger(L"UCSFOLLOW", 1), RTNORM);
    ASSERT_EQ(acedSetCurrentUCS(frame({1.0, 2.0, 3.0}, AcGeVector3d::kZAxis, -AcGeVector3d::kYAxis)),
              Acad::eOk);
    expectNear(trans({1.0, 0.0, 0.0}, 1, 2, true), {1.0, 0.0, 0.0});
    expectNear(trans({0.0, 1.0, 0.0}, 1, 2, true), {0.0, 1.0, 0.0});
    EXPECT_EQ(integerOf(L"VIEWMODE"), 8);
}
