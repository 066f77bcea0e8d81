#pragma once

/// AcDbDimension: what all dimensions have in common: a measure shown as a text, a style, and a picture.

#include "dbdimvar.h"
#include "dbmtext.h"

class AcDbDimStyleTableRecord;
class DimensionPicture;
struct DimVariables;

/// The picture of a dimension stands in an anonymous block ("*D..."), in world coordinates; dimensions
/// without one draw the same from their points. Setters leave the block behind; closing the dimension, or
/// recomputeDimBlock, makes a new one.
///
/// Points are in world coordinates, lengths in drawing units, angles in radians.
class AcDbDimension : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDimension);
    ~AcDbDimension() override;

    /// The block with the picture; null while there is none.
    AcDbObjectId dimBlockId() const { return mBlock; }
    Acad::ErrorStatus setDimBlockId(AcDbObjectId block);
    /// Where the block's origin lies; not the world's origin for copies that were moved.
    AcGePoint3d dimBlockPosition() const;
    Acad::ErrorStatus setDimBlockPosition(const AcGePoint3d& position);
    AcGeMatrix3d blockTransform() const;
    /// Makes the picture anew in a block. Without `forceUpdate` only when something changed since.
    /// eNotInDatabase for a dimension that is in no drawing; eNotApplicable for one whose points show no
    /// picture; the statuses of opening the block table.
    Acad::ErrorStatus recomputeDimBlock(bool forceUpdate = true);
    Acad::ErrorStatus generateLayout() { return recomputeDimBlock(false); }

    /// The middle of the text.
    AcGePoint3d textPosition() const;
    /// Also says that the text stays there.
    Acad::ErrorStatus setTextPosition(const AcGePoint3d& position);
    bool isUsingDefaultTextPosition() const { return (mFlags & userPosition) == 0; }
    Acad::ErrorStatus useSetTextPosition();
    Acad::ErrorStatus useDefaultTextPosition();
    /// By how much the text is turned from the direction it has by its style.
    double textRotation() const { return mTextRotation; }
    Acad::ErrorStatus setTextRotation(double rotation);
    AcDbMText::AttachmentPoint textAttachment() const
    {
        return static_cast<AcDbMText::AttachmentPoint>(mAttachment);
    }
    Acad::ErrorStatus setTextAttachment(AcDbMText::AttachmentPoint attachment);
    AcDb::LineSpacingStyle textLineSpacingStyle() const
    {
        return static_cast<AcDb::LineSpacingStyle>(mSpacingStyle);
    }
    Acad::ErrorStatus setTextLineSpacingStyle(AcDb::LineSpacingStyle style);
    double textLineSpacingFactor() const { return mSpacingFactor; }
    /// eInvalidInput outside 0.25 to 4.
    Acad::ErrorStatus setTextLineSpacingFactor(double factor);

    /// The text that the user gave, as a copy to be released with acutDelString: empty for the measure; "<>"
    /// stands for the measure inside; a single blank shows no text.
    ACHAR* dimensionText() const;
    Acad::ErrorStatus dimensionText(CString& text) const;
    Acad::ErrorStatus setDimensionText(const ACHAR* text);
    /// What is measured, by the points: a length, for angles radians. DIMLFAC and rounding are not applied.
    double measurement() const { return measure(); }
    Acad::ErrorStatus measurement(double& value) const;
    /// A measure as the dimension would show it, with the codes of multiline texts.
    Acad::ErrorStatus formatMeasurement(CString& formatted, double measurement,
                                        const ACHAR* dimensionText = nullptr) const;
    /// The same as a copy to be released with acutDelString.
    Acad::ErrorStatus formatMeasurement(ACHAR*& formatted, double measurement,
                                        const ACHAR* dimensionText = nullptr) const;

    AcGeVector3d normal() const { return mNormal; }
    /// eInvalidInput for a zero vector.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    /// Of the plane, along the normal.
    double elevation() const { return mTextPosition.z; }
    Acad::ErrorStatus setElevation(double elevation);
    /// The negative of the angle from the X axis of the object coordinates to the direction that the
    /// dimension takes as horizontal.
    double horizontalRotation() const { return mHorizontalRotation; }
    Acad::ErrorStatus setHorizontalRotation(double rotation);

    /// Until one is set, or setDatabaseDefaults takes the current one, the style "Standard".
    AcDbObjectId dimensionStyle() const;
    /// eInvalidDimStyle for what is no dimension style of the drawing.
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId style);
    /// The style with the dimension's own values, as a new record that the caller owns.
    Acad::ErrorStatus getDimstyleData(AcDbDimStyleTableRecord*& record) const;
    /// Takes the values of a record: those that differ from the style become the dimension's own.
    Acad::ErrorStatus setDimstyleData(const AcDbDimStyleTableRecord* record);
    /// Takes a style and drops the dimension's own values.
    Acad::ErrorStatus setDimstyleData(AcDbObjectId style);

    bool getArrowFirstIsFlipped() const { return mFlipsFirst; }
    Acad::ErrorStatus setArrowFirstIsFlipped(bool flipped);
    bool getArrowSecondIsFlipped() const { return mFlipsSecond; }
    Acad::ErrorStatus setArrowSecondIsFlipped(bool flipped);

    // The variables: those of the style, or the dimension's own. A setter overrides the style.

#define ACDB_DIM_REAL_MEMBERS(name, Name, code, value)                                                       \
    double name() const;                                                                                     \
    Acad::ErrorStatus set##Name(double newValue);
#define ACDB_DIM_INTEGER_MEMBERS(name, Name, code, value)                                                    \
    int name() const;                                                                                        \
    Acad::ErrorStatus set##Name(int newValue);
#define ACDB_DIM_SWITCH_MEMBERS(name, Name, code, value)                                                     \
    bool name() const;                                                                                       \
    Acad::ErrorStatus set##Name(bool newValue);
#define ACDB_DIM_COLOR_MEMBERS(name, Name, code, value)                                                      \
    AcCmColor name() const;                                                                                  \
    Acad::ErrorStatus set##Name(const AcCmColor& newValue);
#define ACDB_DIM_TEXT_MEMBERS(name, Name, code, value)                                                       \
    CString name() const;                                                                                    \
    Acad::ErrorStatus set##Name(const ACHAR* newValue);
#define ACDB_DIM_REFERENCE_MEMBERS(name, Name, code, value)                                                  \
    AcDbObjectId name() const;                                                                               \
    Acad::ErrorStatus set##Name(AcDbObjectId newValue);
#define ACDB_DIM_LINEWEIGHT_MEMBERS(name, Name, code, value)                                                 \
    AcDb::LineWeight name() const;                                                                           \
    Acad::ErrorStatus set##Name(AcDb::LineWeight newValue);
    ACDB_DIM_REALS(ACDB_DIM_REAL_MEMBERS)
    ACDB_DIM_ANGLES(ACDB_DIM_REAL_MEMBERS)
    ACDB_DIM_INTEGERS(ACDB_DIM_INTEGER_MEMBERS)
    ACDB_DIM_SWITCHES(ACDB_DIM_SWITCH_MEMBERS)
    ACDB_DIM_COLORS(ACDB_DIM_COLOR_MEMBERS)
    ACDB_DIM_LINEWEIGHTS(ACDB_DIM_LINEWEIGHT_MEMBERS)
    ACDB_DIM_TEXTS(ACDB_DIM_TEXT_MEMBERS)
    ACDB_DIM_REFERENCES(ACDB_DIM_REFERENCE_MEMBERS)
#undef ACDB_DIM_LINEWEIGHT_MEMBERS
#undef ACDB_DIM_REAL_MEMBERS
#undef ACDB_DIM_INTEGER_MEMBERS
#undef ACDB_DIM_SWITCH_MEMBERS
#undef ACDB_DIM_COLOR_MEMBERS
#undef ACDB_DIM_TEXT_MEMBERS
#undef ACDB_DIM_REFERENCE_MEMBERS

    bool isPlanar() const override
    {
        return true;
    }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    void getEcs(AcGeMatrix3d& matrix) const override;
    void intersectionCurves(Curves& curves, bool extended) const override;
    Acad::ErrorStatus subClose() override;
    void subSetDatabaseDefaults(AcDbDatabase* db) override;

    const DxfClass* dxfClass() const override
    {
        return &dxf;
    }
    static const DxfClass dxf;

protected:
    /// The low bits of group 70.
    enum Type {
        rotatedType,
        alignedType,
        angularType,
        diametricType,
        radialType,
        angular3PointType,
        ordinateType,
        arcType = 5,
        largeRadialType = 9
    };
    static constexpr int ownBlock = 32;
    static constexpr int userPosition = 128;

    explicit AcDbDimension(Type type) : mFlags(static_cast<std::int16_t>(type | ownBlock)) {}
    AcDbDimension(const AcDbDimension& other);
    AcDbDimension& operator=(const AcDbDimension& other);

    virtual double measure() const = 0;
    virtual bool isAngular() const
    {
        return false;
    }
    /// "R", a diameter sign: what stands before the measure.
    virtual const wchar_t* measureSign() const
    {
        return L"";
    }
    /// Gives the picture its entities, with the text where it belongs, and returns the middle of the text.
    /// False for points that show nothing.
    virtual bool layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const = 0;
    /// Maps the points that the class has itself.
    virtual void mapPoints(const AcGeMatrix3d& xform) = 0;
    /// Maps an angle of the class in the object coordinates before to those after.
    virtual void mapAngles(const AcGeMatrix3d& /*before to after*/) {}
    /// The points by which it is moved, the text first.
    virtual AcGePoint3dArray definingPoints() const = 0;
    virtual void setDefiningPoint(int index, const AcGePoint3d& point) = 0;

    /// For constructors: the point of group 10, and the text and style where they are given.
    void begin(const AcGePoint3d& defPoint, const ACHAR* dimText, AcDbObjectId dimStyle);
    /// The gate of a setter: what was drawn no longer holds.
    Acad::ErrorStatus beginReshape();
    /// Sets a point of the class.
    Acad::ErrorStatus change(AcGePoint3d& member, const AcGePoint3d& point);
    /// A finite angle or length; eInvalidInput for others.
    Acad::ErrorStatus change(double& member, double value);
    AcGePoint2d textInPlane() const
    {
        return {mTextPosition.x, mTextPosition.y};
    }
    /// The angle of the direction taken as horizontal, from the X axis of the object coordinates.
    double horizontal() const
    {
        return -mHorizontalRotation;
    }
    /// The angle of the text: along a direction, or horizontal, by the style; with the dimension's own turn.
    double textAngle(const DimVariables& variables, double along, bool isInside) const;

    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
    bool explodesWithOwnProperties() const override
    {
        return true;
    }
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

    AcGePoint3d mDefPoint; ///< group 10: its meaning is each class's own
    std::int16_t mFlags;   ///< group 70

private:
    friend struct DimensionFields;
    friend struct DimensionBlock;
    bool draw(DimensionPicture& picture, AcGePoint2d& textMiddle) const;

    AcDbObjectId mBlock, mStyle;
    AcGePoint3d mTextPosition;  ///< in object coordinates
    AcGePoint3d mBlockPosition; ///< in object coordinates
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    CString mText;
    double mTextRotation = 0.0, mHorizontalRotation = 0.0;
    double mSpacingFactor = 1.0;
    double mFileMeasure = 0.0; ///< what the file says, while nothing changed
    std::int8_t mAttachment = 5, mSpacingStyle = 1;
    bool mHasFileMeasure = false;
    std::uint8_t mGiven = 0; ///< groups with defaults that the file states nevertheless
    bool mFlipsFirst = false, mFlipsSecond = false;
    bool mIsStale = true;    ///< the block no longer shows what the points say
    bool mMadeBlock = false; ///< the block is this dimension's alone
};
