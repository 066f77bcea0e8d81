#include "FontSubstitutes.h"

#include <windows.h>

#include <algorithm>
#include <cwctype>

namespace lettering
{
namespace
{
enum class Kind { sans, serif, mono, narrow, wide, hei, song, kai, fang };

struct KnownFont {
    const wchar_t* bareName;
    const wchar_t* family; ///< the face inside a file of this name, where the two differ
    Kind kind;
};

/// Names of files (without extension) and faces. Shape files have wide, even letters, those of "wide".
constexpr KnownFont knownFonts[] = {
    {L"simsun", L"SimSun", Kind::song},
    {L"nsimsun", L"NSimSun", Kind::song},
    {L"simsunb", L"SimSun-ExtB", Kind::song},
    {L"宋体", L"SimSun", Kind::song},
    {L"新宋体", L"NSimSun", Kind::song},
    {L"stsong", L"STSong", Kind::song},
    {L"华文宋体", L"STSong", Kind::song},
    {L"华文中宋", L"STZhongsong", Kind::song},
    {L"mingliu", L"MingLiU", Kind::song},
    {L"pmingliu", L"PMingLiU", Kind::song},
    {L"simhei", L"SimHei", Kind::hei},
    {L"黑体", L"SimHei", Kind::hei},
    {L"msyh", L"Microsoft YaHei", Kind::hei},
    {L"msyhbd", L"Microsoft YaHei", Kind::hei},
    {L"微软雅黑", L"Microsoft YaHei", Kind::hei},
    {L"microsoft yahei", nullptr, Kind::hei},
    {L"deng", L"DengXian", Kind::hei},
    {L"等线", L"DengXian", Kind::hei},
    {L"simkai", L"KaiTi", Kind::kai},
    {L"kaiti", L"KaiTi", Kind::kai},
    {L"kaiti_gb2312", L"KaiTi", Kind::kai},
    {L"楷体", L"KaiTi", Kind::kai},
    {L"楷体_gb2312", L"KaiTi", Kind::kai},
    {L"simfang", L"FangSong", Kind::fang},
    {L"fangsong", L"FangSong", Kind::fang},
    {L"fangsong_gb2312", L"FangSong", Kind::fang},
    {L"仿宋", L"FangSong", Kind::fang},
    {L"仿宋_gb2312", L"FangSong", Kind::fang},
    {L"stfangso", L"STFangsong", Kind::fang},
    {L"华文仿宋", L"STFangsong", Kind::fang},
    {L"simli", L"LiSu", Kind::kai},
    {L"隶书", L"LiSu", Kind::kai},
    {L"arial", L"Arial", Kind::sans},
    {L"ariali", L"Arial", Kind::sans},
    {L"arialbd", L"Arial", Kind::sans},
    {L"arialn", L"Arial Narrow", Kind::narrow},
    {L"arial narrow", nullptr, Kind::narrow},
    {L"arialuni", L"Arial Unicode MS", Kind::sans},
    {L"calibri", L"Calibri", Kind::sans},
    {L"tahoma", L"Tahoma", Kind::sans},
    {L"segoeui", L"Segoe UI", Kind::sans},
    {L"verdana", L"Verdana", Kind::wide},
    {L"times", L"Times New Roman", Kind::serif},
    {L"timesbd", L"Times New Roman", Kind::serif},
    {L"times new roman", nullptr, Kind::serif},
    {L"cambria", L"Cambria", Kind::serif},
    {L"georgia", L"Georgia", Kind::serif},
    {L"cour", L"Courier New", Kind::mono},
    {L"courier new", nullptr, Kind::mono},
    {L"consola", L"Consolas", Kind::mono},
    {L"consolas", nullptr, Kind::mono},
    {L"monotxt", nullptr, Kind::mono},
    {L"romanc", nullptr, Kind::serif},
    {L"romand", nullptr, Kind::serif},
    {L"romans", nullptr, Kind::wide},
    {L"romant", nullptr, Kind::serif},
    {L"txt", nullptr, Kind::wide},
    {L"simplex", nullptr, Kind::wide},
    {L"isocp", nullptr, Kind::wide},
    {L"gbenor", nullptr, Kind::sans},
    {L"gbeitc", nullptr, Kind::sans},
    {L"gbcbig", nullptr, Kind::hei},
    {L"hztxt", nullptr, Kind::hei},
    {L"hzfs", nullptr, Kind::fang},
    {L"chineset", nullptr, Kind::hei},
    {L"bigfont", nullptr, Kind::hei},
};

std::vector<std::string> familiesOf(Kind kind)
{
    const std::vector<std::string> hei = {"Noto Sans CJK SC", "Source Han Sans SC", "WenQuanYi Micro Hei",
                                          "WenQuanYi Zen Hei", "Droid Sans Fallback"};
    const auto before = [&](std::vector<std::string> first) {
        first.insert(first.end(), hei.begin(), hei.end());
        return first;
    };
    switch (kind) {
    case Kind::serif:
        return {"Liberation Serif", "DejaVu Serif", "serif"};
    case Kind::mono:
        return {"Liberation Mono", "DejaVu Sans Mono", "monospace"};
    case Kind::narrow:
        return {"Liberation Sans Narrow", "DejaVu Sans Condensed", "sans-serif"};
    case Kind::wide:
        return {"DejaVu Sans", "Liberation Sans", "sans-serif"};
    case Kind::hei:
        return hei;
    case Kind::song:
        return before({"Noto Serif CJK SC", "AR PL SungtiL GB", "AR PL UMing CN"});
    case Kind::kai:
        return before({"AR PL KaitiM GB", "AR PL UKai CN"});
    case Kind::fang:
        return before({"cwTeXFangSong", "Noto Serif CJK SC"});
    default:
        return {"Liberation Sans", "DejaVu Sans", "sans-serif"};
    }
}

bool isChineseKind(Kind kind)
{
    return kind == Kind::hei || kind == Kind::song || kind == Kind::kai || kind == Kind::fang;
}

std::string utf8(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(std::max(size, 0)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

constexpr std::wstring_view shapeFiles[] = {L"txt",    L"simplex", L"monotxt", L"romanc",   L"romand",
                                            L"romans", L"romant",  L"isocp",   L"gbenor",   L"gbeitc",
                                            L"gbcbig", L"hztxt",   L"hzfs",    L"chineset", L"bigfont"};

std::wstring inLowerCase(std::wstring_view name)
{
    std::wstring lower(name);
    for (wchar_t& c : lower)
        c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
    return lower;
}

bool endsWith(std::wstring_view text, std::wstring_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

KnownFont knownOrDefault(const std::wstring& bare, bool isShape)
{
    const auto known = std::find_if(std::begin(knownFonts), std::end(knownFonts),
                                    [&](const KnownFont& font) { return bare == font.bareName; });
    if (known != std::end(knownFonts)) return *known;
    const bool isChinese = std::any_of(bare.begin(), bare.end(), [](wchar_t c) { return c >= 0x2E80; });
    return {nullptr, nullptr, isChinese ? Kind::hei : isShape ? Kind::wide : Kind::sans};
}
} // namespace

std::wstring bareFontName(std::wstring_view name)
{
    const auto slash = name.find_last_of(L"/\\");
    std::wstring bare = inLowerCase(slash == std::wstring_view::npos ? name : name.substr(slash + 1));
    // In front of a Chinese face stands an @ when its characters lie on their side.
    if (!bare.empty() && bare[0] == L'@') bare.erase(0, 1);
    for (const wchar_t* extension : {L".shx", L".ttf", L".ttc", L".otf", L".pfb"}) {
        if (endsWith(bare, extension)) return bare.substr(0, bare.size() - 4);
    }
    return bare;
}

bool isShapeFile(std::wstring_view name)
{
    const std::wstring lower = inLowerCase(name);
    return lower.empty() || endsWith(lower, L".shx") ||
           std::find(std::begin(shapeFiles), std::end(shapeFiles), lower) != std::end(shapeFiles);
}

Substitute substituteFor(std::wstring_view name)
{
    const std::wstring bare = bareFontName(name);
    const bool isShape = isShapeFile(name);
    const KnownFont known = knownOrDefault(bare, isShape);
    Substitute result;
    result.isChinese = isChineseKind(known.kind);
    if (known.family)
        result.families.push_back(utf8(known.family));
    else if (!isShape && !bare.empty())
        result.families.push_back(utf8(bare));
    for (std::string& family : familiesOf(known.kind))
        result.families.push_back(std::move(family));
    return result;
}
} // namespace lettering
