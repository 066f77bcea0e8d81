#include "Font.h"

#include "FontSubstitutes.h"
#include "ShapeAdvances.h"

namespace lettering
{
namespace
{
constexpr std::uint32_t lastCharacter = 0x10FFFF, replacement = 0xFFFD;

/// Characters of Asian scripts, which shape fonts take from their big font.
bool isBigFontCharacter(std::uint32_t c)
{
    return c >= 0x2E80 && (c < 0xE000 || c >= 0xF900) && c != replacement;
}

/// Chinese structural drawings keep marks of reinforcing bars at these places of their shape fonts
/// (%%130 ... %%133), each a circle with a bar through it.
bool isBarMark(std::uint32_t c)
{
    return c >= 130 && c <= 133;
}

void fit(Glyph& glyph, double scale, double rise)
{
    const auto moved = [&](const AcGePoint2d& p) { return AcGePoint2d(p.x * scale, p.y * scale + rise); };
    glyph.advance *= scale;
    if (!glyph.ink.isEmpty()) glyph.ink = {moved(glyph.ink.min), moved(glyph.ink.max)};
    for (Contour& contour : glyph.contours)
        for (AcGePoint2d& point : contour)
            point = moved(point);
}

/// The plainest shape font, which stands for fonts without a name too.
bool isTxt(const FontName& name)
{
    const std::wstring bare = bareFontName(name.name);
    return bare.empty() || bare == L"txt" || bare == L"monotxt";
}

/// Makes a character as wide as that of the font it stands for, so that texts keep the room that drawings
/// have for them.
void widen(Glyph& glyph, double advance)
{
    if (!(advance > 0 && glyph.advance > 0)) return;
    const double factor = advance / glyph.advance;
    glyph.advance = advance;
    if (!glyph.ink.isEmpty()) {
        glyph.ink.min.x *= factor;
        glyph.ink.max.x *= factor;
    }
    for (Contour& contour : glyph.contours)
        for (AcGePoint2d& point : contour)
            point.x *= factor;
}
} // namespace

Font::Font(const FontName& name)
    : mFaces(name), mIsShape(isShapeFont(name)), mBareName(bareFontName(name.name))
{
    mPrimary = &face(mFaces.primary());
    mAscent = mPrimary->ascent() / mPrimary->capHeight();
    // Shape fonts reach a third of their height below the baseline ("txt" 2 to 6, "simplex" 7 to 21).
    mDescent = mIsShape ? 1.0 / 3 : mPrimary->descent() / mPrimary->capHeight();
    // 9 to 6 units in "txt"; the columns of "simplex" in a drawing of AutoCAD's are 17 to 14 (26 to 21)
    // apart.
    mColumnStep = isTxt(name) ? 1.5 : 17.0 / 14;
}

Font::~Font()
{
    for (const auto& entry : mPages) {
        const Page* page = entry.load();
        for (std::size_t i = 0; page && i < page->glyphs.size(); ++i)
            delete page->glyphs[i].load();
        delete page;
    }
}

const Glyph& Font::glyph(std::uint32_t character) const
{
    if (character > lastCharacter) character = replacement;
    const Page* page = mPages[character >> 8].load(std::memory_order_acquire);
    const Glyph* glyph = page ? page->glyphs[character & 0xFF].load(std::memory_order_acquire) : nullptr;
    return glyph ? *glyph : load(character);
}

const Glyph& Font::load(std::uint32_t character) const
{
    const std::lock_guard lock(mLoading);
    std::atomic<Page*>& page = mPages[character >> 8];
    if (!page.load()) page.store(new Page, std::memory_order_release);
    std::atomic<const Glyph*>& place = page.load()->glyphs[character & 0xFF];
    if (!place.load()) place.store(new Glyph(read(character)), std::memory_order_release);
    return *place.load();
}

Glyph Font::read(std::uint32_t character) const
{
    if (mIsShape && isBarMark(character)) character = 0x3A6;
    const OutlineFace* from = mPrimary;
    if (!from->has(character) && character > L' ') {
        const FaceFile other = mFaces.faceWith(character);
        if (!other.path.empty()) from = &face(other);
    }
    Glyph glyph = from->glyph(character);
    const Fit found = fitOf(*from, character);
    fit(glyph, found.scale, found.rise);
    if (mIsShape) widen(glyph, shapeAdvance(mBareName, character));
    return glyph;
}

const OutlineFace& Font::face(const FaceFile& file) const
{
    std::unique_ptr<OutlineFace>& open = mOpenFaces[file];
    if (!open) open = std::make_unique<OutlineFace>(file);
    return *open;
}

Font::Fit Font::fitOf(const OutlineFace& from, std::uint32_t character) const
{
    // A big font's ideographs are as high as the text and stand on the baseline; those of a TrueType font
    // share the em of its letters.
    if (!mIsShape || !isBigFontCharacter(character)) return {1 / mPrimary->capHeight(), 0};
    const Glyph ideograph = from.glyph(0x56FD);
    const double height = ideograph.ink.height();
    if (height < 0.1) return {1 / mPrimary->capHeight(), 0};
    return {1 / height, -ideograph.ink.min.y / height};
}

const Font& fontNamed(const FontName& name)
{
    static std::mutex making;
    static std::map<FontName, std::unique_ptr<Font>> fonts;
    const std::lock_guard lock(making);
    std::unique_ptr<Font>& font = fonts[name];
    if (!font) font = std::make_unique<Font>(name);
    return *font;
}
} // namespace lettering
