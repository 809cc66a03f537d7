#include "vantro/cli/HistorySession.h"

#include "vantro/cli/Terminal.h"

#include <QRegularExpression>

#include <algorithm>

namespace vantro {

namespace {

constexpr int batchRows = 200;
constexpr int shortIdentityLength = 8;

} // namespace

void forEachTranscription(const CoreDataStack& store, const HistoryFilter& filter, int limit,
                          const std::function<void(const Transcription&)>& visit)
{
    const TranscriptionFetch fetch(store.persistentContainer(), filter);
    FetchRange range;
    for (int left = limit == 0 ? std::numeric_limits<int>::max() : limit; left > 0;) {
        const auto rows = fetch.rows(range, std::min(left, batchRows));
        std::ranges::for_each(rows, visit);
        if (rows.size() < batchRows)
            return;
        left -= static_cast<int>(rows.size());
        range.newest = rows.back().objectID - 1;
    }
}

Transcriptions transcriptionsOf(const CoreDataStack& store, const HistoryFilter& filter, int limit)
{
    return [&store, filter, limit](const std::function<void(const Transcription&)>& visit) {
        forEachTranscription(store, filter, limit, visit);
    };
}

QString shortIdentity(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).left(shortIdentityLength);
}

std::optional<QDateTime> momentFrom(const QString& text, const QDateTime& now)
{
    if (text == QLatin1String("today"))
        return now.date().startOfDay();
    if (text == QLatin1String("yesterday"))
        return now.date().addDays(-1).startOfDay();
    static const QRegularExpression daysAgo(QStringLiteral("^(\\d{1,5})d$"));
    if (const auto match = daysAgo.match(text); match.hasMatch())
        return now.addDays(-match.captured(1).toLongLong());
    // Qt also accepts a date at the beginning of a longer text.
    if (const QDate date = QDate::fromString(text, Qt::ISODate); date.isValid() && !text.contains(QLatin1Char('T')))
        return date.startOfDay();
    const QDateTime moment = QDateTime::fromString(text, Qt::ISODate);
    return moment.isValid() ? std::optional(moment) : std::nullopt;
}

const IdentityTexts dictationTexts{
    QT_TRANSLATE_NOOP("Command", "several dictations begin with \"%1\": give more of it"),
    QT_TRANSLATE_NOOP("Command", "there is no dictation \"%1\"")};
const IdentityTexts noteTexts{QT_TRANSLATE_NOOP("Command", "several notes begin with \"%1\": give more of it"),
                              QT_TRANSLATE_NOOP("Command", "there is no note \"%1\"")};

std::vector<QUuid> identitiesFrom(const QStringList& words, const IdentityTexts& texts,
                                  const std::function<std::vector<QUuid>(const QString&, int limit)>& find)
{
    std::vector<QUuid> ids;
    for (const QString& word : words) {
        const auto meant = find(word, 2);
        if (meant.size() > 1 || word.isEmpty())
            throw CommandError(ExitCode::usage, Command::tr(texts.several).arg(word));
        if (meant.empty())
            throw CommandError(ExitCode::notFound, Command::tr(texts.none).arg(word));
        if (std::ranges::find(ids, meant.front()) == ids.end())
            ids.push_back(meant.front());
    }
    return ids;
}

bool isConfirmed(const QString& question, const CommandCall& call)
{
    if (call.has("yes"))
        return true;
    if (!terminal::canAsk())
        throw CommandError(ExitCode::usage, Command::tr("there is no terminal to ask on: use --yes to delete"));
    if (terminal::ask(question))
        return true;
    terminal::writeMessage(Command::tr("Nothing was deleted."));
    return false;
}

} // namespace vantro
