#pragma once

#include "vantro/models/TranscriptionModel.h"

#include <chrono>
#include <functional>
#include <vector>

namespace vantro {

/// What a model's work depends on.
struct Machine
{
    int processors = 1;
    quint64 memoryBytes = 0; ///< 0 when unknown
};

/// How long @p model takes for a sentence of ten seconds, roughly: scaled from measurements of the smallest one.
[[nodiscard]] std::chrono::duration<double> expectedWait(const TranscriptionModel& model, const Machine& machine);

/// Of the models that know @p language (a code, or "auto"), fit into a quarter of the memory and answer within a few
/// seconds, the most accurate; the fastest where none does. A Parakeet model only when @p isReady: where it is
/// published is not certain.
[[nodiscard]] const TranscriptionModel& recommended(const std::vector<TranscriptionModel>& models,
                                                    const Machine& machine, const QString& language,
                                                    const std::function<bool(const TranscriptionModel&)>& isReady);

/// Of language models in order of preference, the first that fits into a quarter of the memory, else the smallest; null
/// without any.
[[nodiscard]] const TranscriptionModel* recommendedRewriter(const std::vector<TranscriptionModel>& models,
                                                            const Machine& machine);

} // namespace vantro
