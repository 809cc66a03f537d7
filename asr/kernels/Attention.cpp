#include "asr/kernels/Attention.h"

namespace vantro::asr::kernels {

const AttentionKernels* attentionKernels(Level cap)
{
#ifdef VANTRO_ASR_X86
    if (cap >= Level::avx512Bf16 && isSupported(Level::avx512Bf16))
        return &bfloat16Attention();
    if (cap >= Level::avx2 && isSupported(Level::avx2))
        return &avx2Attention();
#endif
    static_cast<void>(cap);
    return nullptr;
}

} // namespace vantro::asr::kernels
