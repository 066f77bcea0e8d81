#pragma once

#include <optional>
#include <string>
#include <vector>

/// Settings of the current profile, in the registry under the product's key: sections of named texts.
namespace profile
{
/// "Software\Autodesk\AutoCAD\R24.0\ACAD-4101:804", below HKEY_CURRENT_USER.
const std::wstring& productKey();

std::optional<std::wstring> read(const std::wstring& section, const std::wstring& name);
bool write(const std::wstring& section, const std::wstring& name, const std::wstring& text);
/// Forgets a section.
void clear(const std::wstring& section);
} // namespace profile
