#include "brbrep.h"
#include "brtrav.h"
#include "dbcircle.h"
#include "dbline.h"
#include "dbregion.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

std::unique_ptr<AcDbRegion> disc(const AcGePoint3d& center, double radius)
{
    AcDbCircle circle(center, AcGeVector3d::kZAxis, radius);
    AcDbVoidPtrArray regions;
    EXPECT_EQ(AcDbRegion::createFromCurves(AcDbVoidPtrArray{&circle}, regions), Acad::eOk);
    return std::unique_ptr<AcDbRegion>(static_cast<AcDbRegion*>(regions[0]));
}

/// A ring between the radii 2 and 4 about the origin, and a disc of radius 1 beside it.
std::unique_ptr<AcDbRegion> ringAndDisc()
{
    auto region = disc({0, 0, 0}, 4.0);
    EXPECT_EQ(region->booleanOper(AcDb::kBoolSubtract, disc({0, 0, 0}, 2.0).get()), Acad::eOk);
    EXPECT_EQ(region->booleanOper(AcDb::kBoolUnite, disc({10, 0, 0}, 1.0).get()), Acad::eOk);
    return region;
}
} // namespace

TEST(Brep, PointsLieInsideOutsideOrOnTheBoundary)
{
    const auto region = ringAndDisc();
    AcBrBrep brep;
    ASSERT_EQ(brep.set(*region), AcBr::eOk);
    const struct {
        AcGePoint3d point;
        AcGe::PointContainment relation;
    } cases[] = {{{3, 0, 0}, AcGe::kInside},     {{10, 0.5, 0}, AcGe::kInside},  {{0, 0, 0}, AcGe::kOutside},
                 {{2, 0, 0}, AcGe::kOnBoundary}, {{0, 4, 0}, AcGe::kOnBoundary}, {{3, 0, 1}, AcGe::kOutside}};
    for (const auto& at : cases) {
        AcGe::PointContainment relation = AcGe::kOutside;
        EXPECT_EQ(brep.getPointRelationToBrep(at.point, relation), AcBr::eOk);
        EXPECT_EQ(relation, at.relation) << at.point.x << ' ' << at.point.y << ' ' << at.point.z;
    }
}

TEST(Brep, ContainersAreTheFaceOrTheEdge)
{
    AcBrBrep brep;
    ASSERT_EQ(brep.set(*ringAndDisc()), AcBr::eOk);
    AcGe::PointContainment containment = AcGe::kOutside;
    AcBrEntity* container = nullptr;
    ASSERT_EQ(brep.getPointContainment({10, 0.5, 0}, containment, container), AcBr::eOk);
    const std::unique_ptr<AcBrEntity> face(container);
    ASSERT_TRUE(AcBrFace::cast(container));
    double area = 0.0;
    EXPECT_EQ(AcBrFace::cast(container)->getArea(area), AcBr::eOk);
    EXPECT_NEAR(area, pi, 1e-9);
    ASSERT_EQ(brep.getPointContainment({2, 0, 0}, containment, container), AcBr::eOk);
    const std::unique_ptr<AcBrEntity> edge(container);
    ASSERT_TRUE(AcBrEdge::cast(container));
    double length = 0.0;
    EXPECT_EQ(edge->getPerimeterLength(length), AcBr::eOk);
    EXPECT_NEAR(length, 4.0 * pi, 1e-9);
    ASSERT_EQ(brep.getPointContainment({50, 0, 0}, containment, container), AcBr::eOk);
    EXPECT_EQ(container, nullptr);
}

TEST(Brep, TraversersVisitEveryEdgeOnce)
{
    AcBrBrep brep;
    ASSERT_EQ(brep.set(*ringAndDisc()), AcBr::eOk);
    AcBrBrepFaceTraverser faces;
    double length = 0.0, area = 0.0;
    int holes = 0;
    for (faces.setBrep(brep); !faces.done(); faces.next()) {
        AcBrFace face;
        double part = 0.0;
        EXPECT_EQ(faces.getFace(face), AcBr::eOk);
        EXPECT_EQ(face.getArea(part), AcBr::eOk);
        area += part;
        AcBrFaceLoopTraverser loops;
        for (loops.setFace(faces); !loops.done(); loops.next()) {
            AcBrLoop loop;
            AcBr::LoopType type = AcBr::kLoopUnclassified;
            loops.getLoop(loop);
            EXPECT_EQ(loop.getType(type), AcBr::eOk);
            holes += type == AcBr::kLoopInterior;
            AcBrLoopEdgeTraverser edges;
            for (edges.setLoop(loops); !edges.done(); edges.next()) {
                AcBrEdge edge;
                EXPECT_EQ(edges.getEdge(edge), AcBr::eOk);
                edge.getPerimeterLength(part);
                length += part;
            }
        }
    }
    EXPECT_EQ(holes, 1);
    EXPECT_NEAR(area, 12.0 * pi + pi, 1e-8);
    EXPECT_NEAR(length, 2.0 * pi * (4.0 + 2.0 + 1.0), 1e-8);
    EXPECT_EQ(faces.next(), AcBr::eEndOfTraverser);
}

TEST(Brep, EdgesMeetInTheirVertices)
{
    AcDbLine a({0, 0, 0}, {4, 0, 0}), b({4, 0, 0}, {4, 3, 0}), c({4, 3, 0}, {0, 0, 0});
    AcDbVoidPtrArray made;
    ASSERT_EQ(AcDbRegion::createFromCurves({&a, &b, &c}, made), Acad::eOk);
    const std::unique_ptr<AcDbRegion> region(static_cast<AcDbRegion*>(made[0]));
    AcBrBrep brep;
    ASSERT_EQ(brep.set(*region), AcBr::eOk);
    AcBrBrepFaceTraverser faces;
    AcBrFaceLoopTraverser loops;
    AcBrLoopEdgeTraverser edges;
    ASSERT_EQ(faces.setBrep(brep), AcBr::eOk);
    ASSERT_EQ(loops.setFace(faces), AcBr::eOk);
    int count = 0;
    for (edges.setLoop(loops); !edges.done(); edges.next(), ++count) {
        AcBrEdge edge;
        AcBrVertex from, to;
        AcGePoint3d start, end, curveEnd;
        AcGeCurve3d* curve = nullptr;
        ASSERT_EQ(edges.getEdge(edge), AcBr::eOk);
        ASSERT_EQ(edge.getCurve(curve), AcBr::eOk);
        const std::unique_ptr<AcGeCurve3d> owned(curve);
        edge.getVertex1(from);
        edge.getVertex2(to);
        from.getPoint(start);
        to.getPoint(end);
        ASSERT_TRUE(curve->hasEndPoint(curveEnd));
        EXPECT_TRUE(end.isEqualTo(curveEnd));
        EXPECT_FALSE(start.isEqualTo(end));
    }
    EXPECT_EQ(count, 3);
}

TEST(Brep, WhatHasNoBoundaryIsRefused)
{
    AcBrBrep brep;
    AcGe::PointContainment relation = AcGe::kOutside;
    EXPECT_EQ(brep.getPointRelationToBrep({0, 0, 0}, relation), AcBr::eUninitialisedObject);
    EXPECT_EQ(brep.set(AcDbLine({0, 0, 0}, {1, 0, 0})), AcBr::eWrongObjectType);
    AcDbFullSubentPath path;
    EXPECT_EQ(brep.setSubentPath(path), AcBr::eInvalidInput);
    AcDbFullSubentPath nowhere(AcDbObjectId(), AcDb::kNullSubentType, 0);
    EXPECT_EQ(brep.setSubentPath(nowhere), AcBr::eNullObjectId);
    EXPECT_TRUE(brep.isNull());
    AcBrBrepFaceTraverser faces;
    EXPECT_EQ(faces.setBrep(brep), AcBr::eUninitialisedObject);
    EXPECT_TRUE(faces.done());
    AcBrFace face;
    EXPECT_EQ(faces.getFace(face), AcBr::eUninitialisedObject);
}
