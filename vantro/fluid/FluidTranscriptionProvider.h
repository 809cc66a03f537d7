#pragma once

#include "base/UserDefaults.h"
#include "vantro/fluid/FluidAsrEngine.h"
#include "vantro/fluid/FluidModelFiles.h"
#include "vantro/models/TranscriptionProviding.h"
#include "vantro/text/VocabularySettings.h"

namespace vantro {

/// The Parakeet side of the facade: which file, which language. The model stays in memory once it is loaded.
class FluidTranscriptionProvider final : public TranscriptionProviding
{
public:
    FluidTranscriptionProvider(FluidAsrEngine& engine, const FluidModelFiles& files, UserDefaults& defaults,
                               const VocabularySettings& vocabulary);

    void prepare(const TranscriptionModel& model) override;
    QCoro::Task<QString> transcribe(TranscriptionRequest request) override;
    void cancel() override;
    void dictationEnded() override;

private:
    [[nodiscard]] FluidModelSource source(const TranscriptionModel& model) const;
    [[nodiscard]] std::optional<asr::Language> languageHint(const TranscriptionRequest& request) const;

    FluidAsrEngine& engine_;
    const FluidModelFiles& files_;
    UserDefaults& defaults_;
    const VocabularySettings& vocabulary_;
};

} // namespace vantro
