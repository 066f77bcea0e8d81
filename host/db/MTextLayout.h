#pragma once

/// Where the characters of a multiline text stand.

#include "MTextFormat.h"
#include "TextMetrics.h"

namespace lettering
{
/// The nine points of its frame by which a multiline text is placed (group 71).
enum class Attachment {
    topLeft = 1,
    topCenter,
    topRight,
    middleLeft,
    middleCenter,
    middleRight,
    bottomLeft,
    bottomCenter,
    bottomRight
};

/// How far lines are apart (group 73).
enum class LineSpacing {
    atLeast = 1, ///< by their own highest characters and stacks
    exactly = 2  ///< by the height of the multiline text
};

/// What a multiline text says about the whole of it.
struct MTextBox {
    double width = 0; ///< of the frame in drawing units; 0 or less: lines end at paragraphs only
    Attachment attachment = Attachment::topLeft;
    LineSpacing spacing = LineSpacing::atLeast;
    double spacingFactor = 1; ///< baselines are 5/3 of the height apart, times this; 0.25 ... 4
};

/// Characters of one format in one line.
struct MTextFragment {
    std::wstring text;
    MTextFormat format;
    AcGePoint2d position; ///< the start of the baseline
    double advance = 0;

    Look look() const;
};

/// The bar or slash of a stack, with the format whose colour it has.
struct MTextRule {
    TextBar bar;
    MTextFormat format;
};

/// A multiline text in its own plane: x along lying lines, across columns; the insertion point in the origin.
struct MTextLayout {
    std::vector<MTextFragment> fragments;
    std::vector<MTextRule> rules;
    int lineCount = 0;
    double width = 0;  ///< of the longest line, without the blanks at its end
    double height = 0; ///< from the top of the first line to the last baseline, or a stack's bottom below it
    AcGePoint2d min, max; ///< the frame around the lines: `height` high, `width` wide
};

/// Lays a multiline text out. `format` holds its style's font, its height and the other values that the
/// contents may change. Lines break at blanks and beside Chinese characters, not before closing or behind
/// opening marks; a longer word stands out of the frame. Columns are not formed: \N is a new paragraph. A
/// format that is not valid, of the text or of a part, is shown with no characters. Of a vertical format the
/// lines are columns from left to right, which break at `width`; they are 4/3 of the height apart.
MTextLayout layoutMText(std::wstring_view contents, const MTextFormat& format, const MTextBox& box);
} // namespace lettering
