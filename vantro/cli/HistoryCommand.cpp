#include "base/OutputFile.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/HistorySession.h"
#include "vantro/cli/Terminal.h"

#include <QFile>

namespace vantro {

namespace {

constexpr const char* description = QT_TRANSLATE_NOOP("Command", R"(Your dictations, newest first.

  list           List the dictations that match the options. The default.
  show ID        Show one: the formatted text if there is one.
  audio ID [FILE]  Copy the recording of one to a FLAC file, if it was kept; without FILE, print where it is.
  delete ID...   Delete dictations permanently, with their recordings, after asking.
  export [FILE]  Write the dictations that match the options as JSON, CSV or Markdown.

ID is an id from the list or an unambiguous beginning of one. A search finds texts that contain all
its words or words that begin with them; case and accents are ignored.
DATE is 2026-11-01, 2026-11-01T10:00, today, yesterday, or 7d for the last seven days.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such dictation.)");

constexpr int defaultLimit = 50;

HistoryFilter filterFrom(const CommandCall& call)
{
    HistoryFilter filter;
    filter.search = call.value("search");
    if (call.has("mode")) {
        const QString name = call.value("mode");
        UserDefaults defaults(UserDefaults::standardPath());
        filter.mode = PromptSettings(defaults).find(name);
        // One that has been removed is still in the history.
        if (!filter.mode)
            filter.mode = processingModeFromRawValue(name.left(1).toUpper() + name.mid(1).toLower());
        if (!filter.mode)
            throw WrongUsage(Command::tr("there is no mode \"%1\": vantro modes lists them").arg(name));
    }
    if (call.has("since")) {
        const auto since = momentFrom(call.value("since"), QDateTime::currentDateTime());
        if (!since)
            throw WrongUsage(Command::tr("\"%1\" is not a date: write it as 2026-11-01").arg(call.value("since")));
        filter.since = *since;
    }
    return filter;
}

void listAsTable(const CoreDataStack& store, const HistoryFilter& filter, int limit)
{
    std::vector<QStringList> rows{{Command::tr("ID"), Command::tr("TIME"), Command::tr("MODE"), Command::tr("TEXT")}};
    // The width of the columns before the text; the mode may be shorter.
    constexpr int before = 8 + 2 + 16 + 2 + 7 + 2;
    const int width = std::max(terminal::outputWidth() - before, 20);
    forEachTranscription(store, filter, limit, [&](const Transcription& row) {
        rows.push_back({shortIdentity(row.id), shownDate(row.created_at), row.processingMode,
                        terminal::elided(terminal::singleLine(row.text()), width)});
    });
    if (rows.size() == 1) {
        terminal::writeMessage(filter == HistoryFilter() ? Command::tr("There are no dictations yet.")
                                                         : Command::tr("No dictation matches."));
        return;
    }
    terminal::writeTable(rows);
}

int list(const CommandCall& call)
{
    const HistoryFilter filter = filterFrom(call);
    const int limit = call.limit(defaultLimit, QT_TRANSLATE_NOOP("Command", "dictations"));
    const HistorySession session;
    if (call.json()) {
        QFile output;
        std::ignore = output.open(stdout, QIODevice::WriteOnly);
        exportTranscriptions(transcriptionsOf(session.store, filter, limit), ExportFormat::json, output);
    } else if (terminal::outputIsTerminal()) {
        listAsTable(session.store, filter, limit);
    } else {
        forEachTranscription(session.store, filter, limit, [](const Transcription& row) {
            terminal::writeLine(QStringList{row.id.toString(QUuid::WithoutBraces),
                                            row.created_at.toLocalTime().toString(Qt::ISODate), row.processingMode,
                                            terminal::singleLine(row.text())}
                                    .join(QLatin1Char('\t')));
        });
    }
    return ExitCode::done;
}

QJsonObject jsonWithAudio(const Transcription& row, const QString& audio)
{
    QJsonObject object = toJson(row);
    object.insert(QStringLiteral("audio"), audio.isEmpty() ? QJsonValue() : QJsonValue(audio));
    return object;
}

void showToPerson(const Transcription& row, const QString& audio)
{
    terminal::writeLine(QStringLiteral("%1  %2  %3\n")
                            .arg(shownDate(row.created_at), row.processingMode, row.id.toString(QUuid::WithoutBraces)));
    terminal::writeLine(terminal::printable(row.text()));
    if (!row.formatted.isEmpty())
        terminal::writeLine(Command::tr("\nOriginal text:\n\n") + terminal::printable(row.transcription));
    if (!row.setAsideReason.isEmpty())
        terminal::writeLine(QStringLiteral("\n%1\n\n%2")
                                .arg(terminal::singleLine(row.setAsideReason), terminal::printable(row.setAside)));
    if (!audio.isEmpty())
        terminal::writeLine(Command::tr("\nRecording: ") + terminal::printable(audio));
}

std::vector<QUuid> dictationsFrom(const CommandCall& call, const CoreDataStack& store)
{
    return identitiesFrom(call.words, dictationTexts,
                          [&store](const QString& prefix, int limit) { return store.transcriptionIDs(prefix, limit); });
}

int show(const CommandCall& call)
{
    const HistorySession session;
    const auto row = session.store.transcription(dictationsFrom(call, session.store).front());
    if (!row)
        throw CommandError(ExitCode::notFound, Command::tr("the dictation has just been deleted"));
    const QString audio = session.audio().file(row->id);
    if (call.json())
        terminal::writeJson(jsonWithAudio(*row, audio));
    else if (terminal::outputIsTerminal())
        showToPerson(*row, audio);
    else
        terminal::writeLine(row->text());
    return ExitCode::done;
}

void copyRecording(const QString& from, const QString& to)
{
    QFile source(from);
    const bool isOpen = source.open(QIODevice::ReadOnly);
    const QByteArray content = isOpen ? source.readAll() : QByteArray();
    if (!isOpen || source.error() != QFileDevice::NoError)
        throw Error(Command::tr("%1 cannot be read: %2").arg(from, source.errorString()));
    writeFile(to, content, Readers::ownerOnly);
}

int audio(const CommandCall& call)
{
    const HistorySession session;
    const QStringList id{call.words.front()};
    const auto prefixed = [&session](const QString& prefix, int limit) {
        return session.store.transcriptionIDs(prefix, limit);
    };
    const QUuid meant = identitiesFrom(id, dictationTexts, prefixed).front();
    const QString file = session.audio().file(meant);
    if (file.isEmpty())
        throw CommandError(ExitCode::notFound,
                           Command::tr("there is no recording of %1: vantro settings set keepRecordings 30 keeps "
                                       "the next ones for 30 days")
                               .arg(shortIdentity(meant)));
    const QString target = call.words.value(1, file);
    if (target != file)
        copyRecording(file, target);
    if (call.json())
        terminal::writeJson(QJsonObject{{QStringLiteral("audio"), target}});
    else if (target == file)
        terminal::writeLine(file);
    return ExitCode::done;
}

int remove(const CommandCall& call)
{
    HistorySession session;
    const auto ids = dictationsFrom(call, session.store);
    const auto question =
        ids.size() == 1 ? Command::tr("Delete this dictation permanently?")
                        : Command::tr("Delete these %n dictations permanently?", nullptr, static_cast<int>(ids.size()));
    if (!isConfirmed(question, call))
        return ExitCode::failed;
    session.store.deleteTranscriptions(ids);
    session.audio().remove(ids);
    if (call.json())
        terminal::writeLine(QStringLiteral("{\"deleted\":%1}").arg(ids.size()));
    else
        terminal::writeMessage(Command::tr("Deleted: %1").arg(ids.size()));
    return ExitCode::done;
}

int exportTo(const CommandCall& call)
{
    const QString path = call.words.value(0, QStringLiteral("-"));
    const auto format = call.has("format") ? exportFormatFrom(call.value("format")) : exportFormatOf(path);
    if (!format)
        throw WrongUsage(Command::tr("there is no format \"%1\"").arg(call.value("format")));
    const HistoryFilter filter = filterFrom(call);
    const int limit = call.limit(0, QT_TRANSLATE_NOOP("Command", "dictations"));
    const HistorySession session;
    const Transcriptions all = transcriptionsOf(session.store, filter, limit);
    if (path == QLatin1String("-")) {
        QFile output;
        std::ignore = output.open(stdout, QIODevice::WriteOnly);
        exportTranscriptions(all, *format, output);
    } else {
        exportTranscriptions(all, *format, path);
    }
    return ExitCode::done;
}

int last(const CommandCall& call)
{
    const HistorySession session;
    const auto rows = TranscriptionFetch(session.store.persistentContainer(), {}).rows({}, 1);
    if (rows.empty())
        throw CommandError(ExitCode::notFound, Command::tr("last: there are no dictations in the history"));
    if (call.json())
        terminal::writeJson(toJson(rows.front()));
    else
        terminal::writeLine(call.has("original") ? rows.front().transcription : rows.front().text());
    return ExitCode::done;
}

} // namespace

Command lastCommand()
{
    return {.name = "last",
            .summary = QT_TRANSLATE_NOOP("Command", "Write the text of the last dictation to standard output."),
            .description = QT_TRANSLATE_NOOP(
                "Command", "Writes the text of the last dictation in the history to standard output.\n\n"
                           "Exit status: 0 done, 1 failed, 2 wrong usage, 3 there is none."),
            .actions = {{"", last}},
            .options = {{"original", QT_TRANSLATE_NOOP("Command", "As it was said, before it was rewritten.")},
                        Command::jsonOption}};
}

Command historyCommand()
{
    return {.name = "history",
            .summary = QT_TRANSLATE_NOOP("Command",
                                         "List, search, show, delete or export your dictations, and their recordings."),
            .description = description,
            .actions = {{"list", list},
                        {"show", show, 1, 1, QT_TRANSLATE_NOOP("Command", "needs an ID")},
                        {"audio", audio, 1, 2, QT_TRANSLATE_NOOP("Command", "needs an ID")},
                        {"delete", remove, 1, Command::anyNumber, QT_TRANSLATE_NOOP("Command", "needs an ID")},
                        {"export", exportTo, 0, 1}},
            .options = {{"search", QT_TRANSLATE_NOOP("Command", "Only dictations with these words."), "TEXT"},
                        {"mode", QT_TRANSLATE_NOOP("Command", "Only dictations in this mode."), "MODE"},
                        {"since", QT_TRANSLATE_NOOP("Command", "Only dictations from that date on."), "DATE"},
                        {"limit",
                         QT_TRANSLATE_NOOP("Command",
                                           "At most this many; 0 for all. The default is 50 for list, all for export."),
                         "N"},
                        {"format",
                         QT_TRANSLATE_NOOP(
                             "Command",
                             "Format of the export: json, csv or markdown. The default depends on the name of FILE."),
                         "FORMAT"},
                        {"yes", QT_TRANSLATE_NOOP("Command", "Delete without asking.")},
                        Command::jsonOption},
            .words = {{"ID", QT_TRANSLATE_NOOP("Command", "IDs, or a file."), "[ID... | FILE]]"}},
            .namesFailedAction = false};
}

} // namespace vantro
