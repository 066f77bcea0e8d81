#include "OutlineFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_BBOX_H
#include FT_OUTLINE_H

#include <cmath>

namespace lettering
{
namespace
{
/// What the system adds where a family has no italic or bold face: a slant of 12 degrees, 1/24 em of weight.
constexpr double addedSlant = 0.2126, addedWeight = 1.0 / 24;
constexpr double flatness = 1.0 / 2000;

FT_Library fontLibrary()
{
    static const FT_Library library = [] {
        FT_Library made = nullptr;
        return FT_Init_FreeType(&made) == 0 ? made : nullptr;
    }();
    return library;
}

/// Turns an outline into chords, in ems.
struct Flattener {
    std::vector<Contour>& contours;
    double scale;

    AcGePoint2d at(const FT_Vector* v) const { return {double(v->x) * scale, double(v->y) * scale}; }
    void add(const AcGePoint2d& point) const
    {
        if (contours.back().empty() || !(contours.back().back() - point).isZeroLength(AcGeTol()))
            contours.back().push_back(point);
    }
    const AcGePoint2d& last() const { return contours.back().back(); }
};

/// The chords that keep a curve with these second differences within the flatness (deviation = |d| / 8 n²).
int chordCount(const AcGeVector2d& difference, double factor)
{
    return std::clamp(static_cast<int>(std::ceil(std::sqrt(factor * difference.length() / (8 * flatness)))),
                      1, 64);
}

int moveTo(const FT_Vector* to, void* user)
{
    auto& flat = *static_cast<Flattener*>(user);
    flat.contours.emplace_back();
    flat.contours.back().push_back(flat.at(to));
    return 0;
}

int lineTo(const FT_Vector* to, void* user)
{
    auto& flat = *static_cast<Flattener*>(user);
    flat.add(flat.at(to));
    return 0;
}

int conicTo(const FT_Vector* control, const FT_Vector* to, void* user)
{
    auto& flat = *static_cast<Flattener*>(user);
    const AcGePoint2d a = flat.last(), b = flat.at(control), c = flat.at(to);
    const int count = chordCount((a - b) + (c - b), 2);
    for (int i = 1; i <= count; ++i) {
        const double t = double(i) / count, s = 1 - t;
        flat.add({s * s * a.x + 2 * s * t * b.x + t * t * c.x, s * s * a.y + 2 * s * t * b.y + t * t * c.y});
    }
    return 0;
}

int cubicTo(const FT_Vector* first, const FT_Vector* second, const FT_Vector* to, void* user)
{
    auto& flat = *static_cast<Flattener*>(user);
    const AcGePoint2d a = flat.last(), b = flat.at(first), c = flat.at(second), d = flat.at(to);
    const AcGeVector2d start = (a - b) + (c - b), end = (b - c) + (d - c);
    const int count = chordCount(start.length() > end.length() ? start : end, 6);
    for (int i = 1; i <= count; ++i) {
        const double t = double(i) / count, s = 1 - t;
        const double p = s * s * s, q = 3 * s * s * t, r = 3 * s * t * t, u = t * t * t;
        flat.add({p * a.x + q * b.x + r * c.x + u * d.x, p * a.y + q * b.y + r * c.y + u * d.y});
    }
    return 0;
}

/// Removes the point that closes each contour once more, and contours without an area.
void tidy(std::vector<Contour>& contours)
{
    for (Contour& contour : contours)
        if (contour.size() > 1 && contour.front() == contour.back()) contour.pop_back();
    contours.erase(
        std::remove_if(contours.begin(), contours.end(), [](const Contour& c) { return c.size() < 3; }),
        contours.end());
}

/// What stands for a character when there is no font at all.
Glyph boxGlyph(std::uint32_t character)
{
    Glyph glyph;
    glyph.advance = character < 0x2E80 ? 0.6 : 1.0;
    if (character <= L' ') return glyph;
    const double right = glyph.advance - 0.05;
    glyph.contours = {{{0.05, 0}, {right, 0}, {right, 0.7}, {0.05, 0.7}}};
    glyph.ink.add({0.05, 0});
    glyph.ink.add({right, 0.7});
    return glyph;
}
} // namespace

struct OutlineFace::File {
    explicit File(const FaceFile& file) : addSlant(file.addSlant), addWeight(file.addWeight)
    {
        if (!fontLibrary() || file.path.empty()) return;
        if (FT_New_Face(fontLibrary(), file.path.c_str(), file.index, &face) != 0) face = nullptr;
        if (face && (!FT_IS_SCALABLE(face) || face->units_per_EM == 0)) close();
    }
    ~File() { close(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    void close()
    {
        if (face) FT_Done_Face(face);
        face = nullptr;
    }
    double em() const { return 1.0 / face->units_per_EM; }
    void restyle(FT_Outline& outline) const;
    Glyph read(std::uint32_t character) const;

    FT_Face face = nullptr;
    bool addSlant, addWeight;
};

void OutlineFace::File::restyle(FT_Outline& outline) const
{
    if (addWeight) FT_Outline_Embolden(&outline, static_cast<FT_Pos>(face->units_per_EM * addedWeight));
    if (!addSlant) return;
    FT_Matrix slant = {0x10000, static_cast<FT_Fixed>(addedSlant * 0x10000), 0, 0x10000};
    FT_Outline_Transform(&outline, &slant);
}

Glyph OutlineFace::File::read(std::uint32_t character) const
{
    if (!face || FT_Load_Glyph(face, FT_Get_Char_Index(face, character), FT_LOAD_NO_SCALE) != 0)
        return boxGlyph(character);
    Glyph glyph;
    FT_GlyphSlot slot = face->glyph;
    glyph.advance = double(slot->metrics.horiAdvance) * em();
    if (slot->format != FT_GLYPH_FORMAT_OUTLINE || slot->outline.n_points == 0) return glyph;
    restyle(slot->outline);
    Flattener flat{glyph.contours, em()};
    const FT_Outline_Funcs steps = {moveTo, lineTo, conicTo, cubicTo, 0, 0};
    FT_Outline_Decompose(&slot->outline, &steps, &flat);
    tidy(glyph.contours);
    FT_BBox box;
    if (glyph.contours.empty() || FT_Outline_Get_BBox(&slot->outline, &box) != 0) return glyph;
    glyph.ink.add({double(box.xMin) * em(), double(box.yMin) * em()});
    glyph.ink.add({double(box.xMax) * em(), double(box.yMax) * em()});
    return glyph;
}

OutlineFace::OutlineFace(const FaceFile& file) : mFile(std::make_unique<File>(file))
{
    if (!mFile->face) return;
    mAscent = mFile->face->ascender * mFile->em();
    mDescent = -mFile->face->descender * mFile->em();
    const Glyph letter = has(L'A') ? mFile->read(L'A') : Glyph();
    if (letter.ink.max.y > 0.1) mCapHeight = letter.ink.max.y;
}

OutlineFace::~OutlineFace() = default;

bool OutlineFace::has(std::uint32_t character) const
{
    return mFile->face && FT_Get_Char_Index(mFile->face, character) != 0;
}

Glyph OutlineFace::glyph(std::uint32_t character) const
{
    return mFile->read(character);
}
} // namespace lettering
