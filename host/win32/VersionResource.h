#pragma once

#include "windef.h"

#include <string>
#include <vector>

namespace win32
{
/// The bytes of a file's VS_VERSIONINFO. Empty with `error` as GetFileVersionInfoSizeW gives it.
std::vector<BYTE> readVersionResource(const std::string& hostPath, DWORD& error);

/// The resource of type RT_VERSION in a PE file. Empty with `error`.
class ImageFile;
bool isPortableExecutable(const ImageFile& file);
std::vector<BYTE> versionOfPortableExecutable(const ImageFile& file, DWORD& error);

/// A structure of a version resource: a key, a value and structures below it.
struct VersionNode {
    std::wstring key;
    bool isText = false;
    std::wstring text;       // without its terminator
    std::vector<BYTE> bytes; // when it is no text
    std::vector<VersionNode> children;
};

/// Reads the structure as documented: lengths in 16 bits, keys and texts in UTF-16, parts at multiples of
/// four bytes. False when it is damaged.
bool parseVersion(const std::vector<BYTE>& resource, VersionNode& root);
} // namespace win32
