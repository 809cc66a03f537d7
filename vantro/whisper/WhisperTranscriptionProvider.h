#pragma once

#include "base/SampleFormat.h"
#include "base/SerialExecutor.h"
#include "base/UserDefaults.h"
#include "vantro/models/SpeechEngine.h"
#include "vantro/text/VocabularySettings.h"
#include "vantro/whisper/WhisperInProcessEngine.h"
#include "vantro/whisper/WhisperModelFiles.h"

#include <stop_token>

namespace vantro {

/// The whisper engine: chooses file and language and manages the model's lifetime. Loading starts with the recording,
/// so that it is done by the stop; the model is unloaded after the dictation unless "whisperKeepModelInMemory" is set.
class WhisperTranscriptionProvider final : public SpeechEngine
{
public:
    WhisperTranscriptionProvider(WhisperInProcessEngine& engine, WhisperModelFiles files, FileDownloader& downloader,
                                 UserDefaults& defaults, const VocabularySettings& vocabulary);

    [[nodiscard]] TranscriptionEngine kind() const override { return TranscriptionEngine::whisper; }
    [[nodiscard]] QString label() const override { return QStringLiteral("whisper.cpp"); }
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const override { return files_.status(model); }
    [[nodiscard]] QFuture<ModelCheck> check(const TranscriptionModel& model, Trust trust) override;
    qint64 remove(const TranscriptionModel& model) override { return files_.remove(model); }
    /// Accepts any file; only loading can tell whether it is a model.
    [[nodiscard]] std::optional<TranscriptionModel> describe(const QString& file) const override;

    QCoro::Task<QString> prepare(TranscriptionModel model) override;
    QCoro::Task<QString> transcribe(TranscriptionRequest request) override;
    /// One window: the library computes a whole one however little was said.
    [[nodiscard]] std::size_t aheadLimit() const override { return std::size_t{30} * sampleRateHz; }
    void hurry() override { engine_.hurry(); }
    void dictationEnded() override;
    [[nodiscard]] bool holdsModel() const override { return engine_.holdsModel(); }
    void unload() override { engine_.unload(); }

protected:
    [[nodiscard]] QFuture<void> startDownload(const TranscriptionModel& model, FileDownloader::OnProgress onProgress,
                                              std::stop_token stop) override;

private:
    QCoro::Task<> load(TranscriptionModel model, std::stop_token stop);

    WhisperInProcessEngine& engine_;
    WhisperModelFiles files_;
    FileDownloader& downloader_;
    UserDefaults& defaults_;
    const VocabularySettings& vocabulary_;
    std::stop_source preparations_; ///< since the last dictation ended
    SerialExecutor checks_{QStringLiteral("model checks")};
};

} // namespace vantro
