#pragma once

/// Lengths and angles read from texts, as people type them.

#include "UnitsText.h"

#include <optional>
#include <string_view>

namespace units
{
/// A length: "12.5", "1e3", "1/2", "3-1/2", "3 1/2"; in engineering and architectural units also "5'", "5'6",
/// "5'-6 1/2\"". Nothing for another text or a number that is not finite.
std::optional<double> readLength(std::wstring_view text, Linear unit);

/// An angle in radians: a number in the unit, or one with a sign that says its own: "45d30'15\"", "50g",
/// "1.5r", and the bearings of surveyors ("N45d30'E", "W"), which count from east.
std::optional<double> readAngle(std::wstring_view text, Angular unit);
} // namespace units
