#pragma once

#include "base/Error.h"

#include <QCoreApplication>

namespace vantro {

/// Why the language model of this machine did not rewrite a text. The description is for the log and for details.
class LlamaError : public Error
{
    Q_DECLARE_TR_FUNCTIONS(LlamaError)
public:
    enum class Kind {
        unusableFile,    ///< missing, damaged, or no model that follows instructions
        tooLittleMemory, ///< it would have to swap
        notLoaded,
        textTooLong,      ///< for the model's context
        generationFailed, ///< also an answer without an end
        stopped,
    };

    LlamaError(Kind kind, const QString& description) : Error(description), kind_(kind) {}

    [[nodiscard]] Kind kind() const { return kind_; }

private:
    Kind kind_;
};

} // namespace vantro
