#pragma once

#include "asr/kernels/Kernels.h"

namespace vantro::asr::kernels {

// The instruction-set levels that KernelsVariant.cpp is compiled for.
Kernels baselineKernels();
Kernels avx2Kernels();
Kernels avx512Kernels();

} // namespace vantro::asr::kernels
