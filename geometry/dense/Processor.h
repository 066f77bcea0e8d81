#pragma once

/// Which vector instructions may run here.

namespace dense
{
/// In rising order: each includes those before it.
enum class Instructions {
    baseline, ///< SSE2, which every x64 processor has
    avx2,     ///< AVX2 and FMA
    avx512    ///< and AVX-512F
};

/// The highest that both the processor and the system (which keeps the registers) support.
Instructions supportedInstructions();
} // namespace dense
