#include "Utf8Blocks.h"

#include <tmmintrin.h>

// This file alone is compiled for SSSE3, so it uses no inline function that other files share: the linker
// could take the copy made here for a processor that cannot run it.

namespace
{
using std::size_t;
using std::uint16_t;
using std::uint32_t;
using std::uint64_t;
using std::uint8_t;
using utf8codec::Progress;

struct alignas(16) Shuffle {
    uint8_t index[16];
};

const __m128i* asVector(const void* address)
{
    return static_cast<const __m128i*>(address);
}

__m128i load(const void* address)
{
    return _mm_loadu_si128(asVector(address));
}

void store(void* address, __m128i value)
{
    _mm_storeu_si128(static_cast<__m128i*>(address), value);
}

// ---- decoding: 64 bytes at a time, in eight groups of 8 bytes

constexpr size_t bytesInBlock = 64, bytesInGroup = 8, unitsInVector = 8;
constexpr size_t bytesBefore = 2; // a sequence begins at most two bytes before its last one

/// The bytes of a block by their place in a sequence, one bit each, the first byte in bit 0.
struct Layout {
    uint64_t ends;   ///< the last byte of a sequence
    bool wellFormed; ///< continuation bytes stand where the lead bytes ask for them, and nowhere else
};

/// What the block before left open: places at the start of a block that belong to its last sequence.
struct OpenSequence {
    uint64_t ends = 0, continuations = 0;
    size_t bytes = 0; ///< bytes of it that the block before holds
};

template <class Test>
uint64_t bitsWhere(const __m128i (&bytes)[4], Test test)
{
    uint64_t bits = 0;
    for (int i = 0; i < 4; ++i)
        bits |= uint64_t{static_cast<uint32_t>(_mm_movemask_epi8(test(bytes[i])))} << (16 * i);
    return bits;
}

/// Bytes compared as unsigned numbers, which the instruction set offers as a maximum only.
__m128i atLeast(__m128i bytes, int least)
{
    const __m128i bound = _mm_set1_epi8(static_cast<char>(least));
    return _mm_cmpeq_epi8(_mm_max_epu8(bytes, bound), bytes);
}

/// Reads the layout of a block, and in `open` what it leaves to the next one.
Layout layoutOf(const __m128i (&bytes)[4], uint64_t notAscii, OpenSequence& open)
{
    const uint64_t fromC0 = bitsWhere(bytes, [](__m128i b) { return atLeast(b, 0xc0); });
    const uint64_t fromDf = bitsWhere(bytes, [](__m128i b) { return atLeast(b, 0xdf); });
    const uint64_t bad = bitsWhere(bytes, [](__m128i b) { return atLeast(b, 0xf0); });
    const uint64_t twoByteLeads = fromC0 & ~fromDf;
    const uint64_t sequenceEnds = (twoByteLeads << 1) | (fromDf << 2) | open.ends;
    const uint64_t continuations = sequenceEnds | (fromDf << 1) | open.continuations;
    const Layout layout{~notAscii | sequenceEnds, (notAscii & ~fromC0) == continuations && bad == 0};
    open.ends = (twoByteLeads >> 63) | (fromDf >> 62);
    open.continuations = open.ends | (fromDf >> 63);
    open.bytes = (fromC0 >> 63) ? 1 : (fromDf >> 62) & 1 ? 2 : 0;
    return layout;
}

/// For each set of ends in a group: into the 16-bit lanes, one after the other, the bytes at the ends.
/// A group is loaded with the two bytes before it, so that less 1 and less 2 lead to the bytes before.
struct EndShuffles {
    Shuffle of[256] = {};
};

constexpr EndShuffles shufflesToEnds()
{
    EndShuffles shuffles;
    for (unsigned ends = 0; ends < 256; ++ends) {
        unsigned lane = 0;
        for (unsigned at = 0; at < bytesInGroup; ++at) {
            if (!(ends >> at & 1)) continue;
            shuffles.of[ends].index[2 * lane] = static_cast<uint8_t>(at + bytesBefore);
            shuffles.of[ends].index[2 * lane++ + 1] = 0xff;
        }
        for (; lane < unitsInVector; ++lane)
            shuffles.of[ends].index[2 * lane] = shuffles.of[ends].index[2 * lane + 1] = 0xff;
    }
    return shuffles;
}

constexpr EndShuffles toEnds = shufflesToEnds();

/// The units of the sequences that end in one group. A lane holds one byte, so numbers compare as signed.
__m128i unitsOfGroup(__m128i bytes, uint8_t ends)
{
    const __m128i shuffle = _mm_load_si128(asVector(&toEnds.of[ends]));
    const __m128i last = _mm_shuffle_epi8(bytes, shuffle);
    const __m128i second = _mm_shuffle_epi8(bytes, _mm_sub_epi16(shuffle, _mm_set1_epi16(1)));
    const __m128i third = _mm_shuffle_epi8(bytes, _mm_sub_epi16(shuffle, _mm_set1_epi16(2)));
    const __m128i hasSecond = _mm_cmpgt_epi16(last, _mm_set1_epi16(0x7f));
    const __m128i hasThird = _mm_cmpgt_epi16(third, _mm_set1_epi16(0xde)); // only a three-byte lead
    const __m128i low = _mm_and_si128(last, _mm_set1_epi16(0x7f));
    const __m128i middle = _mm_slli_epi16(_mm_and_si128(second, _mm_set1_epi16(0x3f)), 6);
    const __m128i high = _mm_and_si128(_mm_slli_epi16(third, 12), hasThird);
    return _mm_or_si128(_mm_or_si128(low, high), _mm_and_si128(middle, hasSecond));
}

/// Byte i: how many bits are set in the bytes 0 to i.
uint64_t runningCounts(uint64_t bits)
{
    bits -= bits >> 1 & 0x5555555555555555;
    bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
    bits = (bits + (bits >> 4)) & 0x0f0f0f0f0f0f0f0f;
    return bits * 0x0101010101010101;
}

/// Stores the units of a block, each group over the scribbles of the one before; returns their number.
size_t storeUnits(const uint8_t* src, uint64_t ends, uint16_t* dst)
{
    const uint64_t counts = runningCounts(ends);
    const uint64_t starts = counts << 8;
    for (unsigned group = 0; group < 8; ++group) {
        const __m128i bytes = load(src + bytesInGroup * group - bytesBefore);
        store(dst + (starts >> (8 * group) & 0xff),
              unitsOfGroup(bytes, static_cast<uint8_t>(ends >> (8 * group))));
    }
    return counts >> 56;
}

void storeAscii(const __m128i (&bytes)[4], uint16_t* dst)
{
    for (int i = 0; i < 4; ++i) {
        store(dst + 16 * i, _mm_unpacklo_epi8(bytes[i], _mm_setzero_si128()));
        store(dst + 16 * i + 8, _mm_unpackhi_epi8(bytes[i], _mm_setzero_si128()));
    }
}

// ---- encoding: 32 units at a time, in groups of 4 units

constexpr size_t unitsInBlock = 32, mostBytesInBlock = 3 * unitsInBlock;

/// How four units that were spread over three bytes of four close up. The index has the units below 80 in
/// bits 0 to 3 and those below 800 in bits 4 to 7.
struct Closing {
    Shuffle shuffles[256] = {};
    uint8_t lengths[256] = {};
};

constexpr Closing closingTable()
{
    Closing table;
    for (unsigned index = 0; index < 256; ++index) {
        uint8_t length = 0;
        for (unsigned unit = 0; unit < 4; ++unit) {
            const unsigned skipped = (index >> unit & 1) ? 2 : (index >> (unit + 4) & 1);
            for (unsigned byte = skipped; byte < 3; ++byte)
                table.shuffles[index].index[length++] = static_cast<uint8_t>(4 * unit + byte);
        }
        table.lengths[index] = length;
        for (unsigned rest = length; rest < 16; ++rest)
            table.shuffles[index].index[rest] = 0xff;
    }
    return table;
}

constexpr Closing closing = closingTable();

__m128i allZeroWithin(__m128i units, int bits)
{
    return _mm_cmpeq_epi16(_mm_and_si128(units, _mm_set1_epi16(static_cast<short>(bits))),
                           _mm_setzero_si128());
}

size_t storeClosed(__m128i spread, unsigned index, char* dst)
{
    store(dst, _mm_shuffle_epi8(spread, _mm_load_si128(asVector(&closing.shuffles[index]))));
    return closing.lengths[index];
}

/// Encodes eight units; returns the number of bytes. It scribbles up to 16 bytes behind the last but one.
size_t storeBytes(__m128i units, char* dst)
{
    const __m128i one = allZeroWithin(units, 0xff80), oneOrTwo = allZeroWithin(units, 0xf800);
    const __m128i marked = _mm_or_si128(_mm_and_si128(units, _mm_set1_epi16(0x3f)), _mm_set1_epi16(0x80));
    const __m128i last = _mm_or_si128(_mm_and_si128(one, units), _mm_andnot_si128(one, marked));
    const __m128i lead = _mm_or_si128(_mm_srli_epi16(units, 12), _mm_set1_epi16(0xe0));
    const __m128i middleBits = _mm_and_si128(_mm_slli_epi16(units, 2), _mm_set1_epi16(0x3f00));
    const __m128i middleMark = _mm_or_si128(_mm_and_si128(oneOrTwo, _mm_set1_epi16(0x4000)),
                                            _mm_set1_epi16(static_cast<short>(0x8000)));
    const __m128i leading = _mm_or_si128(lead, _mm_or_si128(middleBits, middleMark));
    const auto lengths = static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(one, oneOrTwo)));
    const size_t first =
        storeClosed(_mm_unpacklo_epi16(leading, last), (lengths & 0x0f) | (lengths >> 4 & 0xf0), dst);
    return first + storeClosed(_mm_unpackhi_epi16(leading, last),
                               (lengths >> 4 & 0x0f) | (lengths >> 8 & 0xf0), dst + first);
}

bool allEncoded(const uint16_t* units)
{
    __m128i found = _mm_setzero_si128();
    for (size_t i = 0; i < unitsInBlock; i += unitsInVector)
        found = _mm_or_si128(found, _mm_cmpeq_epi16(load(units + i), _mm_set1_epi16(0x7ff)));
    return _mm_movemask_epi8(found) == 0;
}

bool allAscii(const uint16_t* units)
{
    const __m128i any = _mm_or_si128(_mm_or_si128(load(units), load(units + 8)),
                                     _mm_or_si128(load(units + 16), load(units + 24)));
    return _mm_movemask_epi8(allZeroWithin(any, 0xff80)) == 0xffff;
}

size_t encodeBlock(const uint16_t* units, char* dst)
{
    if (allAscii(units)) {
        store(dst, _mm_packus_epi16(load(units), load(units + 8)));
        store(dst + 16, _mm_packus_epi16(load(units + 16), load(units + 24)));
        return unitsInBlock;
    }
    size_t written = 0;
    for (size_t i = 0; i < unitsInBlock; i += unitsInVector)
        written += storeBytes(load(units + i), dst + written);
    return written;
}
} // namespace

namespace utf8codec
{
void decodeBlocks(const std::uint8_t* src, std::size_t srcLen, std::uint16_t* dst, std::size_t dstSize,
                  Progress& at)
{
    // Behind a block: enough bytes for the units that overwrite its scribbles, and for its last load.
    constexpr size_t margin = 3 * unitsInVector;
    // A group looks back over two bytes. One of these may be the unmarked end of a sequence and look like a lead.
    if (src[at.read - 1] >= 0xdf || src[at.read - 2] >= 0xdf) return;
    OpenSequence open;
    for (; srcLen - at.read >= bytesInBlock + margin && dstSize - at.written >= bytesInBlock + unitsInVector;
         at.read += bytesInBlock) {
        const uint8_t* block = src + at.read;
        const __m128i bytes[4] = {load(block), load(block + 16), load(block + 32), load(block + 48)};
        const uint64_t notAscii = bitsWhere(bytes, [](__m128i b) { return b; });
        if ((notAscii | open.bytes) == 0) {
            storeAscii(bytes, dst + at.written);
            at.written += bytesInBlock;
            continue;
        }
        const size_t opened = open.bytes;
        const Layout layout = layoutOf(bytes, notAscii, open);
        if (!layout.wellFormed) {
            at.read -= opened;
            return;
        }
        at.written += storeUnits(block, layout.ends, dst + at.written);
    }
    at.read -= open.bytes;
}

void encodeBlocks(const std::uint16_t* src, std::size_t srcLen, char* dst, std::size_t dstSize, Progress& at)
{
    if (srcLen - at.read < 2 * unitsInBlock || !allEncoded(src + at.read)) return;
    while (srcLen - at.read >= 2 * unitsInBlock && dstSize - at.written >= 2 * mostBytesInBlock &&
           allEncoded(src + at.read + unitsInBlock)) {
        at.written += encodeBlock(src + at.read, dst + at.written);
        at.read += unitsInBlock;
    }
}
} // namespace utf8codec
