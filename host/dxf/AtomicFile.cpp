#include "AtomicFile.h"

#include <algorithm>
#include <atomic>

namespace dxf
{
namespace
{
/// A name beside `path` that no other saving uses at this time.
std::wstring temporaryName(const std::wstring& path)
{
    static std::atomic<unsigned> count{0};
    return path + L'.' + std::to_wstring(GetCurrentProcessId()) + L'-' + std::to_wstring(++count) + L".tmp";
}

bool isRefused(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0;
}
} // namespace

AtomicFile::AtomicFile(std::wstring path) : _path(std::move(path))
{
    if (isRefused(_path))
        fail(ERROR_ACCESS_DENIED);
    else
        open();
}

AtomicFile::~AtomicFile()
{
    discard();
}

void AtomicFile::open()
{
    constexpr int mostTries = 100;
    for (int i = 0; i < mostTries && !_file.isOpen(); ++i) {
        std::wstring name = temporaryName(_path);
        _file.reset(
            CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (_file.isOpen())
            _temporary = std::move(name);
        else if (GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    if (!_file.isOpen()) fail(GetLastError());
}

bool AtomicFile::append(std::string_view bytes)
{
    constexpr std::size_t largestStep = std::size_t(1) << 30;
    while (_status == FileStatus::done && !bytes.empty()) {
        DWORD written = 0;
        const auto step = static_cast<DWORD>(std::min(bytes.size(), largestStep));
        if (!WriteFile(_file.get(), bytes.data(), step, &written, nullptr)) return fail(GetLastError());
        if (written == 0) return fail(ERROR_DISK_FULL);
        bytes.remove_prefix(written);
    }
    return _status == FileStatus::done;
}

FileStatus AtomicFile::commit()
{
    if (_status == FileStatus::done && !FlushFileBuffers(_file.get())) fail(GetLastError());
    if (_status == FileStatus::done && !_file.close()) fail(GetLastError());
    if (_status == FileStatus::done &&
        !MoveFileExW(_temporary.c_str(), _path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        fail(GetLastError());
    if (_status == FileStatus::done) _temporary.clear();
    return _status;
}

bool AtomicFile::fail(DWORD error)
{
    _status = statusOfError(error);
    discard();
    return false;
}

void AtomicFile::discard()
{
    _file.close();
    if (!_temporary.empty()) DeleteFileW(_temporary.c_str());
    _temporary.clear();
}
} // namespace dxf
