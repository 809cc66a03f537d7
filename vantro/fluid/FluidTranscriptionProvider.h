#pragma once

#include "base/Error.h"
#include "base/UserDefaults.h"
#include "vantro/fluid/FluidAsrEngine.h"
#include "vantro/fluid/FluidModelFiles.h"
#include "vantro/models/FileVersion.h"
#include "vantro/models/SpeechEngine.h"
#include "vantro/text/VocabularySettings.h"

namespace vantro {

/// The selected model's engine cannot run it.
class TranscriptionEngineError : public Error
{
public:
    static TranscriptionEngineError misconfiguredFluidModel(const QString& modelName);

private:
    using Error::Error;
};

/// The Parakeet engine: chooses file and language. A loaded model stays in memory until unload().
class FluidTranscriptionProvider final : public SpeechEngine
{
public:
    /// @p boostingModel: the catalogue's entry, which must outlive the provider.
    FluidTranscriptionProvider(FluidAsrEngine& engine, FluidModelFiles files, FileDownloader& downloader,
                               UserDefaults& defaults, const VocabularySettings& vocabulary,
                               const TranscriptionModel& boostingModel);

    [[nodiscard]] TranscriptionEngine kind() const override { return TranscriptionEngine::fluid; }
    [[nodiscard]] QString label() const override { return QStringLiteral("Fluid"); }
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const override { return files_.status(model); }
    [[nodiscard]] QFuture<ModelCheck> check(const TranscriptionModel& model, Trust trust) override;
    qint64 remove(const TranscriptionModel& model) override { return files_.remove(model); }
    [[nodiscard]] std::optional<TranscriptionModel> describe(const QString& file) const override;

    QCoro::Task<QString> prepare(TranscriptionModel model) override;
    QCoro::Task<QString> transcribe(TranscriptionRequest request) override;
    bool hear(const UnfinishedRecording& recording) override;
    void hurry() override { engine_.hurry(); }
    [[nodiscard]] bool timesTokens() const override { return true; }
    [[nodiscard]] bool boostsWords() const override { return true; }
    void dictationEnded() override { engine_.forget(); }
    /// Why the latest transcription could not look for the user's words; empty if it could or need not, or if the model
    /// that looks for them is another one by now.
    [[nodiscard]] QString boostingProblem() const;
    [[nodiscard]] bool holdsModel() const override { return engine_.holdsModel(); }
    void unload() override { engine_.unload(); }

protected:
    [[nodiscard]] QFuture<void> startDownload(const TranscriptionModel& model, FileDownloader::OnProgress onProgress,
                                              std::stop_token stop) override;

private:
    [[nodiscard]] FluidModelSource source(const TranscriptionModel& model) const;
    /// @p terms and @p modelFile: instead of the user's words and the downloaded model.
    [[nodiscard]] FluidVocabulary vocabulary(const std::optional<QStringList>& terms = {}, double weight = 1,
                                             const QString& modelFile = {}) const;
    [[nodiscard]] std::optional<asr::Language> languageHint(const TranscriptionModel& model,
                                                            const std::optional<QString>& language) const;

    FluidAsrEngine& engine_;
    FluidModelFiles files_;
    FileDownloader& downloader_;
    UserDefaults& defaults_;
    const VocabularySettings& vocabulary_;
    const TranscriptionModel& boostingModel_;
    QString boostingProblem_;
    FileVersion boostingFile_; ///< that it is about
    Logger logger_{"FluidAsrEngine"};
    SerialExecutor checks_{QStringLiteral("fluid model checks")};
};

} // namespace vantro
