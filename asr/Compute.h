#pragma once

#include <ggml-alloc.h>
#include <ggml-backend.h>
#include <ggml.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <stop_token>
#include <vector>

namespace vantro::asr {

struct GgmlDeleter
{
    void operator()(ggml_context* context) const { ggml_free(context); }
    void operator()(ggml_backend* backend) const { ggml_backend_free(backend); }
    void operator()(ggml_backend_buffer* buffer) const { ggml_backend_buffer_free(buffer); }
    void operator()(ggml_gallocr* allocator) const { ggml_gallocr_free(allocator); }
};

template <typename T>
using GgmlPointer = std::unique_ptr<T, GgmlDeleter>;

/// ggml aborts the process where it cannot allocate. Called before it does: allocates @p bytes, by default more than
/// one of its objects takes, and gives them back, so that low memory throws std::bad_alloc instead. Any thread.
void requireMemory(std::size_t bytes = std::size_t{16} << 10);

/// Metadata of tensors and graphs. Throws std::bad_alloc.
class GgmlContext
{
public:
    explicit GgmlContext(std::size_t bytes);
    [[nodiscard]] ggml_context* get() const { return context_.get(); }

private:
    std::unique_ptr<std::byte[]> memory_;
    GgmlPointer<ggml_context> context_;
};

/// Loads ggml's module for this processor from the first of @p folders that has one; a no-op if already loaded. Throws
/// ASRError::unsupportedPlatform if there is none. Any thread.
void loadProcessorModule(std::span<const std::filesystem::path> folders);

/// The device of the loaded module. Any thread. Throws ASRError::unsupportedPlatform if none is loaded.
[[nodiscard]] ggml_backend_dev_t processorDevice();

/// A ggml graph under construction: its tensors' metadata without their data. It is computed in one or more parts.
class Graph
{
public:
    explicit Graph(std::size_t nodes);

    [[nodiscard]] ggml_context* context() const { return context_.get(); }
    [[nodiscard]] ggml_cgraph* get() const { return graph_; }
    /// In the order in which they are computed.
    [[nodiscard]] std::size_t partCount() const { return parts_.size(); }
    [[nodiscard]] ggml_cgraph* part(std::size_t index) const { return parts_[index].graph; }
    /// A float32 tensor to be set before the graph is computed.
    ggml_tensor* input(std::int64_t columns, std::int64_t rows = 1);
    ggml_tensor* integerInput(std::int64_t count);
    /// A float32 tensor of values that stay where they are.
    ggml_tensor* constant(const float* values, std::int64_t columns, std::int64_t rows);
    /// Keeps @p tensor readable after the computation.
    void output(ggml_tensor* tensor);
    /// Ends a part with @p tensor, which later parts may use.
    void endPart(ggml_tensor* tensor);

private:
    struct Part
    {
        GgmlContext memory;
        ggml_cgraph* graph;
    };

    GgmlContext context_;
    ggml_cgraph* graph_ = nullptr;
    std::vector<Part> parts_;
    int partBegin_ = 0; ///< first node of the next part
};

/// Runs graphs on the CPU, one at a time, reusing memory between them. Not thread-safe: use one per thread. Unusable
/// after it has run out of memory.
class GraphRunner
{
public:
    /// Throws ASRError::unsupportedPlatform without a module.
    explicit GraphRunner(int threads);

    /// False after a lack of memory.
    [[nodiscard]] bool isUsable() const { return backend_ != nullptr; }
    /// Results do not depend on the number.
    void setThreads(int threads);
    /// Allocates the graph; inputs can then be set. Throws ASRError::processingFailed when out of memory.
    void allocate(const Graph& graph);
    /// Computes a whole graph or one of its parts. Throws ASRError::processingFailed on failure, or when stopped, which
    /// takes as long as one of the graph's operations.
    void compute(ggml_cgraph* graph, const std::stop_token& stop);

private:
    void requireThreads() const;
    [[noreturn]] void fail();

    GgmlPointer<ggml_backend> backend_; ///< null after a failure
    GgmlPointer<ggml_gallocr> allocator_;
    int threads_ = 0;
    ggml_backend_set_n_threads_t setBackendThreads_;
    ggml_backend_set_abort_callback_t setAbortCallback_;
};

void setTensor(ggml_tensor* tensor, std::span<const float> values);
void getTensor(const ggml_tensor* tensor, std::span<float> values);
std::vector<float> tensorValues(const ggml_tensor* tensor);

} // namespace vantro::asr
