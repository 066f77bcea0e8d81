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
    double indent = 0;            ///< from the left edge of the frame
    bool endsParagraph = false;
};

/// The look of a format's characters.
Look lookOf(const MTextFormat& format);

/// Breaks a paragraph into lines no wider than `width` (0: without an end); `unit` is the height that the
/// paragraph's lengths count in. At least one line. The lines refer to the paragraph's pieces.
std::vector<MTextLine> breakLines(const MTextParagraph& paragraph, double width, double unit);
} // namespace lettering
