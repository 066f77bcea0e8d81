#pragma once

#include "fileapi.h"
#include "FileClock.h"

#include <sys/stat.h>

namespace win32
{
inline bool isReadOnly(const struct stat& info)
{
    return !S_ISDIR(info.st_mode) && !(info.st_mode & 0222);
}

inline DWORD attributesOf(const struct stat& info)
{
    if (S_ISDIR(info.st_mode)) return FILE_ATTRIBUTE_DIRECTORY;
    return isReadOnly(info) ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL;
}

/// Fills what WIN32_FILE_ATTRIBUTE_DATA and WIN32_FIND_DATAW have in common.
template <class Data>
void describe(const struct stat& info, Data& data)
{
    const auto size = S_ISDIR(info.st_mode) ? 0 : static_cast<ULONGLONG>(info.st_size);
    data.dwFileAttributes = attributesOf(info);
    data.ftCreationTime = toFileTime(info.st_mtim);
    data.ftLastAccessTime = toFileTime(info.st_atim);
    data.ftLastWriteTime = toFileTime(info.st_mtim);
    data.nFileSizeHigh = static_cast<DWORD>(size >> 32);
    data.nFileSizeLow = static_cast<DWORD>(size);
}
} // namespace win32
