#include "DrawingName.h"

#include "acdocman.h"
#include "acedvars.h"
#include "Ask.h"

namespace commands
{
bool isFile(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::wstring drawingPath(std::wstring name)
{
    const std::size_t base = name.find_last_of(L"\\/");
    if (name.find(L'.', base == std::wstring::npos ? 0 : base) == std::wstring::npos) name += L".dxf";
    wchar_t full[MAX_PATH * 4];
    const DWORD size = GetFullPathNameW(name.c_str(), MAX_PATH * 4, full, nullptr);
    return size && size < MAX_PATH * 4 ? std::wstring(full) : name;
}

bool mayReplace(const std::wstring& path)
{
    constexpr int knows = 2;
    const AcApDocument* document = acDocManager->curDocument();
    const bool own = document->isNamedDrawing() && path == document->fileName();
    resbuf expert{};
    if (own || !isFile(path) || (acedGetVar(L"EXPERT", &expert) == RTNORM && expert.resval.rint >= knows))
        return true;
    return askWhether(L"A drawing with this name already exists.\nDo you want to replace it? <N> ");
}
} // namespace commands
