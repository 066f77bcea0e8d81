#include <afxwin.h>

#include <cstdio>
#include <vector>

namespace
{
void printVersion(const CString& module)
{
    std::vector<BYTE> block(GetFileVersionInfoSizeW(module, nullptr));
    VS_FIXEDFILEINFO* info = nullptr;
    UINT size = 0;
    if (block.empty() || !GetFileVersionInfoW(module, 0, static_cast<DWORD>(block.size()), block.data())) return;
    if (!VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&info), &size)) return;
    std::printf("version %d.%d.%d.%d\n", HIWORD(info->dwFileVersionMS), LOWORD(info->dwFileVersionMS),
                HIWORD(info->dwFileVersionLS), LOWORD(info->dwFileVersionLS));
}
} // namespace

int main(int, char** argv)
{
    const CString path(argv[1]);
    printVersion(path);
    HMODULE module = LoadLibraryW(path);
    auto printSorted = reinterpret_cast<int (*)()>(GetProcAddress(module, "PrintSorted"));
    const bool sorted = printSorted && printSorted() == 3;
    return FreeLibrary(module) && sorted ? 0 : 1;
}
