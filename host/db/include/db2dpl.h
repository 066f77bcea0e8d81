#pragma once

/// AcDb2dPolyline: a planar polyline with its vertices in objects, as older drawings have them.

#include "dbpathcurve.h"
#include "dbvertex.h"
#include "gedblar.h"
#include "VertexList.h"

class AcDbObjectIterator;
class AcDbSequenceEnd;

/// Vertices may be appended before and after the polyline is added to a drawing. Erasing it erases its
/// vertices.
class AcDb2dPolyline : public DbPathCurve
{
public:
    ACRX_DECLARE_MEMBERS(AcDb2dPolyline);
    ACDB_STATE_MEMBERS(AcDb2dPolyline)
    AcDb2dPolyline() = default;
    /// Vertices in object coordinates; `bulges`, and `widths` (the same at both ends), have one item a
    /// vertex.
    AcDb2dPolyline(AcDb::Poly2dType type, const AcGePoint3dArray& vertices, double elevation = 0.0,
                   Adesk::Boolean closed = false, double defStartWidth = 0.0, double defEndWidth = 0.0,
                   const AcGeDoubleArray* bulges = nullptr, const AcGeDoubleArray* widths = nullptr);

    AcDb::Poly2dType polyType() const;
    /// eInvalidInput for a value outside of the enumeration.
    Acad::ErrorStatus setPolyType(AcDb::Poly2dType type);
    bool isClosed() const override { return mFlags & 1; }
    Acad::ErrorStatus makeClosed() { return setFlag(1, true); }
    Acad::ErrorStatus makeOpen() { return setFlag(1, false); }
    Adesk::Boolean isLinetypeGenerationOn() const { return mFlags & 128; }
    Acad::ErrorStatus setLinetypeGenerationOn() { return setFlag(128, true); }
    Acad::ErrorStatus setLinetypeGenerationOff() { return setFlag(128, false); }
    double defaultStartWidth() const { return mStartWidth; }
    Acad::ErrorStatus setDefaultStartWidth(double width);
    double defaultEndWidth() const { return mEndWidth; }
    Acad::ErrorStatus setDefaultEndWidth(double width);
    double thickness() const { return mThickness; }
    Acad::ErrorStatus setThickness(double thickness);
    double elevation() const { return mOrigin.z; }
    Acad::ErrorStatus setElevation(double elevation);
    AcGeVector3d normal() const { return mNormal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    void getEcs(AcGeMatrix3d& matrix) const override;

    /// The vertex then belongs to the polyline, and is open for write when that is in a drawing; the caller
    /// closes it.
    Acad::ErrorStatus appendVertex(AcDb2dVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex);
    /// Behind another vertex; null or the null id: first.
    Acad::ErrorStatus insertVertexAt(const AcDb2dVertex* place, AcDb2dVertex* vertex);
    Acad::ErrorStatus insertVertexAt(AcDbObjectId& id, const AcDbObjectId& place, AcDb2dVertex* vertex);
    /// eInvalidInput for a vertex of another polyline.
    Acad::ErrorStatus openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) const;
    Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode);
    /// A new iterator that the caller deletes.
    AcDbObjectIterator* vertexIterator() const;
    /// In world coordinates.
    AcGePoint3d vertexPosition(const AcDb2dVertex& vertex) const;

    Acad::ErrorStatus reverseCurve() override;

    BulgePath path() const override;
    DbSubentities* subentities() override { return &mVertices.stored(); }
    void addedToDrawing() override { mVertices.addToDrawing(*this); }
    AcRxObject* clone() const override;
    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    double pathThickness() const override { return mThickness; }
    Acad::ErrorStatus setEndVertex(bool start, const AcGePoint2d& point, double bulge) override;
    std::unique_ptr<AcDbCurve> makePath(const BulgePath& path) const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

private:
    Acad::ErrorStatus setFlag(int flag, bool on);
    std::vector<AcDb2dVertex*> shownVertices() const;

    VertexList mVertices;
    AcGePoint3d mOrigin; ///< its z is the elevation
    double mThickness = 0.0, mStartWidth = 0.0, mEndWidth = 0.0;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    std::int16_t mFlags = 0;
    std::int16_t mSmoothing = 0; ///< 0, 5 quadratic, 6 cubic
    std::uint8_t mGiven = 0;
};
