#pragma once

#include "asr/AsrManager.h"
#include "base/Logger.h"
#include "base/SerialExecutor.h"

#include <QFuture>
#include <QString>
#include <qcoro/qcorotask.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace vantro {

/// Which Parakeet model is wanted, and where its file lies.
struct FluidModelSource
{
    QString id;
    asr::AsrModelVersion version = asr::AsrModelVersion::v3;
    QString file;
};

/// Turns finished recordings into text with the one Parakeet model that is loaded. Main thread; loading and recognition
/// run on threads of their own, and the results are awaited.
///
/// Callers that ask for a model while it is being loaded share the load. Another model replaces the loaded one only
/// when it is ready; when two loads overlap, the one that ends last stays.
class FluidAsrEngine
{
public:
    using Manager = std::shared_ptr<asr::AsrManager>;

    struct Request
    {
        QString label;              ///< names the recording in logs
        std::vector<float> samples; ///< 16 kHz mono
        FluidModelSource model;
        std::optional<asr::Language> language;
        std::function<void(float)> onProgress; ///< 0..1, on the engine's thread; may be empty
        std::stop_token stop = {};
    };

    /// @p moduleFolders: where ggml's module for this processor is looked for.
    explicit FluidAsrEngine(std::vector<std::filesystem::path> moduleFolders);

    /// Throws asr::ASRError; the model that was loaded stays.
    QCoro::Task<Manager> load(FluidModelSource model, std::stop_token stop = {});
    /// Loads ahead of the first dictation. Failures are only logged.
    QCoro::Task<> prepare(FluidModelSource model);
    /// Throws asr::ASRError, processingFailed soon after it was stopped.
    QCoro::Task<asr::ASRResult> transcribe(Request request);

private:
    [[nodiscard]] QFuture<Manager> startLoad(const FluidModelSource& model);
    [[nodiscard]] QFuture<asr::ASRResult> start(Manager manager, Request request);
    void report(const QString& label, std::size_t sampleCount, const asr::ASRResult& result) const;

    Logger logger_{"FluidAsrEngine"};
    std::vector<std::filesystem::path> moduleFolders_;
    Manager manager_;
    QString loadedModelID_;
    std::optional<QFuture<Manager>> loadTask_;
    QString loadTaskModelID_;
    SerialExecutor loader_;
    SerialExecutor executor_;
};

/// Beside the program, and where an installed program keeps its modules.
std::vector<std::filesystem::path> processorModuleFolders();

} // namespace vantro
