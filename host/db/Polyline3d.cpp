#include "db3dpl.h"

#include "acgi.h"
#include "ClassRegistration.h"
#include "dbblock.h"
#include "dbline.h"
#include "dbobjiter.h"
#include "DxfFollowed.h"
#include "DxfOptional.h"
#include "geline3d.h"
#include "gelnsg3d.h"
#include "geplin3d.h"
#include "geray3d.h"
#include "PlanarCoords.h"
#include "Stub.h"

#include <algorithm>

ACDB_DXF_CLASS(AcDb3dPolyline, AcDbCurve, POLYLINE)

const DxfClass
    AcDb3dPolyline::dxf("AcDb3dPolyline", &AcDbCurve::dxf,
                        {
                            dxf::followed(),
                            dxf::point<&AcDb3dPolyline::mOrigin>(10),
                            dxf::integer<&AcDb3dPolyline::mFlags>(70),
                            dxf::givenInteger<&AcDb3dPolyline::mSmoothing, &AcDb3dPolyline::mGiven, 1u>(75),
                        });

namespace
{
constexpr int splineFit = 4;
constexpr std::int16_t quadratic = 5, cubic = 6;
} // namespace

AcDb3dPolyline::AcDb3dPolyline(AcDb::Poly3dType type, const AcGePoint3dArray& vertices, Adesk::Boolean closed)
{
    setPolyType(type);
    setFlag(1, closed);
    for (const AcGePoint3d& point : vertices)
        appendVertex(new AcDb3dPolylineVertex(point));
}

AcDb::Poly3dType AcDb3dPolyline::polyType() const
{
    if (!(mFlags & splineFit)) return AcDb::k3dSimplePoly;
    return mSmoothing == quadratic ? AcDb::k3dQuadSplinePoly : AcDb::k3dCubicSplinePoly;
}

Acad::ErrorStatus AcDb3dPolyline::setPolyType(AcDb::Poly3dType type)
{
    if (type < AcDb::k3dSimplePoly || type > AcDb::k3dCubicSplinePoly) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setFlag(splineFit, type != AcDb::k3dSimplePoly);
    if (status != Acad::eOk) return status;
    mSmoothing = type == AcDb::k3dSimplePoly ? 0 : type == AcDb::k3dQuadSplinePoly ? quadratic : cubic;
    return status;
}

Acad::ErrorStatus AcDb3dPolyline::setFlag(int flag, bool on)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(on ? mFlags | flag : mFlags & ~flag);
    return status;
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDb3dPolylineVertex* vertex)
{
    AcDbObjectId id;
    return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex)
{
    return mVertices.append(*this, id, vertex);
}

Acad::ErrorStatus AcDb3dPolyline::insertVertexAt(const AcDb3dPolylineVertex* place,
                                                 AcDb3dPolylineVertex* vertex)
{
    AcDbObjectId id;
    return mVertices.insertAfter(*this, place, id, vertex);
}

Acad::ErrorStatus AcDb3dPolyline::insertVertexAt(AcDbObjectId& id, const AcDbObjectId& place,
                                                 AcDb3dPolylineVertex* vertex)
{
    const AcDbEntity* behind = AcDbEntity::cast(residentObject(place));
    if (!place.isNull() && !behind) return Acad::eInvalidInput;
    return mVertices.insertAfter(*this, behind, id, vertex);
}

Acad::ErrorStatus AcDb3dPolyline::openVertex(AcDb3dPolylineVertex*& vertex, AcDbObjectId id,
                                             AcDb::OpenMode mode, bool openErased) const
{
    vertex = nullptr;
    const AcDbObject* object = residentObject(id);
    if (object && object->ownerId() != objectId()) return Acad::eInvalidInput;
    return acdbOpenObject(vertex, id, mode, openErased);
}

Acad::ErrorStatus AcDb3dPolyline::openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode)
{
    return acdbOpenObject(end, mVertices.stored().sequenceEnd, mode);
}

AcDbObjectIterator* AcDb3dPolyline::vertexIterator() const
{
    return mVertices.iterator();
}

AcGePoint3dArray AcDb3dPolyline::points() const
{
    AcGePoint3dArray points;
    for (const AcDb3dPolylineVertex* vertex : mVertices.allOf<AcDb3dPolylineVertex>()) {
        if ((mFlags & splineFit) && vertex->vertexType() == AcDb::k3dControlVertex) continue;
        points.append(vertex->position());
    }
    if (isClosed() && points.length() > 1) points.append(AcGePoint3d(points.first()));
    return points;
}

double AcDb3dPolyline::length() const
{
    const AcGePoint3dArray all = points();
    double sum = 0.0;
    for (int i = 1; i < all.length(); ++i)
        sum += all[i].distanceTo(all[i - 1]);
    return sum;
}

std::unique_ptr<AcGeCurve3d> AcDb3dPolyline::makeGeCurve() const
{
    const AcGePoint3dArray all = points();
    if (all.length() < 2) return nullptr;
    AcGeKnotVector knots;
    for (int i = 0; i < all.length(); ++i)
        knots.append(i);
    return std::make_unique<AcGePolyline3d>(knots, all);
}

std::unique_ptr<AcDbCurve> AcDb3dPolyline::makePiece(double from, double to) const
{
    AcGePoint3dArray all = points(), part;
    const int segments = all.length() - 1;
    const auto at = [&](double param) {
        const int index = static_cast<int>(std::floor(param));
        const AcGePoint3d& start = all[index % segments];
        return start + (param - index) * (all[index % segments + 1] - start);
    };
    part.append(at(from));
    for (int i = static_cast<int>(std::floor(from)) + 1; i < to; ++i)
        part.append(all[i % segments]);
    part.append(to >= segments && !isClosed() ? all.last() : at(to));
    auto made = std::make_unique<AcDb3dPolyline>(AcDb::k3dSimplePoly, part);
    made->setPropertiesFrom(this);
    return made;
}

void AcDb3dPolyline::intersectionCurves(Curves& curves, bool extended) const
{
    const AcGePoint3dArray all = points();
    const bool open = extended && !isClosed();
    for (int i = 1; i < all.length(); ++i) {
        const bool first = open && i == 1, last = open && i == all.length() - 1;
        const AcGeVector3d along = all[i] - all[i - 1];
        if (along.isZeroLength()) continue;
        if (first && last) {
            curves.push_back(std::make_unique<AcGeLine3d>(all[i - 1], along));
        } else if (first) {
            curves.push_back(std::make_unique<AcGeRay3d>(all[i], -along));
        } else if (last) {
            curves.push_back(std::make_unique<AcGeRay3d>(all[i - 1], along));
        } else {
            curves.push_back(std::make_unique<AcGeLineSeg3d>(all[i - 1], all[i]));
        }
    }
}

bool AcDb3dPolyline::isPlanar() const
{
    AcGePlane plane;
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    return curve && curve->isPlanar(plane);
}

Acad::ErrorStatus AcDb3dPolyline::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    AcGePlane found;
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    planarity = AcDb::kNonPlanar;
    if (!curve || !curve->isPlanar(found)) return Acad::eNonPlanarEntity;
    plane = found;
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::reverseCurve()
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    std::vector<AcGePoint3d> positions;
    for (const AcDb3dPolylineVertex* vertex : mVertices.allOf<AcDb3dPolylineVertex>())
        positions.push_back(vertex->position());
    return mVertices.change([&](AcDbEntity& vertex) {
        static_cast<AcDbVertex&>(vertex).setPosition(positions.back());
        positions.pop_back();
    });
}

// Vertices of a drawing cannot be exchanged at once: the shape is taken by a polyline without vertices only.
Acad::ErrorStatus AcDb3dPolyline::setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d*,
                                                   const AcGeTol& tol)
{
    if (!curve.isKindOf(AcGe::kPolyline3d) || !mVertices.all().empty()) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    const auto& polyline = static_cast<const AcGePolyline3d&>(curve);
    const bool closed = polyline.isClosed(tol);
    for (int i = 0; i < polyline.numControlPoints() - (closed ? 1 : 0); ++i) {
        auto vertex = std::make_unique<AcDb3dPolylineVertex>(polyline.controlPointAt(i));
        AcDbObjectId id;
        if (appendVertex(id, vertex.get()) != Acad::eOk) continue;
        AcDb3dPolylineVertex* added = vertex.release();
        if (added->database()) added->close();
    }
    return setFlag(1, closed);
}

AcRxObject* AcDb3dPolyline::clone() const
{
    auto copy = std::make_unique<AcDb3dPolyline>(*this);
    copy->mVertices.detach();
    return copy.release();
}

Acad::ErrorStatus AcDb3dPolyline::subTransformBy(const AcGeMatrix3d& xform)
{
    return mVertices.change([&](AcDbEntity& vertex) { vertex.transformBy(xform); });
}

Acad::ErrorStatus AcDb3dPolyline::subExplode(AcDbVoidPtrArray& entitySet) const
{
    const AcGePoint3dArray all = points();
    for (int i = 1; i < all.length(); ++i) {
        if (!all[i].isEqualTo(all[i - 1])) entitySet.append(new AcDbLine(all[i - 1], all[i]));
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::subGetGeomExtents(AcDbExtents& extents) const
{
    for (const AcGePoint3d& point : points()) {
        if (!isFinite(point)) return Acad::eInvalidExtents;
        extents.addPoint(point);
    }
    return Acad::eOk;
}

bool AcDb3dPolyline::subWorldDraw(AcGiWorldDraw* draw)
{
    const AcGePoint3dArray all = points();
    if (all.length() > 1) draw->geometry().polyline(static_cast<unsigned>(all.length()), all.asArrayPtr());
    return true;
}

Acad::ErrorStatus AcDb3dPolyline::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                                   AcDbIntArray&) const
{
    for (const AcDb3dPolylineVertex* vertex : mVertices.allOf<AcDb3dPolylineVertex>())
        gripPoints.append(vertex->position());
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    int index = 0;
    return mVertices.change([&](AcDbEntity& entity) {
        auto& vertex = static_cast<AcDbVertex&>(entity);
        if (indices.contains(index++)) vertex.setPosition(vertex.position() + offset);
    });
}
