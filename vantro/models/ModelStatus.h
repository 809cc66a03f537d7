#pragma once

#include <QString>

#include <utility>

namespace vantro {

/// What is known of a model without hashing its file.
struct ModelStatus
{
    enum class State {
        missing,
        partial,   ///< a part has been fetched
        unchecked, ///< there is a file, its content has not been verified yet
        ready,
    };

    State state = State::missing;
    QString file; ///< empty when missing or partial
    bool isSystemCopy = false;
    qint64 bytes = 0;       ///< of the file or the part
    qint64 totalBytes = -1; ///< of the whole file where a part knows it
};

/// Whether a model can be used.
struct ModelCheck
{
    // Constructors, because GCC 12 destroys an aggregate that is listed in braces twice in a coroutine.
    ModelCheck() = default;
    ModelCheck(bool isReady, QString problem) : isReady(isReady), problem(std::move(problem)) {}

    bool isReady = false;
    QString problem; ///< what was wrong with a file that is there, as a sentence; empty when there is none
};

/// Whether a check believes what an earlier one has noted, or reads the file again.
enum class Trust { markers, contentOnly };

} // namespace vantro
