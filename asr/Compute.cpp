#include "asr/Compute.h"

#include "asr/ASRError.h"

#include <atomic>
#include <latch>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>

namespace vantro::asr {

namespace {

std::atomic<ggml_backend_dev_t> processor = nullptr;

/// Looks up a function of the processor's module, which is loaded at run time and not linked.
template <typename Function>
Function moduleFunction(const char* name)
{
    ggml_backend_reg_t module = ggml_backend_dev_backend_reg(processorDevice());
    return reinterpret_cast<Function>(ggml_backend_reg_get_proc_address(module, name));
}

bool isStopped(void* token)
{
    return static_cast<const std::stop_token*>(token)->stop_requested();
}

void requireMemoryForLists(const ggml_cgraph* graph)
{
    constexpr std::size_t bytesPerNode = 1024;
    constexpr std::size_t bytesPerGraph = std::size_t{1} << 20; // lists of free blocks
    requireMemory(bytesPerGraph +
                  bytesPerNode * static_cast<std::size_t>(ggml_graph_n_nodes(const_cast<ggml_cgraph*>(graph))));
}

} // namespace

void requireMemory(std::size_t bytes)
{
    // Not a new-expression, which could be optimised away.
    ::operator delete(::operator new(bytes));
}

GgmlContext::GgmlContext(std::size_t bytes) : memory_(std::make_unique_for_overwrite<std::byte[]>(bytes))
{
    requireMemory();
    context_.reset(ggml_init({bytes, memory_.get(), true}));
}

/// ggml's list of devices has no lock and grows with each module, so it is read nowhere else and not again.
void loadProcessorModule(std::span<const std::filesystem::path> folders)
{
    static std::mutex mutex;
    const std::scoped_lock lock(mutex);
    const auto isFound = [] {
        if (processor == nullptr)
            processor = ggml_backend_dev_by_type(GGML_BACKEND_DEVICE_TYPE_CPU);
        return processor != nullptr;
    };
    for (const std::filesystem::path& folder : folders) {
        if (isFound())
            return;
        // ggml crashes on a missing folder; its own search would include the current one, where anybody may write.
        std::error_code error;
        if (std::filesystem::is_directory(folder, error))
            ggml_backend_load_all_from_path(folder.c_str());
    }
    if (!isFound())
        throw ASRError(ASRError::Kind::unsupportedPlatform, "no ggml module for this processor was found");
}

ggml_backend_dev_t processorDevice()
{
    ggml_backend_dev_t device = processor;
    if (device == nullptr)
        throw ASRError(ASRError::Kind::unsupportedPlatform, "no ggml module for this processor is loaded");
    return device;
}

Graph::Graph(std::size_t nodes)
    : context_(nodes * ggml_tensor_overhead() + ggml_graph_overhead_custom(nodes, false))
    , graph_(ggml_new_graph_custom(context_.get(), nodes, false))
{
}

ggml_tensor* Graph::input(std::int64_t columns, std::int64_t rows)
{
    ggml_tensor* tensor = ggml_new_tensor_2d(context(), GGML_TYPE_F32, columns, rows);
    ggml_set_input(tensor);
    return tensor;
}

ggml_tensor* Graph::integerInput(std::int64_t count)
{
    ggml_tensor* tensor = ggml_new_tensor_1d(context(), GGML_TYPE_I32, count);
    ggml_set_input(tensor);
    return tensor;
}

ggml_tensor* Graph::constant(const float* values, std::int64_t columns, std::int64_t rows)
{
    ggml_tensor* tensor = ggml_new_tensor_2d(context(), GGML_TYPE_F32, columns, rows);
    tensor->data = const_cast<float*>(values);
    return tensor;
}

void Graph::output(ggml_tensor* tensor)
{
    ggml_set_output(tensor);
    ggml_build_forward_expand(graph_, tensor);
}

void Graph::endPart(ggml_tensor* tensor)
{
    ggml_build_forward_expand(graph_, tensor);
    const int end = ggml_graph_n_nodes(graph_);
    const auto count = static_cast<std::size_t>(end - partBegin_);
    GgmlContext memory(ggml_graph_overhead_custom(count, false));
    ggml_cgraph* part = ggml_new_graph_custom(memory.get(), count, false);
    for (; partBegin_ < end; ++partBegin_)
        ggml_graph_add_node(part, ggml_graph_node(graph_, partBegin_));
    parts_.push_back({std::move(memory), part});
}

GraphRunner::GraphRunner(int threads)
{
    requireMemory();
    backend_.reset(ggml_backend_dev_init(processorDevice(), nullptr));
    if (backend_ == nullptr)
        throw ASRError(ASRError::Kind::encoderInstantiationFailed, "ggml's processor back end did not start");
    setBackendThreads_ = moduleFunction<ggml_backend_set_n_threads_t>("ggml_backend_set_n_threads");
    setAbortCallback_ = moduleFunction<ggml_backend_set_abort_callback_t>("ggml_backend_set_abort_callback");
    setThreads(threads);
    allocator_.reset(ggml_gallocr_new(ggml_backend_get_default_buffer_type(backend_.get())));
}

void GraphRunner::setThreads(int threads)
{
    threads_ = threads;
    if (backend_ != nullptr)
        setBackendThreads_(backend_.get(), threads);
}

void GraphRunner::allocate(const Graph& graph)
{
    if (backend_ == nullptr)
        fail();
    requireMemoryForLists(graph.get());
    if (!ggml_gallocr_alloc_graph(allocator_.get(), graph.get()))
        fail();
}

/// OpenMP aborts the process when it cannot create its threads, which it does once per computing thread. Create as many
/// threads first; their memory is reused.
void GraphRunner::requireThreads() const
{
    thread_local int proven = 1;
    if (threads_ <= proven)
        return;
    std::latch end(1);
    std::vector<std::jthread> helpers;
    try {
        for (int i = 1; i < threads_; ++i)
            helpers.emplace_back([&end] { end.wait(); });
    } catch (const std::exception&) {
        end.count_down();
        throw ASRError(ASRError::Kind::processingFailed, "no thread can be started");
    }
    end.count_down();
    proven = threads_;
}

/// After a failure, ggml's allocator assumes memory that it does not have, and its back end holds a dangling pointer:
/// the allocator must not be used again, and the back end must not even be destroyed.
void GraphRunner::fail()
{
    static_cast<void>(backend_.release());
    throw ASRError(ASRError::Kind::processingFailed, "out of memory");
}

void GraphRunner::compute(ggml_cgraph* graph, const std::stop_token& stop)
{
    if (stop.stop_requested())
        throw ASRError(ASRError::Kind::processingFailed, "stopped");
    if (backend_ == nullptr)
        fail();
    requireThreads();
    setAbortCallback_(backend_.get(), isStopped, const_cast<std::stop_token*>(&stop));
    ggml_status status = GGML_STATUS_FAILED;
    try {
        status = ggml_backend_graph_compute(backend_.get(), graph);
    } catch (const std::bad_alloc&) {
        fail();
    }
    if (status != GGML_STATUS_SUCCESS)
        throw ASRError(ASRError::Kind::processingFailed,
                       status == GGML_STATUS_ABORTED ? "stopped" : ggml_status_to_string(status));
}

void setTensor(ggml_tensor* tensor, std::span<const float> values)
{
    ggml_backend_tensor_set(tensor, values.data(), 0, values.size_bytes());
}

void getTensor(const ggml_tensor* tensor, std::span<float> values)
{
    ggml_backend_tensor_get(tensor, values.data(), 0, values.size_bytes());
}

std::vector<float> tensorValues(const ggml_tensor* tensor)
{
    std::vector<float> values(static_cast<std::size_t>(ggml_nelements(tensor)));
    getTensor(tensor, values);
    return values;
}

} // namespace vantro::asr
