#pragma once

namespace lineweights
{
/// Group 370 of lines whose weight comes from elsewhere.
constexpr int byLayer = -1, byBlock = -2, standard = -3;

/// True for the 24 weights that drawings know, in hundredths of a millimetre: 0, 5, 9, 13 ... 211.
bool isLineWeight(int hundredths);

/// The weight nearest to a width in millimetres, the lighter of two; below 0 or not a number: 0.
int nearestLineWeight(double millimetres);

/// The width in millimetres to draw a weight with. `standard` and every number that is no weight get the
/// system's default of 0.25 mm; what comes from a layer or block has to be looked up before.
double millimetresOf(int weight);
} // namespace lineweights
