/// Intersections of entities: those of the curves they name, pair by pair where their boxes meet.

#include "BoxTree.h"
#include "dbentity.h"
#include "FlatImage.h"
#include "gearc3d.h"
#include "geblok3d.h"
#include "gecint3d.h"
#include "gecurv3d.h"
#include "PlanarCoords.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace
{
/// A curve of an entity, and what it looks like where crossings are sought.
struct Piece {
    std::unique_ptr<AcGeCurve3d> curve;
    std::unique_ptr<AcGeCurve3d> image; ///< null: the curve itself
    AcGePoint3d min, max;

    const AcGeCurve3d& seen() const { return image ? *image : *curve; }
    kernel::Box2 flatBox(double grow) const { return kernel::Box2{min.x, min.y, max.x, max.y}.grown(grow); }
    bool meets(const Piece& other, double tol) const
    {
        return min.x <= other.max.x + tol && other.min.x <= max.x + tol && min.y <= other.max.y + tol &&
               other.min.y <= max.y + tol && min.z <= other.max.z + tol && other.min.z <= max.z + tol;
    }
};

/// A common point: its place along the first entity.
struct Hit {
    std::size_t piece;
    double param;
    AcGePoint3d point;
};

void setBox(Piece& piece)
{
    constexpr double endless = 1e100;
    AcGeInterval interval;
    piece.seen().getInterval(interval);
    if (interval.isBounded()) {
        piece.seen().boundBlock().getMinMaxPoints(piece.min, piece.max);
    } else {
        piece.min.set(-endless, -endless, -endless);
        piece.max.set(endless, endless, endless);
    }
}

std::vector<Piece> piecesOf(const AcDbEntity& entity, bool extended, const AcGePlane* plane)
{
    AcDbEntity::Curves curves;
    entity.intersectionCurves(curves, extended);
    std::vector<Piece> pieces;
    pieces.reserve(curves.size());
    for (std::unique_ptr<AcGeCurve3d>& curve : curves) {
        Piece piece;
        if (plane) piece.image = flatImage(*curve, *plane);
        if (plane && !piece.image) continue;
        piece.curve = std::move(curve);
        setBox(piece);
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

class Intersection
{
public:
    Intersection(const std::vector<Piece>& first, const std::vector<Piece>& second, const AcGePlane* plane)
        : mFirst(first), mSecond(second), mPlane(plane)
    {
        double size = 0.0, widest = 0.0;
        for (const std::vector<Piece>* pieces : {&first, &second}) {
            for (const Piece& piece : *pieces) {
                size = std::max(size, magnitude(piece));
                widest = std::max(widest, radius(piece));
            }
        }
        mTol.setEqualPoint(onCurveTolerance({size, 0.0, 0.0}));
        mSame = 2.0 * onCurveTolerance({size + widest, 0.0, 0.0});
    }

    void find(AcGePoint3dArray& points)
    {
        constexpr std::size_t few = 64;
        if (mFirst.size() * mSecond.size() <= few) {
            meetAll();
        } else if (mFirst.size() < mSecond.size()) {
            meetByTree(mFirst, mSecond, [this](std::size_t i, std::size_t j) { meet(i, j); });
        } else {
            meetByTree(mSecond, mFirst, [this](std::size_t j, std::size_t i) { meet(i, j); });
        }
        appendOnce(points);
    }

private:
    static double magnitude(const Piece& piece)
    {
        const double size = std::max(std::max(std::fabs(piece.min.x), std::fabs(piece.max.x)),
                                     std::max(std::fabs(piece.min.y), std::fabs(piece.max.y)));
        return size < 1e99 ? size : 0.0;
    }

    static double radius(const Piece& piece)
    {
        const AcGeCurve3d& curve = piece.seen();
        return curve.type() == AcGe::kCircArc3d ? static_cast<const AcGeCircArc3d&>(curve).radius() : 0.0;
    }

    void meetAll()
    {
        for (std::size_t i = 0; i < mFirst.size(); ++i) {
            for (std::size_t j = 0; j < mSecond.size(); ++j)
                meet(i, j);
        }
    }

    template <class Meet>
    void meetByTree(const std::vector<Piece>& few, const std::vector<Piece>& many, const Meet& meetPair)
    {
        std::vector<kernel::Box2> boxes;
        boxes.reserve(many.size());
        for (const Piece& piece : many)
            boxes.push_back(piece.flatBox(0.0));
        const kernel::BoxTree tree(boxes);
        for (std::size_t i = 0; i < few.size(); ++i) {
            tree.eachIn(few[i].flatBox(mSame), [&](int j) { meetPair(i, static_cast<std::size_t>(j)); });
        }
    }

    void meet(std::size_t i, std::size_t j)
    {
        if (!mFirst[i].meets(mSecond[j], mSame)) return;
        const AcGeCurve3d& first = mFirst[i].seen();
        const AcGeCurveCurveInt3d found(first, mSecond[j].seen(), AcGeVector3d::kIdentity, mTol);
        for (int k = 0; k < found.numIntPoints(); ++k) {
            double param = 0.0, other = 0.0;
            found.getIntParams(k, param, other);
            mHits.push_back({i, param, found.intPoint(k)});
        }
        for (int k = 0; k < found.overlapCount(); ++k)
            addOverlap(i, found, k);
    }

    /// Of a shared stretch the ends count; a whole closed curve has none.
    void addOverlap(std::size_t i, const AcGeCurveCurveInt3d& found, int index)
    {
        AcGeInterval range, other, whole;
        found.getOverlapRanges(index, range, other);
        const AcGeCurve3d& curve = mFirst[i].seen();
        curve.getInterval(whole);
        if (!range.isBounded() || !std::isfinite(range.length())) return;
        if (curve.isClosed() && range.length() >= whole.length() * (1.0 - 1e-12)) return;
        for (const double param : {range.lowerBound(), range.upperBound()})
            mHits.push_back({i, param, curve.evalPoint(param)});
    }

    /// In their order along the first entity, each place once.
    void appendOnce(AcGePoint3dArray& points)
    {
        std::sort(mHits.begin(), mHits.end(), [](const Hit& a, const Hit& b) {
            return a.piece != b.piece ? a.piece < b.piece : a.param < b.param;
        });
        std::multimap<double, AcGePoint3d> taken;
        for (const Hit& hit : mHits) {
            const auto end = taken.upper_bound(hit.point.x + mSame);
            const bool known =
                std::any_of(taken.lower_bound(hit.point.x - mSame), end,
                            [&](const auto& item) { return item.second.distanceTo(hit.point) <= mSame; });
            if (known) continue;
            taken.emplace(hit.point.x, hit.point);
            points.append(onFirst(hit));
        }
    }

    AcGePoint3d onFirst(const Hit& hit) const
    {
        const Piece& piece = mFirst[hit.piece];
        return piece.image ? piece.curve->projClosestPointTo(hit.point, mPlane->normal()) : hit.point;
    }

    const std::vector<Piece>& mFirst;
    const std::vector<Piece>& mSecond;
    const AcGePlane* mPlane;
    AcGeTol mTol = AcGeContext::gTol;
    double mSame = 0.0; ///< places closer than this are one: arcs of large radii are rounded at it
    std::vector<Hit> mHits;
};

Acad::ErrorStatus intersect(const AcDbEntity& first, const AcDbEntity* second, AcDb::Intersect type,
                            const AcGePlane* plane, AcGePoint3dArray& points)
{
    if (!second) return Acad::eNullEntityPointer;
    if (type < AcDb::kOnBothOperands || type > AcDb::kExtendBoth) return Acad::eInvalidInput;
    const bool extendFirst = type == AcDb::kExtendThis || type == AcDb::kExtendBoth;
    const bool extendSecond = type == AcDb::kExtendArg || type == AcDb::kExtendBoth;
    const std::vector<Piece> own = piecesOf(first, extendFirst, plane);
    const std::vector<Piece> other = piecesOf(*second, extendSecond, plane);
    Intersection(own, other, plane).find(points);
    return Acad::eOk;
}
} // namespace

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* ent, AcDb::Intersect intType, AcGePoint3dArray& points,
                                            Adesk::GsMarker thisGsMarker, Adesk::GsMarker otherGsMarker) const
{
    return subIntersectWith(ent, intType, points, thisGsMarker, otherGsMarker);
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* ent, AcDb::Intersect intType, const AcGePlane& projPlane,
                                            AcGePoint3dArray& points, Adesk::GsMarker thisGsMarker,
                                            Adesk::GsMarker otherGsMarker) const
{
    return subIntersectWith(ent, intType, projPlane, points, thisGsMarker, otherGsMarker);
}

Acad::ErrorStatus AcDbEntity::subIntersectWith(const AcDbEntity* ent, AcDb::Intersect intType,
                                               AcGePoint3dArray& points, Adesk::GsMarker, Adesk::GsMarker) const
{
    return intersect(*this, ent, intType, nullptr, points);
}

Acad::ErrorStatus AcDbEntity::subIntersectWith(const AcDbEntity* ent, AcDb::Intersect intType,
                                               const AcGePlane& projPlane, AcGePoint3dArray& points, Adesk::GsMarker,
                                               Adesk::GsMarker) const
{
    return intersect(*this, ent, intType, &projPlane, points);
}
