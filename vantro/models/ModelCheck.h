#pragma once

#include <QString>

namespace vantro {

/// Whether a model can be used.
struct ModelCheck
{
    bool isReady = false;
    QString problem; ///< what was wrong with a file that is there, as a sentence; empty when there is none
};

} // namespace vantro
