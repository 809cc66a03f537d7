#include "asr/kernels/Kernels.h"

#include "asr/kernels/Levels.h"

#ifdef VANTRO_ASR_ARM64
#include <asm/hwcap.h>
#include <sys/auxv.h>
#endif

namespace vantro::asr::kernels {

#ifdef VANTRO_ASR_X86
bool isSupported(Level level)
{
    __builtin_cpu_init();
    const bool hasAvx2 =
        __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") && __builtin_cpu_supports("f16c");
    const bool hasAvx512 = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                           __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
    switch (level) {
    case Level::baseline:
        return true;
    case Level::avx2:
        return hasAvx2;
    case Level::avxVnni:
        return hasAvx2 && __builtin_cpu_supports("avxvnni");
    case Level::avx512:
        return hasAvx512;
    case Level::avx512Vnni:
        return hasAvx512 && __builtin_cpu_supports("avx512vnni");
    case Level::avx512Bf16:
        return hasAvx512 && __builtin_cpu_supports("avx512bf16");
    default:
        return false;
    }
}
#elif defined(VANTRO_ASR_ARM64)
bool isSupported(Level level)
{
    switch (level) {
    case Level::baseline:
        return true;
    case Level::dotProduct:
        return (getauxval(AT_HWCAP) & HWCAP_ASIMDDP) != 0;
    case Level::i8mm:
        return (getauxval(AT_HWCAP2) & HWCAP2_I8MM) != 0;
    default:
        return false;
    }
}
#else
bool isSupported(Level level)
{
    return level == Level::baseline;
}
#endif

const Kernels& best(Level cap)
{
#ifdef VANTRO_ASR_X86
    static const Kernels avx512 = avx512Kernels();
    static const Kernels avx2 = avx2Kernels();
    if (cap >= Level::avx512 && isSupported(Level::avx512))
        return avx512;
    if (cap >= Level::avx2 && isSupported(Level::avx2))
        return avx2;
#endif
    static_cast<void>(cap);
    static const Kernels baseline = baselineKernels();
    return baseline;
}

} // namespace vantro::asr::kernels
