// The in-process measurements of bench/history.
//
//   vantro_bench_history fill PATH ROWS
//   vantro_bench_history measure PATH RUNS
//   vantro_bench_history scroll PATH ROWS
//
// Prints one JSON object: measure, lists of times in milliseconds; scroll, the resident memory before and after.
#include "vantro/store/CoreDataStack.h"
#include "vantro/store/HistoryListModel.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <random>

using namespace vantro;

namespace {

constexpr int vocabularySize = 30'000;
constexpr qint64 millisecondsPerDay = 86'400'000;

/// Generates reproducible sentences with natural word frequencies (Zipf's law).
class Speaker
{
public:
    Speaker()
    {
        static const char* const common[] = {"the",    "of",   "and",    "to",       "a",     "in",   "that", "is",
                                             "was",    "it",   "for",    "on",       "with",  "as",   "I",    "be",
                                             "at",     "by",   "had",    "not",      "are",   "but",  "from", "or",
                                             "have",   "an",   "they",   "which",    "you",   "were", "we",   "meeting",
                                             "please", "send", "report", "tomorrow", "thanks"};
        for (const char* word : common)
            words_ << QLatin1String(word);
        static const char* const syllables[] = {"ta", "re", "in",  "con", "der", "ment", "al", "is", "per",    "tion",
                                                "mo", "li", "ver", "sta", "ing", "pro",  "ca", "er", "\u00e9", "un"};
        while (words_.size() < vocabularySize) {
            QString word;
            for (std::size_t i = 0, count = 1 + random_() % 4; i < count; ++i)
                word += QString::fromUtf8(syllables[random_() % std::size(syllables)]);
            words_ << word + (word.size() < 4 ? QString::number(words_.size()) : QString());
        }
        for (int rank = 1; rank <= vocabularySize; ++rank)
            weights_.push_back(1.0 / std::pow(rank + 2.7, 1.07));
        choice_ = std::discrete_distribution<int>(weights_.begin(), weights_.end());
    }

    QString speak()
    {
        const int count = static_cast<int>(std::clamp(length_(random_), 2.0, 1500.0));
        QString text;
        for (int i = 0; i < count; ++i)
            text += words_[choice_(random_)] + (i % 11 == 10 ? QStringLiteral(". ") : QStringLiteral(" "));
        return text.trimmed();
    }
    [[nodiscard]] const QString& word(int rank) const { return words_[rank]; }

private:
    std::mt19937 random_{20261121};
    QStringList words_;
    std::vector<double> weights_;
    std::discrete_distribution<int> choice_;
    std::lognormal_distribution<double> length_{3.4, 0.8}; // a median of 30 words
};

double milliseconds(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double residentMiB()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const auto pages = file.readAll().split(' ').value(1).toDouble();
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

void print(const QJsonObject& figures)
{
    std::printf("%s\n", QJsonDocument(figures).toJson(QJsonDocument::Compact).constData());
}

void fill(CoreDataStack& store, int rows)
{
    Speaker speaker;
    const PersistentContainer& container = store.persistentContainer();
    PersistentContainer::Transaction transaction(container);
    const qint64 begin = QDateTime::currentMSecsSinceEpoch() - 3 * 365 * millisecondsPerDay;
    const qint64 step = 3 * 365 * millisecondsPerDay / rows;
    for (int i = 0; i < rows; ++i) {
        const ProcessingMode mode = i % 5 == 0 ? ProcessingMode::Email : ProcessingMode::Normal;
        const QString text = speaker.speak();
        insertTranscription(container,
                            {0, QUuid::createUuid(), QDateTime::fromMSecsSinceEpoch(begin + i * step), rawValue(mode),
                             text, i % 5 == 0 ? text + QStringLiteral(" Best, ") : presentText({})});
    }
    transaction.commit();
}

/// Reads everything that a window displays.
void lookAtFirstPage(const HistoryListModel& model)
{
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int role = HistoryListModel::Identifier; role <= HistoryListModel::IsFormatted; ++role)
            std::ignore = model.index(row, 0).data(role);
    }
}

QJsonArray firstPages(CoreDataStack& store, int runs)
{
    QJsonArray times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        const HistoryListModel model(store);
        lookAtFirstPage(model);
        times.append(milliseconds(timer));
    }
    return times;
}

QJsonObject searches(CoreDataStack& store, int runs)
{
    const Speaker speaker;
    const std::pair<const char*, QString> kinds[] = {
        {"commonest word", speaker.word(0)},
        {"common word", QStringLiteral("meeting")},
        {"rare word", speaker.word(20'000)},
        {"no match", QStringLiteral("qqqqqq")},
        {"one letter", QStringLiteral("s")},
        {"two letters", QStringLiteral("co")},
        {"three letters", QStringLiteral("con")},
        {"four letters", QStringLiteral("inta")},
        {"three words", QStringLiteral("please send tomorrow")},
        {"common and rare", QStringLiteral("the ") + speaker.word(15'000)},
        {"two without match", speaker.word(15'000) + QLatin1Char(' ') + speaker.word(16'000)},
        {"quotes and signs", QStringLiteral("\"send\" - (the) report!")},
    };
    QJsonObject result;
    HistoryListModel model(store);
    for (const auto& [kind, text] : kinds) {
        QJsonArray times;
        for (int i = 0; i < runs; ++i) {
            model.setSearchText({});
            QElapsedTimer timer;
            timer.start();
            model.setSearchText(text);
            lookAtFirstPage(model);
            times.append(milliseconds(timer));
        }
        result.insert(QLatin1String(kind), times);
    }
    return result;
}

QJsonArray saves(CoreDataStack& store, int runs)
{
    Speaker speaker;
    QJsonArray times;
    for (int i = 0; i < runs; ++i) {
        const QString text = speaker.speak();
        QElapsedTimer timer;
        timer.start();
        store.saveTranscription(text, {}, ProcessingMode::Normal);
        times.append(milliseconds(timer));
    }
    return times;
}

/// The disk alone: appends and syncs as many bytes as a small commit.
QJsonArray syncs(const QString& folder, int runs)
{
    QFile file(folder + QStringLiteral("/sync"));
    QJsonArray times;
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return times;
    const QByteArray bytes(8 * 4096, 'x');
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        file.write(bytes);
        fdatasync(file.handle());
        times.append(milliseconds(timer));
    }
    file.remove();
    return times;
}

void measure(CoreDataStack& store, const QString& path, int runs)
{
    QJsonObject figures{{QStringLiteral("first_page_ms"), firstPages(store, runs)},
                        {QStringLiteral("search_ms"), searches(store, runs)}};
    figures.insert(QStringLiteral("save_ms"), saves(store, 10 * runs));
    const HistoryListModel shown(store);
    figures.insert(QStringLiteral("save_shown_ms"), saves(store, 10 * runs));
    figures.insert(QStringLiteral("sync_ms"), syncs(QFileInfo(path).path(), 10 * runs));
    print(figures);
}

void scroll(CoreDataStack& store, int rows)
{
    HistoryListModel model(store);
    lookAtFirstPage(model);
    const double before = residentMiB();
    while (model.rowCount() < rows && model.canFetchMore({}))
        model.fetchMore({});
    print({{QStringLiteral("rows"), model.rowCount()},
           {QStringLiteral("kept_rows"), model.keptRows()},
           {QStringLiteral("before_mib"), before},
           {QStringLiteral("after_mib"), residentMiB()}});
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4)
        return 2;
    SystemClock clock;
    CoreDataStack store(clock, arguments[2]);
    try {
        store.loadPersistentStores();
        if (arguments[1] == QLatin1String("fill"))
            fill(store, arguments[3].toInt());
        else if (arguments[1] == QLatin1String("measure"))
            measure(store, arguments[2], arguments[3].toInt());
        else
            scroll(store, arguments[3].toInt());
    } catch (const Error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
