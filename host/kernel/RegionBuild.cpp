#include "AreaMoments.h"
#include "CurveFactory.h"
#include "CurveMeasure.h"
#include "LoopChains.h"
#include "RegionBody.h"

#include <algorithm>

namespace kernel
{
using namespace gecore;

namespace
{
/// Composite curves fall into their parts. False for a curve that bounds nothing.
bool addParts(const CurveForm& form, double tol, Chain3d& parts)
{
    if (!isFinite(form) || !form.isBounded()) return false;
    if (form.kind == FormKind::kChain) {
        for (const ChainLink& link : *form.chain)
            if (gecore::boxOf(link.form).diagonal() > tol && !addParts(link.form, tol, parts)) return false;
        return !form.chain->empty();
    }
    if (!(gecore::boxOf(form).diagonal() > tol)) return false;
    parts.emplace_back(curve3dOf(form));
    return true;
}

void addShape(const Chain3d& chain, std::vector<AcGePoint3d>& points)
{
    for (const auto& curve : chain)
        for (const AcGePoint3d& p : shapePoints(curve->form()))
            points.push_back(p);
}

double toleranceFor(const Chain3d& curves, double tol)
{
    gecore::Box box;
    for (const auto& curve : curves)
        box.add(gecore::boxOf(curve->form()));
    Box2 size{box.min.x, box.min.y, box.max.x, box.max.y};
    size.add(Box2{box.min.z, box.min.z, box.max.z, box.max.z});
    return safeTolerance(tol, size);
}

/// The ends of a part this short would meet each other as well as their neighbours.
void dropShort(Chain3d& parts, double tol)
{
    const auto isShort = [tol](const auto& part) { return !(gecore::boxOf(part->form()).diagonal() > tol); };
    parts.erase(std::remove_if(parts.begin(), parts.end(), isShort), parts.end());
}

RegionStatus statusOf(ChainStatus status)
{
    switch (status) {
    case ChainStatus::kOpen:
        return RegionStatus::kOpen;
    case ChainStatus::kBranching:
        return RegionStatus::kBranching;
    default:
        return RegionStatus::kOk;
    }
}

/// The chain in its plane, counter-clockwise.
RegionStatus flatten(const Chain3d& chain, const AcGeMatrix3d& frame, double tol, Loop& loop)
{
    const AcGeMatrix3d toFrame = frame.inverse();
    for (const auto& curve : chain) {
        loop.push_back(toPlane(*curve, toFrame));
        if (!loop.back()) return RegionStatus::kBadCurve;
    }
    const double area = areaOf(runsOf(loop));
    if (!(std::fabs(area) > tol * tol) || !areSimple({loop}, tol)) return RegionStatus::kSelfCrossing;
    if (area < 0) loop = reversed(loop);
    return RegionStatus::kOk;
}

RegionStatus frameFor(const Chain3d& chain, double tol, AcGeMatrix3d& frame)
{
    std::vector<AcGePoint3d> points;
    addShape(chain, points);
    const FlatFit fit = fitFlat(points, tol);
    if (fit.kind == Flatness::kSpatial) return RegionStatus::kNotPlanar;
    if (fit.kind != Flatness::kPlanar) return RegionStatus::kSelfCrossing; // it runs to and fro on a line
    frame = frameOf(fit.point, upright(fit.normal));
    return RegionStatus::kOk;
}

/// The parts of a loop when each starts where the one before ends.
RegionStatus followedParts(const LoopCurves& loop, double tol, Chain3d& parts)
{
    for (const auto& curve : loop)
        if (!curve || !addParts(curve->form(), tol, parts)) return RegionStatus::kBadCurve;
    if (parts.empty()) return RegionStatus::kNoCurves;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto& next = parts[(i + 1) % parts.size()];
        if (endOf(parts[i]->form()).distanceTo(startOf(next->form())) > tol) return RegionStatus::kOpen;
    }
    return RegionStatus::kOk;
}

bool isInPlane(const Chain3d& chain, const AcGeMatrix3d& toFrame, double tol)
{
    std::vector<AcGePoint3d> points;
    addShape(chain, points);
    for (const AcGePoint3d& p : points)
        if (!(std::fabs((toFrame * p).z) <= tol)) return false;
    return true;
}

/// The loop with the largest area goes around the others.
void orderLoops(Face& face)
{
    const auto size = [](const Loop& loop) { return std::fabs(areaOf(runsOf(loop))); };
    std::stable_sort(face.loops.begin(), face.loops.end(),
                     [&](const Loop& a, const Loop& b) { return size(a) > size(b); });
    for (std::size_t i = 1; i < face.loops.size(); ++i)
        face.loops[i] = reversed(face.loops[i]);
}

RegionStatus flatFace(const FaceCurves& curves, const AcGeMatrix3d& frame, double tol, Face& face)
{
    for (const LoopCurves& loop : curves) {
        Chain3d parts;
        Loop flat;
        RegionStatus status = followedParts(loop, tol, parts);
        if (status == RegionStatus::kOk && !isInPlane(parts, frame.inverse(), tol))
            status = RegionStatus::kNotPlanar;
        if (status == RegionStatus::kOk) status = flatten(parts, frame, tol, flat);
        if (status != RegionStatus::kOk) return status;
        face.loops.push_back(std::move(flat));
    }
    if (face.loops.empty()) return RegionStatus::kNoCurves;
    orderLoops(face);
    return RegionStatus::kOk;
}

/// A point of the first curve, through which the plane goes.
bool firstPoint(const std::vector<FaceCurves>& faces, AcGePoint3d& p)
{
    if (faces.empty() || faces[0].empty() || faces[0][0].empty() || !faces[0][0][0]) return false;
    const CurveForm form = faces[0][0][0]->form();
    if (!isFinite(form) || !form.isBounded()) return false;
    p = startOf(form);
    return true;
}
} // namespace

std::vector<Region> Region::fromCurves(const std::vector<const AcGeCurve3d*>& curves, RegionStatus& status,
                                       double tol)
{
    Chain3d parts;
    status = curves.empty() ? RegionStatus::kNoCurves : RegionStatus::kOk;
    for (const AcGeCurve3d* curve : curves)
        if (!curve || !addParts(curve->form(), tol, parts)) status = RegionStatus::kBadCurve;
    if (status != RegionStatus::kOk) return {};
    const double near = toleranceFor(parts, tol);
    dropShort(parts, near);
    std::vector<Chain3d> chains;
    status = parts.empty() ? RegionStatus::kBadCurve : statusOf(closedChains(parts, near, chains));
    std::vector<Region> regions;
    for (const Chain3d& chain : chains) {
        AcGeMatrix3d frame;
        Loop loop;
        status = frameFor(chain, near, frame);
        if (status == RegionStatus::kOk) status = flatten(chain, frame, near, loop);
        if (status != RegionStatus::kOk) return {};
        regions.push_back(Region(std::make_shared<const Body>(frame, std::vector<Face>{Face{{loop}}})));
    }
    return regions;
}

Region Region::fromFaces(const std::vector<FaceCurves>& faces, const AcGeVector3d& normal,
                         RegionStatus& status, double tol)
{
    AcGePoint3d point;
    status = RegionStatus::kNoCurves;
    if (faces.empty()) return {};
    status = RegionStatus::kBadCurve;
    if (!firstPoint(faces, point) || !(normal.length() > 0)) return {};
    const AcGeMatrix3d frame = frameOf(point, normal);
    std::vector<Face> flat;
    for (const FaceCurves& face : faces) {
        flat.emplace_back();
        status =
            flatFace(face, frame, safeTolerance(tol, Box2{point.x, point.y, point.x, point.y}), flat.back());
        if (status != RegionStatus::kOk) return {};
    }
    return Region(std::make_shared<const Body>(frame, std::move(flat)));
}
} // namespace kernel
