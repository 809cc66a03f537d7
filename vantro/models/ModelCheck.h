#pragma once

#include <QString>

#include <utility>

namespace vantro {

/// Whether a model can be used.
struct ModelCheck
{
    // Constructors, because GCC 12 destroys an aggregate that is listed in braces twice in a coroutine.
    ModelCheck() = default;
    ModelCheck(bool isReady, QString problem) : isReady(isReady), problem(std::move(problem)) {}

    bool isReady = false;
    QString problem; ///< what was wrong with a file that is there, as a sentence; empty when there is none
};

} // namespace vantro
