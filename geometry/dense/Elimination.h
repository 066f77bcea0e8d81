#pragma once

/// Inversion by Gauss-Jordan elimination without exchange of rows, by blocks.
///
/// For k = 0 ... n-1 the plain method is: p = a(k, k); a(k, k) = 1; a(k, j) = a(k, j) / p for every j; and
/// for every i other than k: f = a(i, k); a(i, k) = 0; a(i, j) = a(i, j) - f a(k, j) for every j. Every
/// element goes through the same operations in the same order here, so that the result is the plain one bit
/// for bit; the steps are only gathered, so that most of the work is done by the kernels of the product.

#include "Multiplier.h"

#include <vector>

namespace dense
{
class Elimination
{
public:
    /// Takes all the memory that the work needs; throws std::bad_alloc.
    /// @param a  size by size elements, which stay the caller's
    Elimination(Target a, std::size_t size, const TileKernels& kernels = kernelsHere());

    /// Turns the matrix into its inverse. Returns the number of steps that were done: the size, or the k
    /// whose pivot is exactly 0; the steps before it are then complete and a(k, k) is 1.
    std::size_t run();

private:
    struct Range {
        std::size_t from, to;

        std::size_t count() const { return to - from; }
    };

    std::size_t eliminatePanel(Range block);
    std::size_t eliminatePlainly(Range steps);
    void divideLine(std::size_t k, Range lines);
    void takeOff(std::size_t k, Range lines);
    void repeatSteps(Range steps, Range rows, Range lines);
    void repeatInside(Range steps, Range lines);
    void repeatOutside(Range steps, Range rows, Range lines);
    void repeatBlock(Range steps, Range lines);

    double& element(std::size_t x, std::size_t y) { return m_a.at[x + y * m_a.stride]; }
    double* factors(std::size_t k) { return m_factors.data() + (k - m_first) * m_size; }
    double* divided(std::size_t line) { return m_divided.data() + line * m_depth; }

    Target m_a;
    std::size_t m_size;
    std::size_t m_depth;           ///< steps in a block
    std::size_t m_first = 0;       ///< the first step of the current block
    std::vector<double> m_factors; ///< f of each step of the block: m_size numbers a step
    std::vector<double> m_pivots;  ///< p of each step of the block
    std::vector<double> m_divided; ///< a(k, j) right after its division: m_depth numbers for each j
    Multiplier m_multiplier;
};
} // namespace dense
