#pragma once

/// The vertices of polylines and meshes, which are entities of their own. They are changed through their
/// owner's iterators and opened by its openVertex.

#include "dbentity.h"

class AcDbVertex : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbVertex);

    /// Of a vertex of a 2D polyline in the object coordinates of the polyline, of others in the world.
    AcGePoint3d position() const { return mPosition; }
    /// eInvalidInput for coordinates that are not finite.
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    friend struct VertexFields;
    /// The flags of group 70: each class has bits that tell it from the others.
    explicit AcDbVertex(std::int16_t flags) : mFlags(flags) {}
    AcDbVertex(std::int16_t flags, const AcGePoint3d& position) : mFlags(flags), mPosition(position) {}
    Acad::ErrorStatus setFlag(int flag, bool on);
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;

    std::uint8_t mGiven = 0; ///< which optional groups the file gave
    std::int16_t mFlags;
    AcGePoint3d mPosition;
};

/// Its x and y count; the height is that of the polyline.
class AcDb2dVertex : public AcDbVertex
{
public:
    ACRX_DECLARE_MEMBERS(AcDb2dVertex);
    ACDB_STATE_MEMBERS(AcDb2dVertex)
    AcDb2dVertex() : AcDbVertex(0) {}
    AcDb2dVertex(const AcGePoint3d& position, double bulge = 0.0, double startWidth = 0.0,
                 double endWidth = 0.0, double tangent = 0.0, Adesk::Int32 vertexIdentifier = 0);

    AcDb::Vertex2dType vertexType() const;
    /// The tangent of a quarter of the angle of the arc that starts here; 0 for a line.
    double bulge() const { return mBulge; }
    Acad::ErrorStatus setBulge(double bulge);
    double startWidth() const { return mStartWidth; }
    Acad::ErrorStatus setStartWidth(double width);
    double endWidth() const { return mEndWidth; }
    Acad::ErrorStatus setEndWidth(double width);
    /// The direction that a fitted curve has here: radians in object coordinates.
    double tangent() const { return mTangent; }
    Acad::ErrorStatus setTangent(double tangent);
    bool isTangentUsed() const;
    Acad::ErrorStatus useTangent();
    Acad::ErrorStatus ignoreTangent();
    Adesk::Int32 vertexIdentifier() const { return mIdentifier; }
    Acad::ErrorStatus setVertexIdentifier(Adesk::Int32 identifier);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;

private:
    friend class AcDb2dPolyline;
    friend struct VertexFields;
    double mBulge = 0.0, mStartWidth = 0.0, mEndWidth = 0.0, mTangent = 0.0;
    Adesk::Int32 mIdentifier = 0;
};

class AcDb3dPolylineVertex : public AcDbVertex
{
public:
    ACRX_DECLARE_MEMBERS(AcDb3dPolylineVertex);
    ACDB_STATE_MEMBERS(AcDb3dPolylineVertex)
    AcDb3dPolylineVertex() : AcDbVertex(32) {}
    explicit AcDb3dPolylineVertex(const AcGePoint3d& position) : AcDbVertex(32, position) {}

    AcDb::Vertex3dType vertexType() const;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;
};

class AcDbPolygonMeshVertex : public AcDbVertex
{
public:
    ACRX_DECLARE_MEMBERS(AcDbPolygonMeshVertex);
    ACDB_STATE_MEMBERS(AcDbPolygonMeshVertex)
    AcDbPolygonMeshVertex() : AcDbVertex(64) {}
    explicit AcDbPolygonMeshVertex(const AcGePoint3d& position) : AcDbVertex(64, position) {}

    AcDb::Vertex3dType vertexType() const;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;
};

class AcDbPolyFaceMeshVertex : public AcDbVertex
{
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyFaceMeshVertex);
    ACDB_STATE_MEMBERS(AcDbPolyFaceMeshVertex)
    AcDbPolyFaceMeshVertex() : AcDbVertex(192) {}
    explicit AcDbPolyFaceMeshVertex(const AcGePoint3d& position) : AcDbVertex(192, position) {}

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;
};

/// A face of a polyface mesh: three or four vertices by their numbers, which count from 1; a negative number
/// hides the edge that starts there, 0 stands for no vertex.
class AcDbFaceRecord : public AcDbVertex
{
public:
    ACRX_DECLARE_MEMBERS(AcDbFaceRecord);
    ACDB_STATE_MEMBERS(AcDbFaceRecord)
    AcDbFaceRecord() : AcDbVertex(128) {}
    AcDbFaceRecord(Adesk::Int16 vtx0, Adesk::Int16 vtx1, Adesk::Int16 vtx2, Adesk::Int16 vtx3 = 0);

    /// `faceIdx` is 0 to 3; eInvalidIndex for others.
    Acad::ErrorStatus getVertexAt(Adesk::UInt16 faceIdx, Adesk::Int16& vtxIdx) const;
    Acad::ErrorStatus setVertexAt(Adesk::UInt16 faceIdx, Adesk::Int16 vtxIdx);
    Acad::ErrorStatus isEdgeVisibleAt(Adesk::UInt16 faceIndex, Adesk::Boolean& visible) const;
    Acad::ErrorStatus makeEdgeVisibleAt(Adesk::UInt16 faceIndex);
    Acad::ErrorStatus makeEdgeInvisibleAt(Adesk::UInt16 faceIndex);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    /// The point of a face record means nothing.
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d&) override { return Acad::eOk; }

private:
    friend struct VertexFields;
    std::int16_t mCorners[4] = {};
};
