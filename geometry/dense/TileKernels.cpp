#include "TileKernels.h"

namespace dense
{
const TileKernels& kernelsFor(Instructions instructions)
{
    switch (instructions) {
    case Instructions::avx512:
        return avx512Kernels;
    case Instructions::avx2:
        return avx2Kernels;
    default:
        return baselineKernels;
    }
}

const TileKernels& kernelsHere()
{
    return kernelsFor(supportedInstructions());
}
} // namespace dense
