#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace vantro {

/// What the header of a language model's GGUF file says. Any thread.
struct LlamaModelFile
{
    /// Reads the header only. Throws LlamaError::Kind::unusableFile for a file that is no language model, that ends
    /// before its last weight, or that has no chat template: such a model continues texts and follows no instruction.
    static LlamaModelFile read(const QString& path);

    /// The most of the model's context that is used: what a few minutes of speech need, within a bounded memory.
    [[nodiscard]] std::uint32_t context() const;
    /// Weights, the context's memory, and what a computation needs besides.
    [[nodiscard]] std::uint64_t memoryBytes() const;

    QString name;    ///< as its makers call it; may be empty
    QString license; ///< an identifier such as "apache-2.0"; may be empty
    std::uint64_t weightBytes = 0;
    std::uint32_t trainedContext = 0; ///< tokens
    std::uint64_t bytesPerToken = 0;  ///< of the context's memory
};

} // namespace vantro
