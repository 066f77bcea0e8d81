#include "Region.h"

#include "AreaMoments.h"
#include "CurveFactory.h"
#include "geblok3d.h"
#include "LoopChains.h"
#include "RegionBody.h"

#include <cmath>

namespace kernel
{
using namespace gecore;

namespace
{
constexpr double kPlaneTol = 1e-8;

AcGePoint2d middleOf(const Box2& box)
{
    return {(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2};
}

/// The centroid and the second moments about it, in the plane.
Moments centralMoments(const std::vector<Run>& runs, const Box2& box, AcGePoint2d& centroid)
{
    const AcGePoint2d origin = middleOf(box);
    const Moments m = momentsOf(runs, origin);
    const AcGeVector2d off = m.area > 0 ? AcGeVector2d(m.x / m.area, m.y / m.area) : AcGeVector2d();
    centroid = origin + off;
    return m.movedTo(off.x, off.y);
}

/// Fills in what is measured about the axes from the second moments about the centroid, along the axes.
void setInertia(const Moments& central, RegionMeasures& out)
{
    const AcGePoint2d& c = out.centroid;
    out.momentX = central.yy + central.area * c.y * c.y;
    out.momentY = central.xx + central.area * c.x * c.x;
    out.product = central.xy + central.area * c.x * c.y;
    out.gyration[0] = std::sqrt(out.momentX / central.area);
    out.gyration[1] = std::sqrt(out.momentY / central.area);
    const double spread = std::hypot(central.xx - central.yy, 2 * central.xy);
    double angle = 0;
    if (spread > 1e-12 * (central.xx + central.yy))
        angle = std::atan2(2 * central.xy, central.xx - central.yy) / 2;
    if (angle > kPi / 4) angle -= kPi / 2;
    if (angle <= -kPi / 4) angle += kPi / 2;
    const double cs = std::cos(angle), sn = std::sin(angle), cross = 2 * central.xy * cs * sn;
    out.principal[0] = sn * sn * central.xx + cs * cs * central.yy - cross;
    out.principal[1] = cs * cs * central.xx + sn * sn * central.yy + cross;
    out.principalAxes[0].set(cs, sn);
    out.principalAxes[1].set(-sn, cs);
}

/// The second moments in axes x and y, which are given in those of the plane.
Moments turned(const Moments& m, const AcGeVector2d& x, const AcGeVector2d& y)
{
    const auto along = [&](const AcGeVector2d& a, const AcGeVector2d& b) {
        return a.x * b.x * m.xx + (a.x * b.y + a.y * b.x) * m.xy + a.y * b.y * m.yy;
    };
    return {m.area, 0, 0, along(x, x), along(y, y), along(x, y)};
}

/// The image of the faces in a frame, their loops turned so that the first runs counter-clockwise.
bool mapFaces(const std::vector<FaceCurves>& faces, const AcGeMatrix3d& frame, const AcGeMatrix3d& map,
              std::vector<Face>& mapped)
{
    const AcGeMatrix3d toFrame = frame.inverse() * map;
    for (const FaceCurves& face : faces) {
        Face image;
        for (const LoopCurves& loop : face) {
            Loop flat;
            for (const auto& curve : loop)
                flat.push_back(toPlane(*curve, toFrame));
            if (std::find(flat.begin(), flat.end(), nullptr) != flat.end()) return false;
            image.loops.push_back(std::move(flat));
        }
        if (areaOf(runsOf(image.loops.front())) < 0)
            for (Loop& loop : image.loops)
                loop = reversed(loop);
        mapped.push_back(std::move(image));
    }
    return true;
}
} // namespace

Region::Body::Body(const AcGeMatrix3d& planeToWorld, std::vector<Face> content)
    : frame(planeToWorld), faces(std::move(content))
{
    for (const Face& face : faces)
        for (const Loop& loop : face.loops)
            addRuns(loop, runs);
    for (const Run& run : runs)
        box.add(flatBoxOf(run.form));
}

Region::Region()
{
    static const auto empty = std::make_shared<const Body>(AcGeMatrix3d(), std::vector<Face>());
    mBody = empty;
}

bool Region::isEmpty() const
{
    return mBody->faces.empty();
}

const AcGeMatrix3d& Region::planeToWorld() const
{
    return mBody->frame;
}

AcGeVector3d Region::normal() const
{
    return mBody->frame * AcGeVector3d::kZAxis;
}

double Region::area() const
{
    return isEmpty() ? 0 : momentsOf(mBody->runs, middleOf(mBody->box)).area;
}

double Region::perimeter() const
{
    double length = 0;
    for (const Run& run : mBody->runs)
        length += lengthBetween(run.form, run.form.lo, run.form.hi);
    return length;
}

AcGePoint3d Region::centroid() const
{
    AcGePoint2d c;
    if (!isEmpty()) centralMoments(mBody->runs, mBody->box, c);
    return mBody->frame * AcGePoint3d(c.x, c.y, 0);
}

bool Region::extents(AcGePoint3d& low, AcGePoint3d& high) const
{
    if (isEmpty()) return false;
    gecore::Box box;
    for (const FaceCurves& face : faces())
        for (const LoopCurves& loop : face)
            for (const auto& curve : loop)
                box.add(gecore::boxOf(curve->form()));
    low = box.min;
    high = box.max;
    return true;
}

bool Region::measure(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis,
                     RegionMeasures& measures) const
{
    const AcGeMatrix3d inverse = mBody->frame.inverse();
    const AcGeVector3d x = inverse * xAxis, y = inverse * yAxis;
    const auto isUnitInPlane = [](const AcGeVector3d& v) {
        return std::fabs(v.z) <= kPlaneTol && std::fabs(v.length() - 1) <= kPlaneTol;
    };
    if (isEmpty() || !isUnitInPlane(x) || !isUnitInPlane(y) || !(std::fabs(x.dotProduct(y)) <= kPlaneTol))
        return false;
    const AcGePoint3d o = inverse * origin;
    const AcGeVector2d ax(x.x, x.y), ay(y.x, y.y);
    AcGePoint2d c;
    const Moments central = centralMoments(mBody->runs, mBody->box, c);
    RegionMeasures out;
    const AcGeVector2d off(c.x - o.x, c.y - o.y);
    out.centroid.set(off.dotProduct(ax), off.dotProduct(ay));
    out.area = central.area;
    out.perimeter = perimeter();
    setInertia(turned(central, ax, ay), out);
    AcGeMatrix3d axes;
    axes.setCoordSystem(AcGePoint3d(o.x, o.y, 0), x, y, x.crossProduct(y));
    Box2 box;
    for (const Run& run : mBody->runs)
        box.add(
            flatBoxOf(toPlane(*std::unique_ptr<AcGeCurve3d>(curve3dOf(run.form)), axes.inverse())->form()));
    out.low.set(box.minX, box.minY);
    out.high.set(box.maxX, box.maxY);
    measures = out;
    return true;
}

std::vector<FaceCurves> Region::faces() const
{
    std::vector<FaceCurves> result;
    for (const Face& face : mBody->faces) {
        result.emplace_back();
        for (const Loop& loop : face.loops) {
            result.back().emplace_back();
            for (const CurvePtr& curve : loop)
                result.back().back().push_back(toWorld(*curve, mBody->frame));
        }
    }
    return result;
}

Side Region::classify(const AcGePoint3d& p, double tol) const
{
    const AcGePoint3d flat = mBody->frame.inverse() * p;
    const AcGePoint2d place(flat.x, flat.y);
    if (!(std::fabs(flat.z) <= tol) || !mBody->box.grown(tol).contains(place)) return Side::kOutside;
    return sideOf(mBody->runs, place, tol);
}

RegionStatus Region::combine(BooleanKind kind, const Region& other, Region& result) const
{
    if (isEmpty() || other.isEmpty()) {
        const bool fromOther = kind == BooleanKind::kUnion && isEmpty();
        const bool none = kind == BooleanKind::kIntersect;
        result = none ? Region() : fromOther ? other : *this;
        return RegionStatus::kOk;
    }
    const AcGeMatrix3d toHere = mBody->frame.inverse() * other.mBody->frame;
    const AcGeVector3d z = toHere * AcGeVector3d::kZAxis;
    Box2 all = mBody->box;
    all.add(other.mBody->box);
    const double tol = safeTolerance(kPlaneTol, all);
    const AcGePoint2d middle = middleOf(other.mBody->box);
    const double height = (toHere * AcGePoint3d(middle.x, middle.y, 0)).z;
    const double tilt = std::hypot(z.x, z.y) * other.mBody->box.diagonal();
    if (!(std::fabs(height) <= 100 * tol) || !(tilt <= 100 * tol)) return RegionStatus::kNotCoplanar;
    std::vector<Face> moved;
    if (!mapFaces(other.faces(), mBody->frame, AcGeMatrix3d(), moved)) return RegionStatus::kNotCoplanar;
    const Body there(mBody->frame, std::move(moved));
    std::vector<Face> faces = facesOf(combinedLoops(kind, mBody->runs, there.runs, tol));
    result = Region(std::make_shared<const Body>(mBody->frame, std::move(faces)));
    return RegionStatus::kOk;
}

RegionStatus Region::transformBy(const AcGeMatrix3d& map)
{
    if (isEmpty()) return RegionStatus::kOk;
    const AcGeMatrix3d whole = map * mBody->frame;
    AcGeVector3d normal = (whole * AcGeVector3d::kXAxis).crossProduct(whole * AcGeVector3d::kYAxis);
    if (!(normal.length() > 1e-12) || !std::isfinite(normal.length())) return RegionStatus::kSingular;
    if (map.det() < 0) normal.negate(); // a mirrored region keeps its upper side
    const AcGeMatrix3d frame = frameOf(whole * AcGePoint3d::kOrigin, normal);
    std::vector<Face> mapped;
    if (!mapFaces(faces(), frame, map, mapped)) return RegionStatus::kSingular;
    mBody = std::make_shared<const Body>(frame, std::move(mapped));
    return RegionStatus::kOk;
}
} // namespace kernel
