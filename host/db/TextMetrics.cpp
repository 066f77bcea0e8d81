#include "TextMetrics.h"

#include <cmath>

namespace lettering
{
namespace
{
/// Places of the bars above the baseline, in text heights.
constexpr double underlinePlace = -0.2, overlinePlace = 1.2, throughPlace = 0.5;
constexpr double steepestAngle = 85 * 3.14159265358979323846 / 180;

/// Takes a glyph's points (in text heights) to their place in the text.
class Placing
{
public:
    explicit Placing(const Look& look)
        : mWide(look.height * look.widthFactor), mHigh(look.height),
          mShear(look.obliqueAngle == 0 ? 0 : std::tan(look.obliqueAngle)), mAcross(look.isBackward ? -1 : 1),
          mUp(look.isUpsideDown ? -1 : 1)
    {
    }
    /// `pen` is the glyph's origin in drawing units before mirroring.
    AcGePoint2d operator()(const AcGePoint2d& point, const AcGePoint2d& pen) const
    {
        const double y = point.y * mHigh, x = point.x * mWide + mShear * y;
        return {mAcross * (pen.x + x), mUp * (pen.y + y)};
    }
    bool isOblique() const { return mShear != 0; }

private:
    double mWide, mHigh, mShear, mAcross, mUp;
};

/// The place of one character after the other.
class Pen
{
public:
    Pen(const Font& font, const Look& look) : mLook(look), mColumnStep(font.columnStep()) {}

    /// The origin of the next character.
    AcGePoint2d origin(const Glyph& glyph) const
    {
        if (!mLook.isVertical) return {mAdvance, 0};
        return {-glyph.advance * mLook.height * mLook.widthFactor / 2, -mAdvance - mLook.height};
    }
    void pass(const Glyph& glyph)
    {
        const double step = mLook.isVertical ? mColumnStep : glyph.advance * mLook.widthFactor;
        mAdvance += step * mLook.height * mLook.tracking;
    }
    double advance() const { return mAdvance; }
    /// From the start of the first character to the end of the last: behind that of a column is no gap.
    double length() const
    {
        const double gap = (mColumnStep * mLook.tracking - 1) * mLook.height;
        return mLook.isVertical && mAdvance > 0 ? mAdvance - gap : mAdvance;
    }

private:
    const Look& mLook;
    double mColumnStep, mAdvance = 0;
};

template <class Visit>
void eachGlyph(const Font& font, Pen& pen, std::wstring_view text, const Visit& visit)
{
    for (std::size_t at = 0; at < text.size();) {
        const std::uint32_t character = takeCharacter(text, at);
        const Glyph& glyph = font.glyph(character < L' ' ? L' ' : character);
        visit(glyph, pen.origin(glyph));
        pen.pass(glyph);
    }
}

void addInk(InkBox& ink, const Glyph& glyph, const Placing& place, const AcGePoint2d& pen)
{
    if (glyph.ink.isEmpty()) return;
    if (!place.isOblique()) {
        ink.add(place(glyph.ink.min, pen));
        ink.add(place(glyph.ink.max, pen));
        return;
    }
    for (const Contour& contour : glyph.contours)
        for (const AcGePoint2d& point : contour)
            ink.add(place(point, pen));
}

/// The bars of a run between two places of the pen. Vertical texts have none.
void addBars(std::vector<TextBar>& bars, const TextLines& lines, const Look& look, double from, double to)
{
    if (look.isVertical) return;
    const Placing place(look);
    const auto bar = [&](bool wanted, double above) {
        const AcGePoint2d onBar(0, above);
        if (wanted) bars.push_back({place(onBar, {from, 0}), place(onBar, {to, 0})});
    };
    bar(lines.under, underlinePlace);
    bar(lines.over, overlinePlace);
    bar(lines.through, throughPlace);
}

TextMeasure emptyMeasure(const Font& font, const Look& look)
{
    TextMeasure measure;
    measure.ascent = font.ascent() * look.height;
    measure.descent = font.descent() * look.height;
    return measure;
}

void addRun(TextMeasure& measure, Pen& pen, const Font& font, const Look& look, std::wstring_view text)
{
    const Placing place(look);
    eachGlyph(font, pen, text,
              [&](const Glyph& glyph, const AcGePoint2d& at) { addInk(measure.ink, glyph, place, at); });
    measure.advance = pen.length();
}
} // namespace

bool Look::isValid() const
{
    const auto isPositive = [](double number) { return std::isfinite(number) && number > 0; };
    return isPositive(height) && isPositive(widthFactor) && isPositive(tracking) &&
           std::abs(obliqueAngle) <= steepestAngle;
}

TextMeasure measureText(const Font& font, const Look& look, std::wstring_view text)
{
    if (!look.isValid()) return {};
    TextMeasure measure = emptyMeasure(font, look);
    Pen pen(font, look);
    addRun(measure, pen, font, look, text);
    return measure;
}

TextMeasure measureText(const Font& font, const Look& look, const std::vector<TextRun>& runs)
{
    if (!look.isValid()) return {};
    TextMeasure measure = emptyMeasure(font, look);
    Pen pen(font, look);
    std::vector<TextBar> bars;
    for (const TextRun& run : runs) {
        const double start = pen.advance();
        addRun(measure, pen, font, look, run.text);
        addBars(bars, run.lines, look, start, pen.advance());
    }
    for (const TextBar& bar : bars) {
        measure.ink.add(bar.start);
        measure.ink.add(bar.end);
    }
    return measure;
}

double advanceOf(const Font& font, const Look& look, std::wstring_view text)
{
    if (!look.isValid()) return 0;
    Pen pen(font, look);
    eachGlyph(font, pen, text, [](const Glyph&, const AcGePoint2d&) {});
    return pen.advance();
}

TextDrawing drawText(const Font& font, const Look& look, const std::vector<TextRun>& runs)
{
    TextDrawing drawing;
    if (!look.isValid()) return drawing;
    const Placing place(look);
    Pen pen(font, look);
    for (const TextRun& run : runs) {
        const double start = pen.advance();
        eachGlyph(font, pen, run.text, [&](const Glyph& glyph, const AcGePoint2d& at) {
            for (const Contour& contour : glyph.contours) {
                Contour& placed = drawing.contours.emplace_back(contour);
                for (AcGePoint2d& point : placed)
                    point = place(point, at);
            }
        });
        addBars(drawing.bars, run.lines, look, start, pen.advance());
    }
    return drawing;
}
} // namespace lettering
