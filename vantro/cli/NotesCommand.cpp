#include "vantro/cli/NotesCommand.h"

#include "base/RunTask.h"
#include "platform/Platform.h"
#include "vantro/app/Rewriting.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/HistorySession.h"
#include "vantro/cli/Terminal.h"

#include <QCommandLineParser>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace vantro {

namespace {

constexpr char description[] =
    R"(Notes, by the day they were taken on.

  list             The days with notes, newest first. The default.
  show [DATE]      The summary and the notes of a day; of today without DATE.
  add TEXT...      Take a note of today. - takes the text from standard input.
  delete DATE      Delete a day: its summary and all its notes. Asks before.
  delete ID...     Delete notes; the day stays. Asks before.
  summarize [DATE] Have the language model of the mode Notes write a day's summary anew; of today without DATE.

DATE is 2026-11-01, today or yesterday. ID is an identity that show tells, or so much of its beginning
that only one is meant.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such day or note.)";

constexpr int defaultLimit = 50;

struct Options
{
    QString action;
    QStringList words;
    int limit = defaultLimit; ///< 0 for all
    bool json = false;
    bool yes = false;
};

int wrongUsage(const QString& text)
{
    terminal::writeError(text + QStringLiteral(" (see vantro notes --help)"));
    return ExitCode::usage;
}

QString dayName(const DailyNote& day)
{
    return day.created_at.isValid() ? day.created_at.toLocalTime().date().toString(Qt::ISODate) : QStringLiteral("-");
}

QJsonObject toJson(const DailyNote& day)
{
    return {{QStringLiteral("id"), day.id.toString(QUuid::WithoutBraces)},
            {QStringLiteral("date"), dayName(day)},
            {QStringLiteral("created_at"), jsonDate(day.created_at)},
            {QStringLiteral("formatted"), day.formatted},
            {QStringLiteral("note_count"), day.noteCount}};
}

QJsonObject toJson(const Note& note)
{
    return {{QStringLiteral("id"), note.id.toString(QUuid::WithoutBraces)},
            {QStringLiteral("created_at"), jsonDate(note.created_at)},
            {QStringLiteral("transcription"), note.transcription}};
}

void writeJson(const QJsonDocument& document)
{
    terminal::writeLine(QString::fromUtf8(document.toJson(QJsonDocument::Compact)));
}

int list(const CoreDataStack& store, const Options& options)
{
    const auto days = store.dailyNotes({}, options.limit == 0 ? std::numeric_limits<int>::max() : options.limit);
    if (options.json) {
        QJsonArray array;
        std::ranges::for_each(days, [&array](const DailyNote& day) { array.append(toJson(day)); });
        writeJson(QJsonDocument(array));
    } else if (terminal::outputIsTerminal() && days.empty()) {
        terminal::writeMessage(QStringLiteral("There are no notes yet."));
    } else if (terminal::outputIsTerminal()) {
        std::vector<QStringList> rows{{QStringLiteral("DAY"), QStringLiteral("NOTES"), QStringLiteral("SUMMARY")}};
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

int show(const CoreDataStack& store, const DailyNote& day, bool json)
{
    const auto notes = store.notes(day);
    if (json) {
        QJsonObject object = toJson(day);
        QJsonArray array;
        std::ranges::for_each(notes, [&array](const Note& note) { array.append(toJson(note)); });
        object.insert(QStringLiteral("notes"), array);
        writeJson(QJsonDocument(object));
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

int add(CoreDataStack& store, const Options& options)
{
    QString text = options.words.join(QLatin1Char(' '));
    if (text == QLatin1String("-")) {
        QFile input;
        std::ignore = input.open(stdin, QIODevice::ReadOnly);
        text = QString::fromUtf8(input.readAll());
    }
    text = text.trimmed();
    if (text.isEmpty()) {
        terminal::writeError(QStringLiteral("a note needs a text"));
        return ExitCode::usage;
    }
    try {
        runTask(store.addNote(text));
        return ExitCode::done;
    } catch (const std::exception& error) {
        terminal::writeError(localizedDescription(error));
        return ExitCode::failed;
    }
}

int removeDay(CoreDataStack& store, const DailyNote& day, const Options& options)
{
    int exitCode = ExitCode::done;
    const auto question =
        QStringLiteral("Delete %1 with its summary and %2 notes for good?").arg(dayName(day)).arg(day.noteCount);
    if (!isConfirmed(question, options.yes, exitCode))
        return exitCode;
    store.deleteDailyNote(day);
    return ExitCode::done;
}

int removeNotes(CoreDataStack& store, const Options& options)
{
    int exitCode = ExitCode::done;
    const auto find = [&store](const QString& prefix, int limit) {
        return store.noteIDs(prefix, limit);
    };
    const auto ids = identitiesFrom(options.words, QStringLiteral("note"), find, exitCode);
    if (!ids || !isConfirmed(QStringLiteral("Delete %1 notes for good?").arg(ids->size()), options.yes, exitCode))
        return exitCode;
    store.deleteNotes(*ids);
    return ExitCode::done;
}

int summarize(HistorySession& session, const DailyNote& day)
{
    UserDefaults defaults(UserDefaults::standardPath());
    const Platform platform = makePlatform(PlatformPart::services);
    Rewriting rewriting(defaults, platform, session.clock);
    CoreDataStack& store = session.store;
    store.setSummaryPrompt([&rewriting] { return rewriting.prompts().prompt(ProcessingMode::Notes); });
    printToStandardError();
    bool isStored = false;
    QObject::connect(&store, &CoreDataStack::dailyNoteChanged, &store, [&isStored] { isStored = true; });
    runTask(store.regenerateSummary(day, rewriting.choose(ProcessingMode::Notes)));
    // It has told what failed.
    if (!isStored)
        return ExitCode::failed;
    terminal::writeLine(store.dailyNotes({day.objectID, day.objectID}, 1).front().formatted);
    return ExitCode::done;
}

std::optional<QDate> dateFrom(const QString& text, const QDateTime& now)
{
    const auto moment = momentFrom(text, now);
    return moment ? std::optional(moment->date()) : std::nullopt;
}

int carryOut(const Options& options)
{
    HistorySession session;
    CoreDataStack& store = session.store;
    store.loadPersistentStores();
    if (options.action == QLatin1String("list"))
        return list(store, options);
    if (options.action == QLatin1String("add"))
        return add(store, options);
    const QString word = options.words.value(0, QStringLiteral("today"));
    const auto date = dateFrom(word, session.clock.wallClock());
    if (!date && options.action == QLatin1String("delete"))
        return removeNotes(store, options);
    if (!date)
        return wrongUsage(QStringLiteral("\"%1\" is no date: write it as 2026-11-01").arg(word));
    const auto day = store.dailyNote(*date);
    if (!day) {
        terminal::writeError(QStringLiteral("there are no notes of %1").arg(date->toString(Qt::ISODate)));
        return ExitCode::notFound;
    }
    if (options.action == QLatin1String("show"))
        return show(store, *day, options.json);
    if (options.action == QLatin1String("summarize"))
        return summarize(session, *day);
    return removeDay(store, *day, options);
}

QString checkWords(const Options& options)
{
    const auto count = options.words.size();
    if (options.action == QLatin1String("list"))
        return count > 0 ? QStringLiteral("too many words") : QString();
    if (options.action == QLatin1String("show") || options.action == QLatin1String("summarize"))
        return count > 1 ? QStringLiteral("too many words") : QString();
    if (options.action == QLatin1String("add"))
        return count < 1 ? QStringLiteral("notes add needs a text") : QString();
    if (options.action == QLatin1String("delete"))
        return count < 1 ? QStringLiteral("notes delete needs a day or identities") : QString();
    return QStringLiteral("there is no action \"%1\"").arg(options.action);
}

} // namespace

int runNotes(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    terminal::addHelpOption(parser);
    parser.addOption({QStringLiteral("limit"), QStringLiteral("List at most so many days; 0 for all, else 50."),
                      QStringLiteral("N")});
    parser.addOption({QStringLiteral("yes"), QStringLiteral("Delete without asking.")});
    parser.addOption({QStringLiteral("json"), QStringLiteral("JSON instead of text.")});
    parser.addPositionalArgument(QStringLiteral("ACTION"), QStringLiteral("What to do."), QStringLiteral("[ACTION"));
    parser.addPositionalArgument(QStringLiteral("WORDS"), QStringLiteral("A day, identities or a text."),
                                 QStringLiteral("[DATE | ID... | TEXT...]]"));
    if (!parser.parse(QStringList{QStringLiteral("vantro notes")} + arguments))
        return wrongUsage(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, QStringLiteral("notes")));
        return ExitCode::done;
    }
    Options options;
    options.words = parser.positionalArguments();
    options.action = options.words.isEmpty() ? QStringLiteral("list") : options.words.takeFirst();
    options.json = parser.isSet(QStringLiteral("json"));
    options.yes = parser.isSet(QStringLiteral("yes"));
    if (const QString problem = checkWords(options); !problem.isEmpty())
        return wrongUsage(problem);
    if (parser.isSet(QStringLiteral("limit"))) {
        bool isNumber = false;
        options.limit = parser.value(QStringLiteral("limit")).toInt(&isNumber);
        if (!isNumber || options.limit < 0)
            return wrongUsage(QStringLiteral("\"%1\" is no number of days").arg(parser.value(QStringLiteral("limit"))));
    }
    try {
        return carryOut(options);
    } catch (const Error& error) {
        terminal::writeError(error.localizedDescription());
        return ExitCode::failed;
    }
}

} // namespace vantro
