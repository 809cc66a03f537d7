#include "asr/accelerator/ProcessorBackend.h"

#include <ggml-backend.h>

#include <mutex>

namespace vantro::asr::accelerator {

namespace {

bool hasProcessorBackend()
{
    return ggml_backend_dev_by_type(GGML_BACKEND_DEVICE_TYPE_CPU) != nullptr;
}

} // namespace

bool loadProcessorBackend(const std::filesystem::path& programFolder)
{
    static std::mutex lock;
    const std::scoped_lock locker(lock);
    for (const char* folder : {"", "../lib/vantro"}) {
        if (hasProcessorBackend())
            break;
        // The library's own search would include the current folder, which anybody may be able to write to.
        ggml_backend_load_all_from_path((programFolder / folder).c_str());
    }
    return hasProcessorBackend();
}

} // namespace vantro::asr::accelerator
