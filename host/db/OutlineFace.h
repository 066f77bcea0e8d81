#pragma once

/// A face of a font file, in design units: without hinting and without any notion of a screen.

#include "FaceSearch.h"
#include "InkBox.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace lettering
{
/// A closed line; the last point is joined to the first. Filled by the non-zero rule.
using Contour = std::vector<AcGePoint2d>;

/// A character's shape, its origin on the baseline.
struct Glyph {
    double advance = 0; ///< from its origin to that of the next character
    InkBox ink;
    std::vector<Contour> contours; ///< curves as chords, no farther than 1/2000 of an em from them
};

class OutlineFace
{
public:
    /// Opens the face; a file that cannot be read makes a face without characters.
    explicit OutlineFace(const FaceFile& file);
    ~OutlineFace();
    OutlineFace(const OutlineFace&) = delete;
    OutlineFace& operator=(const OutlineFace&) = delete;

    /// The height of the letter A in ems, above 0.
    double capHeight() const { return mCapHeight; }
    /// How far the face reaches above and (a positive number) below the baseline, in ems.
    double ascent() const { return mAscent; }
    double descent() const { return mDescent; }

    bool has(std::uint32_t character) const;
    /// The shape in ems. For a character that the face does not have, its sign for that; without a file a
    /// box.
    Glyph glyph(std::uint32_t character) const;

private:
    struct File;
    std::unique_ptr<File> mFile;
    double mCapHeight = 0.7, mAscent = 0.8, mDescent = 0.2;
};
} // namespace lettering
