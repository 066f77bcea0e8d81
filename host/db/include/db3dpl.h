#pragma once

/// AcDb3dPolyline: straight segments between vertices in space.

#include "dbcurve.h"
#include "dbvertex.h"
#include "VertexList.h"

class AcDbObjectIterator;
class AcDbSequenceEnd;

/// Parameters count vertices: i + t is the point at the fraction t of segment i. Vertices may be appended
/// before and after the polyline is added to a drawing. Erasing it erases its vertices.
class AcDb3dPolyline : public AcDbCurve
{
public:
    ACRX_DECLARE_MEMBERS(AcDb3dPolyline);
    ACDB_STATE_MEMBERS(AcDb3dPolyline)
    AcDb3dPolyline() = default;
    AcDb3dPolyline(AcDb::Poly3dType type, const AcGePoint3dArray& vertices, Adesk::Boolean closed = false);

    AcDb::Poly3dType polyType() const;
    Acad::ErrorStatus setPolyType(AcDb::Poly3dType type);
    bool isClosed() const override { return mFlags & 1; }
    Acad::ErrorStatus makeClosed() { return setFlag(1, true); }
    Acad::ErrorStatus makeOpen() { return setFlag(1, false); }

    /// As those of AcDb2dPolyline.
    Acad::ErrorStatus appendVertex(AcDb3dPolylineVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex);
    Acad::ErrorStatus insertVertexAt(const AcDb3dPolylineVertex* place, AcDb3dPolylineVertex* vertex);
    Acad::ErrorStatus insertVertexAt(AcDbObjectId& id, const AcDbObjectId& place,
                                     AcDb3dPolylineVertex* vertex);
    Acad::ErrorStatus openVertex(AcDb3dPolylineVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) const;
    Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode);
    AcDbObjectIterator* vertexIterator() const;
    double length() const;

    bool isPlanar() const override;
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    Acad::ErrorStatus reverseCurve() override;
    Acad::ErrorStatus setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal = nullptr,
                                       const AcGeTol& tol = AcGeContext::gTol) override;
    void intersectionCurves(Curves& curves, bool extended) const override;

    DbSubentities* subentities() override { return &mVertices.stored(); }
    void addedToDrawing() override { mVertices.addToDrawing(*this); }
    AcRxObject* clone() const override;
    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::unique_ptr<AcGeCurve3d> makeGeCurve() const override;
    std::unique_ptr<AcDbCurve> makePiece(double from, double to) const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

private:
    Acad::ErrorStatus setFlag(int flag, bool on);
    /// The points of the curve as it is drawn; a closed one ends with its first.
    AcGePoint3dArray points() const;

    VertexList mVertices;
    AcGePoint3d mOrigin; ///< means nothing; kept from files
    std::int16_t mFlags = 8;
    std::int16_t mSmoothing = 0;
    std::uint8_t mGiven = 0;
};
