#pragma once

#include "asr/AsrManager.h"
#include "base/Logger.h"
#include "base/SerialExecutor.h"
#include "vantro/fluid/BoostedStream.h"
#include "vantro/models/FileVersion.h"

#include <QFuture>
#include <QObject>
#include <QString>
#include <qcoro/qcorotask.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <tuple>
#include <vector>

namespace vantro {

/// A Parakeet model and its file.
struct FluidModelSource
{
    QString id;
    asr::AsrModelVersion version = asr::AsrModelVersion::v3;
    QString file;
};

/// Transcribes recordings, finished or still going on, with the one loaded Parakeet model. Main thread; loading and
/// recognition run on threads of their own and are awaited.
///
/// Concurrent requests for the same model share one load. A new model, or a new file of the same one, replaces the
/// loaded one only once it is ready; of two overlapping loads, the one that finishes last stays.
class FluidAsrEngine
{
public:
    using Manager = std::shared_ptr<asr::AsrManager>;

    struct Request
    {
        QString label;              ///< identifies the recording in the log
        std::vector<float> samples; ///< 16 kHz mono
        FluidModelSource model;
        std::optional<asr::Language> language;
        std::function<void(float)> onProgress; ///< 0..1, on the engine's thread; may be empty
        std::stop_token stop = {};
        FluidVocabulary vocabulary = {}; ///< without terms, there is no boosting
    };

    /// @p moduleFolders are searched for ggml's module for this processor.
    explicit FluidAsrEngine(std::vector<std::filesystem::path> moduleFolders);

    /// Throws asr::ASRError and keeps the previously loaded model.
    QCoro::Task<Manager> load(FluidModelSource model, std::stop_token stop = {});
    /// Preloads a model. Never throws: logs a failure and returns its description.
    QCoro::Task<QString> prepare(FluidModelSource model);
    /// Begins to load what looks for the words, if there are any.
    void prepareVocabulary(const FluidVocabulary& vocabulary) { std::ignore = pipelineFor(vocabulary); }
    /// A recording that is still being made.
    struct Unfinished
    {
        const QString& label; ///< as in the Request that will follow
        const FluidModelSource& model;
        std::optional<asr::Language> language;
        std::span<const float> samples;                   ///< from the beginning; 16 kHz mono
        bool mayHaveEnded = false;                        ///< speech has paused
        std::function<void(const QString&)> onWords;      ///< on the main thread
        std::function<FluidVocabulary()> vocabulary = {}; ///< called at the beginning of a recording; may be empty
    };
    /// Recognises a recording while it is made. Returns false while the model is not loaded.
    bool hear(const Unfinished& recording);
    /// The text of the recording that is heard is waited for: uses all cores from now on.
    void hurry();
    /// Gives up the recording that is heard.
    void forget();
    /// Throws asr::ASRError; processingFailed soon after a stop request.
    QCoro::Task<FluidTranscript> transcribe(Request request);
    [[nodiscard]] bool holdsModel() const { return manager_ != nullptr || loadTask_; }
    /// Gives the model's memory back as soon as nothing uses it; also that of a load under way.
    void unload();

private:
    struct Identity
    {
        QString id;
        FileVersion file;

        bool operator==(const Identity&) const = default;
    };

    /// The recording that is heard.
    struct Live
    {
        QString label;
        Manager manager;
        std::optional<asr::Language> language;
        QString vocabularyKey;
        std::size_t given = 0;                 ///< samples, including those under way
        std::unique_ptr<BoostedStream> stream; ///< the executor's; null after a failure
    };
    using PipelineBuild = QFuture<FluidVocabularyBuild>;
    struct Pipeline
    {
        QString key;
        FileVersion modelFile;
        PipelineBuild build;
    };

    [[nodiscard]] std::shared_ptr<Live> beginLive(const Unfinished& recording);
    [[nodiscard]] std::shared_ptr<Live> liveFor(const Manager& manager, const Request& request) const;
    [[nodiscard]] QFuture<Manager> startLoad(const FluidModelSource& model);
    [[nodiscard]] QFuture<FluidTranscript> start(Manager manager, Request request);
    /// Nothing if there are no terms.
    [[nodiscard]] std::optional<PipelineBuild> pipelineFor(const FluidVocabulary& vocabulary);
    [[nodiscard]] std::shared_ptr<const asr::CtcModel> loadCtcModel(const QString& file) const;
    [[nodiscard]] FluidVocabularyBuild buildPipeline(const FluidVocabulary& vocabulary, const FileVersion& modelFile);
    void reportVocabulary(const FluidTranscript& transcript) const;
    void report(const QString& label, std::size_t sampleCount, const asr::ASRResult& result) const;

    Logger logger_{"FluidAsrEngine"};
    QObject context_; ///< of calls to the main thread
    std::vector<std::filesystem::path> moduleFolders_;
    Manager manager_;
    Identity loaded_; ///< what manager_ runs
    std::optional<QFuture<Manager>> loadTask_;
    Identity loading_; ///< what loadTask_ loads
    int unloadCount_ = 0;
    std::optional<Pipeline> vocabularyPipeline_;
    std::shared_ptr<const asr::CtcModel> ctcModel_; ///< this and its file: the loader's
    FileVersion ctcModelFile_;
    std::shared_ptr<Live> live_;
    SerialExecutor loader_;
    SerialExecutor executor_;
};

/// The program's folder, and the module folder of an installation.
std::vector<std::filesystem::path> processorModuleFolders();

} // namespace vantro
