#include "FileVersion.h"

#include <charconv>

namespace dxf
{
FileVersion versionOf(std::string_view name)
{
    constexpr std::string_view prefix = "AC";
    int number = 0;
    if (name.substr(0, prefix.size()) != prefix) return FileVersion::r12;
    const char* const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data() + prefix.size(), end, number);
    const bool isNumber = error == std::errc() && stop == end && number > 0;
    return isNumber ? static_cast<FileVersion>(number) : FileVersion::r12;
}

std::string nameOf(FileVersion version)
{
    return "AC" + std::to_string(static_cast<int>(version));
}
} // namespace dxf
