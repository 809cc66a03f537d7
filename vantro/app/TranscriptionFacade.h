#pragma once

#include "base/Logger.h"
#include "vantro/models/ModelSelection.h"
#include "vantro/models/SpeechEngine.h"

#include <functional>
#include <memory>
#include <utility>

namespace vantro {

/// Turns a finished recording into text with the engine of the selected model. Main thread.
class TranscriptionFacade
{
public:
    struct Options
    {
        const TranscriptionModel* model = nullptr;                               ///< the selected model when null
        std::optional<QString> language;                                         ///< the setting when absent
        std::function<void(float)> onProgress;                                   ///< 0..1, on the engine's thread
        std::function<void(const std::vector<TranscribedToken>&)> onTokens = {}; ///< main thread
        std::stop_token stop = {};                                               ///< makes the transcription throw soon
        bool isAhead = false;                                                    ///< nobody waits for it yet
        std::optional<QStringList> terms = {};                                   ///< the user's words when absent
        double termWeight = 1;                                                   ///< multiplies the words' own
        QString boostingModel = {};                                              ///< the downloaded one when empty
        std::function<void(const VocabularyReport&)> onVocabulary = {};          ///< main thread
        std::function<void(const QString&)> onLanguage = {};                     ///< main thread; see the request's
    };

    TranscriptionFacade(ModelSelection& selection, const SpeechEngines& engines);

    /// Held by a dictation from beginning to end, or by another transcription. The engine may unload its model when the
    /// last one is released, so a cancelled dictation that is still winding down does not unload the model of the next.
    using EngineUse = std::shared_ptr<void>;

    /// @p take: called when a transcription begins; what it returns is let go when it has ended. A language model of
    /// this machine rests meanwhile.
    void setTurn(std::function<std::shared_ptr<void>()> take) { takeTurn_ = std::move(take); }

    [[nodiscard]] EngineUse hold();
    /// Loads the selected model while the recording runs. @p failed: called if that fails; may be empty.
    /// The result must not outlive the facade.
    [[nodiscard]] EngineUse prepare(std::function<void()> failed = {});
    /// See TranscriptionProviding::hear() and hurry().
    bool hear(const QString& recordingID, std::span<const float> samples, bool mayHaveEnded,
              std::function<void(const QString&)> onWords);
    void hurry();
    /// How many samples the selected model's engine can recognise anew at each pause.
    [[nodiscard]] std::size_t aheadLimit() const;
    /// Whether there is a file of the selected model, as far as can be told at once.
    [[nodiscard]] bool hasModel() const;
    /// @p samples: 16 kHz mono. Throws the engine's errors unchanged, and throws when stopped.
    QCoro::Task<QString> transcribe(QString recordingID, std::vector<float> samples, Options options);

private:
    QCoro::Task<> load(TranscriptionModel model, std::function<void()> failed);

    Logger logger_{"TranscriptionEngine"};
    ModelSelection& selection_;
    const SpeechEngines& engines_;
    std::weak_ptr<void> use_;
    std::function<std::shared_ptr<void>()> takeTurn_; ///< may be empty
};

} // namespace vantro
