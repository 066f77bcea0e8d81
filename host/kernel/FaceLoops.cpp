#include "FaceLoops.h"

#include "AreaMoments.h"
#include "CurveFactory.h"

#include <cmath>

namespace kernel
{
using namespace gecore;

namespace
{
/// A loop with what finding its place among others needs.
struct Placed {
    Loop loop;
    std::vector<Run> runs;
    double area = 0;
    Box2 box;
};

std::vector<Placed> placed(std::vector<Loop> loops)
{
    std::vector<Placed> result;
    for (Loop& loop : loops) {
        Placed item{std::move(loop), {}, 0, {}};
        item.runs = runsOf(item.loop);
        item.area = areaOf(item.runs);
        for (const Run& run : item.runs)
            item.box.add(flatBoxOf(run.form));
        result.push_back(std::move(item));
    }
    std::sort(result.begin(), result.end(),
              [](const Placed& a, const Placed& b) { return std::fabs(a.area) < std::fabs(b.area); });
    return result;
}

AcGePoint2d pointOf(const Placed& item)
{
    const CurveForm& form = item.runs.front().form;
    const AcGePoint3d p = pointAt(form, form.lo + (form.hi - form.lo) * 0.4871);
    return {p.x, p.y};
}

/// Two lines along each other, or two arcs of one circle in one direction.
bool isOneCurve(const CurveForm& a, const CurveForm& b, double tol)
{
    const AcGePoint3d far = endOf(b);
    if (a.kind == FormKind::kLine && b.kind == FormKind::kLine) {
        const AcGeVector3d u = a.u.normal(), off = far - startOf(a);
        return u.crossProduct(off).length() <= tol && a.u.dotProduct(b.u) > 0;
    }
    if (!isCircle(a) || !isCircle(b)) return false;
    const bool sameTurn = a.u.crossProduct(a.v).z * b.u.crossProduct(b.v).z > 0;
    return sameTurn && a.origin.distanceTo(b.origin) <= tol && std::fabs(a.u.length() - b.u.length()) <= tol;
}

CurvePtr joined(const CurveForm& a, const CurveForm& b)
{
    CurveForm both = a;
    if (a.kind == FormKind::kLine) {
        both = lineForm(startOf(a), endOf(b) - startOf(a), 0, 1);
    } else {
        both.hi = std::min(a.lo + kTwoPi, a.hi + (b.hi - b.lo));
    }
    return CurvePtr(curve2dOf(both));
}

bool canJoin(const CurvePtr& a, const CurvePtr& b, double tol)
{
    return isOneCurve(a->form(), b->form(), tol);
}
} // namespace

void addRuns(const Loop& loop, std::vector<Run>& runs)
{
    for (const CurvePtr& curve : loop)
        runs.push_back({curve->form(), true});
}

std::vector<Run> runsOf(const Loop& loop)
{
    std::vector<Run> runs;
    addRuns(loop, runs);
    return runs;
}

Loop reversed(const Loop& loop)
{
    Loop result;
    for (auto it = loop.rbegin(); it != loop.rend(); ++it)
        result.push_back(curveOf({(*it)->form(), false}));
    return result;
}

bool areSimple(const std::vector<Loop>& loops, double tol)
{
    std::vector<Strand> strands;
    int source = 0;
    for (const Loop& loop : loops)
        for (const CurvePtr& curve : loop)
            addStrands(curve->form(), source++, tol, strands);
    Arrangement plane(strands, tol);
    for (int i = 0; i < static_cast<int>(strands.size()); ++i)
        for (int k = 0; k < plane.edgeCount(i); ++k) {
            const HalfEdge h{i, k, true};
            if (plane.isRepeated(i, k)) return false;
            if (plane.fan(plane.startOf(h)).size() != 2 || plane.fan(plane.endOf(h)).size() != 2)
                return false;
        }
    return true;
}

std::vector<Face> facesOf(std::vector<Loop> loops)
{
    const std::vector<Placed> all = placed(std::move(loops)); // from small to large
    std::vector<Face> faces;
    std::vector<const Placed*> outers;
    for (const Placed& item : all) {
        if (!(item.area > 0)) continue;
        outers.push_back(&item);
        faces.push_back({{item.loop}});
    }
    for (const Placed& hole : all) {
        if (!(hole.area < 0)) continue;
        for (std::size_t i = 0; i < outers.size(); ++i) {
            const AcGePoint2d p = pointOf(hole);
            if (outers[i]->area <= -hole.area || !outers[i]->box.contains(p)) continue;
            if (windingNumber(outers[i]->runs, p) == 0) continue;
            faces[i].loops.push_back(hole.loop);
            break;
        }
    }
    return faces;
}

Loop merged(const Loop& loop, double tol)
{
    Loop result;
    for (const CurvePtr& curve : loop) {
        if (!result.empty() && canJoin(result.back(), curve, tol)) {
            result.back() = joined(result.back()->form(), curve->form());
        } else {
            result.push_back(curve);
        }
    }
    if (result.size() > 1 && canJoin(result.back(), result.front(), tol)) {
        result.front() = joined(result.back()->form(), result.front()->form());
        result.pop_back();
    }
    return result;
}

Loop loopOf(Arrangement& plane, const Cycle& cycle)
{
    Loop loop;
    for (const CyclePart& part : partsOf(plane, cycle))
        loop.push_back(curveOf(part.run));
    return loop;
}
} // namespace kernel
