#include "Headless.h"
#include "ModuleLog.h"
#include "TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace
{
using Log = std::vector<std::string>;

std::wstring modulesFolder()
{
    const std::string host = TEST_MODULES;
    std::wstring path = L"Z:" + std::wstring(host.begin(), host.end());
    for (wchar_t& c : path)
        if (c == L'/') c = L'\\';
    return path;
}

template <class Result>
Result (*exported(HMODULE module, const char* name))()
{
    return reinterpret_cast<Result (*)()>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

class Modules : public TempFolder
{
protected:
    Modules()
    {
        SetDllDirectoryW(modulesFolder().c_str());
        moduleLog().clear();
    }
    ~Modules() override { SetDllDirectoryW(nullptr); }

    static int call(HMODULE module, const char* name)
    {
        const auto function = exported<int>(module, name);
        return function ? function() : -1;
    }
};

std::string contentOf(const std::string& name)
{
    std::ifstream in(TEST_MODULES "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

DWORD errorOfLoading(const std::wstring& name)
{
    SetLastError(0);
    return LoadLibraryW(name.c_str()) ? 0 : GetLastError();
}
} // namespace

TEST_F(Modules, AreToldOnceAndInTheOrderOfTheirNeeds)
{
    const HMODULE user = LoadLibraryW(L"user");
    ASSERT_NE(user, nullptr);
    EXPECT_EQ(LoadLibraryW(L"USER.DLL"), user);
    EXPECT_EQ(moduleLog(), (Log{"base attach", "user attach"}));
    EXPECT_EQ(call(user, "userValue"), 84);
    EXPECT_EQ(exported<HMODULE>(user, "userInstance")(), user);
    EXPECT_TRUE(FreeLibrary(user));
    EXPECT_EQ(GetModuleHandleW(L"User"), user);
    EXPECT_TRUE(FreeLibrary(user));
    EXPECT_EQ(moduleLog(), (Log{"base attach", "user attach", "user detach", "base detach"}));
    EXPECT_EQ(GetModuleHandleW(L"User"), nullptr);
    EXPECT_FALSE(FreeLibrary(user));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
}

TEST_F(Modules, NeededModuleOutlivesItsOwnReferences)
{
    const HMODULE base = LoadLibraryW(L"Base"), plain = LoadLibraryW(L"Plain");
    EXPECT_EQ(moduleLog(), (Log{"base attach", "user attach"}));
    EXPECT_TRUE(FreeLibrary(base));
    EXPECT_FALSE(FreeLibrary(base));
    EXPECT_EQ(call(plain, "plainValue"), 85);
    EXPECT_TRUE(FreeLibrary(plain));
    EXPECT_EQ(moduleLog(), (Log{"base attach", "user attach", "user detach", "base detach"}));
}

TEST_F(Modules, RefusedLoadTakesBackWhatItBrought)
{
    EXPECT_EQ(errorOfLoading(L"Refusing"), static_cast<DWORD>(ERROR_DLL_INIT_FAILED));
    EXPECT_EQ(moduleLog(), (Log{"base attach", "refusing attach", "refusing detach", "base detach"}));
    EXPECT_EQ(GetModuleHandleW(L"Refusing"), nullptr);
    EXPECT_EQ(GetModuleHandleW(L"Base"), nullptr);
}

TEST_F(Modules, ExportOfANeededModuleIsNotTheirOwn)
{
    const HMODULE user = LoadLibraryW(L"User");
    EXPECT_EQ(GetProcAddress(user, "baseValue"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
    EXPECT_EQ(GetProcAddress(user, reinterpret_cast<LPCSTR>(1)), nullptr);
    EXPECT_EQ(call(GetModuleHandleW(L"Base.dll"), "baseValue"), 42);
    FreeLibrary(user);
}

TEST_F(Modules, FlagWithoutResolutionCallsNoEntryPoint)
{
    const HMODULE base = LoadLibraryExW(L"Base", nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(base, nullptr);
    EXPECT_TRUE(FreeLibrary(base));
    EXPECT_TRUE(moduleLog().empty());
    EXPECT_EQ(LoadLibraryExW(L"Base", nullptr, 0x80000000), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(Modules, AreFoundWhereTheSearchGoes)
{
    EXPECT_EQ(errorOfLoading(L"Base."), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    EXPECT_EQ(LoadLibraryExW(L"Base", nullptr, LOAD_LIBRARY_SEARCH_APPLICATION_DIR), nullptr);
    SetDllDirectoryW(nullptr);
    EXPECT_EQ(errorOfLoading(L"Base"), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    wchar_t before[MAX_PATH];
    ASSERT_GT(GetCurrentDirectoryW(MAX_PATH, before), 0u);
    ASSERT_TRUE(SetCurrentDirectoryW(modulesFolder().c_str()));
    const HMODULE here = LoadLibraryW(L"Base");
    SetDllDirectoryW(L"");
    EXPECT_TRUE(here && FreeLibrary(here));
    EXPECT_EQ(errorOfLoading(L"Base"), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    EXPECT_TRUE(SetCurrentDirectoryW(before));
    const HMODULE byPath = LoadLibraryW((modulesFolder() + L"\\BASE").c_str());
    EXPECT_TRUE(byPath && FreeLibrary(byPath));
}

TEST_F(Modules, DirectoryIsGivenBackOrItsSize)
{
    SetDllDirectoryW(L"Z:\\a");
    wchar_t buffer[5] = L"";
    EXPECT_EQ(GetDllDirectoryW(4, buffer), 5u);
    EXPECT_EQ(GetDllDirectoryW(5, buffer), 4u);
    EXPECT_STREQ(buffer, L"Z:\\a");
}

TEST_F(Modules, BrokenFilesAreNoModules)
{
    const std::string good = contentOf("Base.dll");
    ASSERT_GT(good.size(), 4096u);
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{20}, std::size_t{64},
                                     std::size_t{300}, std::size_t{4000}, good.size() / 2}) {
        put("broken.dll", good.substr(0, length));
        EXPECT_EQ(errorOfLoading(path(L"broken.dll")), static_cast<DWORD>(ERROR_BAD_EXE_FORMAT)) << length;
    }
    put("text.arx", std::string(9000, 'x'));
    EXPECT_EQ(errorOfLoading(path(L"text.arx")), static_cast<DWORD>(ERROR_BAD_EXE_FORMAT));
    EXPECT_EQ(errorOfLoading(path(L"missing.arx")), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    EXPECT_EQ(errorOfLoading(L""), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(Modules, ModuleWithoutItsNeedsIsNotFound)
{
    std::string content = contentOf("User.dll");
    const std::size_t need = content.find("Base.dll");
    ASSERT_NE(need, content.npos);
    put("Lonely.dll", content.replace(need, 8, "Gone.dll"));
    EXPECT_EQ(errorOfLoading(path(L"Lonely.dll")), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
}

TEST_F(Modules, ProgramIsAModuleToo)
{
    wchar_t path[MAX_PATH], cut[8];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    ASSERT_GT(length, 8u);
    EXPECT_EQ(std::wstring(path, 3), L"Z:\\");
    EXPECT_EQ(std::wstring(path).substr(std::wstring(path).rfind(L'\\')), L"\\test_host_win32");
    EXPECT_EQ(GetModuleFileNameW(nullptr, cut, 8), 8u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(std::wstring(cut), std::wstring(path, 7));
    HMODULE program = nullptr;
    const auto here = reinterpret_cast<LPCWSTR>(&errorOfLoading);
    EXPECT_TRUE(GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, here, &program));
    EXPECT_EQ(program, GetModuleHandleW(nullptr));
    EXPECT_TRUE(FreeLibrary(program) && FreeLibrary(program));
    EXPECT_EQ(GetModuleFileNameW(reinterpret_cast<HMODULE>(path), path, MAX_PATH), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
}
