#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace win32
{
/// The bytes of a profile file, seen as units: UTF-16 units behind a byte-order mark, else bytes of the ANSI
/// code page. ASCII characters can be looked for unit by unit in both; only what is asked for is decoded.
class ProfileText
{
public:
    ProfileText() = default;
    explicit ProfileText(std::string bytes);

    const std::string& bytes() const { return _bytes; }
    std::size_t size() const { return _size; }
    unsigned unit(std::size_t index) const
    {
        if (!_isUtf16) return static_cast<unsigned char>(_bytes[index]);
        return byteAt(2 * index + 2) | byteAt(2 * index + 3) << 8;
    }

    /// The units from `begin` to `end` as wide text.
    std::wstring decode(std::size_t begin, std::size_t end) const;

    /// A copy of the file in which `text` stands for the units from `begin` to `end`.
    std::string replaced(std::size_t begin, std::size_t end, std::wstring_view text) const;

private:
    unsigned byteAt(std::size_t offset) const { return static_cast<unsigned char>(_bytes[offset]); }
    std::size_t offsetOf(std::size_t index) const { return _isUtf16 ? 2 * index + 2 : index; }
    std::string encode(std::wstring_view text) const;

    std::string _bytes;
    bool _isUtf16 = false;
    std::size_t _size = 0;
};
} // namespace win32
