#include "MTextLayout.h"
#include "MTextDownward.h"
#include "MTextLines.h"

#include <cmath>

namespace lettering
{
namespace
{
/// Baselines are this many heights apart at a factor of 1 (documented for both kinds of spacing), and columns
/// so many (measured on a drawing of AutoCAD's).
constexpr double spacingOfHeights = 5.0 / 3, spacingOfColumns = 4.0 / 3;

using Paragraphs = std::vector<MTextParagraph>;

/// A line with its paragraph and the place of its baseline below the top of the frame.
struct PlacedLine {
    MTextLine line;
    const MTextParagraph* paragraph;
    double baseline;
};

/// All lines, from the top down.
class Stacker
{
public:
    Stacker(const MTextFormat& format, const MTextBox& box)
        : mUnit(format.height), mSpacing(format.isVertical ? spacingOfColumns : spacingOfHeights), mBox(box)
    {
    }

    std::vector<PlacedLine> run(const Paragraphs& paragraphs)
    {
        for (const MTextParagraph& paragraph : paragraphs) {
            if (!mLines.empty()) mTop -= paragraph.format.spaceBefore * mUnit;
            for (MTextLine& line : breakLines(paragraph, mBox.width, mUnit))
                add(std::move(line), paragraph);
            mTop -= paragraph.format.spaceAfter * mUnit;
        }
        return std::move(mLines);
    }

private:
    void add(MTextLine&& line, const MTextParagraph& paragraph)
    {
        const bool isExact = mBox.spacing == LineSpacing::exactly;
        const double height = isExact ? mUnit : line.height;
        // The first line begins at the top of its own characters, whatever the spacing.
        const double baseline = mTop - (isExact && !mLines.empty() ? mUnit : line.rise);
        mTop = baseline - (isExact ? 0 : line.drop) - (mSpacing * factor() - 1) * height;
        mLines.push_back({std::move(line), &paragraph, baseline});
    }
    double factor() const
    {
        return std::isfinite(mBox.spacingFactor) ? std::clamp(mBox.spacingFactor, 0.25, 4.0) : 1;
    }

    double mUnit, mSpacing;
    const MTextBox& mBox;
    double mTop = 0; ///< of the next line; below 0
    std::vector<PlacedLine> mLines;
};

/// 0 at the left, 1 in the middle, 2 at the right; and from the top down.
int columnOf(Attachment attachment)
{
    return (static_cast<int>(attachment) + 2) % 3;
}
int rowOf(Attachment attachment)
{
    return (static_cast<int>(attachment) - 1) / 3;
}

ParagraphAlignment alignmentOf(const MTextParagraph& paragraph, Attachment attachment)
{
    constexpr ParagraphAlignment columns[] = {ParagraphAlignment::left, ParagraphAlignment::center,
                                              ParagraphAlignment::right};
    const ParagraphAlignment own = paragraph.format.alignment;
    return own == ParagraphAlignment::byAttachment ? columns[columnOf(attachment)] : own;
}

/// Puts the atoms of a line into fragments.
class LinePainter
{
public:
    LinePainter(MTextLayout& layout, double lineHeight, const AcGePoint2d& start, double stretch)
        : mLayout(layout), mHeight(lineHeight), mPen(start), mStretch(stretch)
    {
    }

    void atom(const MTextAtom& atom)
    {
        if (atom.kind == AtomKind::stack)
            stack(*atom.piece, atom.width);
        else if (atom.kind != AtomKind::tab)
            text(atom.piece->format, atom.text, atom.width);
        const bool isStretched = atom.kind == AtomKind::blank && mStretch > 0;
        mPen.x += atom.width + (isStretched ? mStretch : 0);
        mIsOpen = (atom.kind == AtomKind::word || atom.kind == AtomKind::blank) && !isStretched;
    }

private:
    void text(const MTextFormat& format, const std::wstring& text, double width)
    {
        if (mIsOpen && mLayout.fragments.back().format == format) {
            mLayout.fragments.back().text += text;
            mLayout.fragments.back().advance += width;
        } else {
            add(format, text, {mPen.x, mPen.y + riseOf(format.place, mHeight, format.height)}, width);
        }
    }
    void add(const MTextFormat& format, const std::wstring& text, const AcGePoint2d& at, double width)
    {
        mLayout.fragments.push_back({text, format, at, width});
    }
    void stack(const MTextPiece& piece, double width)
    {
        const double h = piece.format.height, total = stackHeight(piece);
        const double bottom = mPen.y + riseOf(piece.format.place, mHeight, total);
        const Font& font = fontNamed(piece.format.font);
        const double upper = advanceOf(font, lookOf(piece.format), piece.text);
        const double lower = advanceOf(font, lookOf(piece.format), piece.lower);
        // Tolerances begin at the left, the parts of a fraction have one middle, those of a slash are apart.
        const double spare = piece.stack == StackKind::bar ? 0.5 : 0;
        const double lowerStart = piece.stack == StackKind::slash ? width - lower : spare * (width - lower);
        add(piece.format, piece.text, {mPen.x + spare * (width - upper), bottom + total - h}, upper);
        add(piece.format, piece.lower, {mPen.x + lowerStart, bottom}, lower);
        rule(piece, width, upper, bottom, h);
    }
    void rule(const MTextPiece& piece, double width, double upper, double bottom, double h)
    {
        const double middle = bottom + (1 + stackGap / 2) * h;
        if (piece.stack == StackKind::bar)
            mLayout.rules.push_back({{{mPen.x, middle}, {mPen.x + width, middle}}, piece.format});
        const double cut = mPen.x + upper + 0.1 * h;
        if (piece.stack == StackKind::slash)
            mLayout.rules.push_back(
                {{{cut - 0.4 * h, bottom}, {cut + 0.4 * h, bottom + 1.5 * h}}, piece.format});
    }

    MTextLayout& mLayout;
    double mHeight;
    AcGePoint2d mPen;
    double mStretch;      ///< added to each blank
    bool mIsOpen = false; ///< the last fragment takes further characters
};

/// What each blank of a line gets that reaches from edge to edge.
double stretchOf(const PlacedLine& placed, ParagraphAlignment alignment, double spare)
{
    const bool isFull = alignment == ParagraphAlignment::distributed ||
                        (alignment == ParagraphAlignment::justified && !placed.line.endsParagraph);
    if (!isFull || !(spare > 0)) return 0;
    const auto blanks = std::count_if(placed.line.atoms.begin(), placed.line.atoms.end(),
                                      [](const MTextAtom& atom) { return atom.kind == AtomKind::blank; });
    return blanks ? spare / static_cast<double>(blanks) : 0;
}

void paint(MTextLayout& layout, const PlacedLine& placed, const MTextBox& box, double unit,
           AcGeVector2d shift, double frameWidth)
{
    const MTextLine& line = placed.line;
    const ParagraphAlignment alignment = alignmentOf(*placed.paragraph, box.attachment);
    const double spare = frameWidth - line.indent - placed.paragraph->format.rightIndent * unit - line.width;
    double start = line.indent;
    if (alignment == ParagraphAlignment::center) start += spare / 2;
    if (alignment == ParagraphAlignment::right) start += spare;
    LinePainter painter(layout, line.height, AcGePoint2d(start, placed.baseline) + shift,
                        stretchOf(placed, alignment, spare));
    for (const MTextAtom& atom : line.atoms)
        painter.atom(atom);
}

/// The frame's size and place about the insertion point; gives the way of its top left corner from there.
AcGeVector2d frame(MTextLayout& layout, const MTextBox& box, double frameWidth)
{
    const double column = columnOf(box.attachment) / 2.0, row = rowOf(box.attachment) / 2.0;
    const AcGeVector2d shift(-column * frameWidth, row * layout.height);
    layout.min.set(-column * layout.width, shift.y - layout.height);
    layout.max.set(layout.min.x + layout.width, shift.y);
    return shift;
}

/// An attachment read from a file may be any number.
MTextBox repaired(MTextBox box)
{
    const int number = static_cast<int>(box.attachment);
    if (number < 1 || number > 9) box.attachment = Attachment::topLeft;
    if (!std::isfinite(box.width) || box.width < 0) box.width = 0;
    return box;
}

MTextLayout layLines(std::wstring_view contents, const MTextFormat& format, const MTextBox& box)
{
    MTextLayout layout;
    const Paragraphs paragraphs = parseMText(contents, format);
    const std::vector<PlacedLine> lines = Stacker(format, box).run(paragraphs);
    double reach = 0;
    for (const PlacedLine& placed : lines) {
        layout.width = std::max(layout.width, placed.line.width);
        reach = std::max(reach, placed.line.indent + placed.line.width);
    }
    layout.lineCount = static_cast<int>(lines.size());
    layout.height = lines.back().line.drop - lines.back().baseline;
    const double frameWidth = box.width > 0 ? box.width : reach;
    const AcGeVector2d shift = frame(layout, box, frameWidth);
    for (const PlacedLine& placed : lines)
        paint(layout, placed, box, format.height, shift, frameWidth);
    return layout;
}
} // namespace

Look MTextFragment::look() const
{
    return lookOf(format);
}

MTextLayout layoutMText(std::wstring_view contents, const MTextFormat& format, const MTextBox& given)
{
    if (!lookOf(format).isValid()) return {};
    MTextBox box = repaired(given);
    if (!format.isVertical) return layLines(contents, format, box);
    box.attachment = transposed(box.attachment);
    return writtenDown(layLines(contents, format, box));
}
} // namespace lettering
