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
/// ASRError::unsupportedPlatform if there is none.
void loadProcessorModule(std::span<const std::filesystem::path> folders);

/// A ggml graph under construction: its tensors' metadata without their data.
class Graph
{
public:
    explicit Graph(std::size_t nodes);

    [[nodiscard]] ggml_context* context() const { return context_.get(); }
    [[nodiscard]] ggml_cgraph* get() const { return graph_; }
    /// A float32 tensor to be set before the graph is computed.
    ggml_tensor* input(std::int64_t columns, std::int64_t rows = 1);
    ggml_tensor* integerInput(std::int64_t count);
    /// Keeps @p tensor readable after the computation.
    void output(ggml_tensor* tensor);

private:
    GgmlContext context_;
    ggml_cgraph* graph_ = nullptr;
};

/// Runs graphs on the CPU, one at a time, reusing memory between them. Not thread-safe: use one per thread. Unusable
/// after it has run out of memory.
class GraphRunner
{
public:
    /// @p stop must outlive the runner; may be null. Throws ASRError::unsupportedPlatform without a module.
    GraphRunner(int threads, const std::stop_token* stop);

    /// Allocates the graph; inputs can then be set. Throws ASRError::processingFailed when out of memory.
    void allocate(const Graph& graph);
    /// Throws ASRError::processingFailed on failure or when stopped.
    void compute(const Graph& graph);

private:
    void requireThreads() const;
    [[noreturn]] void fail();

    GgmlPointer<ggml_backend> backend_; ///< null after a failure
    GgmlPointer<ggml_gallocr> allocator_;
    int threads_;
    const std::stop_token* stop_;
};

void setTensor(ggml_tensor* tensor, std::span<const float> values);
void getTensor(const ggml_tensor* tensor, std::span<float> values);
std::vector<float> tensorValues(const ggml_tensor* tensor);

} // namespace vantro::asr
