#include "Tile.h"

#include <intrin.h>

// This file alone is compiled for AVX2 and FMA, so it uses no inline function that other files share: the
// linker could take the copy made here for a processor that cannot run it.

namespace
{
struct FourNumbers {
    using Value = __m256d;
    static constexpr std::size_t lanes = 4;
    static Value load(const double* at) { return _mm256_loadu_pd(at); }
    static void store(double* at, Value value) { _mm256_storeu_pd(at, value); }
    static Value zero() { return _mm256_setzero_pd(); }
    static Value spread(double value) { return _mm256_set1_pd(value); }
    static Value fusedAdd(Value a, Value b, Value c) { return _mm256_fmadd_pd(a, b, c); }
    static Value roundedSubtract(Value a, Value b, Value c) { return _mm256_sub_pd(c, _mm256_mul_pd(a, b)); }
};
} // namespace

const dense::TileKernels dense::avx2Kernels = dense::Tile<FourNumbers, 2, 6>::kernels();
