#include "FaceSearch.h"
#include "FontSubstitutes.h"

#include <fontconfig/fontconfig.h>

#include <map>
#include <tuple>

namespace lettering
{
namespace
{
/// The list of the machine's fonts, held as long as somebody refers to it.
class FontConfig
{
public:
    explicit FontConfig(FcConfig* config) : mConfig(config) {}
    FontConfig(const FontConfig& other) : mConfig(FcConfigReference(other.mConfig)) {}
    FontConfig& operator=(const FontConfig&) = delete;
    ~FontConfig()
    {
        if (mConfig) FcConfigDestroy(mConfig);
    }
    operator FcConfig*() const { return mConfig; }

private:
    FcConfig* mConfig;
};

const FontConfig& machineFonts()
{
    static const FontConfig config(FcInitLoadConfigAndFonts());
    return config;
}

const FcChar8* bytes(const std::string& text)
{
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

std::string stringOf(FcPattern* pattern, const char* property)
{
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, property, 0, &value) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(value);
}

int integerOf(FcPattern* pattern, const char* property, int standard)
{
    int value = standard;
    FcPatternGetInteger(pattern, property, 0, &value);
    return value;
}

std::string baseName(const std::string& path)
{
    std::string name = path.substr(path.find_last_of('/') + 1);
    for (char& c : name)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 'a' - 'A');
    return name;
}

/// The families of the font files of this machine, by the name of the file in lower case.
const std::map<std::string, std::string>& familiesByFile()
{
    static const std::map<std::string, std::string> families = [] {
        std::map<std::string, std::string> found;
        const FcFontSet* fonts = FcConfigGetFonts(machineFonts(), FcSetSystem);
        for (int i = 0; fonts && i < fonts->nfont; ++i)
            found.emplace(baseName(stringOf(fonts->fonts[i], FC_FILE)), stringOf(fonts->fonts[i], FC_FAMILY));
        return found;
    }();
    return families;
}

/// The family in an installed file of this name ("arial.ttf"), empty when there is none.
std::string familyInFile(const std::wstring& name)
{
    std::string file;
    for (const wchar_t c : name.substr(name.find_last_of(L"/\\") + 1))
        file += c < 0x80 ? static_cast<char>(c) : '?';
    const auto found = familiesByFile().find(baseName(file));
    return found == familiesByFile().end() ? std::string() : found->second;
}

/// A question to fontconfig. The language is given, since it would be that of the user's session otherwise.
FcPattern* newPattern(const FontName& font)
{
    FcPattern* pattern = FcPatternCreate();
    const std::string installed = familyInFile(font.name);
    if (!installed.empty()) FcPatternAddString(pattern, FC_FAMILY, bytes(installed));
    const Substitute substitute = substituteFor(font.name);
    for (const std::string& family : substitute.families)
        FcPatternAddString(pattern, FC_FAMILY, bytes(family));
    const std::wstring chinese = font.bigFont.empty() ? L"gbcbig.shx" : font.bigFont;
    for (const std::string& family : substituteFor(chinese).families)
        FcPatternAddString(pattern, FC_FAMILY, bytes(family));
    const char* language = substitute.isChinese ? "zh-cn" : "en";
    FcPatternAddString(pattern, FC_LANG, reinterpret_cast<const FcChar8*>(language));
    FcPatternAddBool(pattern, FC_OUTLINE, FcTrue);
    FcPatternAddInteger(pattern, FC_WEIGHT, font.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern, FC_SLANT, font.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcConfigSubstitute(machineFonts(), pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    return pattern;
}

bool isOutline(FcPattern* pattern)
{
    FcBool outline = FcFalse;
    return FcPatternGetBool(pattern, FC_OUTLINE, 0, &outline) == FcResultMatch && outline;
}

bool hasCharacter(FcPattern* pattern, std::uint32_t character)
{
    FcCharSet* set = nullptr;
    return FcPatternGetCharSet(pattern, FC_CHARSET, 0, &set) == FcResultMatch &&
           FcCharSetHasChar(set, character);
}
} // namespace

bool FontName::operator<(const FontName& other) const
{
    return std::tie(name, bigFont, bold, italic) <
           std::tie(other.name, other.bigFont, other.bold, other.italic);
}

bool FontName::operator==(const FontName& other) const
{
    return !(*this < other) && !(other < *this);
}

bool isShapeFont(const FontName& font)
{
    return isShapeFile(font.name);
}

bool FaceFile::operator<(const FaceFile& other) const
{
    return std::tie(path, index, addSlant, addWeight) <
           std::tie(other.path, other.index, other.addSlant, other.addWeight);
}

struct FaceList::Faces {
    explicit Faces(const FontName& font) : bold(font.bold), italic(font.italic)
    {
        FcPattern* pattern = newPattern(font);
        FcResult result = FcResultNoMatch;
        sorted = FcFontSort(machineFonts(), pattern, FcTrue, nullptr, &result);
        FcPatternDestroy(pattern);
    }
    ~Faces()
    {
        if (sorted) FcFontSetDestroy(sorted);
    }
    Faces(const Faces&) = delete;
    Faces& operator=(const Faces&) = delete;

    FaceFile fileOf(FcPattern* pattern) const
    {
        const bool isRoman = integerOf(pattern, FC_SLANT, FC_SLANT_ROMAN) == FC_SLANT_ROMAN;
        const bool isLight = integerOf(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR) < FC_WEIGHT_DEMIBOLD;
        return {stringOf(pattern, FC_FILE), integerOf(pattern, FC_INDEX, 0), italic && isRoman,
                bold && isLight};
    }
    /// The first outline face that `isWanted`.
    template <class Wanted>
    FaceFile first(const Wanted& isWanted) const
    {
        for (int i = 0; sorted && i < sorted->nfont; ++i)
            if (isOutline(sorted->fonts[i]) && isWanted(sorted->fonts[i])) return fileOf(sorted->fonts[i]);
        return {};
    }

    FontConfig config = machineFonts();
    FcFontSet* sorted = nullptr;
    bool bold, italic;
};

FaceList::FaceList(const FontName& font) : mFaces(std::make_unique<Faces>(font)) {}

FaceList::~FaceList() = default;

FaceFile FaceList::primary() const
{
    return mFaces->first([](FcPattern*) { return true; });
}

FaceFile FaceList::faceWith(std::uint32_t character) const
{
    return mFaces->first([&](FcPattern* face) { return hasCharacter(face, character); });
}
} // namespace lettering
