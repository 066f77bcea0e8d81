#pragma once

/// AcDbMText: paragraphs of text in a frame, with formats inside the text.

#include "OwnedCopy.h"
#include "dbentity.h"

#include <optional>

struct MTextExtras;
namespace lettering
{
struct MTextLayout;
}

/// Characters of one format in one line, as explodeFragments hands them out. Texts belong to the enumeration.
struct AcDbMTextFragment {
    AcGePoint3d location;   ///< the start of the baseline, in world coordinates
    AcGeVector3d normal;    ///< of the text's plane
    AcGeVector3d direction; ///< along the baseline
    ACHAR* text = nullptr;
    ACHAR* fontname = nullptr;
    ACHAR* bigfontname = nullptr;
    AcGePoint2d extents; ///< the length along the baseline and the height of the capitals
    double capsHeight = 0.0;
    double widthFactor = 1.0;
    double obliqueAngle = 0.0; ///< radians
    double trackingFactor = 1.0;
    std::uint16_t colorIndex = 256;
    AcCmEntityColor color;
    bool bold = false, italic = false;
    bool underlined = false, overlined = false, strikethrough = false;
    /// Start and end of the lines, where there are any.
    AcGePoint3d underPoints[2], overPoints[2], strikePoints[2];
};

/// Returns 1 to go on, 0 to stop.
using AcDbMTextEnum = int (*)(AcDbMTextFragment* fragment, void* data);

/// Points and directions are in world coordinates, angles are radians, lengths drawing units. The codes inside the
/// contents are those of the constants below. Setters return eInvalidInput for numbers that are not finite.
class AcDbMText : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbMText);
    ACDB_STATE_MEMBERS(AcDbMText)

    enum AttachmentPoint {
        kTopLeft = 1,
        kTopCenter,
        kTopRight,
        kMiddleLeft,
        kMiddleCenter,
        kMiddleRight,
        kBottomLeft,
        kBottomCenter,
        kBottomRight
    };
    enum FlowDirection { kLtoR = 1, kRtoL = 2, kTtoB = 3, kBtoT = 4, kByStyle = 5 };
    enum ColumnType { kNoColumns = 0, kStaticColumns = 1, kDynamicColumns = 2 };

    AcDbMText();
    AcDbMText(const AcDbMText& other);
    AcDbMText& operator=(const AcDbMText& other);
    ~AcDbMText() override;

    /// The point of the frame that the attachment names.
    AcGePoint3d location() const { return mLocation; }
    Acad::ErrorStatus setLocation(const AcGePoint3d& location);
    AcGeVector3d normal() const { return mNormal; }
    /// The direction is turned into the new plane. eInvalidInput for a zero vector.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    /// A unit vector along the lines.
    AcGeVector3d direction() const;
    /// Its part in the text's plane counts; eInvalidInput when there is none.
    Acad::ErrorStatus setDirection(const AcGeVector3d& direction);
    /// Of the direction, from the X axis of the object coordinates of the normal.
    double rotation() const;
    Acad::ErrorStatus setRotation(double rotation);

    /// Of the frame that lines break at; 0: they do not break.
    double width() const { return mWidth; }
    /// eInvalidInput below 0.
    Acad::ErrorStatus setWidth(double width);
    /// The height of the frame that columns fill; 0: as high as the text.
    double height() const { return mHeight; }
    Acad::ErrorStatus setHeight(double height);
    double textHeight() const { return mTextHeight; }
    /// eInvalidInput unless above 0.
    Acad::ErrorStatus setTextHeight(double height);
    AcDbObjectId textStyle() const;
    /// eInvalidTextStyle for what is no text style of the drawing.
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    AttachmentPoint attachment() const { return static_cast<AttachmentPoint>(mAttachment); }
    /// The location stays: the text moves.
    Acad::ErrorStatus setAttachment(AttachmentPoint attachment);
    /// The text stays: the location moves.
    Acad::ErrorStatus setAttachmentMovingLocation(AttachmentPoint attachment);
    FlowDirection flowDirection() const { return static_cast<FlowDirection>(mFlowDirection); }
    Acad::ErrorStatus setFlowDirection(FlowDirection direction);
    AcDb::LineSpacingStyle lineSpacingStyle() const { return static_cast<AcDb::LineSpacingStyle>(mSpacingStyle); }
    Acad::ErrorStatus setLineSpacingStyle(AcDb::LineSpacingStyle style);
    double lineSpacingFactor() const { return mSpacingFactor; }
    /// eInvalidInput outside 0.25 to 4.
    Acad::ErrorStatus setLineSpacingFactor(double factor);

    /// A copy that the caller releases with acutDelString.
    ACHAR* contents() const;
    Acad::ErrorStatus contents(CString& contents) const;
    /// 1, or 0 and nothing changed for null or when the text is not open for write.
    int setContents(const ACHAR* contents);
    /// The characters without codes, paragraphs apart by "\r\n"; a copy for acutDelString.
    ACHAR* text() const;
    Acad::ErrorStatus text(CString& text) const;

    /// Of what is drawn: from the top of the first line to the bottom of the last, and of the longest line.
    double actualHeight(AcGiWorldDraw* context = nullptr) const;
    double actualWidth() const;
    /// How far the first line's font reaches above and (a positive number) below its baseline.
    double ascent() const;
    double descent() const;
    /// Appends the corners of the frame around the lines: top left, top right, bottom left, bottom right.
    void getBoundingPoints(AcGePoint3dArray& points) const;
    /// Calls for each piece of one format, line by line. Stacks give their parts.
    void explodeFragments(AcDbMTextEnum callback, void* data, AcGiWorldDraw* context = nullptr) const;

    bool backgroundFillOn() const;
    Acad::ErrorStatus setBackgroundFill(bool on);
    /// eInvalidInput while the fill is off, and for the others below.
    Acad::ErrorStatus getBackgroundFillColor(AcCmColor& color) const;
    Acad::ErrorStatus setBackgroundFillColor(const AcCmColor& color);
    /// How much higher than the text the fill is, 1 to 5: it reaches (factor - 1) text heights beyond the lines.
    Acad::ErrorStatus getBackgroundScaleFactor(double& factor) const;
    Acad::ErrorStatus setBackgroundScaleFactor(double factor);
    Acad::ErrorStatus getBackgroundTransparency(AcCmTransparency& transparency) const;
    Acad::ErrorStatus setBackgroundTransparency(const AcCmTransparency& transparency);
    /// True: the fill has the colour of the drawing's background.
    bool useBackgroundColorOn() const;
    Acad::ErrorStatus setUseBackgroundColor(bool on);
    /// A line around the text.
    bool showBorders() const;
    Acad::ErrorStatus setShowBorders(bool show);

    Acad::ErrorStatus getColumnType(ColumnType& type) const;
    Acad::ErrorStatus setColumnType(ColumnType type);
    /// eNotApplicable for a text without columns, here and below.
    Acad::ErrorStatus getColumnCount(int& count) const;
    Acad::ErrorStatus setColumnCount(int count);
    Acad::ErrorStatus getColumnWidth(double& width) const;
    Acad::ErrorStatus setColumnWidth(double width);
    Acad::ErrorStatus getColumnGutterWidth(double& width) const;
    Acad::ErrorStatus setColumnGutterWidth(double width);
    Acad::ErrorStatus getColumnAutoHeight(bool& isAuto) const;
    Acad::ErrorStatus setColumnAutoHeight(bool isAuto);
    Acad::ErrorStatus getColumnFlowReversed(bool& isReversed) const;
    Acad::ErrorStatus setColumnFlowReversed(bool reversed);
    /// Of columns whose heights differ. eInvalidIndex past the last.
    Acad::ErrorStatus getColumnHeight(int column, double& height) const;
    Acad::ErrorStatus setColumnHeight(int column, double height);
    Acad::ErrorStatus setDynamicColumns(double width, double gutter, bool isAuto);
    Acad::ErrorStatus setStaticColumns(double width, double gutter, int count);

    // The codes.
    static const ACHAR* nonBreakSpace() { return L"\\~"; }
    static const ACHAR* overlineOn() { return L"\\O"; }
    static const ACHAR* overlineOff() { return L"\\o"; }
    static const ACHAR* underlineOn() { return L"\\L"; }
    static const ACHAR* underlineOff() { return L"\\l"; }
    static const ACHAR* strikethroughOn() { return L"\\K"; }
    static const ACHAR* strikethroughOff() { return L"\\k"; }
    static const ACHAR* colorChange() { return L"\\C"; }
    static const ACHAR* fontChange() { return L"\\F"; }
    static const ACHAR* heightChange() { return L"\\H"; }
    static const ACHAR* widthChange() { return L"\\W"; }
    static const ACHAR* obliqueChange() { return L"\\Q"; }
    static const ACHAR* trackChange() { return L"\\T"; }
    static const ACHAR* lineBreak() { return L"\\p"; }
    static const ACHAR* paragraphBreak() { return L"\\P"; }
    static const ACHAR* stackStart() { return L"\\S"; }
    static const ACHAR* alignChange() { return L"\\A"; }
    static const ACHAR* blockBegin() { return L"{"; }
    static const ACHAR* blockEnd() { return L"}"; }

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    void getEcs(AcGeMatrix3d& matrix) const override;
    /// The frame around the lines sits on this.
    void intersectionCurves(Curves& curves, bool extended) const override;
    void completeRead() override;
    Acad::ErrorStatus subClose() override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    void subSetDatabaseDefaults(AcDbDatabase* db) override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
    bool explodesWithOwnProperties() const override { return true; }
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick, const AcGePoint3d& last,
                                        AcGePoint3dArray& points) const override;

private:
    friend struct MTextFields;
    friend struct MTextRecord;
    Acad::ErrorStatus beginTextChange();
    AcGePoint3d readableImage(const AcGePoint3d& image, const AcGeVector3d& normal, AcGeVector3d& along,
                              const AcGeVector3d& up) const;
    template <class T, class V>
    Acad::ErrorStatus change(T& member, V value);
    template <class Apply>
    Acad::ErrorStatus changeExtras(Apply apply);
    template <class Apply>
    Acad::ErrorStatus changeFill(Apply apply);
    template <class Apply>
    Acad::ErrorStatus changeColumns(Apply apply);
    const MTextExtras* columns() const;
    lettering::MTextLayout layout() const;
    /// From the text's own coordinates (x along the lines, the location in the origin) to the world.
    AcGeMatrix3d textToWorld() const;
    void drawBackground(AcGiWorldDraw& draw, const lettering::MTextLayout& layout) const;

    AcGePoint3d mLocation;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    AcGeVector3d mDirection = AcGeVector3d::kXAxis; ///< as set or read: of any length
    double mWidth = 0.0;
    double mHeight = 0.0;
    double mTextHeight = 0.2;
    double mSpacingFactor = 1.0;
    CString mContents;
    AcDbObjectId mStyle;
    OwnedCopy<MTextExtras> mExtras;
    std::int16_t mAttachment = kTopLeft;
    std::int16_t mFlowDirection = kByStyle;
    std::int16_t mSpacingStyle = AcDb::kAtLeast;
    bool mIsChanged = false; ///< since it was read: what files say twice is no longer true
};
