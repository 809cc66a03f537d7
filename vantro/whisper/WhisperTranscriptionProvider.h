#pragma once

#include "base/SerialExecutor.h"
#include "base/UserDefaults.h"
#include "vantro/models/SpeechEngine.h"
#include "vantro/text/VocabularySettings.h"
#include "vantro/whisper/WhisperInProcessEngine.h"
#include "vantro/whisper/WhisperModelFiles.h"

#include <stop_token>

namespace vantro {

/// The whisper engine: which file, which language, when the model is in memory.
///
/// The model begins to load when a recording starts, so that the stop never waits for it, and leaves memory after the
/// dictation unless "whisperKeepModelInMemory" is set.
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
    /// Takes any file: only loading it tells.
    [[nodiscard]] std::optional<TranscriptionModel> describe(const QString& file) const override;

    void prepare(const TranscriptionModel& model) override;
    QCoro::Task<QString> transcribe(TranscriptionRequest request) override;
    void dictationEnded() override;

protected:
    [[nodiscard]] QFuture<void> startDownload(const TranscriptionModel& model, FileDownloader::OnProgress onProgress,
                                              std::stop_token stop) override;

private:
    QCoro::Task<> load(TranscriptionModel model, std::stop_token stop);
    QCoro::Task<> loadAndWarmUp(TranscriptionModel model, std::stop_token stop);

    WhisperInProcessEngine& engine_;
    WhisperModelFiles files_;
    FileDownloader& downloader_;
    UserDefaults& defaults_;
    const VocabularySettings& vocabulary_;
    std::stop_source preparations_; ///< those since the last dictation's end
    SerialExecutor checks_{QStringLiteral("model checks")};
};

} // namespace vantro
