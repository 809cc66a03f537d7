#pragma once

#include "base/UserDefaults.h"
#include "vantro/models/ModelStore.h"
#include "vantro/models/TranscriptionProviding.h"
#include "vantro/text/VocabularySettings.h"
#include "vantro/whisper/WhisperInProcessEngine.h"

#include <cstdint>

namespace vantro {

/// The whisper side of the facade: which file, which language, when the model is in memory.
///
/// The model begins to load when a recording starts, so that the stop never waits for it, and leaves memory after the
/// dictation unless "whisperKeepModelInMemory" is set.
class WhisperTranscriptionProvider final : public TranscriptionProviding
{
public:
    WhisperTranscriptionProvider(WhisperInProcessEngine& engine, const ModelStore& store, UserDefaults& defaults,
                                 const VocabularySettings& vocabulary);

    void prepare(const TranscriptionModel& model) override;
    QCoro::Task<QString> transcribe(TranscriptionRequest request) override;
    void cancel() override;
    void dictationEnded() override;

private:
    QCoro::Task<> check(TranscriptionModel model);
    QCoro::Task<> loadAndWarmUp(TranscriptionModel model);

    WhisperInProcessEngine& engine_;
    const ModelStore& store_;
    UserDefaults& defaults_;
    const VocabularySettings& vocabulary_;
    // What was awaited may come when nobody wants it any more.
    std::uint64_t cancelCount_ = 0;
    std::uint64_t endedCount_ = 0;
    SerialExecutor checks_{QStringLiteral("model check")};
};

} // namespace vantro
