#include "asr/accelerator/ProcessorBackend.h"

#include "asr/ASRError.h"
#include "asr/Compute.h"
#include "asr/accelerator/Accelerator.h"

#include <array>

namespace vantro::asr::accelerator {

bool loadProcessorBackend(const std::filesystem::path& programFolder)
{
    const std::array folders{programFolder, programFolder / "../lib/vantro"};
    try {
        loadProcessorModule(folders);
    } catch (const ASRError&) {
        return false;
    }
    announce();
    return true;
}

} // namespace vantro::asr::accelerator
