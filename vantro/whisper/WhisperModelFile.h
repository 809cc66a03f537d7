#pragma once

#include "base/Error.h"

#include <QFile>
#include <QIODevice>
#include <QString>

struct whisper_context;

namespace vantro {

/// Checks everything in a model file of the whisper library's format that the library itself believes: the header's
/// numbers, the sizes of the filter bank and of the text pieces, and each tensor's header. Reads none of the weights.
/// Throws Error, which says in a phrase what is wrong, when the file is damaged, truncated or no such model.
void checkWhisperModel(QIODevice& file);

/// A model file, to be loaded once. Any thread, one at a time.
class WhisperModelFile
{
public:
    explicit WhisperModelFile(const QString& path);

    /// The caller frees it with whisper_free(). Throws Error for a file that checkWhisperModel() refuses, that cannot
    /// be read, or that needs more memory than there is.
    [[nodiscard]] whisper_context* load();

private:
    [[nodiscard]] std::size_t read(void* output, std::size_t bytes);

    QFile file_;
    bool hasEnded_ = false;
};

} // namespace vantro
