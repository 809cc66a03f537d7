#include "asr/kernels/Kernels.h"

#include "asr/kernels/Levels.h"

namespace vantro::asr::kernels {

namespace {

Kernels bestForThisProcessor()
{
#ifdef VANTRO_ASR_X86
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512dq") &&
        __builtin_cpu_supports("avx512vl"))
        return avx512Kernels();
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
        return avx2Kernels();
#endif
    return baselineKernels();
}

} // namespace

const Kernels& active()
{
    static const Kernels best = bestForThisProcessor();
    return best;
}

} // namespace vantro::asr::kernels
