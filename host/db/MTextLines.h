#pragma once

/// The lines of one paragraph of a multiline text.

#include "MTextFormat.h"
#include "TextMetrics.h"

namespace lettering
{
enum class AtomKind { word, blank, tab, stack };

/// What a line break does not cut: a word, one Chinese character, a blank, a tab, a stack.
struct MTextAtom {
    AtomKind kind = AtomKind::word;
    const MTextPiece* piece = nullptr;
    std::wstring text;
    double width = 0; ///< of a tab: set when it has its place in a line
    bool mayBreakBefore = false;
};

struct MTextLine {
    std::vector<MTextAtom> atoms; ///< without the blanks at the end
    double width = 0;             ///< drawing units
    double height = 0;            ///< of its highest characters
    double rise = 0, drop = 0;    ///< how far it reaches above and, with a stack, below its baseline
    double indent = 0;            ///< from the left edge of the frame
    bool endsParagraph = false;
};

/// How far above the baseline the bottom of something `height` high stands in a line `lineHeight` high.
double riseOf(LinePlace place, double lineHeight, double height);

/// The parts of a stack, one above the other or across, in drawing units.
double stackHeight(const MTextPiece& piece);
/// Between the parts of a stack, in heights.
constexpr double stackGap = 0.3;

/// The look of a format's characters.
Look lookOf(const MTextFormat& format);

/// Breaks a paragraph into lines no wider than `width` (0: without an end); `unit` is the height that the
/// paragraph's lengths count in. At least one line. The lines refer to the paragraph's pieces.
std::vector<MTextLine> breakLines(const MTextParagraph& paragraph, double width, double unit);
} // namespace lettering
