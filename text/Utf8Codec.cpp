#include "Utf8Codec.h"

#include "Utf8Blocks.h"

#include <algorithm>
#include <intrin.h>

namespace
{
using utf8codec::Progress;

constexpr unsigned firstTwoByteLead = 0x80, firstThreeByteLead = 0xdf, firstBadLead = 0xf0;
constexpr unsigned notEncoded = 0x7ff;

std::size_t sequenceLength(unsigned lead)
{
    if (lead < firstTwoByteLead) return 1;
    return lead < firstThreeByteLead ? 2 : 3;
}

std::uint16_t decodeSequence(const std::uint8_t* bytes, std::size_t length)
{
    const unsigned lead = bytes[0];
    if (length == 1) return static_cast<std::uint16_t>(lead);
    if (length == 2) return static_cast<std::uint16_t>(((lead & 0x1f) << 6) + (bytes[1] & 0x3f));
    return static_cast<std::uint16_t>((lead << 12) + ((bytes[1] & 0x3f) << 6) + (bytes[2] & 0x3f));
}

/// A lead byte that is never consumed: the unit before it takes what is left of the target.
void fillWithPrevious(std::uint16_t* dst, std::size_t dstSize, Progress& at)
{
    const std::uint16_t previous = at.written ? dst[at.written - 1] : 0;
    std::fill(dst + at.written, dst + dstSize, previous);
    at.diagnostics += dstSize - at.written;
    at.written = dstSize;
}

std::size_t encodeUnit(unsigned unit, unsigned char (&bytes)[3])
{
    if (unit < 0x80) {
        bytes[0] = static_cast<unsigned char>(unit);
        return 1;
    }
    if (unit < notEncoded) {
        bytes[0] = static_cast<unsigned char>(0xc0 | (unit >> 6));
        bytes[1] = static_cast<unsigned char>(0x80 | (unit & 0x3f));
        return 2;
    }
    bytes[0] = static_cast<unsigned char>(0xe0 | (unit >> 12));
    bytes[1] = static_cast<unsigned char>(0x80 | ((unit >> 6) & 0x3f));
    bytes[2] = static_cast<unsigned char>(0x80 | (unit & 0x3f));
    return 3;
}

/// Decodes characters one by one until `stop`; false when the decoding is over.
bool decodeUntil(std::size_t stop, const std::uint8_t* src, std::size_t srcLen, std::uint16_t* dst,
                 std::size_t dstSize, Progress& at)
{
    while (at.read < stop && at.written < dstSize) {
        const unsigned lead = src[at.read];
        if (lead >= firstBadLead) {
            fillWithPrevious(dst, dstSize, at);
            return false;
        }
        const std::size_t length = sequenceLength(lead);
        if (length > srcLen - at.read) {
            ++at.diagnostics;
            return false;
        }
        dst[at.written++] = decodeSequence(src + at.read, length);
        at.read += length;
    }
    return at.read < srcLen && at.written < dstSize;
}

/// Encodes units one by one until `stop`; false when the encoding is over.
bool encodeUntil(std::size_t stop, const std::uint16_t* src, std::size_t srcLen, char* dst,
                 std::size_t dstSize, Progress& at)
{
    for (; at.read < stop && at.written < dstSize; ++at.read) {
        if (src[at.read] == notEncoded) {
            ++at.diagnostics;
            continue;
        }
        unsigned char bytes[3];
        const std::size_t length = encodeUnit(src[at.read], bytes);
        if (length > dstSize - at.written) return false;
        std::copy(bytes, bytes + length, dst + at.written);
        at.written += length;
    }
    return at.read < srcLen && at.written < dstSize;
}

bool processorHasSsse3()
{
    int info[4];
    __cpuid(info, 1);
    return info[2] & (1 << 9);
}

/// How many elements are converted one by one before blocks are tried again.
constexpr std::size_t stretch = 64;
} // namespace

namespace utf8codec
{
Progress decode(const std::uint8_t* src, std::size_t srcLen, std::uint16_t* dst, std::size_t dstSize)
{
    static const bool blocks = processorHasSsse3();
    Progress at;
    while (decodeUntil(std::min(at.read + stretch, srcLen), src, srcLen, dst, dstSize, at))
        if (blocks) decodeBlocks(src, srcLen, dst, dstSize, at);
    return at;
}

Progress encode(const std::uint16_t* src, std::size_t srcLen, char* dst, std::size_t dstSize)
{
    static const bool blocks = processorHasSsse3();
    Progress at;
    while (encodeUntil(std::min(at.read + stretch, srcLen), src, srcLen, dst, dstSize, at))
        if (blocks) encodeBlocks(src, srcLen, dst, dstSize, at);
    return at;
}
} // namespace utf8codec
