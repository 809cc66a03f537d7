#pragma once

#include "vantro/app/TranscriptionFacade.h"
#include "vantro/fluid/FluidTranscriptionProvider.h"
#include "vantro/llm/LanguageModelKeeper.h"
#include "vantro/models/DownloadQueue.h"
#include "vantro/whisper/WhisperModelPreparation.h"
#include "vantro/whisper/WhisperTranscriptionProvider.h"

namespace vantro {

/// Everything needed to recognise speech, for the program and all commands: the models, their files, the selection, and
/// the engines that run them. It also fetches the language models, which the same pages and commands list. Starts no
/// thread and opens nothing until it is used. Main thread.
class Speech
{
    // In order of dependency.
    ModelCatalogue catalogue_;
    FileDownloader fileDownloader_;
    WhisperInProcessEngine whisperEngine_;
    FluidAsrEngine fluidEngine_;
    WhisperModelFiles whisperFiles_{modelFolders()};
    WhisperTranscriptionProvider whisper_;
    FluidTranscriptionProvider fluid_;
    LanguageModels languageModels_;
    LanguageModelKeeper languageKeeper_{languageModels_, fileDownloader_};

public:
    /// @p modelHost: see ModelHost::address(). @p moduleFolders: where to look for ggml's module for this processor.
    Speech(UserDefaults& defaults, const VocabularySettings& vocabulary, const QString& modelHost = {},
           std::vector<std::filesystem::path> moduleFolders = processorModuleFolders());

    /// The engine of a speech model, or what keeps the language models.
    [[nodiscard]] ModelKeeper& keeperOf(const TranscriptionModel& model) const;
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const { return keeperOf(model).status(model); }
    /// Blocks; takes seconds for a file that has not been checked yet.
    [[nodiscard]] ModelCheck check(const TranscriptionModel& model, Trust trust = Trust::markers) const;
    qint64 remove(const TranscriptionModel& model) const { return keeperOf(model).remove(model); }
    /// Removes the downloaded files of all other models, except those being downloaded, the language model that is used
    /// and, for @p keep, the one that looks for the user's words. Returns the bytes freed.
    [[nodiscard]] qint64 removeAllExcept(const TranscriptionModel& keep) const;
    /// Why the latest transcription could not look for the user's words; empty if it could or need not.
    [[nodiscard]] QString boostingProblem() const { return fluid_.boostingProblem(); }
    /// The speech models, the one that looks for the user's words, and the language models.
    [[nodiscard]] std::vector<TranscriptionModel> allModels() const;
    /// Disk space used by the user's own copies, including partial downloads.
    [[nodiscard]] qint64 bytesUsed() const;
    /// Returns a model for a file given by the user. Throws Error when no engine runs it.
    [[nodiscard]] TranscriptionModel describe(const QString& file) const;

    const SpeechEngines engines{{&fluid_, &whisper_}};
    ModelCatalogue& catalogue = catalogue_;
    LanguageModels& languageModels = languageModels_;
    LanguageModelKeeper& languageKeeper = languageKeeper_;
    ModelSelection selection;
    WhisperModelPreparation preparation;
    ModelDownloader downloader{catalogue, engines, &languageKeeper_};
    DownloadQueue downloads{downloader};
    TranscriptionFacade facade{selection, engines};

private:
    QObject context_; ///< scope of the connection to the settings
};

} // namespace vantro
