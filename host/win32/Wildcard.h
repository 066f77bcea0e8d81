#pragma once

#include <string_view>

namespace win32
{
bool hasWildcard(std::wstring_view name);

/// Matches a file name against a pattern by the rules of FindFirstFileW, without regard to case: '*' is any
/// text, '?' one character or none before a dot and at the end; "*.*" is every name, "*." every name
/// without a dot, and the dot of "name.*" may be missing.
bool matchesWildcard(std::wstring_view name, std::wstring_view pattern);
} // namespace win32
