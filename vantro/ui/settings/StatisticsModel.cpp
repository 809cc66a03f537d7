#include "vantro/ui/settings/StatisticsModel.h"

#include <QLocale>

#include <algorithm>

namespace vantro {

namespace {

int wordsOn(const Statistics& statistics, QDate date)
{
    const auto day = statistics.days().find(date);
    return day != statistics.days().end() ? day->second.words : 0;
}

} // namespace

StatisticsModel::StatisticsModel(Statistics& statistics, Clock& clock) : statistics_(statistics), clock_(clock)
{
    connect(&statistics, &Statistics::changed, this, &StatisticsModel::changed);
}

QString StatisticsModel::total() const
{
    const Statistics::Day sum = statistics_.total();
    if (sum.words == 0)
        return tr("Your words will be counted here. Press your shortcut and speak.");
    return tr("Words in the last year: %1. Dictations: %2.")
        .arg(QLocale().toString(sum.words), QLocale().toString(sum.dictations));
}

QString StatisticsModel::saved() const
{
    const auto minutes = Statistics::saved(statistics_.total()).count();
    if (minutes == 0)
        return {};
    const auto hours = minutes / 60;
    const QString time = hours > 0 ? tr("%1 h %2 min").arg(hours).arg(minutes % 60) : tr("%1 min").arg(minutes);
    return tr("Typing them at 40 words a minute would have taken %1 longer.").arg(time);
}

int StatisticsModel::mostWords() const
{
    int most = 0;
    for (int ago = 0; ago < shownDays; ++ago)
        most = std::max(most, wordsOn(statistics_, clock_.wallClock().date().addDays(-ago)));
    return most;
}

QVariantList StatisticsModel::bars() const
{
    const int most = std::max(mostWords(), 1);
    QVariantList list;
    for (int ago = shownDays - 1; ago >= 0; --ago) {
        const QDate date = clock_.wallClock().date().addDays(-ago);
        const int words = wordsOn(statistics_, date);
        list << QVariantMap{{QStringLiteral("height"), static_cast<double>(words) / most},
                            {QStringLiteral("words"), words},
                            {QStringLiteral("name"), QLocale().toString(date, QLocale::ShortFormat)}};
    }
    return list;
}

QString StatisticsModel::best() const
{
    const int most = mostWords();
    return most == 0 ? QString() : tr("Words a day in the last 30 days, %1 at most.").arg(QLocale().toString(most));
}

} // namespace vantro
