#include "FileInfo.h"

#include <vector>

namespace
{
struct Translation {
    WORD language;
    WORD codePage;
};

template <class Value>
const Value* valueOf(const std::vector<BYTE>& block, const CString& name, size_t least)
{
    LPVOID value = nullptr;
    UINT length = 0;
    return VerQueryValueW(block.data(), name, &value, &length) && length >= least
               ? static_cast<const Value*>(value)
               : nullptr;
}

std::vector<BYTE> versionBlock(const CString& file)
{
    std::vector<BYTE> block(GetFileVersionInfoSizeW(file, nullptr));
    const auto size = static_cast<DWORD>(block.size());
    if (size == 0 || !GetFileVersionInfoW(file, 0, size, block.data())) block.clear();
    return block;
}
} // namespace

int FileInfo::QueryFileVersion(const CString& file, CString& version)
{
    const std::vector<BYTE> block = versionBlock(file);
    if (block.empty()) return 0;
    const auto* first = valueOf<Translation>(block, L"\\VarFileInfo\\Translation", sizeof(Translation));
    if (!first) return 0;
    CString name;
    name.Format(L"\\StringFileInfo\\%04x%04x\\FileVersion", first->language, first->codePage);
    const auto* text = valueOf<wchar_t>(block, name, 1);
    if (!text) return 0;
    version = text;
    return 1;
}
