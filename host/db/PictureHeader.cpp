/// PNG: ISO/IEC 15948, 11.2.2. JPEG: ITU-T T.81, B.2.2. GIF: the 89a specification, 18. BMP: BITMAPINFOHEADER.

#include "PictureHeader.h"

#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <vector>

namespace
{
using Kind = PictureHeader::Kind;
using Byte = unsigned char;

int bigEndian16(const Byte* at) { return at[0] << 8 | at[1]; }
int bigEndian32(const Byte* at) { return static_cast<int>(static_cast<unsigned>(at[0]) << 24) | at[1] << 16 | at[2] << 8 | at[3]; }
int littleEndian16(const Byte* at) { return at[0] | at[1] << 8; }
int littleEndian32(const Byte* at) { return at[0] | at[1] << 8 | at[2] << 16 | static_cast<int>(static_cast<unsigned>(at[3]) << 24); }

bool begins(const Byte* bytes, std::size_t size, const char* text)
{
    const std::size_t length = std::strlen(text);
    return size >= length && std::memcmp(bytes, text, length) == 0;
}

/// A frame header that is no table (DHT), extension (JPG) or condition (DAC).
bool isFrame(Byte marker) { return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC; }

PictureHeader jpegHeader(const Byte* bytes, std::size_t size)
{
    for (std::size_t at = 2; at + 9 <= size && bytes[at] == 0xFF;) {
        const Byte marker = bytes[at + 1];
        if (marker == 0xFF) {
            ++at; // fill
        } else if (isFrame(marker)) {
            return {Kind::jpeg, bigEndian16(bytes + at + 7), bigEndian16(bytes + at + 5)};
        } else {
            at += 2 + static_cast<std::size_t>(bigEndian16(bytes + at + 2));
        }
    }
    return {};
}

PictureHeader headerByKind(const Byte* bytes, std::size_t size)
{
    if (begins(bytes, size, "\x89PNG\r\n\x1A\n") && size >= 24)
        return {Kind::png, bigEndian32(bytes + 16), bigEndian32(bytes + 20)};
    if (begins(bytes, size, "\xFF\xD8")) return jpegHeader(bytes, size);
    if (begins(bytes, size, "GIF8") && size >= 10) return {Kind::gif, littleEndian16(bytes + 6), littleEndian16(bytes + 8)};
    // A negative height: rows from the top.
    if (begins(bytes, size, "BM") && size >= 26)
        return {Kind::bmp, littleEndian32(bytes + 18), std::abs(littleEndian32(bytes + 22))};
    return {};
}
} // namespace

PictureHeader pictureHeaderOf(const Byte* bytes, std::size_t size)
{
    const PictureHeader header = headerByKind(bytes, size);
    return header.width > 0 && header.height > 0 ? header : PictureHeader();
}

bool readPictureHeader(const CString& path, PictureHeader& header)
{
    HANDLE file = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    // Cameras put a small picture before the frame of the large one.
    std::vector<Byte> bytes(1 << 18);
    DWORD count = 0;
    const bool isRead = ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) != 0;
    CloseHandle(file);
    if (isRead) header = pictureHeaderOf(bytes.data(), count);
    return isRead;
}
