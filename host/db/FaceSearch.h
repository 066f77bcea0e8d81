#pragma once

/// Which font file of this machine stands for a font that a drawing names.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace lettering
{
/// A font as drawings name it.
struct FontName {
    std::wstring name;    ///< a shape file ("txt.shx"), a TrueType file ("simsun.ttf") or a face ("SimSun")
    std::wstring bigFont; ///< a shape file for Asian characters ("gbcbig.shx"), or empty
    bool bold = false, italic = false; ///< of a face; shape files have one weight

    bool operator<(const FontName& other) const;
    bool operator==(const FontName& other) const;
};

/// True for a font whose strokes come from a shape file: "txt.shx", "txt", and no name.
bool isShapeFont(const FontName& font);

/// A face in a font file of this machine, and what has to be added to its outlines.
struct FaceFile {
    std::string path; ///< empty when this machine has no outline font at all
    int index = 0;
    bool addSlant = false, addWeight = false;

    bool operator<(const FaceFile& other) const;
};

/// The faces that stand for one font, the best first; later ones are for characters that the first does not
/// have. Which face a character gets depends on the machine's fonts only, not on the order of the questions.
class FaceList
{
public:
    explicit FaceList(const FontName& font);
    ~FaceList();
    FaceList(const FaceList&) = delete;
    FaceList& operator=(const FaceList&) = delete;

    /// The face for the common characters.
    FaceFile primary() const;
    /// The first face that has the character; without a path when none has.
    FaceFile faceWith(std::uint32_t character) const;

private:
    struct Faces;
    std::unique_ptr<Faces> mFaces;
};
} // namespace lettering
