#pragma once

#include "base/Logger.h"
#include "vantro/models/ModelSelection.h"
#include "vantro/models/SpeechEngine.h"

#include <memory>

namespace vantro {

/// The one operation that turns a finished recording into text, whichever engine the selected model belongs to.
/// Main thread.
class TranscriptionFacade
{
public:
    struct Options
    {
        const TranscriptionModel* model = nullptr;                               ///< the user's selection when null
        std::optional<QString> language;                                         ///< the user's setting when absent
        std::function<void(float)> onProgress;                                   ///< 0..1, on the engine's thread
        std::function<void(const std::vector<TranscribedToken>&)> onTokens = {}; ///< main thread
        std::stop_token stop = {}; ///< ends this transcription soon: it throws
    };

    TranscriptionFacade(ModelSelection& selection, const SpeechEngines& engines);

    /// Held by a dictation from its recording's start to its end. When the last one is released the engine may let go
    /// of its model: a cancelled dictation that is still being wound up takes nothing from the next one.
    using EngineUse = std::shared_ptr<void>;

    /// A recording has begun: the selected model is made ready meanwhile. The use must not outlive the facade.
    [[nodiscard]] EngineUse prepare();
    /// @p samples: 16 kHz mono. Errors of the engine pass through unchanged; a transcription that is stopped throws,
    /// too.
    QCoro::Task<QString> transcribe(QString recordingID, std::vector<float> samples, Options options);

private:
    Logger logger_{"TranscriptionEngine"};
    ModelSelection& selection_;
    const SpeechEngines& engines_;
    std::weak_ptr<void> use_;
};

} // namespace vantro
