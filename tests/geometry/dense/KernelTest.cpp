#include "Elimination.h"
#include "Multiplier.h"
#include "Transposition.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace
{
using dense::Instructions;
using std::size_t;
using Numbers = std::vector<double>;

Numbers randomNumbers(size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> spread(-1.0, 1.0);
    Numbers numbers(count);
    std::generate(numbers.begin(), numbers.end(), [&] { return spread(random); });
    return numbers;
}

/// The method as it is described, with nothing gathered. Returns the steps done.
size_t eliminatePlainly(Numbers& a, size_t n)
{
    for (size_t k = 0; k < n; ++k) {
        const double p = a[k + k * n];
        a[k + k * n] = 1.0;
        if (p == 0.0) return k;
        for (size_t j = 0; j < n; ++j)
            a[k + j * n] /= p;
        for (size_t i = 0; i < n; ++i) {
            if (i == k) continue;
            const double f = a[i + k * n];
            a[i + k * n] = 0.0;
            for (size_t j = 0; j < n; ++j) {
                const volatile double product = f * a[k + j * n]; // rounded by itself
                a[i + j * n] -= product;
            }
        }
    }
    return n;
}

bool sameBits(const Numbers& a, const Numbers& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

/// Every kind of kernel that this processor runs; the others cannot be tried here.
class DenseKernels : public testing::TestWithParam<Instructions>
{
protected:
    const dense::TileKernels& kernels() const { return dense::kernelsFor(GetParam()); }
};

std::vector<Instructions> runnable()
{
    std::vector<Instructions> found;
    for (const Instructions one : {Instructions::baseline, Instructions::avx2, Instructions::avx512})
        if (one <= dense::supportedInstructions()) found.push_back(one);
    return found;
}

std::string nameOf(const testing::TestParamInfo<Instructions>& info)
{
    const char* const names[] = {"Baseline", "Avx2", "Avx512"};
    return names[static_cast<int>(info.param)];
}

INSTANTIATE_TEST_SUITE_P(Here, DenseKernels, testing::ValuesIn(runnable()), nameOf);
} // namespace

// Sizes on both sides of the tiles (8, 32 by 4, 6), of the block (192), the depth (256) and the slab (2040).
TEST_P(DenseKernels, ProductStaysWithinTheRoundingOfTheSumOfProducts)
{
    const dense::ProductSize sizes[] = {{1, 1, 1},    {3, 2, 4},    {31, 7, 9},     {33, 13, 257},
                                        {64, 64, 64}, {193, 5, 70}, {200, 41, 300}, {9, 2050, 12}};
    for (const auto& [width, height, depth] : sizes) {
        const Numbers a = randomNumbers(width * depth, 1), b = randomNumbers(depth * height, 2);
        Numbers c(width * height, NAN);
        dense::Multiplier(kernels()).run({width, height, depth}, {a.data(), width}, {b.data(), depth},
                                         {c.data(), width}, dense::Update::assign);
        for (size_t y = 0; y < height; ++y)
            for (size_t x = 0; x < width; ++x) {
                long double sum = 0, size = 0;
                for (size_t k = 0; k < depth; ++k) {
                    const long double term = static_cast<long double>(a[x + k * width]) * b[k + y * depth];
                    sum += term;
                    size += std::abs(term);
                }
                // The bound of a sum of n products in any order: n units of rounding of the sum of sizes.
                ASSERT_LE(std::abs(c[x + y * width] - sum), depth * 1.2e-16L * size)
                    << width << " " << height << " " << depth;
            }
    }
}

TEST_P(DenseKernels, SubtractionIsThatOfThePlainLoopBitForBit)
{
    const size_t width = 67, height = 45, depth = 300, stride = 70;
    const Numbers a = randomNumbers(width * depth, 3), b = randomNumbers(depth * height, 4);
    Numbers c = randomNumbers(stride * height, 5), expected = c;
    for (size_t y = 0; y < height; ++y)
        for (size_t x = 0; x < width; ++x)
            for (size_t k = 0; k < depth; ++k) {
                const volatile double product = a[x + k * width] * b[k + y * depth];
                expected[x + y * stride] -= product;
            }
    dense::Multiplier(kernels()).run({width, height, depth}, {a.data(), width}, {b.data(), depth},
                                     {c.data(), stride}, dense::Update::subtract);
    EXPECT_TRUE(sameBits(c, expected)); // and the three numbers between the lines are as they were
}

TEST_P(DenseKernels, EliminationIsThePlainOneBitForBit)
{
    for (const size_t n : {1u, 2u, 7u, 8u, 9u, 31u, 127u, 128u, 129u, 200u, 300u}) {
        Numbers blocked = randomNumbers(n * n, static_cast<unsigned>(n)), plain = blocked;
        ASSERT_EQ(dense::Elimination({blocked.data(), n}, n, kernels()).run(), n);
        ASSERT_EQ(eliminatePlainly(plain, n), n);
        EXPECT_TRUE(sameBits(blocked, plain)) << n;
    }
}

// A column that is 0 from its diagonal on, in the lines and in the rows, has the pivot 0 - f 0 = 0.
TEST_P(DenseKernels, EliminationStopsAtAZeroPivotAsThePlainOneDoes)
{
    const size_t n = 150;
    for (const size_t zero : {0u, 5u, 8u, 127u, 128u, 133u, 149u}) {
        Numbers blocked = randomNumbers(n * n, 6);
        for (size_t i = 0; i < n; ++i)
            blocked[i + zero * n] = blocked[zero + i * n] = 0.0;
        Numbers plain = blocked;
        EXPECT_EQ(dense::Elimination({blocked.data(), n}, n, kernels()).run(), zero);
        EXPECT_EQ(eliminatePlainly(plain, n), zero);
        EXPECT_TRUE(sameBits(blocked, plain)) << zero;
    }
}

// Infinite factors times 0 make NaN wherever the plain method has one, and nowhere else.
TEST_P(DenseKernels, EliminationSpreadsNotANumberAsThePlainOneDoes)
{
    const size_t n = 140;
    Numbers blocked = randomNumbers(n * n, 7);
    blocked[3 + 130 * n] = INFINITY;
    Numbers plain = blocked;
    dense::Elimination({blocked.data(), n}, n, kernels()).run();
    eliminatePlainly(plain, n);
    for (size_t i = 0; i < n * n; ++i)
        ASSERT_TRUE(blocked[i] == plain[i] || (std::isnan(blocked[i]) && std::isnan(plain[i]))) << i;
}

// The last two are beyond the size from which the caches are passed by: with whole lines and without.
TEST(DenseTranspose, EveryElementChangesItsPlace)
{
    for (const auto& [width, height] : std::vector<std::pair<size_t, size_t>>{
             {1, 1}, {1, 9}, {9, 1}, {8, 8}, {17, 300}, {300, 17}, {1300, 1704}, {1301, 1705}}) {
        const Numbers from = randomNumbers(width * height, 8);
        Numbers to(width * height);
        dense::transpose({from.data(), width}, width, height, {to.data(), height});
        for (size_t y = 0; y < height; ++y)
            for (size_t x = 0; x < width; ++x)
                ASSERT_EQ(to[y + x * height], from[x + y * width]) << width << " " << height;
    }
}
