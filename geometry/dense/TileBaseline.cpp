#include "Tile.h"

#include <intrin.h>

namespace
{
struct TwoNumbers {
    using Value = __m128d;
    static constexpr std::size_t lanes = 2;
    static Value load(const double* at) { return _mm_loadu_pd(at); }
    static void store(double* at, Value value) { _mm_storeu_pd(at, value); }
    static Value zero() { return _mm_setzero_pd(); }
    static Value spread(double value) { return _mm_set1_pd(value); }
    static Value fusedAdd(Value a, Value b, Value c) { return _mm_add_pd(c, _mm_mul_pd(a, b)); }
    static Value roundedSubtract(Value a, Value b, Value c) { return _mm_sub_pd(c, _mm_mul_pd(a, b)); }
};
} // namespace

const dense::TileKernels dense::baselineKernels = dense::Tile<TwoNumbers, 2, 4>::kernels();
