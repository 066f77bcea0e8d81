#include "db2dpl.h"

#include "acgi.h"
#include "BulgePath.h"
#include "ClassRegistration.h"
#include "dbblock.h"
#include "dbobjiter.h"
#include "dbpl.h"
#include "DxfFollowed.h"
#include "DxfOptional.h"
#include "PlanarCoords.h"
#include "Stub.h"

#include <algorithm>

ACDB_DXF_CLASS(AcDb2dPolyline, AcDbCurve, POLYLINE)

namespace
{
constexpr int curveFit = 2, splineFit = 4;
constexpr std::int16_t quadratic = 5, cubic = 6;
} // namespace

const DxfClass
    AcDb2dPolyline::dxf("AcDb2dPolyline", &AcDbCurve::dxf,
                        {
                            dxf::followed(),
                            dxf::point<&AcDb2dPolyline::mOrigin>(10),
                            dxf::real<&AcDb2dPolyline::mThickness>(39).unless(0.0),
                            dxf::givenInteger<&AcDb2dPolyline::mFlags, &AcDb2dPolyline::mGiven, 1u>(70),
                            dxf::givenReal<&AcDb2dPolyline::mStartWidth, &AcDb2dPolyline::mGiven, 2u>(40),
                            dxf::givenReal<&AcDb2dPolyline::mEndWidth, &AcDb2dPolyline::mGiven, 4u>(41),
                            dxf::givenInteger<&AcDb2dPolyline::mSmoothing, &AcDb2dPolyline::mGiven, 8u>(75),
                            dxf::direction<&AcDb2dPolyline::mNormal>(210).unlessZAxis(),
                        });

AcDb2dPolyline::AcDb2dPolyline(AcDb::Poly2dType type, const AcGePoint3dArray& vertices, double elevation,
                               Adesk::Boolean closed, double defStartWidth, double defEndWidth,
                               const AcGeDoubleArray* bulges, const AcGeDoubleArray* widths)
    : mOrigin(0.0, 0.0, elevation), mStartWidth(defStartWidth), mEndWidth(defEndWidth)
{
    setPolyType(type);
    setFlag(1, closed);
    for (int i = 0; i < vertices.length(); ++i) {
        const double bulge = bulges && i < bulges->length() ? (*bulges)[i] : 0.0;
        const bool wide = widths && i < widths->length();
        appendVertex(new AcDb2dVertex(vertices[i], bulge, wide ? (*widths)[i] : defStartWidth,
                                      wide ? (*widths)[i] : defEndWidth));
    }
}

AcDb::Poly2dType AcDb2dPolyline::polyType() const
{
    if (mFlags & curveFit) return AcDb::k2dFitCurvePoly;
    if (!(mFlags & splineFit)) return AcDb::k2dSimplePoly;
    return mSmoothing == quadratic ? AcDb::k2dQuadSplinePoly : AcDb::k2dCubicSplinePoly;
}

Acad::ErrorStatus AcDb2dPolyline::setPolyType(AcDb::Poly2dType type)
{
    if (type < AcDb::k2dSimplePoly || type > AcDb::k2dCubicSplinePoly) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    const bool smooth = type == AcDb::k2dQuadSplinePoly || type == AcDb::k2dCubicSplinePoly;
    setFlag(curveFit, type == AcDb::k2dFitCurvePoly);
    setFlag(splineFit, smooth);
    mSmoothing = !smooth ? 0 : type == AcDb::k2dQuadSplinePoly ? quadratic : cubic;
    return status;
}

Acad::ErrorStatus AcDb2dPolyline::setFlag(int flag, bool on)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(on ? mFlags | flag : mFlags & ~flag);
    return status;
}

Acad::ErrorStatus AcDb2dPolyline::setDefaultStartWidth(double width)
{
    if (!(width >= 0.0) || !std::isfinite(width)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mStartWidth = width;
    return status;
}

Acad::ErrorStatus AcDb2dPolyline::setDefaultEndWidth(double width)
{
    if (!(width >= 0.0) || !std::isfinite(width)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mEndWidth = width;
    return status;
}

Acad::ErrorStatus AcDb2dPolyline::setThickness(double thickness)
{
    if (!std::isfinite(thickness)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mThickness = thickness;
    return status;
}

Acad::ErrorStatus AcDb2dPolyline::setElevation(double elevation)
{
    if (!std::isfinite(elevation)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mOrigin.z = elevation;
    return status;
}

Acad::ErrorStatus AcDb2dPolyline::setNormal(const AcGeVector3d& normal)
{
    if (!isDirection(normal)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mNormal = normal.normal();
    return status;
}

void AcDb2dPolyline::getEcs(AcGeMatrix3d& matrix) const
{
    matrix = ocsToWorld(mNormal);
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDb2dVertex* vertex)
{
    AcDbObjectId id;
    return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex)
{
    return mVertices.append(*this, id, vertex);
}

Acad::ErrorStatus AcDb2dPolyline::insertVertexAt(const AcDb2dVertex* place, AcDb2dVertex* vertex)
{
    AcDbObjectId id;
    return mVertices.insertAfter(*this, place, id, vertex);
}

Acad::ErrorStatus AcDb2dPolyline::insertVertexAt(AcDbObjectId& id, const AcDbObjectId& place,
                                                 AcDb2dVertex* vertex)
{
    const AcDbEntity* behind = AcDbEntity::cast(residentObject(place));
    if (!place.isNull() && !behind) return Acad::eInvalidInput;
    return mVertices.insertAfter(*this, behind, id, vertex);
}

Acad::ErrorStatus AcDb2dPolyline::openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                             bool openErased) const
{
    vertex = nullptr;
    const AcDbObject* object = residentObject(id);
    if (object && object->ownerId() != objectId()) return Acad::eInvalidInput;
    return acdbOpenObject(vertex, id, mode, openErased);
}

Acad::ErrorStatus AcDb2dPolyline::openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode)
{
    return acdbOpenObject(end, mVertices.stored().sequenceEnd, mode);
}

AcDbObjectIterator* AcDb2dPolyline::vertexIterator() const
{
    return mVertices.iterator();
}

AcGePoint3d AcDb2dPolyline::vertexPosition(const AcDb2dVertex& vertex) const
{
    const AcGePoint3d position = vertex.position();
    return ocsToWorld(mNormal) * AcGePoint3d(position.x, position.y, mOrigin.z);
}

// The frame of a spline is not part of the curve.
std::vector<AcDb2dVertex*> AcDb2dPolyline::shownVertices() const
{
    std::vector<AcDb2dVertex*> vertices = mVertices.allOf<AcDb2dVertex>();
    if (!(mFlags & splineFit)) return vertices;
    const auto isFrame = [](const AcDb2dVertex* v) { return v->vertexType() == AcDb::k2dSplineCtlVertex; };
    vertices.erase(std::remove_if(vertices.begin(), vertices.end(), isFrame), vertices.end());
    return vertices;
}

BulgePath AcDb2dPolyline::path() const
{
    BulgePath path;
    for (const AcDb2dVertex* vertex : shownVertices()) {
        path.ownPoints.emplace_back(vertex->mPosition.x, vertex->mPosition.y);
        path.ownBulges.push_back(vertex->mBulge);
        path.ownWidths.emplace_back(vertex->mStartWidth, vertex->mEndWidth);
    }
    path.useOwn();
    path.isClosed = isClosed();
    path.elevation = mOrigin.z;
    path.normal = mNormal;
    return path;
}

AcRxObject* AcDb2dPolyline::clone() const
{
    auto copy = std::make_unique<AcDb2dPolyline>(*this);
    copy->mVertices.detach();
    return copy.release();
}

std::unique_ptr<AcDbCurve> AcDb2dPolyline::makePath(const BulgePath& path) const
{
    auto made = std::make_unique<AcDb2dPolyline>();
    made->mOrigin.z = path.elevation;
    made->mNormal = path.normal;
    made->mThickness = mThickness;
    made->mStartWidth = mStartWidth;
    made->mEndWidth = mEndWidth;
    made->mFlags = static_cast<std::int16_t>((mFlags & 128) | (path.isClosed ? 1 : 0));
    for (int i = 0; i < path.count; ++i) {
        const AcGePoint3d position(path.points[i].x, path.points[i].y, path.elevation);
        made->appendVertex(new AcDb2dVertex(position, path.bulgeAt(i), mStartWidth, mEndWidth));
    }
    made->setPropertiesFrom(this);
    return made;
}

Acad::ErrorStatus AcDb2dPolyline::setEndVertex(bool start, const AcGePoint2d& point, double bulge)
{
    const Acad::ErrorStatus status = beginChange();
    const std::vector<AcDb2dVertex*> vertices = shownVertices();
    if (status != Acad::eOk) return status;
    const AcDb2dVertex* end = start ? vertices.front() : vertices.back();
    const AcDb2dVertex* bent = start ? vertices.front() : vertices[vertices.size() - 2];
    return mVertices.change([&](AcDbEntity& entity) {
        auto& vertex = static_cast<AcDb2dVertex&>(entity);
        if (&vertex == end) vertex.setPosition({point.x, point.y, vertex.position().z});
        if (&vertex == bent && bulge != 0.0) vertex.setBulge(bulge);
    });
}

Acad::ErrorStatus AcDb2dPolyline::subTransformBy(const AcGeMatrix3d& xform)
{
    if (!xform.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    const AcGeVector3d normal = (xform * mNormal).normal();
    const AcGeMatrix3d map = worldToOcs(normal) * xform * ocsToWorld(mNormal);
    const double elevation = mOrigin.z, scale = xform.scale(), sense = xform.det() < 0.0 ? -1.0 : 1.0;
    const Acad::ErrorStatus status = mVertices.change([&](AcDbEntity& entity) {
        auto& vertex = static_cast<AcDb2dVertex&>(entity);
        const AcGePoint3d at = vertex.position();
        vertex.setPosition(map * AcGePoint3d(at.x, at.y, elevation));
        vertex.mBulge *= sense;
        vertex.mStartWidth *= scale;
        vertex.mEndWidth *= scale;
        const AcGeVector3d tangent =
            map * AcGeVector3d(std::cos(vertex.mTangent), std::sin(vertex.mTangent), 0.0);
        if (vertex.isTangentUsed()) vertex.mTangent = std::atan2(tangent.y, tangent.x);
    });
    if (status != Acad::eOk) return status;
    mThickness = mappedThickness(xform, mNormal, mThickness);
    mOrigin.z = (map * AcGePoint3d(0.0, 0.0, elevation)).z;
    mNormal = normal;
    mStartWidth *= scale;
    mEndWidth *= scale;
    return status;
}

Acad::ErrorStatus AcDb2dPolyline::reverseCurve()
{
    struct Data {
        AcGePoint3d position;
        double bulge, start, end;
    };
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    std::vector<Data> data;
    for (const AcDb2dVertex* v : mVertices.allOf<AcDb2dVertex>())
        data.push_back({v->mPosition, v->mBulge, v->mStartWidth, v->mEndWidth});
    const std::size_t count = data.size();
    std::size_t i = 0;
    return mVertices.change([&](AcDbEntity& entity) {
        auto& vertex = static_cast<AcDb2dVertex&>(entity);
        // What belongs to a segment stands with the vertex before it.
        const Data& segment = data[(2 * count - 2 - i) % count];
        vertex.setPosition(data[count - 1 - i].position);
        vertex.setBulge(-segment.bulge);
        vertex.setStartWidth(segment.end);
        vertex.setEndWidth(segment.start);
        ++i;
    });
}

bool AcDb2dPolyline::subWorldDraw(AcGiWorldDraw* draw)
{
    AcDbPolyline drawn;
    const std::vector<AcDb2dVertex*> vertices = shownVertices();
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const AcDb2dVertex& v = *vertices[i];
        drawn.addVertexAt(static_cast<unsigned>(i), {v.mPosition.x, v.mPosition.y}, v.mBulge, v.mStartWidth,
                          v.mEndWidth);
    }
    drawn.setElevation(mOrigin.z);
    drawn.setNormal(mNormal);
    drawn.setClosed(isClosed());
    drawn.setPlinegen(isLinetypeGenerationOn());
    drawn.setThickness(mThickness);
    draw->geometry().pline(drawn);
    return true;
}

Acad::ErrorStatus AcDb2dPolyline::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                                   AcDbIntArray&) const
{
    for (const AcDb2dVertex* vertex : mVertices.allOf<AcDb2dVertex>())
        gripPoints.append(vertexPosition(*vertex));
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    const AcGeVector3d local = worldToOcs(mNormal) * offset;
    int index = 0;
    return mVertices.change([&](AcDbEntity& entity) {
        auto& vertex = static_cast<AcDb2dVertex&>(entity);
        if (indices.contains(index++))
            vertex.setPosition(vertex.position() + AcGeVector3d(local.x, local.y, 0.0));
    });
}
