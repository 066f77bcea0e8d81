#pragma once

/// What a dimension says: its measure in the units of its style, with tolerances, alternative units and the
/// words around it, as the contents of a multiline text.

#include "DimVariables.h"

#include <string>

struct DimensionMeasure {
    double value = 0.0; ///< drawing units, or radians
    bool isAngle = false;
    const wchar_t* sign = L"";   ///< "R", a diameter sign; a prefix in DIMPOST takes its place
    bool isInPaperSpace = false; ///< a negative DIMLFAC counts there only
};

/// `userText` empty: the measure; otherwise its "<>" stand for the measure, its "[]" for alternative units,
/// and a single blank for no text at all.
std::wstring dimensionText(const DimVariables& variables, const DimensionMeasure& measure,
                           const CString& userText);
