#pragma once

#include <afxwin.h>

#include <vector>

/// A grid of axes as a building is set out by: vertical axes, numbered from the left, and horizontal ones,
/// lettered from below. Drawing units, in the coordinates of the grid: its origin is where the first two axes
/// meet.
struct AxisGrid {
    std::vector<double> columns; ///< distances between vertical axes, from the left
    std::vector<double> rows;    ///< distances between horizontal axes, from below
    int firstNumber = 1;         ///< of the vertical axes
    int firstLetter = 0;         ///< of the horizontal ones, counted from A = 0

    double width() const;
    double depth() const;
};

/// What lies between two neighbouring axes.
struct Bay {
    double start = 0.0; ///< from the first axis
    double width = 0.0;

    double middle() const { return start + width / 2.0; }
};

/// Reads distances such as "3*6600 2*6000 4500": a count before the asterisk, digits only, repeats the
/// distance. Blanks or commas between them. False, and `spacings` unchanged, unless all are numbers above 0,
/// up to 1e9, and there are 1 to 200 of them.
bool readSpacings(const CString& text, std::vector<double>& spacings);

/// The distances as readSpacings reads them, equal neighbours with their count; six decimals.
CString spacingsText(const std::vector<double>& spacings);

/// The places of the axes: 0, then the sums of the distances.
std::vector<double> axisPlaces(const std::vector<double>& spacings);

/// The widest bay; of several the one nearest to the middle of all, of two as near the first.
Bay widestBay(const std::vector<double>& spacings);

/// Where along its row the bubble of each axis stands, in the order of the axes and `diameter` apart or more:
/// at its axis where there is room, beside it where axes are closer, as near as can be; none before the first
/// axis.
std::vector<double> bubblePlaces(const std::vector<double>& axes, double diameter);

/// The letter of a horizontal axis, counted from A = 0: A to Y without I, O and Z, which look like numbers
/// (GB/T 50001-2017, 8.0.4), then A1 to Y1, A2 ...
CString axisLetter(int index);
/// The count of a letter, in either case; -1 for a text that is no such letter.
int axisLetterIndex(const CString& letter);
