#include "VersionResource.h"

#include "Utf8.h"

#include <cstring>

namespace
{
using win32::VersionNode;

// VS_VERSIONINFO, StringFileInfo, StringTable, String.
constexpr int deepest = 4;
constexpr std::size_t headerSize = 6;

std::size_t aligned(std::size_t place)
{
    return (place + 3) & ~std::size_t{3};
}

class Reader
{
public:
    explicit Reader(const std::vector<BYTE>& bytes) : bytes_(bytes) {}

    // Reads the structure at `begin` and gives where the next one begins.
    bool read(std::size_t begin, std::size_t limit, int depth, VersionNode& node, std::size_t& next) const
    {
        if (depth > deepest || limit - begin < headerSize) return false;
        const std::size_t end = begin + word(begin);
        if (end < begin + headerSize || end > limit) return false;
        node.isText = word(begin + 4) == 1;
        std::size_t place = begin + headerSize;
        if (!readText(place, end, node.key)) return false;
        place = aligned(place);
        if (!readValue(place, end, word(begin + 2), node)) return false;
        next = aligned(end);
        return readChildren(aligned(place), end, depth, node);
    }

private:
    std::size_t word(std::size_t place) const
    {
        return bytes_[place] | static_cast<std::size_t>(bytes_[place + 1]) << 8;
    }

    // Up to the terminator, which must lie before `end`; `place` goes behind it.
    bool readText(std::size_t& place, std::size_t end, std::wstring& text) const
    {
        for (; place + 2 <= end; place += 2) {
            const std::size_t unit = word(place);
            if (unit == 0) {
                place += 2;
                return true;
            }
            append(text, static_cast<char32_t>(unit));
        }
        return false;
    }

    static void append(std::wstring& text, char32_t unit)
    {
        if (win32::isLowSurrogate(unit) && !text.empty() &&
            win32::isHighSurrogate(static_cast<char32_t>(text.back())))
            text.back() =
                static_cast<wchar_t>(win32::combineSurrogates(static_cast<char32_t>(text.back()), unit));
        else
            text += static_cast<wchar_t>(unit);
    }

    // A text's length counts units. Compilers disagree whether it counts the terminator: it ends at the
    // first of the two.
    bool readValue(std::size_t& place, std::size_t end, std::size_t length, VersionNode& node) const
    {
        if (length == 0) return true;
        const std::size_t size = node.isText ? length * 2 : length;
        if (place > end || size > end - place) return false;
        const std::size_t valueEnd = place + size;
        std::size_t at = place;
        if (node.isText)
            readText(at, valueEnd, node.text);
        else
            node.bytes.assign(bytes_.begin() + static_cast<std::ptrdiff_t>(place),
                              bytes_.begin() + static_cast<std::ptrdiff_t>(valueEnd));
        place = valueEnd;
        return true;
    }

    bool readChildren(std::size_t place, std::size_t end, int depth, VersionNode& node) const
    {
        while (place < end && end - place >= headerSize) {
            node.children.emplace_back();
            if (!read(place, end, depth + 1, node.children.back(), place)) return false;
        }
        return true;
    }

    const std::vector<BYTE>& bytes_;
};
} // namespace

namespace win32
{
bool parseVersion(const std::vector<BYTE>& resource, VersionNode& root)
{
    std::size_t next = 0;
    return Reader(resource).read(0, resource.size(), 1, root, next) && root.key == L"VS_VERSION_INFO";
}
} // namespace win32
