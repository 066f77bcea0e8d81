#include "CodePageName.h"

#include <charconv>
#include <cstring>

namespace dxf
{
namespace
{
struct NamedPage {
    const char* name;
    UINT number;
};

constexpr NamedPage namedPages[] = {
    {"ASCII", 1252},  {"BIG5", 950},        {"GB2312", 936},      {"JOHAB", 1361},
    {"KSC5601", 949}, {"MAC-ROMAN", 10000}, {"MACINTOSH", 10000}, {"UNDEFINED", 0},
};

std::string upperCase(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

/// The number that makes up the rest of `name` behind `prefix`; 0 when there is none.
UINT numberBehind(std::string_view prefix, std::string_view name)
{
    UINT number = 0;
    if (name.substr(0, prefix.size()) != prefix) return 0;
    const char* const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data() + prefix.size(), end, number);
    return error == std::errc() && stop == end ? number : 0;
}
} // namespace

UINT codePageOfName(std::string_view name)
{
    const std::string upper = upperCase(name);
    for (const NamedPage& page : namedPages)
        if (upper == page.name) return page.number;
    if (const UINT part = numberBehind("ISO8859-", upper)) return part <= 15 ? 28590 + part : 0;
    for (const char* prefix : {"ANSI_", "DOS", "CP", "WINDOWS-"})
        if (const UINT number = numberBehind(prefix, upper)) return number;
    return 0;
}

std::string nameOfCodePage(UINT codePage)
{
    for (const NamedPage& page : namedPages)
        if (page.number == codePage && codePage != 1252 && codePage != 936 && codePage != 949 &&
            codePage != 950)
            return page.name;
    if (codePage > 28590 && codePage <= 28605) return "ISO8859-" + std::to_string(codePage - 28590);
    const bool isDos = codePage >= 437 && codePage <= 869;
    return (isDos ? "DOS" : "ANSI_") + std::to_string(codePage);
}
} // namespace dxf
