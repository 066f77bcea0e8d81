#pragma once

/// Curves and regions that the tests of this folder share.

#include "gearc3d.h"
#include "geell3d.h"
#include "gelnsg2d.h"
#include "gelnsg3d.h"
#include "genurb3d.h"
#include "Region.h"

#include <cmath>
#include <random>

constexpr double kPi = 3.14159265358979323846;

/// Owns curves and lists them as the functions under test take them.
class CurveList
{
public:
    template <class Curve>
    CurveList& add(const Curve& curve)
    {
        mOwned.push_back(std::make_shared<Curve>(curve));
        return *this;
    }
    CurveList& line(double x0, double y0, double x1, double y1)
    {
        return add(AcGeLineSeg3d(AcGePoint3d(x0, y0, 0), AcGePoint3d(x1, y1, 0)));
    }
    CurveList& circle(double x, double y, double r)
    {
        return add(AcGeCircArc3d({x, y, 0}, AcGeVector3d::kZAxis, r));
    }
    CurveList& polygon(const std::vector<AcGePoint2d>& p)
    {
        for (std::size_t i = 0; i < p.size(); ++i) {
            const AcGePoint2d& next = p[(i + 1) % p.size()];
            line(p[i].x, p[i].y, next.x, next.y);
        }
        return *this;
    }
    CurveList& rectangle(double x0, double y0, double x1, double y1)
    {
        return polygon({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
    }
    std::vector<const AcGeCurve3d*> pointers() const
    {
        std::vector<const AcGeCurve3d*> result;
        for (const auto& curve : mOwned)
            result.push_back(curve.get());
        return result;
    }
    std::vector<kernel::Region> regions(kernel::RegionStatus& status) const
    {
        return kernel::Region::fromCurves(pointers(), status);
    }
    /// The first region; an empty one when there is none.
    kernel::Region region() const
    {
        kernel::RegionStatus status;
        const auto all = regions(status);
        return all.empty() ? kernel::Region() : all.front();
    }

private:
    std::vector<std::shared_ptr<const AcGeCurve3d>> mOwned;
};

/// Random shapes, from a printed seed.
class RandomShapes
{
public:
    explicit RandomShapes(unsigned seed) : mEngine(seed) {}

    double real(double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(mEngine); }
    int whole(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(mEngine); }

    /// A polygon around a centre that does not cross itself.
    std::vector<AcGePoint2d> star(const AcGePoint2d& center, int n)
    {
        std::vector<AcGePoint2d> points;
        for (int i = 0; i < n; ++i) {
            const double r = real(1, 5), a = 2 * kPi * (i + real(0, 0.8)) / n;
            points.emplace_back(center.x + r * std::cos(a), center.y + r * std::sin(a));
        }
        return points;
    }

    /// A polygon, a circle, an ellipse or a closed spline.
    kernel::Region region()
    {
        const AcGePoint2d c(real(-3, 3), real(-3, 3));
        CurveList list;
        switch (whole(0, 3)) {
        case 0:
            return list.polygon(star(c, whole(3, 12))).region();
        case 1:
            return list.circle(c.x, c.y, real(0.5, 5)).region();
        case 2: {
            const AcGeVector3d axis = AcGeVector3d(1, 0, 0).rotateBy(real(0, kPi), AcGeVector3d::kZAxis);
            return list
                .add(AcGeEllipArc3d({c.x, c.y, 0}, axis, AcGeVector3d::kZAxis.crossProduct(axis), real(2, 6),
                                    real(0.5, 2)))
                .region();
        }
        default:
            return list.add(closedSpline(c)).region();
        }
    }

    AcGeNurbCurve3d closedSpline(const AcGePoint2d& c)
    {
        AcGePoint3dArray points;
        for (const AcGePoint2d& p : star(c, whole(5, 9)))
            points.append({c.x + (p.x - c.x) * 0.4 + 3 * (p.x - c.x) / c.distanceTo(p),
                           c.y + (p.y - c.y) * 0.4 + 3 * (p.y - c.y) / c.distanceTo(p), 0});
        points.append(points[0]);
        return {points};
    }

private:
    std::mt19937 mEngine;
};

/// The boundary as a fine polygon: what the tests compare with.
inline std::vector<std::vector<AcGePoint2d>> polygonsOf(const kernel::Region& region, int perCurve)
{
    std::vector<std::vector<AcGePoint2d>> polygons;
    for (const auto& face : region.faces())
        for (const auto& loop : face) {
            polygons.emplace_back();
            for (const auto& curve : loop) {
                AcGeInterval range;
                curve->getInterval(range);
                for (int i = 0; i < perCurve; ++i) {
                    const AcGePoint3d p =
                        curve->evalPoint(range.lowerBound() + range.length() * i / perCurve);
                    polygons.back().emplace_back(p.x, p.y);
                }
            }
        }
    return polygons;
}

inline double polygonArea(const std::vector<std::vector<AcGePoint2d>>& polygons)
{
    double area = 0;
    for (const auto& p : polygons)
        for (std::size_t i = 0; i < p.size(); ++i) {
            const AcGePoint2d& q = p[(i + 1) % p.size()];
            area += (p[i].x * q.y - p[i].y * q.x) / 2;
        }
    return area;
}

/// Even-odd rule.
inline bool isInPolygons(const std::vector<std::vector<AcGePoint2d>>& polygons, const AcGePoint2d& at)
{
    bool inside = false;
    for (const auto& p : polygons)
        for (std::size_t i = 0; i < p.size(); ++i) {
            const AcGePoint2d &a = p[i], &b = p[(i + 1) % p.size()];
            if ((a.y > at.y) != (b.y > at.y) && at.x < a.x + (b.x - a.x) * (at.y - a.y) / (b.y - a.y))
                inside = !inside;
        }
    return inside;
}
