#include "MTextLines.h"

#include <cmath>
#include <limits>

namespace lettering
{
namespace
{
/// Tabs without a place of their own are this many heights apart.
constexpr double tabStep = 4;

bool isIdeographic(std::uint32_t c)
{
    return (c >= 0x2E80 && c < 0xA4D0) || (c >= 0xAC00 && c < 0xD7B0) || (c >= 0xF900 && c < 0xFB00) ||
           (c >= 0xFE30 && c < 0xFE50) || (c >= 0xFF00 && c < 0xFFF0) || c >= 0x20000;
}

bool isOneOf(std::wstring_view characters, std::uint32_t c)
{
    return characters.find(static_cast<wchar_t>(c)) != std::wstring_view::npos;
}

bool mayStandFirst(std::uint32_t c)
{
    return !isOneOf(L"、。〉》」』】〕〗！），．：；？］｝”’％…—,.!?;:)]}%", c);
}

bool mayStandLast(std::uint32_t c)
{
    return !isOneOf(L"〈《「『【〔〖（［｛“‘￥([{", c);
}

bool mayBreakBetween(std::uint32_t before, std::uint32_t after)
{
    if (before == 0) return false;
    if (before == L' ') return true;
    return (isIdeographic(before) || isIdeographic(after)) && mayStandLast(before) && mayStandFirst(after);
}

/// Cuts the pieces of a paragraph into atoms.
class Cutter
{
public:
    void piece(const MTextPiece& piece)
    {
        mPiece = &piece;
        mIsOpen = false;
        if (piece.stack != StackKind::none)
            whole(AtomKind::stack, L'0');
        else if (piece.isTab())
            whole(AtomKind::tab, L' ');
        else
            characters();
    }
    std::vector<MTextAtom> take() { return std::move(mAtoms); }

private:
    void whole(AtomKind kind, std::uint32_t standsFor)
    {
        mAtoms.push_back({kind, mPiece, {}, 0, mayBreakBetween(mBefore, standsFor)});
        mBefore = standsFor;
    }
    void characters()
    {
        for (std::size_t at = 0; at < mPiece->text.size();) {
            const std::uint32_t c = takeCharacter(mPiece->text, at);
            const bool isBreak = c != L' ' && mayBreakBetween(mBefore, c);
            if (!mIsOpen || isBreak || c == L' ')
                mAtoms.push_back({c == L' ' ? AtomKind::blank : AtomKind::word, mPiece, {}, 0, isBreak});
            mIsOpen = c != L' ';
            appendCharacter(mAtoms.back().text, c);
            mBefore = c;
        }
    }

    std::vector<MTextAtom> mAtoms;
    const MTextPiece* mPiece = nullptr;
    std::uint32_t mBefore = 0; ///< the character before, 0 at the start
    bool mIsOpen = false;      ///< the last atom is a word of this piece
};

double widthOf(const MTextAtom& atom)
{
    const Font& font = fontNamed(atom.piece->format.font);
    const Look look = lookOf(atom.piece->format);
    if (atom.kind != AtomKind::stack) return advanceOf(font, look, atom.text);
    const double upper = advanceOf(font, look, atom.piece->text),
                 lower = advanceOf(font, look, atom.piece->lower);
    // The parts of a stack with a slash stand beside each other.
    return atom.piece->stack == StackKind::slash ? upper + lower + 0.2 * look.height : std::max(upper, lower);
}

std::vector<MTextAtom> cut(const MTextParagraph& paragraph)
{
    Cutter cutter;
    for (const MTextPiece& piece : paragraph.pieces)
        cutter.piece(piece);
    std::vector<MTextAtom> atoms = cutter.take();
    for (MTextAtom& atom : atoms)
        if (atom.kind != AtomKind::tab) atom.width = widthOf(atom);
    return atoms;
}

/// Fills line after line.
class Breaker
{
public:
    Breaker(const MTextParagraph& paragraph, double width, double unit)
        : mParagraph(paragraph), mUnit(unit), mEnd(width > 0 ? width - paragraph.format.rightIndent * unit
                                                             : std::numeric_limits<double>::infinity())
    {
        start(paragraph.format.leftIndent + paragraph.format.firstIndent);
    }

    std::vector<MTextLine> run(std::vector<MTextAtom> atoms)
    {
        for (std::size_t i = 0; i < atoms.size();) {
            std::size_t end = i + 1;
            while (end < atoms.size() && !atoms[end].mayBreakBefore && !isLoose(atoms[end]) &&
                   !isLoose(atoms[i]))
                ++end;
            if (!fits(atoms, i, end)) {
                finish();
                start(mParagraph.format.leftIndent);
            }
            for (; i < end; ++i)
                append(std::move(atoms[i]));
        }
        finish();
        mLines.back().endsParagraph = true;
        return std::move(mLines);
    }

private:
    /// Blanks and tabs: they stand by themselves.
    static bool isLoose(const MTextAtom& atom)
    {
        return atom.kind == AtomKind::blank || atom.kind == AtomKind::tab;
    }

    bool fits(const std::vector<MTextAtom>& atoms, std::size_t from, std::size_t end) const
    {
        if (mLine.atoms.empty() || isLoose(atoms[from])) return true;
        double place = mPlace;
        for (; from < end; ++from)
            place += atoms[from].width;
        return place <= mEnd + 1e-9 * mUnit;
    }
    void append(MTextAtom&& atom)
    {
        if (atom.kind == AtomKind::tab) atom.width = nextTab() - mPlace;
        mPlace += atom.width;
        mLine.atoms.push_back(std::move(atom));
    }
    double nextTab() const
    {
        for (const double tab : mParagraph.format.tabs)
            if (tab * mUnit > mPlace + 1e-9 * mUnit) return tab * mUnit;
        const double step = tabStep * mUnit;
        return (std::floor(mPlace / step + 1e-9) + 1) * step;
    }
    void start(double indent)
    {
        mLine = {};
        mLine.indent = mPlace = indent * mUnit;
    }
    void finish()
    {
        while (!mLine.atoms.empty() && mLine.atoms.back().kind == AtomKind::blank) {
            heighten(mLine.atoms.back());
            mPlace -= mLine.atoms.back().width;
            mLine.atoms.pop_back();
        }
        for (const MTextAtom& atom : mLine.atoms)
            heighten(atom);
        if (mLine.height == 0) mLine.height = mParagraph.endFormat.height;
        reach();
        mLine.width = mPlace - mLine.indent;
        mLines.push_back(std::move(mLine));
    }
    void reach()
    {
        mLine.rise = mLine.height;
        for (const MTextAtom& atom : mLine.atoms) {
            if (atom.kind != AtomKind::stack) continue;
            const double height = stackHeight(*atom.piece);
            const double bottom = riseOf(atom.piece->format.place, mLine.height, height);
            mLine.rise = std::max(mLine.rise, bottom + height);
            mLine.drop = std::max(mLine.drop, -bottom);
        }
    }
    void heighten(const MTextAtom& atom) { mLine.height = std::max(mLine.height, atom.piece->format.height); }

    const MTextParagraph& mParagraph;
    double mUnit, mEnd, mPlace = 0;
    MTextLine mLine;
    std::vector<MTextLine> mLines;
};
} // namespace

double riseOf(LinePlace place, double lineHeight, double height)
{
    return place == LinePlace::bottom ? 0 : (lineHeight - height) * (place == LinePlace::middle ? 0.5 : 1);
}

double stackHeight(const MTextPiece& piece)
{
    return piece.format.height * (piece.stack == StackKind::slash ? 1.5 : 2 + stackGap);
}

Look lookOf(const MTextFormat& format)
{
    Look look;
    look.height = format.height;
    look.widthFactor = format.widthFactor;
    look.obliqueAngle = format.obliqueAngle;
    look.tracking = format.tracking;
    look.isVertical = format.isVertical;
    return look;
}

std::vector<MTextLine> breakLines(const MTextParagraph& paragraph, double width, double unit)
{
    return Breaker(paragraph, width, unit).run(cut(paragraph));
}
} // namespace lettering
