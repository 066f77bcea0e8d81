#pragma once

#include <cstdint>

#include <windef.h>

namespace dxf
{
/// How a call on files ended.
enum class FileStatus : std::uint8_t {
    done,
    notFound,     ///< no such file or folder
    accessDenied, ///< also: read-only, in use by another program
    diskFull,     ///< or the largest size of a file is reached
    failed,       ///< anything else
};

/// The status that a code of GetLastError stands for; never done.
FileStatus statusOfError(DWORD code);
} // namespace dxf
