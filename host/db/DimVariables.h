#pragma once

/// The values that a dimension or leader is drawn with: those of its style, and its own where it overrides
/// them.

#include "dbdimvar.h"
#include "dbobject.h"
#include "DxfGroup.h"

#include <variant>

struct DimVariables {
#define DIM_REAL(name, Name, code, value) double name = value;
#define DIM_INTEGER(name, Name, code, value) int name = value;
#define DIM_SWITCH(name, Name, code, value) bool name = value;
#define DIM_TEXT(name, Name, code, value) CString name = value;
#define DIM_REFERENCE(name, Name, code, value) AcDbObjectId name;
    ACDB_DIM_REALS(DIM_REAL)
    ACDB_DIM_ANGLES(DIM_REAL)
    ACDB_DIM_INTEGERS(DIM_INTEGER)
    ACDB_DIM_SWITCHES(DIM_SWITCH)
    ACDB_DIM_COLORS(DIM_INTEGER)
    ACDB_DIM_FILL_COLOR(DIM_INTEGER)
    ACDB_DIM_LINEWEIGHTS(DIM_INTEGER)
    ACDB_DIM_TEXTS(DIM_TEXT)
    ACDB_DIM_REFERENCES(DIM_REFERENCE)
#undef DIM_REAL
#undef DIM_INTEGER
#undef DIM_SWITCH
#undef DIM_TEXT
#undef DIM_REFERENCE

    /// Sizes in the drawing: DIMSCALE applied. A scale of 0 asks for one by viewport and counts as 1.
    double scaled(double length) const
    {
        return length * (dimscale > 0.0 ? dimscale : 1.0);
    }
};

/// The values of a style with the overrides of an object. A null style counts as one with every default.
DimVariables dimVariablesOf(AcDbObjectId style, const AcDbObject& object);
/// The values of a style alone.
DimVariables dimVariablesOf(AcDbObjectId style);

using DimValue = std::variant<double, int, bool, CString, AcDbObjectId>;

/// Overrides one variable, by its group code, in the object's extended data of the application "ACAD", as
/// files keep it. eNoDatabase for an object that has no drawing while there is no working database.
Acad::ErrorStatus setDimOverride(AcDbObject& object, int code, const DimValue& value);
/// Takes every override away.
Acad::ErrorStatus clearDimOverrides(AcDbObject& object);
