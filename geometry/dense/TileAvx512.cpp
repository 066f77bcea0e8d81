#include "Tile.h"

#include <intrin.h>

// This file alone is compiled for AVX-512F, so it uses no inline function that other files share: the linker
// could take the copy made here for a processor that cannot run it.

namespace
{
struct EightNumbers {
    using Value = __m512d;
    static constexpr std::size_t lanes = 8;
    static Value load(const double* at) { return _mm512_loadu_pd(at); }
    static void store(double* at, Value value) { _mm512_storeu_pd(at, value); }
    static Value zero() { return _mm512_setzero_pd(); }
    static Value spread(double value) { return _mm512_set1_pd(value); }
    static Value fusedAdd(Value a, Value b, Value c) { return _mm512_fmadd_pd(a, b, c); }
    static Value roundedSubtract(Value a, Value b, Value c) { return _mm512_sub_pd(c, _mm512_mul_pd(a, b)); }
};
} // namespace

const dense::TileKernels dense::avx512Kernels = dense::Tile<EightNumbers, 4, 6>::kernels();
