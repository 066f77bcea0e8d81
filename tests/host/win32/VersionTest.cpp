#include "TempFolder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <unistd.h>
#include <vector>

namespace
{
constexpr DWORD noData = ERROR_RESOURCE_DATA_NOT_FOUND, noType = ERROR_RESOURCE_TYPE_NOT_FOUND;

std::string moduleContent(const char* name)
{
    std::ifstream in(std::string(TEST_MODULES "/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// The bytes of a version resource as a resource compiler writes it, with a text outside the basic plane.
std::string versionResource()
{
    const auto text = [](std::u16string units) {
        return std::string(reinterpret_cast<const char*>(units.c_str()), units.size() * 2 + 2);
    };
    const auto padded = [](std::string bytes) { return bytes.append((4 - bytes.size() % 4) % 4, '\0'); };
    const auto structure = [&](std::u16string key, unsigned type, unsigned valueLength, std::string value,
                               std::string below) {
        std::string body = padded(std::string(6, '\0') + text(key));
        body += below.empty() ? value : padded(value) + below;
        const std::uint16_t header[3] = {static_cast<std::uint16_t>(body.size()),
                                         static_cast<std::uint16_t>(valueLength),
                                         static_cast<std::uint16_t>(type)};
        return padded(body.replace(0, 6, reinterpret_cast<const char*>(header), 6));
    };
    VS_FIXEDFILEINFO fixed{};
    fixed.dwSignature = VS_FFI_SIGNATURE;
    fixed.dwFileVersionMS = 0x00010002;
    const std::string company = structure(u"CompanyName", 1, 4, text(u"图\xD83D\xDE00"), "");
    const std::string table = structure(u"080404b0", 1, 0, "", company);
    return structure(u"VS_VERSION_INFO", 0, sizeof fixed,
                     std::string(reinterpret_cast<const char*>(&fixed), sizeof fixed),
                     structure(u"StringFileInfo", 1, 0, "", table));
}

template <class T>
void put(std::string& bytes, std::size_t at, T value)
{
    std::memcpy(&bytes[at], &value, sizeof value);
}

// The smallest PE file with resources: headers, one section, the three levels of its resource directory.
std::string executable(const std::string& resource)
{
    std::string file(0x400, '\0');
    file.replace(0, 2, "MZ");
    put<DWORD>(file, 0x3c, 0x40);
    file.replace(0x40, 2, "PE");
    put<WORD>(file, 0x46, 1);                  // sections
    put<WORD>(file, 0x54, 240);                // size of the optional header
    put<WORD>(file, 0x58, 0x20b);              // 64 bits
    put<DWORD>(file, 0x58 + 112 + 16, 0x1000); // the resource directory
    const std::size_t section = 0x58 + 240;
    put<DWORD>(file, section + 12, 0x1000);
    put<DWORD>(file, section + 16, static_cast<DWORD>(0x200 + resource.size()));
    put<DWORD>(file, section + 20, 0x200);
    for (const unsigned level : {0u, 1u, 2u}) {
        const std::size_t directory = 0x200 + level * 24;
        put<WORD>(file, directory + 14, 1);
        put<DWORD>(file, directory + 16, level == 0 ? 16 : level == 1 ? 1 : 0x804);
        put<DWORD>(file, directory + 20, (level + 1) * 24 | (level < 2 ? 0x80000000 : 0));
    }
    put<DWORD>(file, 0x200 + 72, 0x1200);
    put<DWORD>(file, 0x200 + 76, static_cast<DWORD>(resource.size()));
    return file + resource;
}

class Version : public TempFolder
{
protected:
    // The buffer for a file of these bytes; empty with the last error set.
    std::vector<BYTE> blockOf(const std::string& content) const
    {
        put("file.bin", content);
        return blockOfFile();
    }

    std::vector<BYTE> blockOfFile() const
    {
        SetLastError(0);
        std::vector<BYTE> block(GetFileVersionInfoSizeW(path(L"file.bin").c_str(), nullptr));
        if (block.empty()) return block;
        EXPECT_TRUE(GetFileVersionInfoW(path(L"file.bin").c_str(), 0, static_cast<DWORD>(block.size()),
                                        block.data()));
        return block;
    }

    static std::wstring textOf(const std::vector<BYTE>& block, const wchar_t* name)
    {
        void* value = nullptr;
        UINT length = 0;
        if (!VerQueryValueW(block.data(), name, &value, &length)) return L"(none)";
        EXPECT_EQ(static_cast<const wchar_t*>(value)[length - 1], L'\0');
        return static_cast<const wchar_t*>(value);
    }

    using TempFolder::put;
};
} // namespace

TEST_F(Version, ModuleCarriesWhatItsBuildGaveIt)
{
    const std::vector<BYTE> block = blockOf(moduleContent("Base.dll"));
    ASSERT_FALSE(block.empty());
    void* value = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &value, &length));
    ASSERT_EQ(length, sizeof(VS_FIXEDFILEINFO));
    const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(value);
    EXPECT_EQ(fixed.dwSignature, VS_FFI_SIGNATURE);
    EXPECT_EQ(fixed.dwFileVersionMS, 3u << 16 | 14);
    EXPECT_EQ(fixed.dwFileVersionLS, 15u << 16 | 926);
    EXPECT_EQ(textOf(block, L"\\StringFileInfo\\080404B0\\fileversion"), L"3.14.15.926");
    EXPECT_EQ(textOf(block, L"\\StringFileInfo\\080404b0\\OriginalFilename"), L"test_module_base.arx");
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\VarFileInfo\\Translation", &value, &length));
    ASSERT_EQ(length, 4u);
    EXPECT_EQ(static_cast<const WORD*>(value)[0], 0x0804);
    EXPECT_EQ(static_cast<const WORD*>(value)[1], 0x04b0);
    EXPECT_FALSE(VerQueryValueW(block.data(), L"\\StringFileInfo\\040904b0\\FileVersion", &value, &length));
    EXPECT_EQ(length, 0u);
}

TEST_F(Version, ResourceOfAnExecutableIsRead)
{
    const std::vector<BYTE> block = blockOf(executable(versionResource()));
    EXPECT_EQ(textOf(block, L"\\StringFileInfo\\080404b0\\CompanyName"), L"图\U0001F600");
}

TEST_F(Version, FilesWithoutInformationAreTold)
{
    EXPECT_TRUE(blockOf(moduleContent("User.dll")).empty());
    EXPECT_EQ(GetLastError(), noType);
    EXPECT_TRUE(blockOf("plain text").empty());
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_BAD_FORMAT));
    std::string bare = executable("");
    ::put<DWORD>(bare, 0x58 + 112 + 16, 0);
    EXPECT_TRUE(blockOf(bare).empty());
    EXPECT_EQ(GetLastError(), noData);
    EXPECT_EQ(GetFileVersionInfoSizeW(path(L"missing").c_str(), nullptr), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
}

// Every byte of headers and resource takes extreme values, and the file every length: whatever comes out,
// all values that are found lie in the buffer, and the failures have a reason.
TEST_F(Version, DamagedFilesFailCleanly)
{
    const std::string good = executable(versionResource());
    int refused = 0;
    const auto check = [&] {
        const std::vector<BYTE> block = blockOfFile();
        if (block.empty()) {
            ++refused;
            EXPECT_NE(GetLastError(), 0u);
            return;
        }
        for (const wchar_t* name :
             {L"\\", L"\\StringFileInfo\\080404b0\\CompanyName", L"\\VarFileInfo\\Translation"}) {
            void* value = nullptr;
            UINT length = 0;
            if (!VerQueryValueW(block.data(), name, &value, &length)) continue;
            EXPECT_GE(static_cast<BYTE*>(value), block.data());
            EXPECT_LE(static_cast<BYTE*>(value) + length, block.data() + block.size());
        }
    };
    put("file.bin", good);
    // Changed in place: a file system may write a file that is made anew to the disk each time.
    const auto setByte = [&](std::size_t at, char value) {
        std::fstream(host("file.bin"), std::ios::in | std::ios::out | std::ios::binary)
            .seekp(static_cast<std::streamoff>(at))
            .put(value);
    };
    for (std::size_t at = 0; at < good.size(); ++at) {
        for (const char value : {'\0', '\1', '\x7f', '\xff'}) {
            setByte(at, value);
            check();
        }
        setByte(at, good[at]);
    }
    for (std::size_t length = good.size(); length-- > 0x3c;) {
        ASSERT_EQ(truncate(host("file.bin").c_str(), static_cast<off_t>(length)), 0);
        check();
    }
    EXPECT_GT(refused, 500);
}

TEST_F(Version, SmallBufferHoldsWhatFits)
{
    put("file.bin", executable(versionResource()));
    const std::wstring file = path(L"file.bin");
    const DWORD whole = GetFileVersionInfoSizeW(file.c_str(), nullptr);
    ASSERT_GT(whole, 0u);
    bool foundFixed = false;
    for (DWORD size = 0; size < whole; size += 3) {
        std::vector<BYTE> block(size); // of that size for the sanitizer
        if (!GetFileVersionInfoW(file.c_str(), 0, size, block.data())) continue;
        EXPECT_EQ(textOf(block, L"\\StringFileInfo\\080404b0\\CompanyName"), L"(none)") << size;
        void* value = nullptr;
        foundFixed = VerQueryValueW(block.data(), L"\\", &value, nullptr);
    }
    EXPECT_TRUE(foundFixed);
}
