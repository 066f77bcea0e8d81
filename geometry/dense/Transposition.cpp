#include "Transposition.h"

#include <algorithm>
#include <cstdint>
#include <intrin.h>

namespace
{
using dense::Source;
using dense::Target;
using std::size_t;

constexpr size_t line = 64;                    // bytes in a line of the cache
constexpr size_t side = line / sizeof(double); // a tile of this side is read and written by whole lines
constexpr size_t blockHeight = 256;            // as many lines are open at a time as the second cache holds
constexpr size_t ahead = 4 * side;             // elements between those that are read and those asked for
constexpr size_t outerCache = 2u << 20;        // a target of more elements would not stay in any cache

struct Through {
    static void store(double* at, __m128d value) { _mm_storeu_pd(at, value); }
};

/// Past the caches: a line that is written whole need not be read first. Takes addresses of whole lines.
struct Past {
    static void store(double* at, __m128d value) { _mm_stream_pd(at, value); }
};

template <class Way>
void storeLine(const __m128d (&pairs)[side / 2], double* to)
{
    for (size_t i = 0; i < side / 2; ++i)
        Way::store(to + 2 * i, pairs[i]);
}

template <class Way>
void transposeTile(Source from, Target to)
{
    for (size_t x = 0; x < side; x += 2) {
        __m128d even[side / 2], odd[side / 2];
        for (size_t y = 0; y < side; y += 2) {
            const __m128d upper = _mm_loadu_pd(from.at + x + y * from.stride);
            const __m128d lower = _mm_loadu_pd(from.at + x + (y + 1) * from.stride);
            even[y / 2] = _mm_unpacklo_pd(upper, lower);
            odd[y / 2] = _mm_unpackhi_pd(upper, lower);
        }
        storeLine<Way>(even, to.at + x * to.stride);
        storeLine<Way>(odd, to.at + (x + 1) * to.stride);
    }
}

void askForTile(Source from)
{
    for (size_t y = 0; y < side; ++y)
        _mm_prefetch(reinterpret_cast<const char*>(from.at + y * from.stride), _MM_HINT_T0);
}

void transposePlainly(Source from, size_t width, size_t height, Target to)
{
    for (size_t x = 0; x < width; ++x)
        for (size_t y = 0; y < height; ++y)
            to.at[y + x * to.stride] = from.at[x + y * from.stride];
}

template <class Way>
void transposeBlock(Source from, size_t width, size_t height, Target to)
{
    const size_t wholeWidth = width / side * side, wholeHeight = height / side * side;
    for (size_t x = 0; x < wholeWidth; x += side) {
        for (size_t y = 0; y < wholeHeight; y += side) {
            if (width - x >= ahead + side) askForTile(from.from(x + ahead, y));
            transposeTile<Way>(from.from(x, y), to.from(y, x));
        }
        transposePlainly(from.from(x, wholeHeight), side, height - wholeHeight, to.from(wholeHeight, x));
    }
    transposePlainly(from.from(wholeWidth, 0), width - wholeWidth, height, to.from(0, wholeWidth));
}

template <class Way>
void transposeBlocks(Source from, size_t width, size_t height, Target to)
{
    for (size_t y = 0; y < height; y += blockHeight)
        transposeBlock<Way>(from.from(0, y), width, std::min(blockHeight, height - y), to.from(y, 0));
}

/// The numbers of the target before its first whole line.
size_t numbersBeforeLine(Target to)
{
    return (line - reinterpret_cast<std::uintptr_t>(to.at) % line) % line / sizeof(double);
}
} // namespace

namespace dense
{
void transpose(Source from, size_t width, size_t height, Target to)
{
    const bool linesAlign = to.stride % side == 0;
    if (!linesAlign || height < side || width * height <= outerCache)
        return transposeBlocks<Through>(from, width, height, to);
    const size_t first = numbersBeforeLine(to);
    transposePlainly(from, width, first, to);
    transposeBlocks<Past>(from.from(0, first), width, height - first, to.from(first, 0));
    _mm_sfence();
}
} // namespace dense
