#include "Multiplier.h"

#include "Packing.h"

#include <algorithm>
#include <cstdint>

namespace
{
using dense::ProductSize;
using dense::Source;
using dense::Target;
using dense::Update;
using std::size_t;

constexpr size_t blockDepth = 256;    // a panel of b of this depth stays in the first cache
constexpr size_t blockWidth = 192;    // a block of a of this width stays in the second cache
constexpr size_t slabHeight = 2040;   // a slab of b of this height stays in the outer cache
constexpr size_t closeNumbers = 8192; // an operand within this distance stays in the caches unpacked
constexpr size_t smallProduct = 512;  // multiplications below which packing costs more than it saves

size_t roundedUp(size_t count, size_t step)
{
    return (count + step - 1) / step * step;
}

void clear(Target c, size_t width, size_t height)
{
    for (size_t y = 0; y < height; ++y)
        std::fill_n(c.at + y * c.stride, width, 0.0);
}

void copy(Source from, Target to, size_t width, size_t height)
{
    for (size_t y = 0; y < height; ++y)
        std::copy_n(from.at + y * from.stride, width, to.at + y * to.stride);
}

/// c(x) += a(x) factor, or -=, for one line.
void updateLine(const double* a, double factor, double* c, size_t width, Update update)
{
    if (update == Update::subtract)
        for (size_t x = 0; x < width; ++x)
            c[x] -= a[x] * factor;
    else
        for (size_t x = 0; x < width; ++x)
            c[x] += a[x] * factor;
}

void runSmall(const ProductSize& size, Source a, Source b, Target c, Update update)
{
    if (update == Update::assign) clear(c, size.width, size.height);
    for (size_t y = 0; y < size.height; ++y)
        for (size_t k = 0; k < size.depth; ++k)
            updateLine(a.at + k * a.stride, b.at[k + y * b.stride], c.at + y * c.stride, size.width, update);
}
} // namespace

namespace dense
{
double* Multiplier::Buffer::atLeast(size_t count)
{
    constexpr size_t line = 64;
    if (count > m_count) {
        m_memory.reset(new double[count + line / sizeof(double)]);
        m_count = count;
    }
    const auto address = reinterpret_cast<std::uintptr_t>(m_memory.get());
    return m_memory.get() + (roundedUp(address, line) - address) / sizeof(double);
}

void Multiplier::reserve(const ProductSize& size)
{
    const size_t depth = std::min(size.depth, blockDepth);
    m_along.atLeast(roundedUp(std::min(size.width, blockWidth), m_kernels.width) * depth);
    m_across.atLeast(roundedUp(std::min(size.height, slabHeight), m_kernels.height) * depth);
}

void Multiplier::run(const ProductSize& size, Source a, Source b, Target c, Update update)
{
    if (size.width == 0 || size.height == 0) return;
    if (size.depth == 0 || size.width * size.height <= smallProduct / size.depth)
        return runSmall(size, a, b, c, update);
    reserve(size);
    for (size_t y = 0; y < size.height; y += slabHeight) {
        const size_t height = std::min(slabHeight, size.height - y);
        for (size_t k = 0; k < size.depth; k += blockDepth) {
            const ProductSize slab{size.width, height, std::min(blockDepth, size.depth - k)};
            const bool isFirst = k == 0 || update == Update::subtract;
            runSlab(slab, a.from(0, k), b.from(k, y), c.from(0, y), isFirst ? update : Update::add);
        }
    }
}

void Multiplier::runSlab(const ProductSize& size, Source a, Source b, Target c, Update update)
{
    double* const across = m_across.atLeast(0);
    packAcross(b, size.depth, size.height, m_kernels.height, across);
    for (size_t x = 0; x < size.width; x += blockWidth) {
        const ProductSize block{std::min(blockWidth, size.width - x), size.height, size.depth};
        Panels panels = panelsOf(block, a.from(x, 0));
        panels.b = across;
        runBlock(block, panels, c.from(x, 0), m_kernels.of(update));
    }
}

/// The block of a, packed unless it is whole tiles that lie close together as they are.
Multiplier::Panels Multiplier::panelsOf(const ProductSize& size, Source a)
{
    const size_t width = m_kernels.width;
    if (size.width % width == 0 && a.stride * size.depth <= closeNumbers) return {a, width, nullptr};
    double* const along = m_along.atLeast(0);
    packAlong(a, size.width, size.depth, width, along);
    return {{along, width}, width * size.depth, nullptr};
}

void Multiplier::runBlock(const ProductSize& size, Panels panels, Target c, TileKernel kernel) const
{
    for (size_t y = 0; y < size.height; y += m_kernels.height)
        for (size_t x = 0; x < size.width; x += m_kernels.width) {
            const Source a{panels.a.at + x / m_kernels.width * panels.panelStep, panels.a.stride};
            const ProductSize rest{size.width - x, size.height - y, size.depth};
            runTile(rest, a, panels.b + y * size.depth, c.from(x, y), kernel);
        }
}

/// A tile that reaches beyond what is left of the target is worked out beside it.
void Multiplier::runTile(const ProductSize& rest, Source a, const double* b, Target c,
                         TileKernel kernel) const
{
    if (rest.width >= m_kernels.width && rest.height >= m_kernels.height) return kernel(rest.depth, a, b, c);
    alignas(64) double numbers[largestTile] = {};
    const Target beside{numbers, m_kernels.width};
    const size_t width = std::min(rest.width, m_kernels.width);
    const size_t height = std::min(rest.height, m_kernels.height);
    copy({c.at, c.stride}, beside, width, height);
    kernel(rest.depth, a, b, beside);
    copy({numbers, m_kernels.width}, c, width, height);
}
} // namespace dense
