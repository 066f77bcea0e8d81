#pragma once

/// The contents of multiline texts: characters between codes.
///
///     \P  line feed          a new paragraph (also \X);  \N  a new paragraph in the next column
///     \~  \\  \{  \}         a blank that no line breaks at; the character itself
///     { }                    formats inside end with the brace
///     \fname|b1|i0;          a face, bold or not, italic or not;  \Ffile,bigfont;  a shape font
///     \H2.5;  \H0.7x;        the height in drawing units; as a factor of the height so far
///     \W0.8;  \Q15;  \T1.2;  width factor, oblique angle in degrees, tracking (\W and \T also with x)
///     \A0;  ... \A2;         lower text of a line is aligned at the bottom, the middle, the top
///     \C1;  \c255;           a colour by its index (256: by layer, 0: by block); as blue*65536 + green*256 +
///     red \L \l  \O \o  \K \k    under, over, through: on, off \S1/2;  \S1#2;  \Sa^b; a stack: with a bar,
///     with a slash, without either \pi-2,l3,r1,qc,t4,8;   the paragraph: first indent, left, right,
///     alignment, tabs; lengths in text heights ^I  ^J                 tab, new paragraph; and the coded
///     characters of single-line texts
///
/// A command that is unknown, lacks its semicolon or holds no number stays as it stands.

#include "FaceSearch.h"
#include "IndexColors.h"
#include "TextCodes.h"

#include <string>
#include <string_view>
#include <vector>

namespace lettering
{
/// The colour of characters.
struct TextColor {
    int index = 256;    ///< 0 by block, 1 ... 255, 256 by layer
    bool isRgb = false; ///< `rgb` counts and not the index
    colors::Rgb rgb;
    bool operator==(const TextColor& other) const
    {
        return index == other.index && isRgb == other.isRgb && rgb == other.rgb;
    }
};

/// Where a text lower than its line stands.
enum class LinePlace { bottom, middle, top };

/// How characters are drawn.
struct MTextFormat {
    FontName font;
    double height = 2.5; ///< drawing units
    double widthFactor = 1;
    double obliqueAngle = 0; ///< radians
    double tracking = 1;
    TextColor color;
    TextLines lines;
    LinePlace place = LinePlace::bottom;
    bool isVertical = false; ///< of all of the text: its letters stand below each other
    bool operator==(const MTextFormat& other) const;
};

enum class StackKind { none, bar, slash, tolerance };

/// Characters of one format, or a stack, or a tab (the text "\t").
struct MTextPiece {
    MTextFormat format;
    std::wstring text;                 ///< of a stack the upper part
    StackKind stack = StackKind::none; ///< anything else: `lower` counts
    std::wstring lower;

    bool isTab() const { return stack == StackKind::none && text == L"\t"; }
};

enum class ParagraphAlignment { byAttachment, left, center, right, justified, distributed };

/// Lengths are in heights of the multiline text itself.
struct ParagraphFormat {
    double firstIndent = 0; ///< of the first line, added to the left indent
    double leftIndent = 0, rightIndent = 0;
    double spaceBefore = 0, spaceAfter = 0;
    ParagraphAlignment alignment = ParagraphAlignment::byAttachment;
    std::vector<double> tabs; ///< rising, from the left edge
};

struct MTextParagraph {
    ParagraphFormat format;
    std::vector<MTextPiece> pieces;
    MTextFormat endFormat;     ///< that which holds at the paragraph's end: an empty one is as high as this
    bool startsColumn = false; ///< it stands behind a \N
};

/// Reads contents; `format` is that of the multiline text. At least one paragraph, which may be empty.
std::vector<MTextParagraph> parseMText(std::wstring_view contents, const MTextFormat& format);
} // namespace lettering
