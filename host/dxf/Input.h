#pragma once

#include "FileStatus.h"

#include <memory>
#include <string>
#include <string_view>

namespace dxf
{
/// The bytes of a drawing file, all in memory; the texts of groups are views into them. Behind the last
/// byte there is a NUL, so that a scan of digits needs no other end.
class Input
{
public:
    /// Reads the file at `path`, as CreateFileW takes it. Null when that fails; `status` tells why.
    static std::shared_ptr<const Input> ofFile(const std::wstring& path, FileStatus& status);
    static std::shared_ptr<const Input> ofBytes(std::string_view bytes);

    std::string_view bytes() const { return {_bytes.get(), _size}; }

private:
    explicit Input(std::size_t size);

    std::unique_ptr<char[]> _bytes;
    std::size_t _size;
};
} // namespace dxf
