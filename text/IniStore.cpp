#include "IniStore.h"

#include "CtransStr.h"

#include <climits>
#include <mutex>
#include <new>
#include <utility>

namespace
{
using namespace inifile;

/// Within this time of a change another one may get the same time stamp: a tick of the clock, with room.
constexpr ULONGLONG clockGrain = 200000; // 20 ms in units of 100 ns

/// What tells one state of a file from another.
struct Stamp {
    ULONGLONG created = 0;
    ULONGLONG written = 0;
    ULONGLONG size = 0;
    UINT codePage = 0;

    bool operator==(const Stamp& other) const
    {
        return created == other.created && written == other.written && size == other.size &&
               codePage == other.codePage;
    }
};

/// What was read last.
struct Kept {
    CString path;
    Stamp stamp;
    std::shared_ptr<const Contents> contents;
};

std::mutex keptMutex;

Kept& lastRead()
{
    static Kept kept;
    return kept;
}

ULONGLONG joined(DWORD high, DWORD low)
{
    return static_cast<ULONGLONG>(high) << 32 | low;
}

ULONGLONG ticksOf(const FILETIME& time)
{
    return joined(time.dwHighDateTime, time.dwLowDateTime);
}

bool readStamp(const CString& path, Stamp& stamp)
{
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExW(path, GetFileExInfoStandard, &data)) return false;
    stamp = {ticksOf(data.ftCreationTime), ticksOf(data.ftLastWriteTime),
             joined(data.nFileSizeHigh, data.nFileSizeLow), GetACP()};
    return true;
}

/// Whether the stamp of a file that is read now changes with the file's next change.
bool isProof(const Stamp& stamp)
{
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return ticksOf(now) > stamp.written + clockGrain;
}

/// The path with its folder; a relative one means another file when the current folder changes.
CString fullPath(const CString& path)
{
    wchar_t full[MAX_PATH];
    const DWORD length = GetFullPathNameW(path, MAX_PATH, full, nullptr);
    return length > 0 && length < MAX_PATH ? CString(full, static_cast<int>(length)) : path;
}

std::shared_ptr<const Contents> read(CFile& file)
{
    const ULONGLONG size = file.GetLength();
    if (size >= INT_MAX) return nullptr;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    bytes.resize(file.Read(bytes.data(), static_cast<UINT>(size)));
    return std::make_shared<const Contents>(std::move(bytes));
}

/// Opens the file and gives what use(file) gives; null or false when it cannot be opened or reading fails.
template <class Use>
auto withOpenFile(const CString& path, Use use) -> decltype(use(std::declval<CFile&>()))
{
    try {
        CFile file;
        if (!file.Open(path, CFile::modeRead | CFile::shareDenyNone | CFile::typeBinary)) return {};
        return use(file);
    } catch (CException* error) {
        error->Delete();
    } catch (const std::bad_alloc&) {
    }
    return {};
}

/// Writes a new file in the folder of `file`. Gives its name; empty when that fails.
CString writeBeside(const CString& file, const std::string& bytes)
{
    const CString folder = CtransStr::GetFilePath(file);
    wchar_t name[MAX_PATH];
    if (!GetTempFileNameW(folder.IsEmpty() ? L"." : folder.GetString(), L"ini", 0, name)) return CString();
    try {
        CFile written(name, CFile::modeWrite | CFile::shareExclusive | CFile::typeBinary);
        written.Write(bytes.data(), static_cast<UINT>(bytes.size()));
        written.Flush();
        written.Close();
        return name;
    } catch (CException* error) {
        error->Delete();
    }
    DeleteFileW(name);
    return CString();
}
} // namespace

namespace inifile
{
std::shared_ptr<const Contents> load(const CString& file)
{
    const std::lock_guard<std::mutex> lock(keptMutex);
    Kept& kept = lastRead();
    const CString path = fullPath(file);
    Stamp stamp;
    if (!readStamp(path, stamp)) return nullptr;
    if (kept.contents && kept.stamp == stamp && kept.path == path) return kept.contents;
    kept.contents.reset();
    const bool mayBeKept = isProof(stamp);
    auto contents = withOpenFile(path, read);
    if (mayBeKept && contents) kept = {path, stamp, contents};
    return contents;
}

std::shared_ptr<const Contents> loadForeign(const CString& file)
{
    const auto isForeign = withOpenFile(file, [](CFile& open) {
        char start[3];
        const Encoding encoding = encodingOf({start, open.Read(start, sizeof start)});
        return encoding == Encoding::utf8 || encoding == Encoding::utf16BigEndian;
    });
    return isForeign ? load(file) : nullptr;
}

bool store(const CString& file, const std::string& bytes)
{
    const CString written = writeBeside(file, bytes);
    if (written.IsEmpty()) return false;
    const bool exists = GetFileAttributesW(file) != INVALID_FILE_ATTRIBUTES;
    if (exists ? ReplaceFileW(file, written, nullptr, 0, nullptr, nullptr)
               : MoveFileExW(written, file, MOVEFILE_WRITE_THROUGH))
        return true;
    DeleteFileW(written);
    return false;
}
} // namespace inifile
