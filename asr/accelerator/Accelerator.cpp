#include "asr/accelerator/Accelerator.h"

#include "asr/accelerator/Crew.h"
#include "asr/accelerator/GraphExecution.h"
#include "asr/accelerator/Operations.h"
#include "asr/accelerator/Workspace.h"
#include "asr/kernels/Matrix.h"

#include <ggml-backend-impl.h>
#include <ggml-backend.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <new>
#include <string_view>

namespace vantro::asr::accelerator {

namespace {

constexpr const char* name = "Accelerator";

std::atomic<kernels::Level> cap = kernels::highestLevel;
std::atomic<bool> hasFewRows = false;
std::atomic<int> leastThreads = 0;

Scope scope()
{
    return {cap, hasFewRows};
}

bool hasKernels()
{
    return kernels::matrixKernels(kernels::MatrixFormat::q8, cap) != nullptr;
}

/// Computes the graphs of one whisper state, one at a time.
struct Backend
{
    Crew crew;
    Workspace workspace;
    int threads = 1;
    ggml_abort_callback abort = nullptr;
    void* abortData = nullptr;

    [[nodiscard]] bool isStopped() const { return abort != nullptr && abort(abortData); }
    void takeThreads() { crew.setThreads(static_cast<std::size_t>(std::max({1, threads, leastThreads.load()}))); }
};

Backend& of(ggml_backend_t backend)
{
    return *static_cast<Backend*>(backend->context);
}

ggml_status compute(ggml_backend_t handle, ggml_cgraph* graph)
{
    Backend& backend = of(handle);
    try {
        GraphExecution execution(*graph, backend.crew, backend.workspace, scope());
        const bool isDone = execution.compute([&] { backend.takeThreads(); }, [&] { return backend.isStopped(); });
        return isDone ? GGML_STATUS_SUCCESS : GGML_STATUS_ABORTED;
    } catch (const std::bad_alloc&) {
        return GGML_STATUS_ALLOC_FAILED;
    }
}

void setThreads(ggml_backend_t backend, int threads)
{
    of(backend).threads = threads;
}

void setAbortCallback(ggml_backend_t backend, ggml_abort_callback abort, void* data)
{
    of(backend).abort = abort;
    of(backend).abortData = data;
}

ggml_guid_t identity()
{
    static ggml_guid guid = {0x5b, 0x1f, 0x0c, 0x93, 0x7e, 0x44, 0x4a, 0xd1,
                             0x96, 0x2b, 0x38, 0xe0, 0xaf, 0x15, 0x62, 0xc7};
    return &guid;
}

ggml_backend_t start(ggml_backend_dev_t device, const char* /*parameters*/)
{
    ggml_backend_i functions{};
    functions.get_name = [](ggml_backend_t) {
        return name;
    };
    functions.free = [](ggml_backend_t backend) {
        const std::unique_ptr<Backend> owned(&of(backend));
        delete backend;
    };
    functions.graph_compute = compute;
    return new ggml_backend{identity(), functions, device, new Backend};
}

void describe(ggml_backend_dev_t /*device*/, ggml_backend_dev_props* properties)
{
    *properties = {};
    properties->name = name;
    properties->description = "products and attention of this program";
    properties->type = GGML_BACKEND_DEVICE_TYPE_ACCEL;
    properties->caps.buffer_from_host_ptr = true;
}

/// It works in the memory of ggml's processor back end.
ggml_backend_device_i deviceFunctions()
{
    ggml_backend_device_i functions{};
    functions.get_name = [](ggml_backend_dev_t) {
        return name;
    };
    functions.get_description = functions.get_name;
    functions.get_memory = [](ggml_backend_dev_t, std::size_t* free, std::size_t* total) {
        *free = *total = 0;
    };
    functions.get_type = [](ggml_backend_dev_t) {
        return GGML_BACKEND_DEVICE_TYPE_ACCEL;
    };
    functions.get_props = describe;
    functions.init_backend = start;
    functions.get_buffer_type = [](ggml_backend_dev_t) {
        return ggml_backend_cpu_buffer_type();
    };
    functions.buffer_from_host_ptr = [](ggml_backend_dev_t, void* memory, std::size_t size, std::size_t) {
        return ggml_backend_cpu_buffer_from_ptr(memory, size);
    };
    functions.supports_op = [](ggml_backend_dev_t, const ggml_tensor* operation) {
        return isAccelerated(*operation, scope());
    };
    functions.supports_buft = [](ggml_backend_dev_t, ggml_backend_buffer_type_t type) {
        return ggml_backend_buft_is_host(type);
    };
    return functions;
}

void* function(ggml_backend_reg_t /*registry*/, const char* wanted)
{
    const std::string_view requested = wanted;
    if (requested == "ggml_backend_set_n_threads")
        return reinterpret_cast<void*>(setThreads);
    if (requested == "ggml_backend_set_abort_callback")
        return reinterpret_cast<void*>(setAbortCallback);
    return nullptr;
}

ggml_backend_dev_t deviceOf(ggml_backend_reg_t registry, std::size_t /*index*/)
{
    static ggml_backend_device device{deviceFunctions(), registry, nullptr};
    return &device;
}

ggml_backend_reg_t registry()
{
    static ggml_backend_reg registry = [] {
        ggml_backend_reg made{};
        made.api_version = GGML_BACKEND_API_VERSION;
        made.iface.get_name = [](ggml_backend_reg_t) {
            return name;
        };
        made.iface.get_device_count = [](ggml_backend_reg_t) {
            return std::size_t{1};
        };
        made.iface.get_device = deviceOf;
        made.iface.get_proc_address = function;
        return made;
    }();
    return &registry;
}

} // namespace

bool announce()
{
    static const bool isAnnounced = [] {
        if (!hasKernels())
            return false;
        ggml_backend_register(registry());
        return true;
    }();
    return isAnnounced;
}

void limit(kernels::Level level)
{
    cap = level;
}

void includeFewRows(bool isIncluded)
{
    hasFewRows = isIncluded;
}

void hurry(int threads)
{
    leastThreads = threads;
}

} // namespace vantro::asr::accelerator
