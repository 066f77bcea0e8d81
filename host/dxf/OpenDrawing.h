#pragma once

#include "GroupReader.h"

#include <string>

namespace dxf
{
enum class OpenStatus : std::uint8_t {
    opened,
    notFound,     ///< no such file or folder
    accessDenied, ///< the system refuses to read it
    cannotRead,   ///< reading failed
    empty,        ///< no bytes, or blanks only
    binaryDwg,    ///< a DWG file, which is not read
    notDrawing,   ///< no drawing file
};

/// An English sentence part, without a full stop.
const char* reasonOf(OpenStatus status);

/// The reader stands before the first group. It is null unless the status is `opened`.
struct OpenedDrawing {
    OpenStatus status;
    std::unique_ptr<GroupReader> reader;
};

/// Opens an ASCII or binary drawing file: sees which of them it is, and takes version and encoding from its
/// header. A file that does not say its code page has `codePage` (0: the ANSI code page of this machine).
OpenedDrawing openDrawing(const std::wstring& path, UINT codePage = 0);
OpenedDrawing openDrawing(std::shared_ptr<const Input> input, UINT codePage = 0);
} // namespace dxf
