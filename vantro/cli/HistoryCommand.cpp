#include "vantro/cli/HistoryCommand.h"

#include "vantro/cli/ExitCode.h"
#include "vantro/cli/HistorySession.h"
#include "vantro/cli/Terminal.h"

#include <QCommandLineParser>
#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>

namespace vantro {

namespace {

constexpr char description[] =
    R"(What was dictated, newest first.

  list           The dictations that the options let through. The default.
  show ID        The text of one: the formatted one where there is one.
  delete ID...   Delete dictations for good. Asks before.
  export [FILE]  Write them as JSON, CSV or Markdown; all of them unless options say otherwise.

ID is an identity from the list, or so much of its beginning that only one is meant. A search finds
the texts that hold all its words, or words that begin with them; case and accents do not count.
DATE is 2026-11-01, 2026-11-01T10:00, today, yesterday, or 7d for the last seven days.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such dictation.)";

constexpr int defaultLimit = 50;

struct Options
{
    QString action;
    QStringList words;
    HistoryFilter filter;
    int limit = defaultLimit; ///< 0 for all
    std::optional<ExportFormat> format;
    bool json = false;
    bool yes = false;
};

int wrongUsage(const QString& text)
{
    terminal::writeError(text + QStringLiteral(" (see vantro history --help)"));
    return ExitCode::usage;
}

void listAsTable(const CoreDataStack& store, const Options& options)
{
    std::vector<QStringList> rows{
        {QStringLiteral("ID"), QStringLiteral("TIME"), QStringLiteral("MODE"), QStringLiteral("TEXT")}};
    // The width of the columns before the text, of which the mode's may be a little less.
    constexpr int before = 8 + 2 + 16 + 2 + 7 + 2;
    const int width = std::max(terminal::outputWidth() - before, 20);
    forEachTranscription(store, options.filter, options.limit, [&](const Transcription& row) {
        rows.push_back({shortIdentity(row.id), shownDate(row.created_at), row.processingMode,
                        terminal::elided(terminal::singleLine(row.text()), width)});
    });
    if (rows.size() == 1) {
        terminal::writeMessage(options.filter == HistoryFilter() ? QStringLiteral("Nothing was dictated yet.")
                                                                 : QStringLiteral("No dictation is like that."));
        return;
    }
    terminal::writeTable(rows);
}

int list(const CoreDataStack& store, const Options& options)
{
    if (options.json) {
        QFile output;
        std::ignore = output.open(stdout, QIODevice::WriteOnly);
        exportHistory(store, options.filter, options.limit, ExportFormat::json, output);
    } else if (terminal::outputIsTerminal()) {
        listAsTable(store, options);
    } else {
        forEachTranscription(store, options.filter, options.limit, [](const Transcription& row) {
            terminal::writeLine(QStringList{row.id.toString(QUuid::WithoutBraces),
                                            row.created_at.toLocalTime().toString(Qt::ISODate), row.processingMode,
                                            terminal::singleLine(row.text())}
                                    .join(QLatin1Char('\t')));
        });
    }
    return ExitCode::done;
}

void showToPerson(const Transcription& row)
{
    terminal::writeLine(QStringLiteral("%1  %2  %3\n")
                            .arg(shownDate(row.created_at), row.processingMode, row.id.toString(QUuid::WithoutBraces)));
    terminal::writeLine(terminal::printable(row.text()));
    if (!row.formatted.isEmpty())
        terminal::writeLine(QStringLiteral("\nAs it was dictated:\n\n") + terminal::printable(row.transcription));
}

int show(const CoreDataStack& store, const QUuid& id, bool json)
{
    const auto row = store.transcription(id);
    if (!row) {
        terminal::writeError(QStringLiteral("the dictation was just deleted"));
        return ExitCode::notFound;
    }
    if (json)
        terminal::writeLine(QString::fromUtf8(QJsonDocument(toJson(*row)).toJson(QJsonDocument::Compact)));
    else if (terminal::outputIsTerminal())
        showToPerson(*row);
    else
        terminal::writeLine(row->text());
    return ExitCode::done;
}

int remove(CoreDataStack& store, const std::vector<QUuid>& ids, const Options& options)
{
    int exitCode = ExitCode::done;
    const auto question = ids.size() == 1 ? QStringLiteral("Delete this dictation for good?")
                                          : QStringLiteral("Delete these %1 dictations for good?").arg(ids.size());
    if (!isConfirmed(question, options.yes, exitCode))
        return exitCode;
    store.deleteTranscriptions(ids);
    if (options.json)
        terminal::writeLine(QStringLiteral("{\"deleted\":%1}").arg(ids.size()));
    else
        terminal::writeMessage(QStringLiteral("Deleted: %1").arg(ids.size()));
    return ExitCode::done;
}

int exportTo(const CoreDataStack& store, const Options& options)
{
    const QString path = options.words.value(0, QStringLiteral("-"));
    const ExportFormat format = options.format.value_or(exportFormatOf(path));
    if (path == QLatin1String("-")) {
        QFile output;
        std::ignore = output.open(stdout, QIODevice::WriteOnly);
        exportHistory(store, options.filter, options.limit, format, output);
        return ExitCode::done;
    }
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        exportHistory(store, options.filter, options.limit, format, file);
        if (file.commit())
            return ExitCode::done;
    }
    terminal::writeError(QStringLiteral("%1 could not be written: %2").arg(path, file.errorString()));
    return ExitCode::failed;
}

int carryOut(const Options& options)
{
    HistorySession session;
    session.store.loadPersistentStores();
    if (options.action == QLatin1String("list"))
        return list(session.store, options);
    if (options.action == QLatin1String("export"))
        return exportTo(session.store, options);
    int exitCode = ExitCode::done;
    const auto find = [&session](const QString& prefix, int limit) {
        return session.store.transcriptionIDs(prefix, limit);
    };
    const auto ids = identitiesFrom(options.words, QStringLiteral("dictation"), find, exitCode);
    if (!ids)
        return exitCode;
    if (options.action == QLatin1String("show"))
        return show(session.store, ids->front(), options.json);
    return remove(session.store, *ids, options);
}

/// Answers what is wrong; empty when nothing is.
QString takeFilter(const QCommandLineParser& parser, Options& options)
{
    options.filter.search = parser.value(QStringLiteral("search"));
    if (parser.isSet(QStringLiteral("mode"))) {
        const QString name = parser.value(QStringLiteral("mode"));
        options.filter.mode = processingModeFromRawValue(name.left(1).toUpper() + name.mid(1).toLower());
        if (!options.filter.mode)
            return QStringLiteral("there is no mode \"%1\": Normal, Email, Grammar, Custom, Notes").arg(name);
    }
    if (parser.isSet(QStringLiteral("since"))) {
        const QString text = parser.value(QStringLiteral("since"));
        const auto since = momentFrom(text, QDateTime::currentDateTime());
        if (!since)
            return QStringLiteral("\"%1\" is no date: write it as 2026-11-01").arg(text);
        options.filter.since = *since;
    }
    if (parser.isSet(QStringLiteral("limit"))) {
        bool isNumber = false;
        options.limit = parser.value(QStringLiteral("limit")).toInt(&isNumber);
        if (!isNumber || options.limit < 0)
            return QStringLiteral("\"%1\" is no number of dictations").arg(parser.value(QStringLiteral("limit")));
    } else if (options.action == QLatin1String("export")) {
        options.limit = 0;
    }
    return {};
}

QString checkWords(const Options& options)
{
    const auto count = options.words.size();
    if (options.action == QLatin1String("list"))
        return count > 0 ? QStringLiteral("too many words") : QString();
    if (options.action == QLatin1String("export"))
        return count > 1 ? QStringLiteral("too many words") : QString();
    if (options.action == QLatin1String("show"))
        return count != 1 ? QStringLiteral("history show needs one identity") : QString();
    if (options.action == QLatin1String("delete"))
        return count < 1 ? QStringLiteral("history delete needs identities") : QString();
    return QStringLiteral("there is no action \"%1\"").arg(options.action);
}

void addOptions(QCommandLineParser& parser)
{
    terminal::addHelpOption(parser);
    parser.addOption({QStringLiteral("search"), QStringLiteral("Those with these words."), QStringLiteral("TEXT")});
    parser.addOption({QStringLiteral("mode"), QStringLiteral("Those of one mode."), QStringLiteral("MODE")});
    parser.addOption({QStringLiteral("since"), QStringLiteral("Those from then on."), QStringLiteral("DATE")});
    parser.addOption({QStringLiteral("limit"), QStringLiteral("At most so many; 0 for all. The list shows 50."),
                      QStringLiteral("N")});
    parser.addOption({QStringLiteral("format"),
                      QStringLiteral("Of the export: json, csv or markdown. Without it the "
                                     "ending of FILE decides."),
                      QStringLiteral("FORMAT")});
    parser.addOption({QStringLiteral("yes"), QStringLiteral("Delete without asking.")});
    parser.addOption({QStringLiteral("json"), QStringLiteral("JSON instead of text.")});
    parser.addPositionalArgument(QStringLiteral("ACTION"), QStringLiteral("What to do."), QStringLiteral("[ACTION"));
    parser.addPositionalArgument(QStringLiteral("ID"), QStringLiteral("Identities, or a file."),
                                 QStringLiteral("[ID... | FILE]]"));
}

} // namespace

int runHistory(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    addOptions(parser);
    if (!parser.parse(QStringList{QStringLiteral("vantro history")} + arguments))
        return wrongUsage(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, QStringLiteral("history")));
        return ExitCode::done;
    }
    Options options;
    options.words = parser.positionalArguments();
    options.action = options.words.isEmpty() ? QStringLiteral("list") : options.words.takeFirst();
    options.json = parser.isSet(QStringLiteral("json"));
    options.yes = parser.isSet(QStringLiteral("yes"));
    if (parser.isSet(QStringLiteral("format"))) {
        options.format = exportFormatFrom(parser.value(QStringLiteral("format")));
        if (!options.format)
            return wrongUsage(QStringLiteral("there is no format \"%1\"").arg(parser.value(QStringLiteral("format"))));
    }
    for (const QString& problem : {checkWords(options), takeFilter(parser, options)}) {
        if (!problem.isEmpty())
            return wrongUsage(problem);
    }
    try {
        return carryOut(options);
    } catch (const Error& error) {
        terminal::writeError(error.localizedDescription());
        return ExitCode::failed;
    }
}

} // namespace vantro
