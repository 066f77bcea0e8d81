#include "ImageFile.h"
#include "VersionResource.h"

#include "winerror.h"

#include <cstring>

namespace
{
using win32::ImageFile;

// The layouts of the PE format that are read here, little-endian as this machine is.
constexpr WORD dosSignature = 0x5a4d;
constexpr DWORD peSignature = 0x4550;
constexpr WORD magic32 = 0x10b, magic64 = 0x20b;
constexpr DWORD resourceDirectory = 2;
constexpr DWORD versionType = 16;
constexpr DWORD isDirectory = 0x80000000;
constexpr DWORD largestResource = 0x10000;

struct FileHeader {
    WORD machine;
    WORD sections;
    DWORD time;
    DWORD symbols;
    DWORD symbolCount;
    WORD optionalSize;
    WORD characteristics;
};

struct DataDirectory {
    DWORD address;
    DWORD size;
};

struct SectionHeader {
    char name[8];
    DWORD virtualSize;
    DWORD address;
    DWORD rawSize;
    DWORD rawOffset;
    DWORD unused[3];
    DWORD characteristics;
};

struct ResourceDirectory {
    DWORD characteristics;
    DWORD time;
    WORD major;
    WORD minor;
    WORD named;
    WORD numbered;
};

struct ResourceEntry {
    DWORD name;
    DWORD offset;
};

struct ResourceData {
    DWORD address;
    DWORD size;
    DWORD codePage;
    DWORD reserved;
};

class Executable
{
public:
    explicit Executable(const ImageFile& file) : file_(file) {}

    bool readHeaders()
    {
        WORD signature = 0;
        DWORD pe = 0;
        return file_.read(0, signature) && signature == dosSignature && file_.read(0x3c, header_) &&
               file_.read(header_, pe) && pe == peSignature &&
               file_.read(header_ + std::uint64_t{4}, fileHeader_);
    }

    std::vector<BYTE> version(DWORD& error) const
    {
        error = ERROR_RESOURCE_DATA_NOT_FOUND;
        DataDirectory resources{};
        std::uint64_t root = 0;
        if (!findDirectory(resources) || resources.address == 0 || !offsetOf(resources.address, root))
            return {};
        error = ERROR_RESOURCE_TYPE_NOT_FOUND;
        ResourceData data{};
        std::uint64_t place = 0;
        if (!findData(root, data)) return {};
        error = ERROR_BAD_FORMAT;
        if (data.size > largestResource || !offsetOf(data.address, place)) return {};
        std::vector<BYTE> bytes(data.size);
        if (!file_.read(place, bytes.data(), bytes.size())) return {};
        error = bytes.empty() ? ERROR_RESOURCE_DATA_NOT_FOUND : ERROR_SUCCESS;
        return bytes;
    }

private:
    std::uint64_t optionalHeader() const { return header_ + std::uint64_t{4} + sizeof(FileHeader); }

    bool findDirectory(DataDirectory& found) const
    {
        WORD magic = 0;
        if (!file_.read(optionalHeader(), magic) || (magic != magic32 && magic != magic64)) return false;
        const DWORD directories = magic == magic32 ? 96 : 112;
        const DWORD place = directories + resourceDirectory * sizeof(DataDirectory);
        return place + sizeof found <= fileHeader_.optionalSize &&
               file_.read(optionalHeader() + place, found);
    }

    bool offsetOf(DWORD address, std::uint64_t& offset) const
    {
        const std::uint64_t table = optionalHeader() + fileHeader_.optionalSize;
        for (WORD i = 0; i < fileHeader_.sections; ++i) {
            SectionHeader section{};
            if (!file_.read(table + std::uint64_t{i} * sizeof section, section)) return false;
            if (address < section.address || address - section.address >= section.rawSize) continue;
            offset = std::uint64_t{section.rawOffset} + (address - section.address);
            return true;
        }
        return false;
    }

    // The entry of a number, or the first one for number 0.
    bool findEntry(std::uint64_t place, DWORD number, DWORD& offset) const
    {
        ResourceDirectory directory{};
        if (!file_.read(place, directory)) return false;
        const unsigned count = unsigned{directory.named} + directory.numbered;
        for (unsigned i = 0; i < count; ++i) {
            ResourceEntry entry{};
            if (!file_.read(place + sizeof directory + std::uint64_t{i} * sizeof entry, entry)) return false;
            if (number != 0 && entry.name != number) continue;
            offset = entry.offset;
            return true;
        }
        return false;
    }

    // Types hold names, and names hold languages: the first of each is taken.
    bool findData(std::uint64_t root, ResourceData& data) const
    {
        DWORD names = 0, languages = 0, leaf = 0;
        return findEntry(root, versionType, names) && (names & isDirectory) &&
               findEntry(root + (names & ~isDirectory), 0, languages) && (languages & isDirectory) &&
               findEntry(root + (languages & ~isDirectory), 0, leaf) && !(leaf & isDirectory) &&
               file_.read(root + leaf, data);
    }

    const ImageFile& file_;
    DWORD header_ = 0;
    FileHeader fileHeader_{};
};
} // namespace

namespace win32
{
bool isPortableExecutable(const ImageFile& file)
{
    return Executable(file).readHeaders();
}

std::vector<BYTE> versionOfPortableExecutable(const ImageFile& file, DWORD& error)
{
    Executable executable(file);
    if (executable.readHeaders()) return executable.version(error);
    error = ERROR_BAD_FORMAT;
    return {};
}
} // namespace win32
