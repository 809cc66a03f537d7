// For an installed library of ggml, which does not come with the interface for devices.
#include "asr/accelerator/Accelerator.h"

namespace vantro::asr::accelerator {

bool announce()
{
    return false;
}

void limit(kernels::Level /*cap*/) {}

void includeFewRows(bool /*isIncluded*/) {}

void hurry(int /*threads*/) {}

} // namespace vantro::asr::accelerator
