#pragma once

/// Products of matrices of any size, by blocks that fit into the processor's caches.
///
/// The scheme is that of K. Goto and R. van de Geijn, "Anatomy of High-Performance Matrix Multiplication",
/// ACM Transactions on Mathematical Software 34 (2008): a slab of b that stays in the outer cache, a block of
/// a that stays in the second one, both packed, and a tile of the result in the registers.

#include "Places.h"
#include "TileKernels.h"

#include <memory>

namespace dense
{
/// The sizes of a product: a is width by depth, b is depth by height, and the result width by height.
struct ProductSize {
    std::size_t width;
    std::size_t height;
    std::size_t depth;
};

/// Keeps its working memory (at most some megabytes) from one product to the next.
class Multiplier
{
public:
    explicit Multiplier(const TileKernels& kernels = kernelsHere()) : m_kernels(kernels) {}

    /// Takes the memory that products of up to this size need. Throws std::bad_alloc.
    void reserve(const ProductSize& size);

    /// c(x, y) is updated by the sum over k of a(x, k) b(k, y). The target overlaps neither operand. With
    /// no depth the sum is 0. Throws std::bad_alloc, before anything is written.
    void run(const ProductSize& size, Source a, Source b, Target c, Update update);

private:
    class Buffer
    {
    public:
        /// Room for that many numbers, at the start of a cache line.
        double* atLeast(std::size_t count);

    private:
        std::unique_ptr<double[]> m_memory;
        std::size_t m_count = 0;
    };
    /// Where the tiles find their operands: those of a lie `panelStep` apart.
    struct Panels {
        Source a;
        std::size_t panelStep;
        const double* b;
    };

    void runSlab(const ProductSize& size, Source a, Source b, Target c, Update update);
    void runBlock(const ProductSize& size, Panels panels, Target c, TileKernel kernel) const;
    Panels panelsOf(const ProductSize& size, Source a);
    void runTile(const ProductSize& rest, Source a, const double* b, Target c, TileKernel kernel) const;

    const TileKernels& m_kernels;
    Buffer m_along;
    Buffer m_across;
};
} // namespace dense
