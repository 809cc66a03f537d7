#include "asr/kernels/Rows.h"

namespace vantro::asr::kernels {

const RowKernels& rowKernels(Level cap)
{
#ifdef VANTRO_ASR_X86
    if (cap >= Level::avx512 && isSupported(Level::avx512))
        return avx512Rows();
    if (cap >= Level::avx2 && isSupported(Level::avx2))
        return avx2Rows();
#endif
    static_cast<void>(cap);
    return baselineRows();
}

} // namespace vantro::asr::kernels
