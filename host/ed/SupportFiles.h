#pragma once

#include <string>
#include <vector>

namespace ed
{
/// The full path of a file as acedFindFile looks for it; empty when there is none.
std::wstring findSupportFile(const std::wstring& name);
/// The folders of the support path.
std::vector<std::wstring> supportFolders();
} // namespace ed
