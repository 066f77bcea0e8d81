#pragma once

/// Plane geometry of points and the conversion of units. Angles are radians, counter-clockwise from the X
/// axis.

#include "adsdef.h"

/// The direction from one point to another in the XY plane, in [0, 2 pi); 0 for points above each other.
ads_real acutAngle(const ads_point from, const ads_point to);
/// The distance in space.
ads_real acutDistance(const ads_point from, const ads_point to);
/// The point at a distance in a direction, as high as `from`.
void acutPolar(const ads_point from, ads_real angle, ads_real distance, ads_point result);

/// Converts a value between units, which are names ("inch", "in", "kilometers"), with "sq", "square", "cu" or
/// "cubic" before them or a power behind ("m^2"), joined by "*" and "/" ("km/hour"). Temperatures are
/// differences: degrees are scaled and not moved. RTERROR for a null, an unknown unit or units of different
/// kinds, and `result` as it was.
int acutCvUnit(ads_real value, const ACHAR* from, const ACHAR* to, ads_real* result);
