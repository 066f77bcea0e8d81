#pragma once

/// AcDbLeader: a path with an arrowhead that leads to a note.

#include "dbcurve.h"
#include "gept3dar.h"

class AcDbDimStyleTableRecord;
struct DimVariables;

/// The first vertex is where the arrow points. Vertices are in world coordinates and lie in the leader's
/// plane.
class AcDbLeader : public AcDbCurve
{
public:
    ACRX_DECLARE_MEMBERS(AcDbLeader);
    ACDB_STATE_MEMBERS(AcDbLeader)
    AcDbLeader() = default;

    AcGeVector3d normal() const { return mNormal; }
    /// The vertices are projected onto the plane.
    Acad::ErrorStatus setPlane(const AcGePlane& plane);

    int numVertices() const { return static_cast<int>(mVertices.size()); }
    /// False for a vertex that repeats the last one or is not finite.
    bool appendVertex(const AcGePoint3d& vertex);
    /// eInvalidIndex outside 0 to numVertices() - 1.
    Acad::ErrorStatus setVertexAt(int index, const AcGePoint3d& vertex);
    AcGePoint3d vertexAt(int index) const;
    AcGePoint3d firstVertex() const { return vertexAt(0); }
    Acad::ErrorStatus setFirstVertex(const AcGePoint3d& vertex) { return setVertexAt(0, vertex); }
    AcGePoint3d lastVertex() const { return vertexAt(numVertices() - 1); }
    Acad::ErrorStatus setLastVertex(const AcGePoint3d& vertex)
    {
        return setVertexAt(numVertices() - 1, vertex);
    }
    /// Two vertices stay: eInvalidInput.
    Acad::ErrorStatus removeLastVertex();

    bool hasArrowHead() const { return mHasArrow; }
    Acad::ErrorStatus enableArrowHead() { return setFlag(mHasArrow, true); }
    Acad::ErrorStatus disableArrowHead() { return setFlag(mHasArrow, false); }
    /// A short horizontal line at the end, towards the note.
    bool hasHookLine() const { return mHasHook; }
    Acad::ErrorStatus enableHookLine() { return setFlag(mHasHook, true); }
    Acad::ErrorStatus disableHookLine() { return setFlag(mHasHook, false); }
    bool isHookLineOnXDir() const { return mHookAlongX; }
    bool isSplined() const { return mIsSplined; }
    Acad::ErrorStatus setToSpline() { return setFlag(mIsSplined, true); }
    Acad::ErrorStatus setToLine() { return setFlag(mIsSplined, false); }

    AcDbObjectId dimensionStyle() const { return mStyle; }
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId style);
    /// A multiline text, a tolerance or a block reference of the drawing; eWrongObjectType for others.
    Acad::ErrorStatus attachAnnotation(AcDbObjectId annotation);
    Acad::ErrorStatus detachAnnotation();
    /// Moves the last vertex to the side of the annotation that the leader comes from, half its height up and a text gap
    /// away, with a hook line for a text. eNotApplicable without an annotation that has extents.
    Acad::ErrorStatus evaluateLeader();
    AcDbObjectId annotationObjId() const { return mAnnotation; }
    enum AnnoType { kMText = 0, kFcf, kBlockRef, kNoAnno };
    AnnoType annoType() const { return static_cast<AnnoType>(mAnnotationType); }
    double annoHeight() const { return mTextHeight; }
    double annoWidth() const { return mTextWidth; }
    AcGeVector3d annotationOffset() const { return mAnnotationOffset; }
    Acad::ErrorStatus setAnnotationOffset(const AcGeVector3d& offset);

    /// The style with the leader's own values, as a new record that the caller owns.
    Acad::ErrorStatus getDimstyleData(AcDbDimStyleTableRecord*& record) const;
    /// Takes the values of a record: those that differ from the style become the leader's own.
    Acad::ErrorStatus setDimstyleData(const AcDbDimStyleTableRecord* record);

    // The variables: those of the style, or the leader's own.

    double dimasz() const;
    double dimgap() const;
    double dimscale() const;
    double dimtxt() const;
    AcCmColor dimclrd() const;
    AcDbObjectId dimldrblk() const;
    Acad::ErrorStatus setDimasz(double size);
    Acad::ErrorStatus setDimgap(double gap);
    Acad::ErrorStatus setDimscale(double scale);
    Acad::ErrorStatus setDimtxt(double height);
    Acad::ErrorStatus setDimclrd(const AcCmColor& color);
    Acad::ErrorStatus setDimldrblk(AcDbObjectId block);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::unique_ptr<AcGeCurve3d> makeGeCurve() const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    void subSetDatabaseDefaults(AcDbDatabase* db) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

private:
    friend struct LeaderFields;
    Acad::ErrorStatus setFlag(bool& flag, bool on);
    DimVariables variables() const;
    /// The corners of the arrowhead; false when there is no room for one or it is not wanted.
    bool arrowHead(AcGePoint3d (&corners)[3]) const;

    std::vector<AcGePoint3d> mVertices;
    AcDbObjectId mStyle, mAnnotation;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis, mHorizontal = AcGeVector3d::kXAxis;
    AcGeVector3d mBlockOffset, mAnnotationOffset;
    double mTextHeight = 0.0, mTextWidth = 0.0;
    std::int16_t mColor = 0; ///< group 77
    std::int8_t mAnnotationType = kNoAnno;
    bool mHasArrow = true, mIsSplined = false, mHasHook = false, mHookAlongX = false;
};
