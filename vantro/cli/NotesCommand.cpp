#include "base/RunTask.h"
#include "platform/Platform.h"
#include "vantro/app/Rewriting.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/HistorySession.h"
#include "vantro/cli/RewritingExit.h"
#include "vantro/cli/Terminal.h"

#include <QFile>

#include <algorithm>
#include <exception>
#include <iterator>
#include <memory>
#include <tuple>
#include <utility>

namespace vantro {

namespace {

constexpr const char* description = QT_TRANSLATE_NOOP("Command", R"(Your notes by day.

  list              List the days with notes, newest first. The default.
  show [DATE]       Show the summary and the notes of a day, by default today.
  add TEXT...       Add a note to today. - reads the text from standard input.
  delete DATE       Delete a day with its summary and all its notes, after asking.
  delete ID...      Delete notes but keep the day, after asking.
  summarize [DATE]  Have the language model of the mode Notes rewrite the summary of a day, by default today.

DATE is 2026-11-01, today or yesterday. ID is an id printed by show, or an unambiguous beginning of one.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such day or note, 4 no service: the provider or its key cannot be
reached, 6 the model's answer was set aside.)");

constexpr int defaultLimit = 50;

QString dayName(const DailyNote& day)
{
    return day.created_at.isValid() ? day.created_at.toLocalTime().date().toString(Qt::ISODate) : QStringLiteral("-");
}

/// "1 note", "2 notes".
template <typename Count>
QString notesText(Count count)
{
    return count == 1 ? Command::tr("1 note") : Command::tr("%n notes", nullptr, static_cast<int>(count));
}

QJsonObject toJson(const DailyNote& day)
{
    return {{QStringLiteral("id"), day.id.toString(QUuid::WithoutBraces)},
            {QStringLiteral("date"), dayName(day)},
            {QStringLiteral("created_at"), jsonDate(day.created_at)},
            {QStringLiteral("formatted"), day.formatted},
            {QStringLiteral("note_count"), day.noteCount}};
}

/// @p recordings: where its own may be kept.
QJsonObject toJson(const Note& note, const AudioFolder& recordings)
{
    QJsonObject object{{QStringLiteral("id"), note.id.toString(QUuid::WithoutBraces)},
                       {QStringLiteral("created_at"), jsonDate(note.created_at)},
                       {QStringLiteral("transcription"), note.transcription}};
    const QString audio = recordings.file(note.id);
    object.insert(QStringLiteral("audio"), audio.isEmpty() ? QJsonValue() : QJsonValue(audio));
    return object;
}

int list(const CommandCall& call)
{
    const int limit = call.limit(defaultLimit, QT_TRANSLATE_NOOP("Command", "days"));
    const HistorySession session;
    const auto days = session.store.dailyNotes({}, limit == 0 ? std::numeric_limits<int>::max() : limit);
    if (call.json()) {
        QJsonArray array;
        std::ranges::for_each(days, [&array](const DailyNote& day) { array.append(toJson(day)); });
        terminal::writeJson(array);
    } else if (terminal::outputIsTerminal() && days.empty()) {
        terminal::writeMessage(Command::tr("There are no notes yet."));
    } else if (terminal::outputIsTerminal()) {
        std::vector<QStringList> rows{{Command::tr("DAY"), Command::tr("NOTES"), Command::tr("SUMMARY")}};
        const int width = std::max(terminal::outputWidth() - 19, 20);
        for (const DailyNote& day : days)
            rows.push_back({dayName(day), QString::number(day.noteCount),
                            terminal::elided(terminal::singleLine(day.formatted), width)});
        terminal::writeTable(rows);
    } else {
        for (const DailyNote& day : days)
            terminal::writeLine(
                QStringList{dayName(day), QString::number(day.noteCount), terminal::singleLine(day.formatted)}.join(
                    QLatin1Char('\t')));
    }
    return ExitCode::done;
}

/// The day given, or today. Throws WrongUsage or CommandError.
DailyNote dayFrom(const CommandCall& call, const HistorySession& session)
{
    const QString word = call.words.value(0, QStringLiteral("today"));
    const auto moment = momentFrom(word, session.clock.wallClock());
    if (!moment)
        throw WrongUsage(Command::tr("\"%1\" is not a date: write it as 2026-11-01").arg(word));
    const auto day = session.store.dailyNote(moment->date());
    if (!day)
        throw CommandError(ExitCode::notFound,
                           Command::tr("there are no notes for %1").arg(moment->date().toString(Qt::ISODate)));
    return *day;
}

int show(const CommandCall& call)
{
    const HistorySession session;
    const DailyNote day = dayFrom(call, session);
    const auto notes = session.store.notes(day);
    if (call.json()) {
        QJsonObject object = toJson(day);
        QJsonArray array;
        std::ranges::for_each(notes, [&array, recordings = session.audio()](const Note& note) {
            array.append(toJson(note, recordings));
        });
        object.insert(QStringLiteral("notes"), array);
        terminal::writeJson(object);
        return ExitCode::done;
    }
    const bool isPerson = terminal::outputIsTerminal();
    if (isPerson && !day.formatted.isEmpty())
        terminal::writeLine(terminal::printable(day.formatted) + QLatin1Char('\n'));
    for (const Note& note : notes) {
        const QString time = note.created_at.isValid() ? note.created_at.toLocalTime().toString(QStringLiteral("HH:mm"))
                                                       : QStringLiteral("-");
        if (isPerson)
            terminal::writeLine(QStringLiteral("%1  %2  %3")
                                    .arg(shortIdentity(note.id), time, terminal::printable(note.transcription)));
        else
            terminal::writeLine(QStringList{note.id.toString(QUuid::WithoutBraces),
                                            note.created_at.toLocalTime().toString(Qt::ISODate),
                                            terminal::singleLine(note.transcription)}
                                    .join(QLatin1Char('\t')));
    }
    return ExitCode::done;
}

int add(const CommandCall& call)
{
    QString text = call.words.join(QLatin1Char(' '));
    if (text == QLatin1String("-")) {
        QFile input;
        std::ignore = input.open(stdin, QIODevice::ReadOnly);
        text = QString::fromUtf8(input.readAll());
    }
    text = text.trimmed();
    if (text.isEmpty())
        throw CommandError(ExitCode::usage, Command::tr("a note needs a text"));
    HistorySession session;
    std::ignore = runTask(session.store.addNote(text));
    return ExitCode::done;
}

int removeDay(HistorySession& session, const CommandCall& call)
{
    const DailyNote day = dayFrom(call, session);
    const auto question =
        Command::tr("Permanently delete %1 with its summary and %2?").arg(dayName(day), notesText(day.noteCount));
    if (!isConfirmed(question, call))
        return ExitCode::failed;
    std::vector<QUuid> ids;
    std::ranges::transform(session.store.notes(day), std::back_inserter(ids), &Note::id);
    session.store.deleteDailyNote(day);
    session.audio().remove(ids);
    return ExitCode::done;
}

int remove(const CommandCall& call)
{
    HistorySession session;
    if (momentFrom(call.words.front(), session.clock.wallClock()))
        return removeDay(session, call);
    const auto ids = identitiesFrom(call.words, noteTexts, [&session](const QString& prefix, int limit) {
        return session.store.noteIDs(prefix, limit);
    });
    if (!isConfirmed(Command::tr("Permanently delete %1?").arg(notesText(ids.size())), call))
        return ExitCode::failed;
    session.store.deleteNotes(ids);
    session.audio().remove(ids);
    return ExitCode::done;
}

/// The store prints why there is no summary, in words.
class FailureKeeper final : public FormatRequestServicing
{
public:
    explicit FailureKeeper(std::shared_ptr<FormatRequestServicing> service) : service_(std::move(service)) {}

    QCoro::Task<QString> format(QString prompt, QString text) override
    {
        try {
            const auto formatting = service_->format(prompt, text);
            QString summary = co_await formatting;
            co_return summary;
        } catch (...) {
            failure = std::current_exception();
            throw;
        }
    }

    std::exception_ptr failure;

private:
    std::shared_ptr<FormatRequestServicing> service_;
};

int summarize(const CommandCall& call)
{
    HistorySession session;
    const DailyNote day = dayFrom(call, session);
    UserDefaults defaults(UserDefaults::standardPath());
    const Platform platform = makePlatform(PlatformPart::services);
    Rewriting rewriting(defaults, platform, session.clock);
    CoreDataStack& store = session.store;
    store.setSummaryPrompt([&rewriting] { return rewriting.prompts().prompt(ProcessingMode::Notes); });
    printToStandardError();
    bool isStored = false;
    QObject::connect(&store, &CoreDataStack::dailyNoteChanged, &store, [&isStored] { isStored = true; });
    const auto service = std::make_shared<FailureKeeper>(rewriting.choose(ProcessingMode::Notes));
    runTask(store.regenerateSummary(day, service));
    // The reason has already been printed.
    if (!isStored)
        return service->failure ? rewritingExitCode(service->failure) : ExitCode::failed;
    terminal::writeLine(store.dailyNotes({day.objectID, day.objectID}, 1).front().formatted);
    return ExitCode::done;
}

} // namespace

Command notesCommand()
{
    return {
        .name = "notes",
        .summary = QT_TRANSLATE_NOOP("Command", "List, show, add or delete notes."),
        .description = description,
        .actions = {{"list", list},
                    {"show", show, 0, 1},
                    {"add", add, 1, Command::anyNumber, QT_TRANSLATE_NOOP("Command", "needs a text")},
                    {"delete", remove, 1, Command::anyNumber, QT_TRANSLATE_NOOP("Command", "needs a DATE or an ID")},
                    {"summarize", summarize, 0, 1}},
        .options = {{"limit",
                     QT_TRANSLATE_NOOP("Command", "List at most this many days; 0 for all. The default is 50."), "N"},
                    {"yes", QT_TRANSLATE_NOOP("Command", "Delete without asking.")},
                    Command::jsonOption},
        .words = {{"WORDS", QT_TRANSLATE_NOOP("Command", "A date, ids or a text."), "[DATE | ID... | TEXT...]]"}},
        .namesFailedAction = false};
}

} // namespace vantro
