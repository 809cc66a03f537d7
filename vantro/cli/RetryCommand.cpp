#include "base/RunTask.h"
#include "base/Settings.h"
#include "vantro/app/ControlService.h"
#include "vantro/app/Speech.h"
#include "vantro/audio/RecordingSpool.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/HistorySession.h"
#include "vantro/cli/Terminal.h"
#include "vantro/store/Retention.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <limits>

namespace vantro {

namespace {

using Recordings = std::vector<std::shared_ptr<Recording>>;

[[noreturn]] void refuseNothingKept()
{
    throw CommandError(ExitCode::notFound, Command::tr("retry: there is no recording to transcribe"));
}

bool isProgramRunning()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() && bus.interface()->isServiceRegistered(ControlService::busName());
}

/// Returns what the program answers. A long recording may take minutes.
QString ask(const QString& method)
{
    const QDBusMessage reply = QDBusConnection::sessionBus().call(
        QDBusMessage::createMethodCall(ControlService::busName(), ControlService::objectPath(),
                                       ControlService::interfaceName(), method),
        QDBus::Block, std::numeric_limits<int>::max());
    if (reply.type() == QDBusMessage::ErrorMessage && reply.errorName() == ControlService::nothingKept())
        refuseNothingKept();
    if (reply.type() == QDBusMessage::ErrorMessage)
        throw CommandError(ExitCode::failed, QStringLiteral("retry: %1").arg(reply.errorMessage()));
    return reply.arguments().value(0).toString();
}

/// What transcribes without the program. The language model of a mode is not asked.
class Session
{
public:
    /// Throws Error.
    [[nodiscard]] QString transcribe(Recording& recording);
    [[nodiscard]] Recordings left();

private:
    void requireModel();

    SystemClock clock_;
    RecordingSpool spool_{RecordingSpool::standardFolder(), clock_};
    UserDefaults defaults_{UserDefaults::standardPath()};
    VocabularySettings vocabulary_{defaults_};
    Speech speech_{defaults_, vocabulary_};
    std::optional<HistorySession> history_;
};

Recordings Session::left()
{
    Recordings recordings = runTask(spool_.takeLeft());
    if (recordings.empty() && spool_.isInUse())
        throw CommandError(ExitCode::failed, Command::tr("retry: another vantro is transcribing: wait for it to end"));
    if (recordings.empty())
        refuseNothingKept();
    return recordings;
}

void Session::requireModel()
{
    const TranscriptionModel& model = speech_.selection.selectedModel();
    if (!speech_.check(model).isReady)
        throw CommandError(ExitCode::noService,
                           Command::tr("retry: no model: \"%1\" is not downloaded: run vantro models download \"%1\"")
                               .arg(model.name));
}

QString Session::transcribe(Recording& recording)
{
    requireModel();
    if (!history_)
        history_.emplace();
    QString text = runTask(speech_.facade.transcribe(recording.id(), runTask(recording.samples()), {})).trimmed();
    if (!text.isEmpty() && recording.header().mode == ProcessingMode::Notes)
        std::ignore = runTask(history_->store.addNote(text));
    else if (!text.isEmpty() && Retention::daysFrom(defaults_.get(setting::keepHistory)) != 0)
        history_->store.saveTranscription(text, recording.header().mode);
    recording.discard();
    return text;
}

int retryWithoutProgram(bool isRefused)
{
    Session session;
    for (const auto& recording : session.left()) {
        if (isRefused)
            recording->discard();
        else
            terminal::writeLine(session.transcribe(*recording));
    }
    return ExitCode::done;
}

/// What an engine throws is not always an Error. The recording stays.
int retryHere(bool isRefused)
{
    try {
        return retryWithoutProgram(isRefused);
    } catch (const CommandError&) {
        throw;
    } catch (const std::exception& error) {
        throw CommandError(ExitCode::failed,
                           Command::tr("retry: %1 The recording is kept.").arg(localizedDescription(error)));
    }
}

int retry(const CommandCall& call)
{
    const bool isRefused = call.has("discard");
    if (!isProgramRunning())
        return retryHere(isRefused);
    const QString text = ask(isRefused ? QStringLiteral("DiscardKept") : QStringLiteral("Retry"));
    if (!isRefused)
        terminal::writeLine(text);
    return ExitCode::done;
}

} // namespace

Command retryCommand()
{
    return {.name = "retry",
            .summary = QT_TRANSLATE_NOOP("Command", "Transcribe what has not become text."),
            .description = QT_TRANSLATE_NOOP(
                "Command",
                "Transcribes recordings that have not become text, after a failure, a crash or, for ten seconds, a "
                "cancel. Their text is printed, goes into the history and, while vantro is running, to the "
                "clipboard.\n\n"
                "Exit status: 0 done, 1 failed or refused, 2 wrong usage, 3 there is no such recording, 4 the model is "
                "missing."),
            .actions = {{"", retry}},
            .options = {{"discard", QT_TRANSLATE_NOOP("Command", "Delete the recordings instead.")}}};
}

} // namespace vantro
