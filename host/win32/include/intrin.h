#pragma once

/// Intrinsics of the processor: the vector instructions, and __cpuid and __cpuidex, which answer what the
/// processor offers (info receives EAX, EBX, ECX and EDX of the leaf).

#include <cpuid.h>
#include <immintrin.h>

#undef __cpuid

inline void __cpuid(int info[4], int leaf)
{
    __cpuidex(info, leaf, 0);
}
