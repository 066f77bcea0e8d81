#pragma once

/// Points along curves in their numeric form.

#include "CurveForm.h"

namespace gecore
{
/// Parameters from a to b, both included, whose chords stay within eps of the curve; at most 100,000.
std::vector<double> sampleParams(const CurveForm& form, double a, double b, double eps);
} // namespace gecore
