#pragma once

#include "dbsymbase.h"
#include "gevec2d.h"

#include <optional>

/// A line type: a row of dashes, gaps and dots that repeats, with shapes or texts between them.
///
/// Lengths are in drawing units for a line type scale of 1: above 0 a dash, below a gap, 0 a dot. Indices count from
/// 0; members that take one out of range return what an empty dash has, or change nothing.
class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
    ACDB_STATE_MEMBERS(AcDbLinetypeTableRecord)
    AcDbLinetypeTableRecord() = default;

    /// The line that stands for the type in lists ("__ . __ ."), as a copy that acutDelString releases.
    Acad::ErrorStatus comments(ACHAR*& text) const;
    Acad::ErrorStatus asciiDescription(ACHAR*& text) const { return comments(text); }
    Acad::ErrorStatus setComments(const ACHAR* text) { return assign(mComments, CString(text)); }
    Acad::ErrorStatus setAsciiDescription(const ACHAR* text) { return setComments(text); }
    double patternLength() const { return mPatternLength; }
    Acad::ErrorStatus setPatternLength(double length);
    bool isScaledToFit() const { return mAlignment == scaledToFit; }
    void setIsScaledToFit(bool fit) { assign(mAlignment, fit ? scaledToFit : aligned); }

    int numDashes() const { return static_cast<int>(mDashes.size()); }
    /// Cuts the row off, or lengthens it by dots. 0, or 2 to 12: eTooFewLineTypeElements, eTooManyLineTypeElements.
    Acad::ErrorStatus setNumDashes(int count);
    double dashLengthAt(int index) const;
    Acad::ErrorStatus setDashLengthAt(int index, double length);

    // The shape or text after a dash. A text has a text style, a shape a shape file's style and a number above 0.

    AcDbObjectId shapeStyleAt(int index) const { return shapeAt(index).style; }
    Acad::ErrorStatus setShapeStyleAt(int index, AcDbObjectId style);
    int shapeNumberAt(int index) const { return shapeAt(index).number; }
    Acad::ErrorStatus setShapeNumberAt(int index, int number);
    Acad::ErrorStatus textAt(int index, ACHAR*& text) const;
    Acad::ErrorStatus setTextAt(int index, const ACHAR* text);
    AcGeVector2d shapeOffsetAt(int index) const { return shapeAt(index).offset; }
    Acad::ErrorStatus setShapeOffsetAt(int index, const AcGeVector2d& offset);
    double shapeScaleAt(int index) const { return shapeAt(index).scale; }
    Acad::ErrorStatus setShapeScaleAt(int index, double scale);
    /// In radians, against the line or, when oriented by the UCS, the X axis.
    double shapeRotationAt(int index) const { return shapeAt(index).rotation; }
    Acad::ErrorStatus setShapeRotationAt(int index, double rotation);
    bool shapeIsUcsOrientedAt(int index) const;
    Acad::ErrorStatus setShapeIsUcsOrientedAt(int index, bool oriented);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool isPermanent() const override;

private:
    friend struct LinetypeAccess;
    static constexpr std::int16_t aligned = 'A';
    static constexpr std::int16_t scaledToFit = 'S';

    struct Shape {
        int number = 0;
        AcDbObjectId style;
        double scale = 1.0;
        double rotation = 0.0;
        AcGeVector2d offset;
        CString text;
    };
    struct Dash {
        double length = 0.0;
        int flags = 0; ///< group 74: 1 oriented by the UCS, 2 text, 4 shape
        std::optional<Shape> shape;
    };

    bool has(int index) const { return index >= 0 && index < numDashes(); }
    Shape shapeAt(int index) const;
    /// Calls `change(dash, shape)` on the dash, with the gate of a setter.
    template <class Change>
    Acad::ErrorStatus changeShape(int index, Change change);

    CString mComments;
    std::int16_t mAlignment = aligned;
    double mPatternLength = 0.0;
    std::vector<Dash> mDashes;
};
