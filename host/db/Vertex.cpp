#include "dbvertex.h"

#include "ClassRegistration.h"
#include "DxfOptional.h"
#include "PlanarCoords.h"

#include <cstdlib>

ACDB_ABSTRACT_CLASS(AcDbVertex, AcDbEntity)
ACDB_DXF_CLASS(AcDb2dVertex, AcDbVertex, VERTEX)
ACDB_DXF_CLASS(AcDb3dPolylineVertex, AcDbVertex, VERTEX)
ACDB_DXF_CLASS(AcDbPolygonMeshVertex, AcDbVertex, VERTEX)
ACDB_DXF_CLASS(AcDbPolyFaceMeshVertex, AcDbVertex, VERTEX)
ACDB_DXF_CLASS(AcDbFaceRecord, AcDbVertex, VERTEX)

// Bits of group 70.
namespace
{
constexpr int curveFitVertex = 1, tangentUsed = 2, splineFitVertex = 8, splineControlVertex = 16;

AcDb::Vertex3dType typeOf(int flags)
{
    if (flags & splineControlVertex) return AcDb::k3dControlVertex;
    return flags & splineFitVertex ? AcDb::k3dFitVertex : AcDb::k3dSimpleVertex;
}
} // namespace

/// Fields that stand in the sections of several classes.
struct VertexFields {
    enum Given : std::uint8_t {
        flags = 1,
        startWidth = 2,
        endWidth = 4,
        bulge = 8,
        tangent = 16,
        identifier = 32,
        corner = 64
    };

    static DxfField point() { return dxf::point<&AcDbVertex::mPosition>(10); }
    static DxfField flagsField()
    {
        return dxf::givenInteger<&AcDbVertex::mFlags, &AcDbVertex::mGiven, Given::flags>(70);
    }
    template <auto Member, unsigned Bit>
    static DxfField number(int code)
    {
        return dxf::givenReal<Member, &AcDbVertex::mGiven, Bit>(code);
    }

    /// Corners that are not there are left out at the end of a face.
    template <int Index>
    static DxfField cornerField(int code)
    {
        const auto read = [](AcDbObject& object, const DxfField&, DxfSource& source) {
            static_cast<AcDbFaceRecord&>(object).mCorners[Index] =
                static_cast<std::int16_t>(source.peek()->integer);
            if (source.peek()->integer == 0) static_cast<AcDbFaceRecord&>(object).mGiven |= Given::corner;
            source.take();
        };
        const auto write = [](const AcDbObject& object, const DxfField& field, DxfSink& sink) {
            const auto& face = static_cast<const AcDbFaceRecord&>(object);
            if (face.mCorners[Index] != 0 || (face.mGiven & Given::corner))
                sink.integer(field.code, face.mCorners[Index]);
        };
        return dxf::custom(code, read, write);
    }
};

const DxfClass AcDbVertex::dxf("AcDbVertex", &AcDbEntity::dxf, {});

const DxfClass AcDb2dVertex::dxf(
    "AcDb2dVertex", &AcDbVertex::dxf,
    {
        VertexFields::point(),
        VertexFields::number<&AcDb2dVertex::mStartWidth, VertexFields::startWidth>(40),
        VertexFields::number<&AcDb2dVertex::mEndWidth, VertexFields::endWidth>(41),
        VertexFields::number<&AcDb2dVertex::mBulge, VertexFields::bulge>(42),
        dxf::givenInteger<&AcDb2dVertex::mIdentifier, &AcDb2dVertex::mGiven, VertexFields::identifier>(91),
        VertexFields::flagsField(),
        VertexFields::number<&AcDb2dVertex::mTangent, VertexFields::tangent>(50),
    });

const DxfClass AcDb3dPolylineVertex::dxf("AcDb3dPolylineVertex", &AcDbVertex::dxf,
                                         {VertexFields::point(), VertexFields::flagsField()});

const DxfClass AcDbPolygonMeshVertex::dxf("AcDbPolygonMeshVertex", &AcDbVertex::dxf,
                                          {VertexFields::point(), VertexFields::flagsField()});

const DxfClass AcDbPolyFaceMeshVertex::dxf("AcDbPolyFaceMeshVertex", &AcDbVertex::dxf,
                                           {VertexFields::point(), VertexFields::flagsField()});

const DxfClass AcDbFaceRecord::dxf("AcDbFaceRecord", &AcDbEntity::dxf,
                                   {VertexFields::point(), VertexFields::flagsField(),
                                    VertexFields::cornerField<0>(71), VertexFields::cornerField<1>(72),
                                    VertexFields::cornerField<2>(73), VertexFields::cornerField<3>(74)});

Acad::ErrorStatus AcDbVertex::setPosition(const AcGePoint3d& position)
{
    if (!isFinite(position)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mPosition = position;
    return status;
}

Acad::ErrorStatus AcDbVertex::setFlag(int flag, bool on)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(on ? mFlags | flag : mFlags & ~flag);
    return status;
}

Acad::ErrorStatus AcDbVertex::subTransformBy(const AcGeMatrix3d& xform)
{
    mPosition.transformBy(xform);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbVertex::subGetGeomExtents(AcDbExtents& extents) const
{
    extents.addPoint(mPosition);
    return Acad::eOk;
}

AcDb2dVertex::AcDb2dVertex(const AcGePoint3d& position, double bulge, double startWidth, double endWidth,
                           double tangent, Adesk::Int32 vertexIdentifier)
    : AcDbVertex(0, position), mBulge(bulge), mStartWidth(startWidth), mEndWidth(endWidth), mTangent(tangent),
      mIdentifier(vertexIdentifier)
{
}

AcDb::Vertex2dType AcDb2dVertex::vertexType() const
{
    if (mFlags & splineControlVertex) return AcDb::k2dSplineCtlVertex;
    if (mFlags & splineFitVertex) return AcDb::k2dSplineFitVertex;
    return mFlags & curveFitVertex ? AcDb::k2dCurveFitVertex : AcDb::k2dVertex;
}

Acad::ErrorStatus AcDb2dVertex::setBulge(double bulge)
{
    if (!std::isfinite(bulge)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mBulge = bulge;
    return status;
}

Acad::ErrorStatus AcDb2dVertex::setStartWidth(double width)
{
    if (!(width >= 0.0) || !std::isfinite(width)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mStartWidth = width;
    return status;
}

Acad::ErrorStatus AcDb2dVertex::setEndWidth(double width)
{
    if (!(width >= 0.0) || !std::isfinite(width)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mEndWidth = width;
    return status;
}

Acad::ErrorStatus AcDb2dVertex::setTangent(double tangent)
{
    if (!std::isfinite(tangent)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mTangent = tangent;
    return status;
}

bool AcDb2dVertex::isTangentUsed() const
{
    return mFlags & tangentUsed;
}
Acad::ErrorStatus AcDb2dVertex::useTangent()
{
    return setFlag(tangentUsed, true);
}
Acad::ErrorStatus AcDb2dVertex::ignoreTangent()
{
    return setFlag(tangentUsed, false);
}

Acad::ErrorStatus AcDb2dVertex::setVertexIdentifier(Adesk::Int32 identifier)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mIdentifier = identifier;
    return status;
}

// A vertex alone does not know the plane it lies in; the polyline maps its vertices itself.
Acad::ErrorStatus AcDb2dVertex::subTransformBy(const AcGeMatrix3d&)
{
    return Acad::eNotApplicable;
}

AcDb::Vertex3dType AcDb3dPolylineVertex::vertexType() const
{
    return typeOf(mFlags);
}
AcDb::Vertex3dType AcDbPolygonMeshVertex::vertexType() const
{
    return typeOf(mFlags);
}

AcDbFaceRecord::AcDbFaceRecord(Adesk::Int16 vtx0, Adesk::Int16 vtx1, Adesk::Int16 vtx2, Adesk::Int16 vtx3)
    : AcDbVertex(128), mCorners{vtx0, vtx1, vtx2, vtx3}
{
}

Acad::ErrorStatus AcDbFaceRecord::getVertexAt(Adesk::UInt16 faceIdx, Adesk::Int16& vtxIdx) const
{
    if (faceIdx > 3) return Acad::eInvalidIndex;
    vtxIdx = mCorners[faceIdx];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFaceRecord::setVertexAt(Adesk::UInt16 faceIdx, Adesk::Int16 vtxIdx)
{
    if (faceIdx > 3) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mCorners[faceIdx] = vtxIdx;
    return status;
}

Acad::ErrorStatus AcDbFaceRecord::isEdgeVisibleAt(Adesk::UInt16 faceIndex, Adesk::Boolean& visible) const
{
    if (faceIndex > 3) return Acad::eInvalidIndex;
    visible = mCorners[faceIndex] > 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFaceRecord::makeEdgeVisibleAt(Adesk::UInt16 faceIndex)
{
    if (faceIndex > 3) return Acad::eInvalidIndex;
    return setVertexAt(faceIndex, static_cast<Adesk::Int16>(std::abs(mCorners[faceIndex])));
}

Acad::ErrorStatus AcDbFaceRecord::makeEdgeInvisibleAt(Adesk::UInt16 faceIndex)
{
    if (faceIndex > 3) return Acad::eInvalidIndex;
    return setVertexAt(faceIndex, static_cast<Adesk::Int16>(-std::abs(mCorners[faceIndex])));
}
