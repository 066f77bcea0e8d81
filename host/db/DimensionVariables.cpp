/// The variables of a dimension: each of them read from its style or its overrides, and overridden.

#include "dbdimension.h"
#include "DimVariables.h"

namespace
{
AcCmColor indexColor(int index)
{
    AcCmColor color;
    color.setColorIndex(static_cast<std::uint16_t>(index));
    return color;
}
} // namespace

#define DIM_MEMBER(Type, Argument, name, Name, code, fromValue, toValue)                                     \
    Type AcDbDimension::name() const                                                                         \
    {                                                                                                        \
        const auto found = dimVariablesOf(dimensionStyle(), *this).name;                                     \
        return fromValue;                                                                                    \
    }                                                                                                        \
    Acad::ErrorStatus AcDbDimension::set##Name(Argument newValue)                                            \
    {                                                                                                        \
        const Acad::ErrorStatus status = beginReshape();                                                     \
        return status == Acad::eOk ? setDimOverride(*this, code, DimValue(toValue)) : status;                \
    }
#define DIM_REAL(name, Name, code, value) DIM_MEMBER(double, double, name, Name, code, found, newValue)
#define DIM_INTEGER(name, Name, code, value) DIM_MEMBER(int, int, name, Name, code, found, newValue)
#define DIM_SWITCH(name, Name, code, value) DIM_MEMBER(bool, bool, name, Name, code, found, newValue)
#define DIM_TEXT(name, Name, code, value)                                                                    \
    DIM_MEMBER(CString, const ACHAR*, name, Name, code, found, CString(newValue))
#define DIM_LINEWEIGHT(name, Name, code, value)                                                              \
    DIM_MEMBER(AcDb::LineWeight, AcDb::LineWeight, name, Name, code, static_cast<AcDb::LineWeight>(found),   \
               int(newValue))
#define DIM_REFERENCE(name, Name, code, value)                                                               \
    DIM_MEMBER(AcDbObjectId, AcDbObjectId, name, Name, code, found, newValue)
#define DIM_COLOR(name, Name, code, value)                                                                   \
    DIM_MEMBER(AcCmColor, const AcCmColor&, name, Name, code, indexColor(found), int(newValue.colorIndex()))

ACDB_DIM_REALS(DIM_REAL)
ACDB_DIM_ANGLES(DIM_REAL)
ACDB_DIM_INTEGERS(DIM_INTEGER)
ACDB_DIM_SWITCHES(DIM_SWITCH)
ACDB_DIM_COLORS(DIM_COLOR)
ACDB_DIM_LINEWEIGHTS(DIM_LINEWEIGHT)
ACDB_DIM_TEXTS(DIM_TEXT)
ACDB_DIM_REFERENCES(DIM_REFERENCE)
