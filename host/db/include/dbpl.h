#pragma once

/// AcDbPolyline: a planar run of lines and arcs, with its vertices in one object.

#include "dbpathcurve.h"
#include "gept2dar.h"
#include "OwnedCopy.h"

#include <utility>

class AcDb2dPolyline;
class AcGeCircArc2d;
class AcGeCircArc3d;
class AcGeLineSeg2d;
class AcGeLineSeg3d;

/// Vertices are in the object coordinate system (see getEcs) at the elevation. Indices of vertices and
/// segments count from 0; segment i starts at vertex i. Members return eInvalidIndex for an index out of
/// range and eInvalidInput for numbers that are not finite.
class AcDbPolyline : public DbPathCurve
{
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyline);
    ACDB_STATE_MEMBERS(AcDbPolyline)
    enum SegType { kLine, kArc, kCoincident, kPoint, kEmpty };

    AcDbPolyline() = default;
    /// Has memory for this many vertices, and none of them yet.
    explicit AcDbPolyline(unsigned int numVerts) { mPoints.reserve(numVerts); }

    unsigned int numVerts() const { return static_cast<unsigned int>(mPoints.size()); }
    /// Before the vertex at `index`, or at the end. A negative width stands for the constant width.
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& pt, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0,
                                  Adesk::Int32 vertexIdentifier = 0);
    /// eDegenerateGeometry when fewer than two vertices would be left.
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    /// In world coordinates; in the plane's own.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& pt) const;
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& pt) const;
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& pt);
    /// The tangent of a quarter of the angle of the arc that starts at the vertex; 0 for a line.
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    /// eInvalidInput for a negative width.
    Acad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
    Acad::ErrorStatus getVertexIdentifierAt(unsigned int index, Adesk::Int32& vertexIdentifier) const;
    Acad::ErrorStatus setVertexIdentifierAt(unsigned int index, Adesk::Int32 vertexIdentifier);
    /// Forgets all vertices, or with `reuse` keeps the first `numVerts` of them.
    void reset(bool reuse, unsigned int numVerts);
    void minimizeMemory();
    void maximizeMemory() {}

    /// eInvalidInput when the widths differ.
    Acad::ErrorStatus getConstantWidth(double& width) const;
    /// Gives every segment this width. eInvalidInput for a negative one.
    Acad::ErrorStatus setConstantWidth(double width);
    bool hasBulges() const;
    /// Whether a segment is wider than 0.
    bool hasWidth() const;
    bool hasVertexIdentifiers() const { return mRare && !mRare->identifiers.empty(); }
    bool isOnlyLines() const { return !hasBulges(); }

    /// Line types run on over the vertices.
    bool hasPlinegen() const { return mFlags & plinegenFlag; }
    void setPlinegen(bool plinegen);
    bool isClosed() const override { return mFlags & closedFlag; }
    void setClosed(bool closed);
    double elevation() const { return mElevation; }
    Acad::ErrorStatus setElevation(double elevation);
    double thickness() const { return mThickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return mNormal; }
    /// The vertices keep their coordinates in the object coordinate system. eInvalidInput for a zero vector.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    void getEcs(AcGeMatrix3d& matrix) const override;

    /// kEmpty past the last vertex; kPoint where an open polyline has its last vertex.
    SegType segType(unsigned int index) const;
    /// eInvalidInput when the segment is not of the kind asked for. In 3D in world coordinates.
    Acad::ErrorStatus getLineSegAt(unsigned int index, AcGeLineSeg2d& line) const;
    Acad::ErrorStatus getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const;
    Acad::ErrorStatus getArcSegAt(unsigned int index, AcGeCircArc2d& arc) const;
    Acad::ErrorStatus getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const;
    /// Whether a point of the plane is on a segment; `param` is the fraction of it, 0 to 1.
    virtual bool onSegAt(unsigned int index, const AcGePoint2d& pt2d, double& param) const;

    /// Closes the polyline and removes its last vertex when that is within a distance of the first.
    Acad::ErrorStatus makeClosedIfStartAndEndVertexCoincide(double distTol);
    Acad::ErrorStatus reverseCurve() override;
    Acad::ErrorStatus setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal = nullptr,
                                       const AcGeTol& tol = AcGeContext::gTol) override;

    BulgePath path() const override;
    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    double pathThickness() const override { return mThickness; }
    Acad::ErrorStatus setEndVertex(bool start, const AcGePoint2d& point, double bulge) override;
    std::unique_ptr<AcDbCurve> makePath(const BulgePath& path) const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

private:
    static constexpr std::int16_t closedFlag = 1;
    static constexpr std::int16_t plinegenFlag = 128;
    using Widths = std::pair<double, double>;
    struct Rare {
        std::vector<Widths> widths;
        std::vector<Adesk::Int32> identifiers;
    };
    struct Dxf;
    friend struct Dxf;

    bool isVertex(unsigned int index) const { return index < mPoints.size(); }
    double bulgeAt(std::size_t index) const { return mBulges.empty() ? 0.0 : mBulges[index]; }
    Widths widthsAt(std::size_t index) const;
    bool hasWidths() const { return mRare && !mRare->widths.empty(); }
    std::vector<Widths>& needWidths();
    std::vector<double>& needBulges();
    void setFlag(std::int16_t flag, bool on);
    void mapVertices(const AcGeMatrix3d& xform, const AcGeVector3d& newNormal);
    void moveMiddle(unsigned int index, const AcGeVector2d& offset);

    std::vector<AcGePoint2d> mPoints;
    std::vector<double> mBulges; ///< empty, or one a vertex
    OwnedCopy<Rare> mRare;       ///< lists that are empty, or have one item a vertex
    double mConstantWidth = 0.0;
    double mElevation = 0.0;
    double mThickness = 0.0;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    std::int16_t mFlags = 0;
    bool mFileNamesWidth = false; ///< the file gave a constant width beside those of the vertices
};
