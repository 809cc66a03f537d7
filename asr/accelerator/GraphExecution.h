#pragma once

#include "asr/accelerator/Crew.h"
#include "asr/accelerator/Operations.h"
#include "asr/accelerator/Workspace.h"
#include "asr/kernels/Kernels.h"
#include "asr/kernels/Matrix.h"
#include "asr/kernels/Rows.h"

#include <cstddef>
#include <functional>

struct ggml_cgraph;
struct ggml_tensor;

namespace vantro::asr {

/// Computes a graph of operations for which isAccelerated() is true, one after the other, each with all threads. What
/// follows a product and needs nothing but its result is computed while that is in the cache.
class GraphExecution
{
public:
    GraphExecution(ggml_cgraph& graph, Crew& crew, Workspace& workspace, const Scope& scope);

    /// Asks @p beforeStep and @p isStopped many times a second, the former between operations. False if stopped. Throws
    /// std::bad_alloc.
    bool compute(const std::function<void()>& beforeStep, const std::function<bool()>& isStopped);

private:
    /// A product with what is done to its result.
    struct Product
    {
        const ggml_tensor* product = nullptr;
        const ggml_tensor* result = nullptr; ///< of the last operation
        const ggml_tensor* bias = nullptr;   ///< may be null, like the next
        const ggml_tensor* added = nullptr;
        bool isActivated = false; ///< by GELU
        int nodes = 1;            ///< that it takes the place of
    };

    /// Computes the nodes from @p node on that are done at once, and returns their number.
    int step(int node);
    [[nodiscard]] Product productAt(int node) const;
    int multiply(const Product& product);
    void multiplyFew(const Product& product);
    void finish(const Product& product, std::size_t output, std::size_t width);
    void pack(const ggml_tensor& columns, const kernels::MatrixKernels& matrices);
    /// float32 columns of @p inputs values, filled up with zeros.
    const float* widened(const ggml_tensor& columns, std::size_t inputs);
    /// A matrix whose rows have @p inputs values, filled up with zeros.
    const void* filled(const ggml_tensor& matrix, std::size_t inputs);
    int normalise(int node);
    void attend(const ggml_tensor& attention);
    void attendFew(const ggml_tensor& attention);
    void lookUp(const ggml_tensor& lookup);
    void combine(const ggml_tensor& combination);
    void map(const ggml_tensor& operation);
    void transpose(const ggml_tensor& copy);
    void unfold(const ggml_tensor& operation);
    /// Shares pieces of some rows of @p tensor: work(first row, end).
    void shareRows(const ggml_tensor& tensor, const std::function<void(std::size_t, std::size_t)>& work);
    void share(std::size_t pieces, const Crew::Work& work);

    ggml_cgraph& graph_;
    Crew& crew_;
    Workspace& workspace_;
    Scope scope_;
    const kernels::RowKernels& rows_;
    const ggml_tensor* packed_ = nullptr; ///< whose columns are in the workspace
    const kernels::MatrixKernels* packedFor_ = nullptr;
    std::function<bool()> isStopped_;
    bool isDone_ = true; ///< false when stopped
};

} // namespace vantro::asr
