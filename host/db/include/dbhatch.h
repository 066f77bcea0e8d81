#pragma once

/// AcDbHatch: an area of a plane filled with a pattern of lines, a colour or a gradient.

#include "dbentity.h"
#include "dbhatchloop.h"
#include "dbidar.h"
#include "gedblar.h"
#include "geintarr.h"
#include "gemat2d.h"
#include "gept2dar.h"
#include "OwnedCopy.h"

/// Loops are numbered from 0, in the object coordinate system of the hatch's normal; angles are in radians.
/// Members return eInvalidIndex for an index out of range and eInvalidInput for null pointers and for numbers
/// that are not finite, and change nothing then.
class AcDbHatch : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbHatch);
    ACDB_STATE_MEMBERS(AcDbHatch)

    /// Bits of a loop's type.
    enum HatchLoopType {
        kDefault = 0,
        kExternal = 1,
        kPolyline = 2,
        kDerived = 4,
        kTextbox = 8,
        kOutermost = 0x10,
        kNotClosed = 0x20,
        kSelfIntersecting = 0x40,
        kTextIsland = 0x80,
        kDuplicate = 0x100,
        kIsAnnotative = 0x200,
        kDoesNotSupportScale = 0x400,
        kForceAnnoAllVisible = 0x800,
        kOrientToPaper = 0x1000,
        kIsAnnotativeBlock = 0x2000
    };
    enum HatchEdgeType { kLine = 1, kCirArc = 2, kEllArc = 3, kSpline = 4 };
    enum HatchPatternType { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
    /// What nested loops mean: every second is an island, only the outermost ring is filled, or islands do
    /// not count.
    enum HatchStyle { kNormal = 0, kOuter = 1, kIgnore = 2 };
    enum HatchObjectType { kHatchObject = 0, kGradientObject = 1 };
    enum GradientPatternType { kPreDefinedGradient = 0, kUserDefinedGradient = 1 };

    AcDbHatch() = default;

    AcGeVector3d normal() const { return mNormal; }
    /// The loops keep their coordinates. eInvalidInput for a zero vector.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double elevation() const { return mElevation.z; }
    Acad::ErrorStatus setElevation(double elevation);
    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    void getEcs(AcGeMatrix3d& matrix) const override;

    // Loops.

    int numLoops() const { return static_cast<int>(mLoops.size()); }
    /// -1 for an index out of range.
    Adesk::Int32 loopTypeAt(int loopIndex) const;
    /// Edges as AcGeLineSeg2d, AcGeCircArc2d, AcGeEllipArc2d and AcGeNurbCurve2d by their types, which the
    /// caller deletes. eInvalidInput for a polyline loop.
    Acad::ErrorStatus getLoopAt(int loopIndex, Adesk::Int32& loopType, AcGeVoidPointerArray& edgePtrs,
                                AcGeIntArray& edgeTypes) const;
    /// A polyline loop; the first vertex is repeated at the end. eInvalidInput for a loop of edges.
    Acad::ErrorStatus getLoopAt(int loopIndex, Adesk::Int32& loopType, AcGePoint2dArray& vertices,
                                AcGeDoubleArray& bulges) const;
    /// The edges stay the caller's. They may come in any direction, and must make one closed chain:
    /// eInvalidInput.
    Acad::ErrorStatus appendLoop(Adesk::Int32 loopType, const AcGeVoidPointerArray& edgePtrs,
                                 const AcGeIntArray& edgeTypes);
    /// Vertices with as many bulges, or none; the last vertex may repeat the first. eInvalidInput when they
    /// span nothing.
    Acad::ErrorStatus appendLoop(Adesk::Int32 loopType, const AcGePoint2dArray& vertices,
                                 const AcGeDoubleArray& bulges);
    /// The curves of entities of the database, which must make one closed chain in the hatch's plane:
    /// eInvalidInput; a region alone may have several loops and makes as many. An associative hatch follows
    /// them when they change: in its plane, and out of it as soon as all of them lie in one plane again.
    /// While they make no closed chain it stays as it is.
    Acad::ErrorStatus appendLoop(Adesk::Int32 loopType, const AcDbObjectIdArray& dbObjIds);
    Acad::ErrorStatus insertLoopAt(int loopIndex, Adesk::Int32 loopType, const AcGeVoidPointerArray& edgePtrs,
                                   const AcGeIntArray& edgeTypes);
    Acad::ErrorStatus insertLoopAt(int loopIndex, Adesk::Int32 loopType, const AcGePoint2dArray& vertices,
                                   const AcGeDoubleArray& bulges);
    Acad::ErrorStatus insertLoopAt(int loopIndex, Adesk::Int32 loopType, const AcDbObjectIdArray& dbObjIds);
    Acad::ErrorStatus removeLoopAt(int loopIndex);

    bool associative() const { return mAssociative != 0; }
    /// A hatch that is not associative any more forgets the entities it followed.
    Acad::ErrorStatus setAssociative(bool isAssociative);
    Acad::ErrorStatus getAssocObjIdsAt(int loopIndex, AcDbObjectIdArray& ids) const;
    Acad::ErrorStatus getAssocObjIds(AcDbObjectIdArray& ids) const;
    Acad::ErrorStatus removeAssocObjIds();

    // The pattern.

    HatchPatternType patternType() const { return static_cast<HatchPatternType>(mPatternType); }
    const ACHAR* patternName() const { return mName.GetString(); }
    /// SOLID, one of the standard patterns (in millimetres, ANSI31 ...), or with kUserDefined parallel lines
    /// at patternSpace under any name. eInvalidInput for a name that is not known.
    Acad::ErrorStatus setPattern(HatchPatternType patType, const ACHAR* patName);
    double patternAngle() const { return mAngle; }
    /// Turns the lines of the pattern about the origin point.
    Acad::ErrorStatus setPatternAngle(double angle);
    double patternScale() const { return mScale; }
    /// eInvalidInput unless above 1e-10.
    Acad::ErrorStatus setPatternScale(double scale);
    double patternSpace() const { return mSpace; }
    /// Of user-defined patterns, drawing units. eInvalidInput unless above 1e-10.
    Acad::ErrorStatus setPatternSpace(double space);
    bool patternDouble() const { return mDouble != 0; }
    /// A user-defined pattern has its lines crosswise as well.
    Acad::ErrorStatus setPatternDouble(bool isDouble);
    int numPatternDefinitions() const { return static_cast<int>(mLines.size()); }
    /// A family of lines as it lies in the hatch: angle, a point of the first line, the step to the next.
    Acad::ErrorStatus getPatternDefinitionAt(int index, double& angle, double& baseX, double& baseY,
                                             double& offsetX, double& offsetY, AcGeDoubleArray& dashes) const;
    HatchStyle hatchStyle() const { return static_cast<HatchStyle>(mStyle); }
    Acad::ErrorStatus setHatchStyle(HatchStyle style);
    AcGePoint2d originPoint() const { return mOrigin; }
    /// Moves the lines of the pattern.
    Acad::ErrorStatus setOriginPoint(const AcGePoint2d& point);
    /// What lies behind the lines; method kNone: nothing.
    AcCmColor backgroundColor() const { return mBackground; }
    Acad::ErrorStatus setBackgroundColor(const AcCmColor& color);

    // Gradients.

    bool isGradient() const { return mGradient && mGradient->isGradient; }
    bool isHatch() const { return !isGradient(); }
    bool isSolidFill() const { return mSolid != 0; }
    HatchObjectType hatchObjectType() const { return isGradient() ? kGradientObject : kHatchObject; }
    Acad::ErrorStatus setHatchObjectType(HatchObjectType type);
    GradientPatternType gradientType() const { return kPreDefinedGradient; }
    const ACHAR* gradientName() const { return mGradient ? mGradient->name.GetString() : L""; }
    /// LINEAR, CYLINDER, INVCYLINDER, SPHERICAL, INVSPHERICAL, HEMISPHERICAL, INVHEMISPHERICAL, CURVED or
    /// INVCURVED; eInvalidInput for others and for user-defined ones, which do not exist.
    Acad::ErrorStatus setGradient(GradientPatternType gradType, const ACHAR* gradName);
    double gradientAngle() const { return mGradient ? mGradient->angle : 0.0; }
    Acad::ErrorStatus setGradientAngle(double angle);
    /// 0 centred, 1 shifted to the upper left.
    float gradientShift() const { return mGradient ? static_cast<float>(mGradient->shift) : 0.0F; }
    Acad::ErrorStatus setGradientShift(float shift);
    bool getGradientOneColorMode() const { return mGradient && mGradient->isOneColor; }
    Acad::ErrorStatus setGradientOneColorMode(bool oneColorMode);
    /// 0 (black) to 1 (white): what the one colour runs to.
    float getShadeTintValue() const { return mGradient ? static_cast<float>(mGradient->tint) : 0.0F; }
    Acad::ErrorStatus setShadeTintValue(float value);
    /// Two colours and their values, 0 and 1. eInvalidInput for another count or values that do not rise from
    /// 0 to 1.
    Acad::ErrorStatus setGradientColors(unsigned int count, const AcCmColor* colors, const float* values);
    /// The colours and values as new arrays that the caller deletes (delete[]).
    Acad::ErrorStatus getGradientColors(unsigned int& count, AcCmColor*& colors, float*& values) const;
    /// The colour at a value, 0 to 1, between the stops.
    Acad::ErrorStatus evaluateGradientColorAt(float value, AcCmColor& color) const;

    // The lines.

    /// Computes the lines of the pattern inside the loops: eHatchTooDense for more than a million. Solid
    /// fills have none.
    Acad::ErrorStatus evaluateHatch(bool underestimateNumLines = false);
    /// Of the last evaluation; 0 before it and after changes.
    int numHatchLines() const { return mEvaluated ? static_cast<int>(mEvaluated->size()) : 0; }
    Acad::ErrorStatus getHatchLineDataAt(int line, AcGePoint2d& startPt, AcGePoint2d& endPt) const;
    Acad::ErrorStatus getHatchLinesData(AcGePoint2dArray& startPts, AcGePoint2dArray& endPts) const;
    /// The filled area, exact for loops that do not cross. eInvalidInput for a hatch without loops.
    Acad::ErrorStatus getArea(double& area) const;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;
    void completeRead() override;
    Acad::ErrorStatus subClose() override;
    void modified(const AcDbObject* object) override;
    void erased(const AcDbObject* object, bool isErasing) override;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    /// Lines, and points for dots. Solid fills and gradients: eCannotExplodeEntity.
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;

private:
    struct Dxf;
    friend struct Dxf;

    Acad::ErrorStatus beginPatternChange();
    Acad::ErrorStatus insertLoops(int index, std::vector<hatch::Loop> loops);
    bool follows(AcDbObjectId id) const;
    void followAgain(const AcDbEntity& source);
    /// Makes a change while the hatch is told of another object's.
    template <class Change>
    void changeWhileTold(Change change);
    Acad::ErrorStatus rebuildUserPattern();
    void writeExtraData();
    void mapPattern(const AcGeMatrix2d& map);
    Acad::ErrorStatus makeSegments(double finest, std::vector<hatch::Segment>& segments) const;
    void drawPattern(AcGiWorldDraw& draw) const;
    hatch::Plane plane() const { return {mNormal, mElevation.z}; }
    AcGeMatrix3d planeToWorld() const { return plane().toWorld(); }
    hatch::Gradient& needGradient();
    bool hasBackground() const { return !mBackground.isNone(); }
    static AcCmColor noColor();

    std::vector<hatch::Loop> mLoops;
    std::vector<hatch::PatternLine> mLines;
    std::vector<AcGePoint2d> mSeeds; ///< the points that were picked
    OwnedCopy<hatch::Gradient> mGradient;
    OwnedCopy<std::vector<hatch::Segment>> mEvaluated;
    CString mName = L"SOLID";
    AcGePoint3d mElevation; ///< x and y are 0 in files
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    AcGePoint2d mOrigin;
    double mAngle = 0.0, mScale = 1.0, mSpace = 1.0;
    std::optional<double> mPixelSize; ///< of the screen when the loops were derived
    AcCmColor mBackground = noColor();
    std::int16_t mSolid = 1, mAssociative = 0, mStyle = kNormal, mPatternType = kPreDefined, mDouble = 0;
    bool mFileNamesPattern = false; ///< the file gave the lines of a pattern, also for a solid fill
    bool mOriginChanged = false, mBackgroundChanged = false; ///< which files keep as extended data
    bool mSourcesChanged = false;
};
