#include "ImageFile.h"
#include "NoCase.h"
#include "Path.h"
#include "VersionResource.h"

#include "errhandlingapi.h"
#include "fileapi.h"
#include "winerror.h"
#include "winver.h"

#include <algorithm>
#include <cstring>

namespace
{
using win32::VersionNode;

constexpr char sectionName[] = ".rsrc.version";
constexpr std::size_t largestResource = 0x10000;
constexpr DWORD blockMark = 0x56424d51;

// The buffer of GetFileVersionInfoW: this, then nodes.
struct Block {
    DWORD mark;
    DWORD size; // of what the buffer holds
};

// A node in the buffer, followed by its key with a terminator, its value at a multiple of four bytes, and the
// nodes below it.
struct Node {
    DWORD size; // of all of it
    DWORD keySize;
    DWORD valueSize;   // in bytes
    DWORD valueLength; // as VerQueryValueW tells it
};

DWORD failed(DWORD error)
{
    SetLastError(error);
    return 0;
}

std::size_t aligned(std::size_t size)
{
    return (size + 3) & ~std::size_t{3};
}

void append(std::vector<BYTE>& bytes, const void* data, std::size_t size)
{
    const auto* first = static_cast<const BYTE*>(data);
    bytes.insert(bytes.end(), first, first + size);
    bytes.resize(aligned(bytes.size()));
}

void appendNode(std::vector<BYTE>& bytes, const VersionNode& node)
{
    const std::size_t begin = bytes.size();
    const std::size_t textSize = (node.text.size() + 1) * sizeof(wchar_t);
    Node header{};
    header.keySize = static_cast<DWORD>((node.key.size() + 1) * sizeof(wchar_t));
    header.valueSize = static_cast<DWORD>(node.isText ? textSize : node.bytes.size());
    header.valueLength = static_cast<DWORD>(node.isText ? node.text.size() + 1 : node.bytes.size());
    append(bytes, &header, sizeof header);
    append(bytes, node.key.c_str(), header.keySize);
    append(bytes, node.isText ? static_cast<const void*>(node.text.c_str()) : node.bytes.data(),
           header.valueSize);
    for (const VersionNode& child : node.children)
        appendNode(bytes, child);
    header.size = static_cast<DWORD>(bytes.size() - begin);
    std::memcpy(&bytes[begin], &header, sizeof header);
}

std::vector<BYTE> blockOf(const VersionNode& root)
{
    std::vector<BYTE> bytes(sizeof(Block));
    appendNode(bytes, root);
    const Block block{blockMark, static_cast<DWORD>(bytes.size())};
    std::memcpy(bytes.data(), &block, sizeof block);
    return bytes;
}

// The whole buffer for a file; empty with the last error set.
std::vector<BYTE> readBlock(LPCWSTR file)
{
    const DWORD attributes = GetFileAttributesW(file);
    if (attributes == INVALID_FILE_ATTRIBUTES) return {};
    DWORD error = ERROR_SUCCESS;
    const std::vector<BYTE> resource = win32::readVersionResource(win32::toHostPath(file), error);
    VersionNode root;
    if (!resource.empty() && win32::parseVersion(resource, root)) return blockOf(root);
    failed(resource.empty() ? error : ERROR_INVALID_DATA);
    return {};
}

// A part of the buffer that is known to lie in it.
struct Part {
    const BYTE* begin;
    const BYTE* end;

    bool header(Node& node) const
    {
        if (static_cast<std::size_t>(end - begin) < sizeof node) return false;
        std::memcpy(&node, begin, sizeof node);
        return node.size >= sizeof node;
    }
    std::size_t valueOffset(const Node& node) const { return sizeof node + aligned(node.keySize); }
    bool holds(std::size_t offset, std::size_t size) const
    {
        const auto all = static_cast<std::size_t>(end - begin);
        return offset <= all && size <= all - offset;
    }
};

bool isCalled(const Part& part, const Node& node, std::wstring_view name)
{
    if (node.keySize < sizeof(wchar_t) || !part.holds(sizeof node, node.keySize)) return false;
    const std::wstring_view key(reinterpret_cast<const wchar_t*>(part.begin + sizeof node),
                                node.keySize / sizeof(wchar_t) - 1);
    return win32::equalNoCase(key, name);
}

// Narrows a node to the one of that name directly below it.
bool descend(Part& part, std::wstring_view name)
{
    Node node{};
    if (!part.header(node)) return false;
    std::size_t place = part.valueOffset(node) + aligned(node.valueSize);
    const std::size_t size =
        std::min<std::size_t>(node.size, static_cast<std::size_t>(part.end - part.begin));
    while (place < size) {
        Part child{part.begin + place, part.begin + size};
        Node below{};
        if (!child.header(below)) return false;
        if (isCalled(child, below, name)) {
            part = child;
            return true;
        }
        place += below.size;
    }
    return false;
}

bool descendPath(Part& part, std::wstring_view path)
{
    while (!path.empty()) {
        const std::size_t end = std::min(path.find(L'\\'), path.size());
        const std::wstring_view name = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (!name.empty() && !descend(part, name)) return false;
    }
    return true;
}

bool wholeBlock(LPCVOID buffer, Part& part)
{
    if (!buffer) return false;
    Block block{};
    std::memcpy(&block, buffer, sizeof block);
    const auto* bytes = static_cast<const BYTE*>(buffer);
    part = {bytes + sizeof block, bytes + block.size};
    return block.mark == blockMark && block.size >= sizeof block;
}
} // namespace

namespace win32
{
std::vector<BYTE> readVersionResource(const std::string& hostPath, DWORD& error)
{
    const ImageFile file(hostPath);
    if (isPortableExecutable(file)) return versionOfPortableExecutable(file, error);
    error = isLoadableModule(file) ? ERROR_RESOURCE_TYPE_NOT_FOUND : ERROR_BAD_FORMAT;
    return error == ERROR_BAD_FORMAT ? std::vector<BYTE>() : elfSection(file, sectionName, largestResource);
}
} // namespace win32

DWORD WINAPI GetFileVersionInfoSizeW(LPCWSTR file, LPDWORD ignored)
{
    if (ignored) *ignored = 0;
    return static_cast<DWORD>(readBlock(file).size());
}

BOOL WINAPI GetFileVersionInfoW(LPCWSTR file, DWORD, DWORD size, LPVOID buffer)
{
    if (!buffer) return static_cast<BOOL>(failed(ERROR_INVALID_PARAMETER));
    std::vector<BYTE> bytes = readBlock(file);
    if (bytes.empty()) return FALSE;
    const auto copied = std::min(size, static_cast<DWORD>(bytes.size()));
    if (copied < sizeof(Block) + sizeof(Node)) return static_cast<BOOL>(failed(ERROR_INSUFFICIENT_BUFFER));
    const Block block{blockMark, copied};
    std::memcpy(bytes.data(), &block, sizeof block);
    std::memcpy(buffer, bytes.data(), copied);
    return TRUE;
}

BOOL WINAPI VerQueryValueW(LPCVOID block, LPCWSTR name, LPVOID* value, UINT* length)
{
    if (length) *length = 0;
    Part part{};
    Node node{};
    if (!name || !value || !wholeBlock(block, part)) return static_cast<BOOL>(failed(ERROR_INVALID_DATA));
    const bool found =
        descendPath(part, name) && part.header(node) && part.holds(part.valueOffset(node), node.valueSize);
    if (!found || node.valueSize == 0) return static_cast<BOOL>(failed(ERROR_RESOURCE_TYPE_NOT_FOUND));
    *value = const_cast<BYTE*>(part.begin + part.valueOffset(node));
    if (length) *length = node.valueLength;
    return TRUE;
}
