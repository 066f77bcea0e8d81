#include "Utf8Block.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace
{
/// One bit for each byte of a block, by what the byte is.
struct Roles {
    std::uint64_t notAscii = 0;
    std::uint64_t leads = 0;      ///< C0 and above
    std::uint64_t threeBytes = 0; ///< E0 and above
    std::uint64_t special = 0;    ///< lead bytes that need a closer look
};

#ifdef __SSE2__
std::uint64_t bits(__m128i bytes)
{
    return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes));
}

__m128i equal(__m128i bytes, int value)
{
    return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(static_cast<char>(value)));
}

/// Shifting the 16-bit lanes moves a lower bit of each byte into its top one; what crosses from one byte into
/// the next stays below.
Roles readRoles(const unsigned char* at)
{
    Roles roles;
    for (int i = 0; i < 4; ++i) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at) + i);
        const std::uint64_t bit7 = bits(bytes), bit6 = bits(_mm_slli_epi16(bytes, 1)),
                            bit5 = bits(_mm_slli_epi16(bytes, 2)), bit4 = bits(_mm_slli_epi16(bytes, 3));
        const __m128i overlong = equal(_mm_and_si128(bytes, _mm_set1_epi8(static_cast<char>(0xFE))), 0xC0);
        const __m128i closer = _mm_or_si128(overlong, _mm_or_si128(equal(bytes, 0xE0), equal(bytes, 0xED)));
        const std::uint64_t leads = bit7 & bit6, three = leads & bit5;
        roles.notAscii |= bit7 << (16 * i);
        roles.leads |= leads << (16 * i);
        roles.threeBytes |= three << (16 * i);
        roles.special |= (bits(closer) | (three & bit4)) << (16 * i);
    }
    return roles;
}
#else
Roles readRoles(const unsigned char* at)
{
    Roles roles;
    for (unsigned i = 0; i < win32::Utf8Block::size; ++i) {
        const unsigned char byte = at[i];
        const bool isSpecial = (byte & 0xFE) == 0xC0 || byte == 0xE0 || byte == 0xED || byte >= 0xF0;
        roles.notAscii |= std::uint64_t(byte >= 0x80) << i;
        roles.leads |= std::uint64_t(byte >= 0xC0) << i;
        roles.threeBytes |= std::uint64_t(byte >= 0xE0) << i;
        roles.special |= std::uint64_t(isSpecial) << i;
    }
    return roles;
}
#endif

/// What the upper half of a first byte says: which of its bits count, and how far the three bytes from it on,
/// six bits each, hold too many.
struct Shape {
    std::uint8_t mask, excess;
};
constexpr Shape oneByte{0x7F, 12}, twoBytes{0x1F, 6}, threeBytes{0x0F, 0};
constexpr Shape shapes[16] = {oneByte, oneByte, oneByte, oneByte, oneByte,  oneByte,  oneByte,    oneByte,
                              oneByte, oneByte, oneByte, oneByte, twoBytes, twoBytes, threeBytes, threeBytes};

/// The character at a place, without a branch on its length.
wchar_t characterAt(const unsigned char* at)
{
    const Shape shape = shapes[at[0] >> 4];
    const std::uint32_t first = at[0] & shape.mask, second = at[1] & 0x3F, third = at[2] & 0x3F;
    return static_cast<wchar_t>((first << 12 | second << 6 | third) >> shape.excess);
}
} // namespace

namespace win32
{
Utf8Block readUtf8Block(const unsigned char* at)
{
    const Roles roles = readRoles(at);
    if (roles.notAscii == 0) return {~std::uint64_t(0), Utf8Block::size, true, true};
    const std::uint64_t trails = roles.leads << 1 | roles.threeBytes << 2;
    const bool isPlain = roles.special == 0 && (roles.notAscii & ~roles.leads) == trails;
    // The last one or two bytes may begin a character that goes on in the next block.
    const bool isCutAfterOne = roles.leads >> 63, isCutAfterTwo = roles.threeBytes >> 62 & 1;
    const std::size_t cut = isCutAfterOne ? 1 : isCutAfterTwo ? 2 : 0;
    return {~trails & (~std::uint64_t(0) >> cut), Utf8Block::size - cut, isPlain, false};
}

std::size_t decodeUtf8Block(const Utf8Block& block, const unsigned char* at, wchar_t* to)
{
    if (block.isAscii) {
        for (std::size_t i = 0; i < Utf8Block::size; ++i)
            to[i] = at[i];
        return Utf8Block::size;
    }
    wchar_t* const start = to;
    for (std::uint64_t starts = block.starts; starts; starts &= starts - 1)
        *to++ = characterAt(at + __builtin_ctzll(starts));
    return static_cast<std::size_t>(to - start);
}

std::size_t countUtf8Block(const Utf8Block& block)
{
    return static_cast<std::size_t>(__builtin_popcountll(block.starts));
}
} // namespace win32
