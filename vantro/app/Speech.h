#pragma once

#include "vantro/app/TranscriptionFacade.h"
#include "vantro/fluid/FluidTranscriptionProvider.h"
#include "vantro/models/ModelDownloader.h"
#include "vantro/whisper/WhisperModelPreparation.h"
#include "vantro/whisper/WhisperTranscriptionProvider.h"

namespace vantro {

/// All that has to do with recognising speech, put together once for the program and every command: which models there
/// are, where their files lie, which one is selected, and the engines that run them. Starts no thread and opens nothing
/// until it is used. Main thread.
class Speech
{
    // In the order in which they need each other.
    FileDownloader fileDownloader_;
    WhisperInProcessEngine whisperEngine_;
    FluidAsrEngine fluidEngine_;
    WhisperModelFiles whisperFiles_{modelFolders()};
    WhisperTranscriptionProvider whisper_;
    FluidTranscriptionProvider fluid_;

public:
    /// @p modelHost: as ModelHost::address() takes it. @p moduleFolders: where ggml's module for this processor lies.
    Speech(UserDefaults& defaults, const VocabularySettings& vocabulary, const QString& modelHost = {},
           std::vector<std::filesystem::path> moduleFolders = processorModuleFolders());

    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const { return engines.of(model).status(model); }
    /// Waits for the answer, which takes seconds for a file that nobody has checked yet.
    [[nodiscard]] ModelCheck check(const TranscriptionModel& model, Trust trust = Trust::markers) const;
    qint64 remove(const TranscriptionModel& model) const { return engines.of(model).remove(model); }
    /// Removes what was downloaded of every other model; skips what is being downloaded. Answers the bytes freed.
    [[nodiscard]] qint64 removeAllExcept(const TranscriptionModel& keep) const;
    /// What the user's copies and parts take up.
    [[nodiscard]] qint64 bytesUsed() const;
    /// A model for a file that the user named.
    [[nodiscard]] TranscriptionModel describe(const QString& file) const;

    const SpeechEngines engines{{&fluid_, &whisper_}};
    ModelCatalogue catalogue;
    ModelSelection selection;
    WhisperModelPreparation preparation;
    ModelDownloader downloader{catalogue, engines};
    TranscriptionFacade facade{selection, engines};

private:
    QObject context_; ///< for as long as it follows the setting of the model host
};

} // namespace vantro
