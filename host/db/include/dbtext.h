#pragma once

/// AcDbText: one line of text.

#include "dbentity.h"

class AcGiTextStyle;
class AcString;

/// The position is the start of the baseline. A text that is not left aligned on its baseline hangs on its alignment
/// point; its position follows from the measures of its font and is brought up to date by adjustAlignment, which closing
/// the text calls after changes.
///
/// In a vertical style of a shape font the letters stand below each other along the rotation, upright at 270 degrees;
/// the text starts in the middle of the first one's top, and alignments say where the point is along the column only.
///
/// Points are in world coordinates and lie in a plane with the normal; angles are radians.
class AcDbText : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbText);
    ACDB_STATE_MEMBERS(AcDbText)
    AcDbText() = default;
    /// With the current text style for the null id.
    AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId::kNull,
             double height = 0, double rotation = 0);

    /// Points that are set must be finite: eInvalidInput.
    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    AcGePoint3d alignmentPoint() const;
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
    /// Left aligned on the baseline.
    bool isDefaultAlignment() const { return mHorizontal == AcDb::kTextLeft && mVertical == AcDb::kTextBase; }
    AcDb::TextHorzMode horizontalMode() const { return static_cast<AcDb::TextHorzMode>(mHorizontal); }
    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
    AcDb::TextVertMode verticalMode() const { return static_cast<AcDb::TextVertMode>(mVertical); }
    Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);
    /// Both modes as one. Setting it leaves position and alignment point as they are.
    enum AcTextAlignment {
        kTextAlignmentLeft = 0,
        kTextAlignmentCenter,
        kTextAlignmentRight,
        kTextAlignmentAligned,
        kTextAlignmentMiddle,
        kTextAlignmentFit,
        kTextAlignmentTopLeft,
        kTextAlignmentTopCenter,
        kTextAlignmentTopRight,
        kTextAlignmentMiddleLeft,
        kTextAlignmentMiddleCenter,
        kTextAlignmentMiddleRight,
        kTextAlignmentBottomLeft,
        kTextAlignmentBottomCenter,
        kTextAlignmentBottomRight
    };
    AcTextAlignment justification() const;
    /// eInvalidInput for another number.
    Acad::ErrorStatus setJustification(AcTextAlignment justification);
    /// Computes the position from the alignment point. eNotApplicable for a text with default alignment.
    virtual Acad::ErrorStatus adjustAlignment(const AcDbDatabase* db = nullptr);

    AcGeVector3d normal() const { return mNormal; }
    /// eInvalidInput for a vector that is zero or not finite.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double thickness() const { return mThickness; }
    /// eInvalidInput unless finite.
    Acad::ErrorStatus setThickness(double thickness);
    double rotation() const { return mRotation; }
    Acad::ErrorStatus setRotation(double rotation);
    double oblique() const { return mOblique; }
    /// eInvalidInput beyond 85 degrees to either side.
    Acad::ErrorStatus setOblique(double oblique);
    double height() const { return mHeight; }
    /// eInvalidInput unless above 0.
    Acad::ErrorStatus setHeight(double height);
    double widthFactor() const { return mWidthFactor; }
    /// eInvalidInput unless above 0.
    Acad::ErrorStatus setWidthFactor(double factor);

    /// A copy that the caller releases with acutDelString.
    ACHAR* textString() const;
    const ACHAR* textStringConst() const { return mText; }
    Acad::ErrorStatus textString(CString& text) const;
    Acad::ErrorStatus textString(AcString& text) const;
    /// eInvalidInput for null, or with line breaks.
    Acad::ErrorStatus setTextString(const ACHAR* text);

    AcDbObjectId textStyle() const;
    /// eInvalidTextStyle for what is no text style of the drawing.
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);

    bool isMirroredInX() const { return (mGeneration & 2) != 0; }
    Acad::ErrorStatus mirrorInX(bool mirror);
    bool isMirroredInY() const { return (mGeneration & 4) != 0; }
    Acad::ErrorStatus mirrorInY(bool mirror);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    void getEcs(AcGeMatrix3d& matrix) const override;
    /// The box around the text sits on this.
    void intersectionCurves(Curves& curves, bool extended) const override;
    /// The corners of the box around the drawn text, counter-clockwise from its lower left; false for a text without ink.
    bool boundingPoints(AcGePoint3d (&corners)[4]) const;

    void completeRead() override;
    Acad::ErrorStatus subClose() override;
    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    void subSetDatabaseDefaults(AcDbDatabase* db) override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick, const AcGePoint3d& last,
                                        AcGePoint3dArray& points) const override;
    /// What is drawn: an attribute definition shows its tag.
    virtual const CString& shownText() const { return mText; }

private:
    friend struct TextFields;
    AcGiTextStyle drawnStyle() const;
    double letterTurn(const AcGiTextStyle& style) const;
    void stretch(const AcGiTextStyle& style, double length);
    void keepReadable(AcGeVector3d& along, AcGeVector3d& up);
    /// From the text's own coordinates (baseline along X) to the world.
    AcGeMatrix3d textToWorld() const;

    AcGePoint3d mPosition, mAlignment; ///< in object coordinates
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    double mHeight = 0.2;
    double mRotation = 0.0;
    double mWidthFactor = 1.0;
    double mOblique = 0.0;
    double mThickness = 0.0;
    CString mText;
    AcDbObjectId mStyle;
    std::int16_t mGeneration = 0;
    std::int8_t mHorizontal = AcDb::kTextLeft;
    std::int8_t mVertical = AcDb::kTextBase;
    bool mHasAlignment = false; ///< the file gives an alignment point, needed or not
};
