#include "Processor.h"

#include <intrin.h>

namespace
{
constexpr int fma = 1 << 12, osxsave = 1 << 27, avx = 1 << 28;                 // leaf 1, ECX
constexpr int avx2 = 1 << 5, avx512f = 1 << 16;                                // leaf 7, EBX
constexpr unsigned avxRegisters = 0x06, avx512Registers = avxRegisters | 0xe0; // the system's state mask

bool all(int bits, int wanted)
{
    return (bits & wanted) == wanted;
}

/// The register states that the system saves and restores; the processor must have osxsave.
bool systemKeeps(unsigned states)
{
    return (_xgetbv(0) & states) == states;
}

dense::Instructions lookUp()
{
    int highest[4], basic[4], extended[4];
    __cpuid(highest, 0);
    if (highest[0] < 7) return dense::Instructions::baseline;
    __cpuid(basic, 1);
    __cpuidex(extended, 7, 0);
    if (!all(basic[2], fma | osxsave | avx) || !all(extended[1], avx2) || !systemKeeps(avxRegisters))
        return dense::Instructions::baseline;
    return all(extended[1], avx512f) && systemKeeps(avx512Registers) ? dense::Instructions::avx512
                                                                     : dense::Instructions::avx2;
}
} // namespace

namespace dense
{
Instructions supportedInstructions()
{
    static const Instructions found = lookUp();
    return found;
}
} // namespace dense
