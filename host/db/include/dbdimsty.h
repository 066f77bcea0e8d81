#pragma once

#include "acdb.h"
#include "dbcolor.h"
#include "dbdimvar.h"
#include "dbsymbase.h"

/// A dimension style: a value for each dimension variable. The members are the names in dbdimvar.h: dimasz() and
/// setDimasz(), and so on.
class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
    ACDB_STATE_MEMBERS(AcDbDimStyleTableRecord)
    AcDbDimStyleTableRecord() = default;

#define ACDB_DIM_NUMBER(NAME, SET, CODE, VALUE)                                                              \
    double NAME() const { return m##SET; }                                                                   \
    Acad::ErrorStatus set##SET(double value) { return assign(m##SET, value); }
    ACDB_DIM_REALS(ACDB_DIM_NUMBER)
    ACDB_DIM_ANGLES(ACDB_DIM_NUMBER)
#undef ACDB_DIM_NUMBER

#define ACDB_DIM_INTEGER(NAME, SET, CODE, VALUE)                                                             \
    int NAME() const { return m##SET; }                                                                      \
    Acad::ErrorStatus set##SET(int value) { return assign(m##SET, static_cast<std::int16_t>(value)); }
    ACDB_DIM_INTEGERS(ACDB_DIM_INTEGER)
#undef ACDB_DIM_INTEGER

#define ACDB_DIM_SWITCH(NAME, SET, CODE, VALUE)                                                              \
    bool NAME() const { return m##SET != 0; }                                                                \
    Acad::ErrorStatus set##SET(bool value) { return assign(m##SET, std::int16_t(value)); }
    ACDB_DIM_SWITCHES(ACDB_DIM_SWITCH)
#undef ACDB_DIM_SWITCH

#define ACDB_DIM_COLOR(NAME, SET, CODE, VALUE)                                                               \
    AcCmColor NAME() const { return colorOf(m##SET); }                                                       \
    Acad::ErrorStatus set##SET(const AcCmColor& value) { return assign(m##SET, value.colorIndex()); }
    ACDB_DIM_COLORS(ACDB_DIM_COLOR)
    ACDB_DIM_FILL_COLOR(ACDB_DIM_COLOR)
#undef ACDB_DIM_COLOR

#define ACDB_DIM_TEXT(NAME, SET, CODE, VALUE)                                                                \
    const CString& NAME() const { return m##SET; }                                                           \
    Acad::ErrorStatus set##SET(const ACHAR* value) { return assign(m##SET, CString(value)); }
    ACDB_DIM_TEXTS(ACDB_DIM_TEXT)
#undef ACDB_DIM_TEXT

#define ACDB_DIM_REFERENCE(NAME, SET, CODE, VALUE)                                                           \
    AcDbObjectId NAME() const { return m##SET; }                                                             \
    Acad::ErrorStatus set##SET(AcDbObjectId value) { return assign(m##SET, value); }
    ACDB_DIM_REFERENCES(ACDB_DIM_REFERENCE)
#undef ACDB_DIM_REFERENCE

#define ACDB_DIM_LINEWEIGHT(NAME, SET, CODE, VALUE)                                                          \
    AcDb::LineWeight NAME() const { return static_cast<AcDb::LineWeight>(m##SET); }                          \
    Acad::ErrorStatus set##SET(AcDb::LineWeight value) { return assign(m##SET, static_cast<std::int16_t>(value)); }
    ACDB_DIM_LINEWEIGHTS(ACDB_DIM_LINEWEIGHT)
#undef ACDB_DIM_LINEWEIGHT

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool isPermanent() const override { return mName.CompareNoCase(L"Standard") == 0; }

private:
    friend struct DimStyleAccess;
    static AcCmColor colorOf(int index);

#define ACDB_DIM_REAL_MEMBER(NAME, SET, CODE, VALUE) double m##SET = VALUE;
    ACDB_DIM_REALS(ACDB_DIM_REAL_MEMBER)
    ACDB_DIM_ANGLES(ACDB_DIM_REAL_MEMBER)
#undef ACDB_DIM_REAL_MEMBER
#define ACDB_DIM_INTEGER_MEMBER(NAME, SET, CODE, VALUE) std::int16_t m##SET = VALUE;
    ACDB_DIM_INTEGERS(ACDB_DIM_INTEGER_MEMBER)
    ACDB_DIM_SWITCHES(ACDB_DIM_INTEGER_MEMBER)
    ACDB_DIM_COLORS(ACDB_DIM_INTEGER_MEMBER)
    ACDB_DIM_FILL_COLOR(ACDB_DIM_INTEGER_MEMBER)
    ACDB_DIM_LINEWEIGHTS(ACDB_DIM_INTEGER_MEMBER)
#undef ACDB_DIM_INTEGER_MEMBER
#define ACDB_DIM_TEXT_MEMBER(NAME, SET, CODE, VALUE) CString m##SET;
    ACDB_DIM_TEXTS(ACDB_DIM_TEXT_MEMBER)
#undef ACDB_DIM_TEXT_MEMBER
#define ACDB_DIM_ID_MEMBER(NAME, SET, CODE, VALUE) AcDbObjectId m##SET;
    ACDB_DIM_REFERENCES(ACDB_DIM_ID_MEMBER)
#undef ACDB_DIM_ID_MEMBER
    std::uint8_t mReadSeventies = 0; ///< how many groups 70 the record in the file had
};
