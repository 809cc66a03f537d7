// The part of Windows that makes the models of the history's window.
#include "vantro/main/FileChoice.h"
#include "vantro/main/Windows.h"
#include "vantro/ui/history/HistoryModel.h"
#include "vantro/ui/history/NotesModel.h"
#include "vantro/ui/history/RecordingPlayer.h"

#include <algorithm>
#include <iterator>

namespace vantro {

std::unique_ptr<HistoryModel> Windows::makeHistoryModel(HistoryChanges& changes)
{
    Rewriting& rewriting = parts_.rewriting;
    return std::make_unique<HistoryModel>(HistoryModel::Parts{
        parts_.history.store, parts_.history.jobs, *parts_.platform.pasteboard, changes, parts_.clock,
        [&rewriting](ProcessingMode mode) { return rewriting.prompts().displayName(mode); },
        [&rewriting] { return rewriting.prompts().modes(); },
        [&rewriting] {
            auto modes = rewriting.visibleModes();
            std::erase_if(modes, [](ProcessingMode mode) {
                return mode == ProcessingMode::Normal || mode == ProcessingMode::Notes;
            });
            return modes;
        },
        [&rewriting](ProcessingMode mode, const QString& text) { return rewriting.rewrite(mode, text); },
        [this] { return readySpeechModelNames(); },
        [this](int model, const QUuid& dictation) { return transcribeAgain(model, dictation); },
        [&rewriting](ProcessingMode mode, const QString& text) { return rewriting.cleaned(mode, text); },
        [this](const QString& text) { Q_EMIT pasteRequested(text); }, chooseFileToWrite});
}

std::vector<TranscriptionModel> Windows::readySpeechModels() const
{
    std::vector<TranscriptionModel> ready;
    std::ranges::copy_if(parts_.speech.catalogue.models(), std::back_inserter(ready),
                         [this](const auto& model) { return stateOf(model) == ModelListModel::Ready; });
    return ready;
}

QStringList Windows::readySpeechModelNames() const
{
    QStringList names;
    for (const TranscriptionModel& model : readySpeechModels())
        names << model.name;
    return names;
}

QCoro::Task<QString> Windows::transcribeAgain(int model, const QUuid& recording)
{
    return secondTranscription_.run(readySpeechModels().at(static_cast<std::size_t>(model)),
                                    parts_.history.audio.folder().file(recording));
}

std::unique_ptr<NotesModel> Windows::makeNotesModel(HistoryChanges& changes)
{
    return std::make_unique<NotesModel>(NotesModel::Parts{
        parts_.history.store, parts_.history.audio, *parts_.platform.pasteboard, changes, parts_.clock,
        [this](const DailyNote& day) {
            return parts_.history.store.regenerateSummary(day, parts_.rewriting.choose(ProcessingMode::Notes));
        },
        [this] { return readySpeechModelNames(); },
        [this](int model, const QUuid& note) {
            return transcribeAgain(model, note);
        }});
}

std::unique_ptr<RecordingPlayer> Windows::makeRecordingPlayer(HistoryChanges& changes)
{
    auto player = std::make_unique<RecordingPlayer>(parts_.history.audio, *parts_.platform.player, changes);
    // The microphone would hear it.
    connect(&parts_.recorder, &AudioRecorder::isBusyChanged, player.get(), &RecordingPlayer::pause);
    return player;
}

} // namespace vantro
