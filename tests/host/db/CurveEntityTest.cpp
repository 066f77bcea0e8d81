/// What every class of curves has in common, against sampling of its own points.

#include "CurveSamples.h"
#include "RecordLists.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
class CurveEntity : public testing::TestWithParam<CurveSample>
{
protected:
    void SetUp() override
    {
        mCurve = GetParam().make();
        ASSERT_EQ(mCurve->getStartParam(mStart), Acad::eOk);
        ASSERT_EQ(mCurve->getEndParam(mEnd), Acad::eOk);
    }

    AcGePoint3d pointAt(double fraction) const
    {
        AcGePoint3d point;
        EXPECT_EQ(mCurve->getPointAtParam(mStart + fraction * (mEnd - mStart), point), Acad::eOk);
        return point;
    }

    std::vector<AcGePoint3d> samples(int count) const
    {
        std::vector<AcGePoint3d> points;
        for (int i = 0; i <= count; ++i)
            points.push_back(pointAt(static_cast<double>(i) / count));
        return points;
    }

    std::unique_ptr<AcDbCurve> mCurve;
    double mStart = 0.0, mEnd = 0.0;
};

/// A rotation, an even scale and a move.
AcGeMatrix3d evenMap()
{
    return AcGeMatrix3d::translation({10.0, -20.0, 5.0}) * AcGeMatrix3d::scaling(2.5) *
           AcGeMatrix3d::rotation(0.7, {1.0, 1.0, -0.5});
}
} // namespace

TEST_P(CurveEntity, LengthIsThatOfItsChords)
{
    double length = 0.0, chords = 0.0;
    ASSERT_EQ(mCurve->getDistAtParam(mEnd, length), Acad::eOk);
    const std::vector<AcGePoint3d> points = samples(120000);
    for (std::size_t i = 1; i < points.size(); ++i)
        chords += points[i].distanceTo(points[i - 1]);
    EXPECT_NEAR(length, chords, 1e-8 * length);
}

TEST_P(CurveEntity, DistancesAndParametersAgree)
{
    double length = 0.0;
    ASSERT_EQ(mCurve->getDistAtParam(mEnd, length), Acad::eOk);
    for (const double fraction : {0.0, 0.1, 0.37, 0.5, 0.83, 0.999}) {
        AcGePoint3d point, there;
        double dist = 0.0, param = 0.0;
        ASSERT_EQ(mCurve->getPointAtDist(fraction * length, point), Acad::eOk);
        ASSERT_EQ(mCurve->getParamAtPoint(point, param), Acad::eOk);
        ASSERT_EQ(mCurve->getDistAtParam(param, dist), Acad::eOk);
        ASSERT_EQ(mCurve->getPointAtParam(param, there), Acad::eOk);
        EXPECT_NEAR(dist, fraction * length, 1e-7 * length);
        EXPECT_LT(there.distanceTo(point), 1e-9);
    }
    double none = -1.0;
    EXPECT_EQ(mCurve->getParamAtDist(length * 1.01, none), Acad::eInvalidInput);
    EXPECT_EQ(mCurve->getParamAtDist(-0.1, none), Acad::eInvalidInput);
    EXPECT_EQ(mCurve->getDistAtParam(mEnd + 1.0, none), Acad::eInvalidInput);
    EXPECT_EQ(none, -1.0);
}

TEST_P(CurveEntity, DerivativesAreDifferencesOfPoints)
{
    const double step = 1e-4;
    for (const double fraction : {0.05, 0.33, 0.71, 0.93}) {
        const double at = mStart + fraction * (mEnd - mStart);
        AcGeVector3d first, second;
        AcGePoint3d before, here, after;
        ASSERT_EQ(mCurve->getFirstDeriv(at, first), Acad::eOk);
        ASSERT_EQ(mCurve->getSecondDeriv(at, second), Acad::eOk);
        mCurve->getPointAtParam(at - step, before);
        mCurve->getPointAtParam(at, here);
        mCurve->getPointAtParam(at + step, after);
        EXPECT_LT(((after - before) / (2.0 * step) - first).length(), 1e-5 * (1.0 + first.length()));
        EXPECT_LT((((after - here) - (here - before)) / (step * step) - second).length(), 1e-3);
    }
}

TEST_P(CurveEntity, NearestPointIsNoFurtherThanAnySample)
{
    const std::vector<AcGePoint3d> points = samples(2000);
    for (const AcGePoint3d& from : {AcGePoint3d(1, 1, 1), AcGePoint3d(-7, 3, 4), AcGePoint3d(3, 9, -2)}) {
        double best = 1e9;
        for (const AcGePoint3d& p : points)
            best = std::min(best, p.distanceTo(from));
        AcGePoint3d nearest;
        double param = 0.0;
        ASSERT_EQ(mCurve->getClosestPointTo(from, nearest), Acad::eOk);
        EXPECT_LE(nearest.distanceTo(from), best + 1e-9);
        EXPECT_GT(nearest.distanceTo(from), best - 1e-3);
        EXPECT_EQ(mCurve->getParamAtPoint(nearest, param), Acad::eOk);
    }
}

TEST_P(CurveEntity, ExtentsAreThoseOfItsPoints)
{
    AcDbExtents extents, sampled;
    ASSERT_EQ(mCurve->getGeomExtents(extents), Acad::eOk);
    for (const AcGePoint3d& p : samples(60000))
        sampled.addPoint(p);
    EXPECT_LT(extents.minPoint().distanceTo(sampled.minPoint()), 1e-6);
    EXPECT_LT(extents.maxPoint().distanceTo(sampled.maxPoint()), 1e-6);
}

TEST_P(CurveEntity, AreaIsThatOfItsChords)
{
    double area = -1.0;
    if (!mCurve->isPlanar()) {
        EXPECT_EQ(mCurve->getArea(area), Acad::eNonPlanarEntity);
        return;
    }
    ASSERT_EQ(mCurve->getArea(area), Acad::eOk);
    AcGeVector3d sum;
    const std::vector<AcGePoint3d> points = samples(60000);
    for (std::size_t i = 1; i + 1 < points.size(); ++i)
        sum += (points[i] - points[0]).crossProduct(points[i + 1] - points[0]) / 2.0;
    EXPECT_NEAR(area, sum.length(), 1e-6 * (1.0 + area));
}

TEST_P(CurveEntity, MapAndInverseGiveItBack)
{
    const AcGeMatrix3d mirror = AcGeMatrix3d::mirroring(AcGePlane({1, 0, 2}, {0.3, 1.0, 0.2}));
    for (const AcGeMatrix3d& map : {evenMap(), mirror, evenMap() * mirror}) {
        const std::vector<AcGePoint3d> before = samples(20);
        ASSERT_EQ(mCurve->transformBy(map), Acad::eOk);
        for (const AcGePoint3d& p : before) {
            AcGePoint3d nearest;
            ASSERT_EQ(mCurve->getClosestPointTo(map * p, nearest), Acad::eOk);
            EXPECT_LT(nearest.distanceTo(map * p), 1e-9);
        }
        ASSERT_EQ(mCurve->transformBy(map.inverse()), Acad::eOk);
        ASSERT_EQ(mCurve->getStartParam(mStart), Acad::eOk);
        ASSERT_EQ(mCurve->getEndParam(mEnd), Acad::eOk);
        const std::vector<AcGePoint3d> after = samples(20);
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_LT(before[i].distanceTo(after[i]), 1e-9);
    }
}

TEST_P(CurveEntity, UnevenScaleGivesACopyOrRefuses)
{
    AcGeMatrix3d map;
    map(0, 0) = 3.0;
    map(1, 2) = 0.5;
    AcDbEntity* copy = nullptr;
    const Acad::ErrorStatus status = mCurve->getTransformedCopy(map, copy);
    const std::unique_ptr<AcDbEntity> owned(copy);
    if (status != Acad::eOk) {
        EXPECT_EQ(status, Acad::eCannotScaleNonUniformly);
        EXPECT_TRUE(AcDbPolyline::cast(mCurve.get()) || AcDb2dPolyline::cast(mCurve.get()));
        return;
    }
    const AcDbCurve* mapped = AcDbCurve::cast(copy);
    ASSERT_NE(mapped, nullptr);
    for (const AcGePoint3d& p : samples(20)) {
        AcGePoint3d nearest;
        ASSERT_EQ(mapped->getClosestPointTo(map * p, nearest), Acad::eOk);
        EXPECT_LT(nearest.distanceTo(map * p), 1e-8);
    }
}

TEST_P(CurveEntity, GroupsGiveTheSameCurveAndTheSameGroups)
{
    for (const DxfVersion version : {DxfVersion::r12, DxfVersion::r2000, DxfVersion::r2018}) {
        const PackedGroups groups = written(*mCurve, version);
        const std::unique_ptr<AcRxObject> made(mCurve->isA()->create());
        auto* copy = AcDbCurve::cast(made.get());
        ListSource source(groups);
        dxfRead(*copy, source);
        EXPECT_EQ(source.reports, 0);
        EXPECT_TRUE(written(*copy, version) == groups);
        if (mCurve->subentities()) continue; // the points are in records of their own
        for (const double fraction : {0.0, 0.4, 0.9}) {
            AcGePoint3d point;
            ASSERT_EQ(copy->getPointAtParam(mStart + fraction * (mEnd - mStart), point), Acad::eOk);
            EXPECT_LT(point.distanceTo(pointAt(fraction)), 1e-9);
        }
    }
}

TEST_P(CurveEntity, PiecesCoverIt)
{
    AcDbVoidPtrArray pieces;
    const Acad::ErrorStatus status = mCurve->explode(pieces);
    double sum = 0.0, length = 0.0;
    for (int i = 0; i < pieces.length(); ++i) {
        const std::unique_ptr<AcDbEntity> piece(static_cast<AcDbEntity*>(pieces[i]));
        double end = 0.0, own = 0.0;
        AcDbCurve::cast(piece.get())->getEndParam(end);
        AcDbCurve::cast(piece.get())->getDistAtParam(end, own);
        sum += own;
    }
    if (status == Acad::eCannotExplodeEntity) return;
    ASSERT_EQ(status, Acad::eOk);
    ASSERT_EQ(mCurve->getDistAtParam(mEnd, length), Acad::eOk);
    EXPECT_NEAR(sum, length, 1e-9 * length);
}

TEST_P(CurveEntity, SplitPiecesFollowEachOther)
{
    const double first = mStart + 0.23 * (mEnd - mStart), second = mStart + 0.71 * (mEnd - mStart);
    AcGeDoubleArray params;
    params.append(first);
    params.append(second);
    AcDbVoidPtrArray pieces;
    ASSERT_EQ(mCurve->getSplitCurves(params, pieces), Acad::eOk);
    ASSERT_EQ(pieces.length(), mCurve->isClosed() ? 2 : 3);
    double sum = 0.0, length = 0.0;
    AcGePoint3d before = mCurve->isClosed() ? pointAt(0.23) : pointAt(0.0);
    for (int i = 0; i < pieces.length(); ++i) {
        const std::unique_ptr<AcDbCurve> piece(static_cast<AcDbCurve*>(pieces[i]));
        double end = 0.0, own = 0.0;
        AcGePoint3d from;
        ASSERT_EQ(piece->getStartPoint(from), Acad::eOk);
        ASSERT_EQ(piece->getEndParam(end), Acad::eOk);
        ASSERT_EQ(piece->getDistAtParam(end, own), Acad::eOk);
        EXPECT_LT(from.distanceTo(before), 1e-9);
        piece->getEndPoint(before);
        sum += own;
    }
    EXPECT_LT(before.distanceTo(mCurve->isClosed() ? pointAt(0.23) : pointAt(1.0)), 1e-9);
    ASSERT_EQ(mCurve->getDistAtParam(mEnd, length), Acad::eOk);
    EXPECT_NEAR(sum, length, 1e-9 * length);
}

TEST_P(CurveEntity, SplineOfItIsTheSameCurve)
{
    AcDbSpline* spline = nullptr;
    ASSERT_EQ(mCurve->getSpline(spline), Acad::eOk);
    const std::unique_ptr<AcDbSpline> owned(spline);
    for (const AcGePoint3d& p : samples(40)) {
        AcGePoint3d nearest;
        ASSERT_EQ(spline->getClosestPointTo(p, nearest), Acad::eOk);
        EXPECT_LT(nearest.distanceTo(p), 1e-8);
    }
}

TEST_P(CurveEntity, ProjectionIsThatOfItsPoints)
{
    const AcGePlane plane({1, 2, 3}, {0.2, 0.3, 1.0});
    const AcGeVector3d direction(0.1, 0.0, 1.0);
    AcDbCurve* image = nullptr;
    ASSERT_EQ(mCurve->getProjectedCurve(plane, direction, image), Acad::eOk);
    const std::unique_ptr<AcDbCurve> owned(image);
    const AcGeMatrix3d project = AcGeMatrix3d::projection(plane, direction);
    for (const AcGePoint3d& p : samples(40)) {
        AcGePoint3d nearest;
        ASSERT_EQ(image->getClosestPointTo(project * p, nearest), Acad::eOk);
        EXPECT_LT(nearest.distanceTo(project * p), 1e-8);
    }
}

TEST_P(CurveEntity, OffsetKeepsItsDistance)
{
    // The polylines cross themselves, so parts of their offsets are cut away: OffsetTest has simple ones.
    if (AcDbPolyline::cast(mCurve.get()) || AcDb2dPolyline::cast(mCurve.get())) return;
    AcDbVoidPtrArray none;
    if (!mCurve->isPlanar()) {
        EXPECT_EQ(mCurve->getOffsetCurves(1.0, none), Acad::eNonPlanarEntity);
        return;
    }
    for (const double offset : {0.2, -0.2}) {
        AcDbVoidPtrArray curves;
        ASSERT_EQ(mCurve->getOffsetCurves(offset, curves), Acad::eOk);
        ASSERT_GE(curves.length(), 1);
        for (int i = 0; i < curves.length(); ++i) {
            const std::unique_ptr<AcDbCurve> curve(static_cast<AcDbCurve*>(curves[i]));
            double start = 0.0, end = 0.0;
            ASSERT_EQ(curve->getStartParam(start), Acad::eOk);
            ASSERT_EQ(curve->getEndParam(end), Acad::eOk);
            for (int k = 1; k < 40; ++k) {
                AcGePoint3d point, nearest;
                ASSERT_EQ(curve->getPointAtParam(start + k / 40.0 * (end - start), point), Acad::eOk);
                mCurve->getClosestPointTo(point, nearest);
                // Corners that were extended are further away.
                EXPECT_GT(nearest.distanceTo(point), 0.2 * (1.0 - 2e-6)) << offset;
                EXPECT_LT(nearest.distanceTo(point), 0.7) << offset;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, CurveEntity, testing::ValuesIn(curveSamples()),
                         [](const testing::TestParamInfo<CurveSample>& info) { return info.param.name; });
