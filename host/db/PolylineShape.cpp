/// Polylines as a whole: maps, grips, drawing, and conversions from free curves.

#include "acgi.h"
#include "BulgePath.h"
#include "dbpl.h"
#include "gearc3d.h"
#include "gecomp3d.h"
#include "gelnsg3d.h"
#include "geplin3d.h"
#include "PlanarCoords.h"

#include <algorithm>

void AcDbPolyline::mapVertices(const AcGeMatrix3d& xform, const AcGeVector3d& newNormal)
{
    const AcGeMatrix3d map = worldToOcs(newNormal) * xform * ocsToWorld(mNormal);
    const double elevation = mElevation;
    for (AcGePoint2d& p : mPoints) {
        const AcGePoint3d moved = map * AcGePoint3d(p.x, p.y, elevation);
        p = {moved.x, moved.y};
        mElevation = moved.z;
    }
    if (mPoints.empty()) mElevation = (map * AcGePoint3d(0.0, 0.0, elevation)).z;
    mNormal = newNormal;
}

Acad::ErrorStatus AcDbPolyline::subTransformBy(const AcGeMatrix3d& xform)
{
    if (!xform.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    const double scale = xform.scale();
    mThickness = mappedThickness(xform, mNormal, mThickness);
    mapVertices(xform, (xform * mNormal).normal());
    if (xform.det() < 0.0) {
        for (double& bulge : mBulges)
            bulge = -bulge;
    }
    mConstantWidth *= scale;
    for (std::size_t i = 0; hasWidths() && i < mPoints.size(); ++i) {
        mRare->widths[i].first *= scale;
        mRare->widths[i].second *= scale;
    }
    return Acad::eOk;
}

// Straight and thin polylines stay what they are under every map; the normal becomes that of the mapped
// plane.
Acad::ErrorStatus AcDbPolyline::subGetTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const
{
    if (xform.isUniScaledOrtho()) return DbPathCurve::subGetTransformedCopy(xform, copy);
    if (hasBulges() || hasWidth() || mThickness != 0.0) return Acad::eCannotScaleNonUniformly;
    const AcGeMatrix3d ecs = ocsToWorld(mNormal);
    AcGeVector3d normal =
        (xform * (ecs * AcGeVector3d::kXAxis)).crossProduct(xform * (ecs * AcGeVector3d::kYAxis));
    if (normal.dotProduct(xform * mNormal) < 0.0) normal.negate();
    std::unique_ptr<AcDbPolyline> made(AcDbPolyline::cast(clone()));
    made->mapVertices(xform, normal.normal());
    copy = made.release();
    return Acad::eOk;
}

bool AcDbPolyline::subWorldDraw(AcGiWorldDraw* draw)
{
    draw->geometry().pline(*this);
    return true;
}

std::unique_ptr<AcDbCurve> AcDbPolyline::makePath(const BulgePath& path) const
{
    auto made = std::make_unique<AcDbPolyline>();
    made->mPoints.assign(path.points, path.points + path.count);
    if (path.hasArcs()) made->mBulges.assign(path.bulges, path.bulges + path.count);
    made->mFlags = static_cast<std::int16_t>((mFlags & ~closedFlag) | (path.isClosed ? closedFlag : 0));
    made->mElevation = path.elevation;
    made->mNormal = path.normal;
    made->mThickness = mThickness;
    double width = 0.0;
    if (getConstantWidth(width) == Acad::eOk) made->mConstantWidth = width;
    made->setPropertiesFrom(this);
    return made;
}

Acad::ErrorStatus AcDbPolyline::setEndVertex(bool start, const AcGePoint2d& point, double bulge)
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    (start ? mPoints.front() : mPoints.back()) = point;
    if (bulge != 0.0) needBulges()[start ? 0 : mPoints.size() - 2] = bulge;
    return status;
}

// The vertices, then the middles of the segments.
Acad::ErrorStatus AcDbPolyline::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                                 AcDbIntArray&) const
{
    const BulgePath at = path();
    const AcGeMatrix3d world = at.toWorld();
    const auto append = [&](const AcGePoint2d& p) { gripPoints.append(world * AcGePoint3d(p.x, p.y, 0.0)); };
    for (int i = 0; i < at.count; ++i)
        append(at.points[i]);
    for (int i = 0; i < at.segments(); ++i)
        append(at.segment(i).pointAt(0.5));
    return Acad::eOk;
}

// The middle of a line takes both of its ends along, that of an arc bends it.
void AcDbPolyline::moveMiddle(unsigned int index, const AcGeVector2d& offset)
{
    const BulgeSegment segment = path().segment(static_cast<int>(index));
    if (!segment.isArc()) {
        mPoints[index] += offset;
        mPoints[(index + 1) % mPoints.size()] += offset;
        return;
    }
    const AcGeVector2d chord = segment.end() - segment.start();
    const AcGeVector2d height = segment.pointAt(0.5) + offset - (segment.start() + 0.5 * chord);
    mBulges[index] = 2.0 * height.crossProduct(chord) / chord.lengthSqrd();
}

Acad::ErrorStatus AcDbPolyline::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    const AcGeVector3d local = worldToOcs(mNormal) * offset;
    const AcGeVector2d moved(local.x, local.y);
    for (int i = 0; i < indices.length(); ++i) {
        const auto index = static_cast<unsigned int>(indices[i]);
        if (isVertex(index)) {
            mPoints[index] += moved;
        } else {
            moveMiddle(index - numVerts(), moved);
        }
    }
    return Acad::eOk;
}

namespace
{
/// Collects pieces of a free curve as vertices, in the coordinates of a plane.
class PathOfCurve
{
public:
    PathOfCurve(BulgePath& path, const AcGeMatrix3d& toPlane) : mPath(path), mToPlane(toPlane) {}

    bool add(const AcGeCurve3d& curve)
    {
        if (curve.isKindOf(AcGe::kLineSeg3d)) return addPiece(curve, 0.0);
        if (curve.isKindOf(AcGe::kCircArc3d)) return addArc(static_cast<const AcGeCircArc3d&>(curve));
        if (curve.isKindOf(AcGe::kPolyline3d)) return addPoints(static_cast<const AcGePolyline3d&>(curve));
        return curve.isKindOf(AcGe::kCompositeCrv3d) &&
               addAll(static_cast<const AcGeCompositeCurve3d&>(curve));
    }

private:
    bool addAll(const AcGeCompositeCurve3d& composite)
    {
        AcGeVoidPointerArray parts;
        composite.getCurveList(parts);
        for (int i = 0; i < parts.length(); ++i) {
            if (!add(*static_cast<const AcGeCurve3d*>(parts[i]))) return false;
        }
        return true;
    }

    bool addPoints(const AcGePolyline3d& polyline)
    {
        for (int i = 0; i < polyline.numControlPoints(); ++i) {
            if (i == 0 && mPath.count > 0) continue;
            if (!addVertex(polyline.controlPointAt(i), 0.0)) return false;
        }
        return true;
    }

    /// A whole circle is two halves.
    bool addArc(const AcGeCircArc3d& arc)
    {
        const double middle = (arc.startAng() + arc.endAng()) / 2.0, total = arc.endAng() - arc.startAng();
        const double side = (mToPlane * arc.normal()).z;
        if (std::fabs(std::fabs(side) - 1.0) > 1e-9) return false;
        if (total < 6.28) return addPiece(arc, std::copysign(std::tan(total / 4.0), side));
        return addPiece(arc, std::copysign(1.0, side)) &&
               setLast(arc.evalPoint(middle), std::copysign(1.0, side)) && addVertex(arc.endPoint(), 0.0);
    }

    bool addPiece(const AcGeCurve3d& piece, double bulge)
    {
        AcGePoint3d start, end;
        if (!piece.hasStartPoint(start) || !piece.hasEndPoint(end)) return false;
        if (mPath.count == 0 && !addVertex(start, 0.0)) return false;
        mPath.ownBulges.back() = bulge;
        return addVertex(end, 0.0);
    }

    bool setLast(const AcGePoint3d& point, double bulge)
    {
        const AcGePoint3d local = mToPlane * point;
        mPath.ownPoints.back() = {local.x, local.y};
        mPath.ownBulges.back() = bulge;
        return true;
    }

    bool addVertex(const AcGePoint3d& point, double bulge)
    {
        const AcGePoint3d local = mToPlane * point;
        if (mPath.count > 0 && std::fabs(local.z - mPath.elevation) > 1e-9 * (1.0 + std::fabs(local.z)))
            return false;
        if (mPath.count == 0) mPath.elevation = local.z;
        mPath.append({local.x, local.y}, bulge);
        return true;
    }

    BulgePath& mPath;
    const AcGeMatrix3d& mToPlane;
};
} // namespace

Acad::ErrorStatus AcDbPolyline::setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal,
                                                 const AcGeTol& tol)
{
    AcGePlane plane;
    if (!curve.isPlanar(plane, tol)) return Acad::eNonPlanarEntity;
    BulgePath path;
    path.normal = normal && isDirection(*normal) ? normal->normal() : plane.normal();
    if (!PathOfCurve(path, worldToOcs(path.normal)).add(curve)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    const bool closed = path.count > 2 && path.ownPoints.front().isEqualTo(path.ownPoints.back(), tol);
    if (closed) path.ownPoints.pop_back();
    if (closed) path.ownBulges.pop_back();
    path.useOwn();
    mRare.reset();
    mPoints = std::move(path.ownPoints);
    mBulges = path.hasArcs() ? std::move(path.ownBulges) : std::vector<double>();
    mElevation = path.elevation;
    mNormal = path.normal;
    setFlag(closedFlag, closed);
    return status;
}
