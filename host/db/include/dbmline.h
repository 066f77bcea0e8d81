#pragma once

/// AcDbMline: parallel lines along a path.

#include "dbentity.h"
#include "gept3dar.h"

#include <vector>

struct DbMlineVertex;

/// Points are in world coordinates. The distances and gaps of the lines stand with the vertices, as the style
/// had them when the multiline was drawn; a multiline is read, moved and shown, and a new one has no lines.
class AcDbMline : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbMline);
    ACDB_STATE_MEMBERS(AcDbMline)
    AcDbMline();
    AcDbMline(const AcDbMline& other);
    AcDbMline& operator=(const AcDbMline& other);
    ~AcDbMline() override;

    AcDbObjectId style() const { return mStyle; }
    enum MlineJustification { kTop = 0, kZero = 1, kBottom = 2 };
    int justification() const { return mJustification; }
    double scale() const { return mScale; }
    AcGeVector3d normal() const { return mNormal; }
    bool closedMline() const { return (mFlags & 2) != 0; }
    Acad::ErrorStatus setClosedMline(bool closed);
    bool supressStartCaps() const { return (mFlags & 4) != 0; }
    Acad::ErrorStatus setSupressStartCaps(bool suppress);
    bool supressEndCaps() const { return (mFlags & 8) != 0; }
    Acad::ErrorStatus setSupressEndCaps(bool suppress);
    int numVertices() const;
    /// The world's origin for an index that is none.
    AcGePoint3d vertexAt(int index) const;
    /// The direction of the segment that begins at a vertex, and that of the cut through the lines there;
    /// null vectors for an index that is none.
    AcGeVector3d axisAt(int index) const;
    AcGeVector3d miterAt(int index) const;
    /// How many lines run side by side.
    int numElements() const { return mElements; }

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    void intersectionCurves(Curves& curves, bool extended) const override;
    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;

private:
    friend struct MlineFields;
    Acad::ErrorStatus setFlag(int flag, bool on);
    const DbMlineVertex* vertex(int index) const;
    /// Calls `visit` with the ends of every piece of every line.
    template <class Visit>
    void forEachPiece(Visit visit) const;

    CString mStyleName;
    AcDbObjectId mStyle;
    AcGePoint3d mStart;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    double mScale = 1.0;
    std::int16_t mJustification = 0, mFlags = 1, mElements = 0;
    std::vector<DbMlineVertex> mVertices;
};
