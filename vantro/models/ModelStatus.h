#pragma once

#include <QString>

#include <utility>

namespace vantro {

/// What is known about a model without hashing its file.
struct ModelStatus
{
    enum class State {
        missing,
        partial,   ///< partly downloaded
        unchecked, ///< present but not verified yet
        ready,
    };

    State state = State::missing;
    QString file; ///< empty when missing or partial
    bool isSystemCopy = false;
    qint64 bytes = 0;       ///< of the file or the part
    qint64 totalBytes = -1; ///< of the whole file, if a part knows it
};

/// Whether a model can be used.
struct ModelCheck
{
    // Constructors, because GCC 12 destroys a brace-initialised aggregate twice in a coroutine.
    ModelCheck() = default;
    ModelCheck(bool isReady, QString problem) : isReady(isReady), problem(std::move(problem)) {}

    bool isReady = false;
    QString problem; ///< what is wrong with an existing file, as a sentence; empty if it is missing or fine
};

/// Whether a check trusts the marker of an earlier one or reads the file again.
enum class Trust { markers, contentOnly };

} // namespace vantro
