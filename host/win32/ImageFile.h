#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace win32
{
/// A file that is read piece by piece; every piece is checked against its size.
class ImageFile
{
public:
    explicit ImageFile(const std::string& hostPath);
    ~ImageFile();
    ImageFile(const ImageFile&) = delete;
    ImageFile& operator=(const ImageFile&) = delete;

    bool isOpen() const { return descriptor_ >= 0; }
    std::uint64_t size() const { return size_; }

    /// Reads exactly `size` bytes; false when the file does not have them.
    bool read(std::uint64_t offset, void* target, std::size_t size) const;

    template <class T>
    bool read(std::uint64_t offset, T& target) const
    {
        return read(offset, &target, sizeof target);
    }

private:
    int descriptor_;
    std::uint64_t size_ = 0;
};

/// Whether a file is a shared object for this machine whose loaded parts lie in the file.
bool isLoadableModule(const ImageFile& file);

/// The content of the named section of a shared object. Empty when the file is none, is damaged, or has no
/// such section; `largest` bounds what is read.
std::vector<std::uint8_t> elfSection(const ImageFile& file, const char* name, std::size_t largest);
} // namespace win32
