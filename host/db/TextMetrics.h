#pragma once

/// How large texts are, and the lines they are drawn with.
///
/// Everything is in drawing units, in the text's own plane: the origin is the start of the baseline, x runs
/// along it. Measures are those of the font's outlines, without hinting: they do not depend on a screen, and
/// grow in proportion to the height. No kerning is applied, as in AutoCAD's texts.

#include "Font.h"
#include "TextCodes.h"

namespace lettering
{
/// How a font's characters are drawn.
struct Look {
    double height = 1;       ///< of the letter A, above 0
    double widthFactor = 1;  ///< above 0
    double obliqueAngle = 0; ///< radians from the upright, to the right; between -85 and 85 degrees
    double tracking = 1;     ///< factor of the distance between characters, above 0
    bool isBackward = false; ///< mirrored: the text runs to the left
    bool isUpsideDown = false;
    /// Characters below each other, a column step of the font apart, their middles on the line x = 0, the
    /// first one's top in the origin.
    bool isVertical = false;

    /// All numbers finite and in their ranges.
    bool isValid() const;
};

/// The measures of a text. All 0 and an empty box for a look that is not valid.
struct TextMeasure {
    double advance = 0; ///< from the start of the first character to the end of the last; never negative
    InkBox ink;         ///< what is drawn, with under- and overlines; empty for blanks
    double ascent = 0;  ///< of the font, above the baseline
    double descent = 0; ///< of the font, below the baseline, a positive number
};

/// A straight line under, over or through a text.
struct TextBar {
    AcGePoint2d start, end;
};

/// The lines of a text: contours to be filled by the non-zero rule, and bars.
struct TextDrawing {
    std::vector<Contour> contours;
    std::vector<TextBar> bars;
};

/// Measures characters as they stand, without looking for codes.
TextMeasure measureText(const Font& font, const Look& look, std::wstring_view text);
/// Measures runs behind each other.
TextMeasure measureText(const Font& font, const Look& look, const std::vector<TextRun>& runs);
/// The width alone, which is what breaking lines asks for; of columns with the gap behind the last character.
double advanceOf(const Font& font, const Look& look, std::wstring_view text);

/// The lines of the runs. Curves are chords no farther than 1/1400 of the height from the curve, for an
/// ordinary font. Nothing for a look that is not valid.
TextDrawing drawText(const Font& font, const Look& look, const std::vector<TextRun>& runs);
} // namespace lettering
