#include "vantro/support/Statistics.h"

#include "base/Logger.h"
#include "base/Settings.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSaveFile>

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

constexpr int keptDays = 366;
constexpr int wordsPerMinute = 40;
const QString dictationsKey = QStringLiteral("dictations");
const QString wordsKey = QStringLiteral("words");
const QString secondsKey = QStringLiteral("seconds");

} // namespace

Statistics::Statistics(UserDefaults& defaults, Clock& clock, QString path)
    : defaults_(defaults)
    , clock_(clock)
    , path_(std::move(path))
{
    connect(&defaults_, &UserDefaults::changed, this, [this](const QString& key) {
        if (key != setting::keepStatistics.key)
            return;
        if (!isKept())
            QFile::remove(path_);
        read();
    });
    if (!isKept())
        QFile::remove(path_); // switched off by a command while the program did not run
    read();
}

void Statistics::read()
{
    days_.clear();
    QFile file(path_);
    const QJsonObject stored =
        file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    for (auto entry = stored.begin(); entry != stored.end(); ++entry) {
        const QDate date = QDate::fromString(entry.key(), Qt::ISODate);
        const QJsonObject day = entry.value().toObject();
        if (date.isValid())
            days_[date] = {day.value(dictationsKey).toInt(), day.value(wordsKey).toInt(),
                           std::chrono::seconds(day.value(secondsKey).toInt())};
    }
    Q_EMIT changed();
}

void Statistics::write()
{
    const QDate oldest = clock_.wallClock().date().addDays(-keptDays);
    std::erase_if(days_, [oldest](const auto& entry) { return entry.first < oldest; });
    QJsonObject stored;
    for (const auto& [date, day] : days_)
        stored.insert(date.toString(Qt::ISODate), QJsonObject{{dictationsKey, day.dictations},
                                                              {wordsKey, day.words},
                                                              {secondsKey, static_cast<int>(day.spoken.count())}});
    QSaveFile file(path_);
    const bool isWritten = file.open(QIODevice::WriteOnly) &&
                           file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
                           file.write(QJsonDocument(stored).toJson(QJsonDocument::Compact)) > 0 && file.commit();
    if (!isWritten) // no reason to disturb anybody
        Logger("Statistics").error(QStringLiteral("%1 cannot be written: %2").arg(path_, file.errorString()));
    Q_EMIT changed();
}

void Statistics::add(const QString& text, std::chrono::seconds spoken)
{
    const int words = wordsIn(text);
    if (!isKept() || words == 0)
        return;
    Day& today = days_[clock_.wallClock().date()];
    ++today.dictations;
    today.words += words;
    today.spoken += spoken;
    write();
}

Statistics::Day Statistics::total() const
{
    Day sum;
    for (const auto& [date, day] : days_)
        sum = {sum.dictations + day.dictations, sum.words + day.words, sum.spoken + day.spoken};
    return sum;
}

bool Statistics::isKept() const
{
    return defaults_.get(setting::keepStatistics);
}

void Statistics::setKept(bool on)
{
    defaults_.set(setting::keepStatistics, on);
}

std::chrono::minutes Statistics::saved(const Day& day)
{
    const auto typed = std::chrono::seconds(day.words * 60 / wordsPerMinute);
    return std::chrono::duration_cast<std::chrono::minutes>(std::max(typed - day.spoken, std::chrono::seconds(0)));
}

int Statistics::wordsIn(const QString& text)
{
    static const QRegularExpression wide(
        QStringLiteral("[\\p{Han}\\p{Hiragana}\\p{Katakana}\\p{Thai}\\p{Lao}\\p{Khmer}]"));
    static const QRegularExpression word(QStringLiteral("[\\p{L}\\p{N}][\\p{L}\\p{N}\\p{M}'\\x{2019}-]*"));
    const auto count = [](const QRegularExpression& pattern, const QString& in) {
        int number = 0;
        for (auto matches = pattern.globalMatch(in); matches.hasNext(); matches.next())
            ++number;
        return number;
    };
    return (count(wide, text) + 1) / 2 + count(word, QString(text).replace(wide, QStringLiteral(" ")));
}

} // namespace vantro
