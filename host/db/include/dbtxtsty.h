#pragma once

#include "dbsymbase.h"

/// A text style, or the name of a shape file, whose record has no name of its own.
class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    ACDB_STATE_MEMBERS(AcDbTextStyleTableRecord)
    AcDbTextStyleTableRecord() = default;

    bool isShapeFile() const { return (mFlags & shapeFileFlag) != 0; }
    void setIsShapeFile(bool shape) { setFlag(shapeFileFlag, shape); }
    bool isVertical() const { return (mFlags & verticalFlag) != 0; }
    void setIsVertical(bool vertical) { setFlag(verticalFlag, vertical); }

    /// The height of the texts; 0 when each has its own.
    double textSize() const { return mTextSize; }
    /// eInvalidInput below 0.
    Acad::ErrorStatus setTextSize(double size);
    double xScale() const { return mXScale; }
    /// eInvalidInput unless 0.01 to 100.
    Acad::ErrorStatus setXScale(double scale);
    /// In radians, to the right of the upright.
    double obliquingAngle() const { return mObliquingAngle; }
    /// eInvalidInput above 85 degrees to either side.
    Acad::ErrorStatus setObliquingAngle(double angle);
    /// 2: mirrored left to right, 4: upside down.
    std::uint8_t flagBits() const { return mFlagBits; }
    Acad::ErrorStatus setFlagBits(std::uint8_t bits);
    /// The height that was used last, where the style leaves it to the texts.
    double priorSize() const { return mPriorSize; }
    Acad::ErrorStatus setPriorSize(double size);

    /// File names, as copies that the caller releases with acutDelString.
    Acad::ErrorStatus fileName(ACHAR*& name) const;
    const CString& fileName() const { return mFileName; }
    Acad::ErrorStatus setFileName(const ACHAR* name) { return assign(mFileName, CString(name)); }
    Acad::ErrorStatus bigFontFileName(ACHAR*& name) const;
    const CString& bigFontFileName() const { return mBigFontFileName; }
    Acad::ErrorStatus setBigFontFileName(const ACHAR* name) { return assign(mBigFontFileName, CString(name)); }

    /// The typeface of a style with a TrueType font (empty: the style names a file), a copy that acutDelString
    /// releases; extended data of "ACAD": 1000 the name; 1071 the pitch and family in the lowest byte, the character
    /// set above, then 1 italic, 2 bold in the highest.
    Acad::ErrorStatus font(ACHAR*& typeface, bool& bold, bool& italic, int& charset, int& pitchAndFamily) const;
    /// Can be set once the style is in a drawing: eNotInDatabase. An empty typeface takes the font away.
    Acad::ErrorStatus setFont(const ACHAR* typeface, bool bold, bool italic, int charset, int pitchAndFamily);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool isPermanent() const override { return mName.CompareNoCase(L"Standard") == 0; }
    bool sharesName() const override { return isShapeFile(); }

private:
    static constexpr int shapeFileFlag = 1;
    static constexpr int verticalFlag = 4;

    double mTextSize = 0.0;
    double mXScale = 1.0;
    double mObliquingAngle = 0.0;
    double mPriorSize = 0.2;
    CString mFileName, mBigFontFileName;
    std::uint8_t mFlagBits = 0;
};
