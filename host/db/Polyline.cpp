#include "dbpl.h"

#include "BulgePath.h"
#include "ClassRegistration.h"
#include "gearc2d.h"
#include "gearc3d.h"
#include "gelnsg2d.h"
#include "gelnsg3d.h"
#include "PlanarCoords.h"

#include <algorithm>
#include <tuple>

ACDB_DXF_CLASS(AcDbPolyline, AcDbCurve, LWPOLYLINE)

AcDbPolyline::Widths AcDbPolyline::widthsAt(std::size_t index) const
{
    return hasWidths() ? mRare->widths[index] : Widths(mConstantWidth, mConstantWidth);
}

std::vector<AcDbPolyline::Widths>& AcDbPolyline::needWidths()
{
    std::vector<Widths>& widths = mRare.need().widths;
    widths.resize(mPoints.size(), {mConstantWidth, mConstantWidth});
    return widths;
}

std::vector<double>& AcDbPolyline::needBulges()
{
    mBulges.resize(mPoints.size(), 0.0);
    return mBulges;
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& pt, double bulge,
                                            double startWidth, double endWidth, Adesk::Int32 vertexIdentifier)
{
    if (index > mPoints.size()) return Acad::eInvalidIndex;
    if (!isFinite(pt) || !std::isfinite(bulge) || !std::isfinite(startWidth) || !std::isfinite(endWidth))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    const double start = startWidth < 0.0 ? mConstantWidth : startWidth;
    const double end = endWidth < 0.0 ? mConstantWidth : endWidth;
    if (hasWidths() || start != mConstantWidth || end != mConstantWidth) {
        std::vector<Widths>& widths = needWidths();
        widths.insert(widths.begin() + index, {start, end});
    }
    if (vertexIdentifier != 0) mRare.need().identifiers.resize(mPoints.size());
    if (vertexIdentifier != 0 || hasVertexIdentifiers())
        mRare->identifiers.insert(mRare->identifiers.begin() + index, vertexIdentifier);
    if (bulge != 0.0) needBulges();
    if (bulge != 0.0 || !mBulges.empty()) mBulges.insert(mBulges.begin() + index, bulge);
    mPoints.insert(mPoints.begin() + index, pt);
    return status;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index)
{
    if (!isVertex(index)) return Acad::eInvalidIndex;
    if (mPoints.size() <= 2) return Acad::eDegenerateGeometry;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mPoints.erase(mPoints.begin() + index);
    if (!mBulges.empty()) mBulges.erase(mBulges.begin() + index);
    if (hasWidths()) mRare->widths.erase(mRare->widths.begin() + index);
    if (hasVertexIdentifiers()) mRare->identifiers.erase(mRare->identifiers.begin() + index);
    return status;
}

void AcDbPolyline::reset(bool reuse, unsigned int numVerts)
{
    if (beginChange() != Acad::eOk) return;
    const std::size_t kept = reuse ? std::min<std::size_t>(numVerts, mPoints.size()) : 0;
    mPoints.resize(kept);
    mPoints.reserve(numVerts);
    if (!mBulges.empty()) mBulges.resize(kept);
    if (hasWidths()) mRare->widths.resize(kept);
    if (hasVertexIdentifiers()) mRare->identifiers.resize(kept);
}

void AcDbPolyline::minimizeMemory()
{
    mPoints.shrink_to_fit();
    mBulges.shrink_to_fit();
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& pt) const
{
    if (!isVertex(index)) return Acad::eInvalidIndex;
    pt = ocsToWorld(mNormal) * AcGePoint3d(mPoints[index].x, mPoints[index].y, mElevation);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& pt) const
{
    if (!isVertex(index)) return Acad::eInvalidIndex;
    pt = mPoints[index];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& pt)
{
    if (!isVertex(index)) return Acad::eInvalidIndex;
    if (!isFinite(pt)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mPoints[index] = pt;
    return status;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const
{
    if (!isVertex(index)) return Acad::eInvalidIndex;
    bulge = bulgeAt(index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge)
{
    if (!isVertex(index)) return Acad::eInvalidIndex;
    if (!std::isfinite(bulge)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk && bulge != bulgeAt(index)) needBulges()[index] = bulge;
    return status;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const
{
    if (!isVertex(index)) return Acad::eInvalidIndex;
    std::tie(startWidth, endWidth) = widthsAt(index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth)
{
    if (!isVertex(index)) return Acad::eInvalidIndex;
    if (!(startWidth >= 0.0) || !(endWidth >= 0.0) || !std::isfinite(startWidth + endWidth))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk || widthsAt(index) == Widths(startWidth, endWidth)) return status;
    needWidths()[index] = {startWidth, endWidth};
    return status;
}

Acad::ErrorStatus AcDbPolyline::getVertexIdentifierAt(unsigned int index,
                                                      Adesk::Int32& vertexIdentifier) const
{
    if (!isVertex(index)) return Acad::eInvalidIndex;
    vertexIdentifier = hasVertexIdentifiers() ? mRare->identifiers[index] : 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setVertexIdentifierAt(unsigned int index, Adesk::Int32 vertexIdentifier)
{
    if (!isVertex(index)) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    std::vector<Adesk::Int32>& identifiers = mRare.need().identifiers;
    identifiers.resize(mPoints.size());
    identifiers[index] = vertexIdentifier;
    return status;
}

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const
{
    const Widths first = mPoints.empty() ? Widths(mConstantWidth, mConstantWidth) : widthsAt(0);
    for (std::size_t i = 0; hasWidths() && i < mPoints.size(); ++i) {
        if (widthsAt(i) != Widths(first.first, first.first)) return Acad::eInvalidInput;
    }
    width = first.first;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width)
{
    if (!(width >= 0.0) || !std::isfinite(width)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mConstantWidth = width;
    if (mRare) mRare->widths.clear();
    return status;
}

bool AcDbPolyline::hasBulges() const
{
    return std::any_of(mBulges.begin(), mBulges.end(), [](double bulge) { return bulge != 0.0; });
}

bool AcDbPolyline::hasWidth() const
{
    if (!hasWidths()) return mConstantWidth != 0.0;
    return std::any_of(mRare->widths.begin(), mRare->widths.end(),
                       [](const Widths& w) { return w != Widths(0.0, 0.0); });
}

void AcDbPolyline::setFlag(std::int16_t flag, bool on)
{
    if (beginChange() == Acad::eOk) mFlags = static_cast<std::int16_t>(on ? mFlags | flag : mFlags & ~flag);
}

void AcDbPolyline::setPlinegen(bool plinegen)
{
    setFlag(plinegenFlag, plinegen);
}
void AcDbPolyline::setClosed(bool closed)
{
    setFlag(closedFlag, closed);
}

Acad::ErrorStatus AcDbPolyline::setElevation(double elevation)
{
    if (!std::isfinite(elevation)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mElevation = elevation;
    return status;
}

Acad::ErrorStatus AcDbPolyline::setThickness(double thickness)
{
    if (!std::isfinite(thickness)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mThickness = thickness;
    return status;
}

Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal)
{
    if (!isDirection(normal)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mNormal = normal.normal();
    return status;
}

void AcDbPolyline::getEcs(AcGeMatrix3d& matrix) const
{
    matrix = path().toWorld();
}

BulgePath AcDbPolyline::path() const
{
    BulgePath path;
    path.points = mPoints.data();
    path.bulges = mBulges.empty() ? nullptr : mBulges.data();
    path.widths = hasWidths() ? mRare->widths.data() : nullptr;
    path.constantWidth = mConstantWidth;
    path.count = static_cast<int>(mPoints.size());
    path.isClosed = isClosed();
    path.elevation = mElevation;
    path.normal = mNormal;
    return path;
}

AcDbPolyline::SegType AcDbPolyline::segType(unsigned int index) const
{
    const BulgePath at = path();
    if (!isVertex(index)) return kEmpty;
    if (static_cast<int>(index) >= at.segments()) return kPoint;
    const BulgeSegment segment = at.segment(static_cast<int>(index));
    if (segment.start().isEqualTo(segment.end())) return kCoincident;
    return segment.isArc() ? kArc : kLine;
}

Acad::ErrorStatus AcDbPolyline::getLineSegAt(unsigned int index, AcGeLineSeg2d& line) const
{
    const BulgePath at = path();
    if (static_cast<int>(index) >= at.segments()) return Acad::eInvalidIndex;
    if (segType(index) == kArc) return Acad::eInvalidInput;
    const BulgeSegment segment = at.segment(static_cast<int>(index));
    line.set(segment.start(), segment.end());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const
{
    AcGeLineSeg2d inPlane;
    const Acad::ErrorStatus status = getLineSegAt(index, inPlane);
    if (status != Acad::eOk) return status;
    const AcGeMatrix3d world = path().toWorld();
    const AcGePoint2d from = inPlane.startPoint(), to = inPlane.endPoint();
    line.set(world * AcGePoint3d(from.x, from.y, 0.0), world * AcGePoint3d(to.x, to.y, 0.0));
    return status;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc2d& arc) const
{
    const BulgePath at = path();
    if (static_cast<int>(index) >= at.segments()) return Acad::eInvalidIndex;
    if (segType(index) != kArc) return Acad::eInvalidInput;
    const BulgeSegment segment = at.segment(static_cast<int>(index));
    arc.set(segment.start(), segment.end(), at.bulgeAt(static_cast<int>(index)), false);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const
{
    const BulgePath at = path();
    if (static_cast<int>(index) >= at.segments()) return Acad::eInvalidIndex;
    if (segType(index) != kArc) return Acad::eInvalidInput;
    const std::unique_ptr<AcGeCurve3d> piece = at.geSegment(static_cast<int>(index), at.toWorld());
    arc = static_cast<const AcGeCircArc3d&>(*piece);
    return Acad::eOk;
}

bool AcDbPolyline::onSegAt(unsigned int index, const AcGePoint2d& pt2d, double& param) const
{
    const BulgePath at = path();
    if (static_cast<int>(index) >= at.segments() || !isFinite(pt2d)) return false;
    const BulgeSegment segment = at.segment(static_cast<int>(index));
    const double t = segment.closestParam(pt2d);
    if (segment.pointAt(t).distanceTo(pt2d) > onCurveTolerance({pt2d.x, pt2d.y, 0.0})) return false;
    param = t;
    return true;
}

Acad::ErrorStatus AcDbPolyline::makeClosedIfStartAndEndVertexCoincide(double distTol)
{
    if (!(distTol >= 0.0)) return Acad::eInvalidInput;
    if (isClosed() || mPoints.size() < 3 || mPoints.front().distanceTo(mPoints.back()) > distTol)
        return Acad::eOk;
    const Acad::ErrorStatus status = removeVertexAt(numVerts() - 1);
    if (status == Acad::eOk) setClosed(true);
    return status;
}

// Bulges and widths belong to the segment behind their vertex, so they move by one where the vertices turn
// round.
Acad::ErrorStatus AcDbPolyline::reverseCurve()
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk || mPoints.empty()) return status;
    std::reverse(mPoints.begin(), mPoints.end());
    if (!mBulges.empty()) {
        std::reverse(mBulges.begin(), mBulges.end() - 1);
        for (double& bulge : mBulges)
            bulge = -bulge;
    }
    if (hasWidths()) {
        std::reverse(mRare->widths.begin(), mRare->widths.end() - 1);
        for (Widths& widths : mRare->widths)
            std::swap(widths.first, widths.second);
    }
    if (hasVertexIdentifiers()) std::reverse(mRare->identifiers.begin(), mRare->identifiers.end());
    return status;
}
