#pragma once

#include "OutlineFace.h"

#include <array>
#include <atomic>
#include <map>
#include <mutex>

namespace lettering
{
/// The characters of one font, in text heights: the letter A is 1 high. Every character is read once and
/// kept. Fonts may be used by several threads at a time.
class Font
{
public:
    explicit Font(const FontName& name);
    ~Font();
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    /// The shape of a character of Unicode; valid as long as the font.
    const Glyph& glyph(std::uint32_t character) const;
    /// How far lines of the font reach above and (a positive number) below the baseline.
    double ascent() const { return mAscent; }
    double descent() const { return mDescent; }
    /// How far apart characters stand below each other.
    double columnStep() const { return mColumnStep; }

private:
    struct Page {
        std::array<std::atomic<const Glyph*>, 256> glyphs{};
    };
    /// How the outlines of a face become those of the font.
    struct Fit {
        double scale = 1, rise = 0;
    };

    const Glyph& load(std::uint32_t character) const;
    Glyph read(std::uint32_t character) const;
    const OutlineFace& face(const FaceFile& file) const;
    Fit fitOf(const OutlineFace& face, std::uint32_t character) const;

    FaceList mFaces;
    bool mIsShape;
    std::wstring mBareName;
    mutable std::mutex mLoading;
    mutable std::map<FaceFile, std::unique_ptr<OutlineFace>> mOpenFaces;
    mutable std::array<std::atomic<Page*>, 0x1100> mPages{};
    const OutlineFace* mPrimary;
    double mAscent, mDescent, mColumnStep;
};

/// The font of this name, made at the first call and kept until the program ends. Never fails: a font that
/// the machine does not have is replaced by one that resembles it.
const Font& fontNamed(const FontName& name);
} // namespace lettering
