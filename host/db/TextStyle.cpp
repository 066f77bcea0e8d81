#include "dbtxtsty.h"

#include "DxfFields.h"
#include "ResbufSink.h"
#include "SymbolTableMembers.h"

#include <cmath>

ACDB_DXF_CLASS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, STYLE)
ACDB_SYMBOL_TABLE_MEMBERS(TextStyle)

const DxfClass AcDbTextStyleTableRecord::dxf("AcDbTextStyleTableRecord", &AcDbSymbolTableRecord::dxf,
                                             {
                                                 dxf::text<&AcDbTextStyleTableRecord::mName>(2),
                                                 dxf::integer<&AcDbTextStyleTableRecord::mFlags>(70),
                                                 dxf::real<&AcDbTextStyleTableRecord::mTextSize>(40),
                                                 dxf::real<&AcDbTextStyleTableRecord::mXScale>(41),
                                                 dxf::angle<&AcDbTextStyleTableRecord::mObliquingAngle>(50),
                                                 dxf::integer<&AcDbTextStyleTableRecord::mFlagBits>(71),
                                                 dxf::real<&AcDbTextStyleTableRecord::mPriorSize>(42),
                                                 dxf::text<&AcDbTextStyleTableRecord::mFileName>(3),
                                                 dxf::text<&AcDbTextStyleTableRecord::mBigFontFileName>(4),
                                             });

namespace
{
constexpr double mostOblique = 85.0 * dxf::radiansPerDegree;
constexpr int italicFont = 1 << 24;
constexpr int boldFont = 2 << 24;

bool isWithin(double value, double least, double most) { return value >= least && value <= most; }
} // namespace

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size)
{
    return isWithin(size, 0.0, HUGE_VAL) && std::isfinite(size) ? assign(mTextSize, size) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale)
{
    return isWithin(scale, 0.01, 100.0) ? assign(mXScale, scale) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double angle)
{
    constexpr double rounding = 1e-9;
    return isWithin(angle, -mostOblique - rounding, mostOblique + rounding) ? assign(mObliquingAngle, angle)
                                                                            : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFlagBits(std::uint8_t bits)
{
    return (bits & ~6) == 0 ? assign(mFlagBits, bits) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setPriorSize(double size)
{
    return size > 0.0 && std::isfinite(size) ? assign(mPriorSize, size) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(ACHAR*& name) const
{
    return acutNewString(mFileName, name) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(ACHAR*& name) const
{
    return acutNewString(mBigFontFileName, name) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::font(ACHAR*& typeface, bool& bold, bool& italic, int& charset,
                                                 int& pitchAndFamily) const
{
    const ResbufList data(xData(L"ACAD"));
    const resbuf* name = data ? data->rbnext : nullptr;
    if (name && name->restype != 1000) name = nullptr;
    const resbuf* look = name ? name->rbnext : nullptr;
    const int bits = look && look->restype == 1071 ? look->resval.rlong : 0;
    bold = (bits & boldFont) != 0;
    italic = (bits & italicFont) != 0;
    charset = bits >> 8 & 255;
    pitchAndFamily = bits & 255;
    return acutNewString(name ? name->resval.rstring : L"", typeface) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFont(const ACHAR* typeface, bool bold, bool italic, int charset,
                                                    int pitchAndFamily)
{
    if (charset < 0 || charset > 255 || pitchAndFamily < 0 || pitchAndFamily > 255) return Acad::eInvalidInput;
    if (!database()) return Acad::eNotInDatabase;
    const int bits = (bold ? boldFont : 0) | (italic ? italicFont : 0) | charset << 8 | pitchAndFamily;
    const bool hasFont = typeface && *typeface;
    const ResbufList data(hasFont ? acutBuildList(1001, L"ACAD", 1000, typeface, 1071, bits, RTNONE)
                                  : acutBuildList(1001, L"ACAD", RTNONE));
    return setXData(data.get());
}
