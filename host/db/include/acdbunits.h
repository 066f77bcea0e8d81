#pragma once

/// Numbers as texts in the units of the working drawing, and where lines cross.
///
/// Units of lengths: 1 scientific, 2 decimal, 3 engineering (feet and decimal inches), 4 architectural (feet
/// and fractional inches), 5 fractional; -1 is LUNITS. Units of angles: 0 degrees, 1 degrees/minutes/seconds,
/// 2 gradians, 3 radians, 4 surveyor's; -1 is AUNITS. Precisions are decimal places, or the power of two of a
/// denominator; -1 is LUPREC or AUPREC. All return RTNORM, or RTERROR for a null, another unit or a text that
/// is none, with nothing written.

#include "adsdef.h"

#include <cstddef>

/// A length as text of at most `size` - 1 characters, as UNITMODE and DIMZIN ask.
int acdbRToS(ads_real value, int unit, int precision, ACHAR* text, std::size_t size);
template <std::size_t Size>
int acdbRToS(ads_real value, int unit, int precision, ACHAR (&text)[Size])
{
    return acdbRToS(value, unit, precision, text, Size);
}
/// An angle from the X axis (radians) as text, measured from ANGBASE and in the direction of ANGDIR.
int acdbAngToS(ads_real angle, int unit, int precision, ACHAR* text, std::size_t size);
template <std::size_t Size>
int acdbAngToS(ads_real angle, int unit, int precision, ACHAR (&text)[Size])
{
    return acdbAngToS(angle, unit, precision, text, Size);
}
/// Reads a length; feet and inches (1'-6 1/2") in engineering and architectural units only.
int acdbDisToF(const ACHAR* text, int unit, ads_real* value);
/// Reads an angle, the counterpart of acdbAngToS; a sign in the text (d ' ", g, r, N45dE) counts more than
/// the unit. The result is in [0, 2 pi).
int acdbAngToF(const ACHAR* text, int unit, ads_real* value);

/// Where the lines through two points each meet in space; with `onSegments` between their points only.
/// RTERROR when they do not, or the points of a line coincide.
int acdbInters(const ads_point from1, const ads_point to1, const ads_point from2, const ads_point to2,
               int onSegments, ads_point result);
