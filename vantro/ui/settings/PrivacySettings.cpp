#include "vantro/ui/settings/PrivacySettings.h"

#include "base/Error.h"
#include "base/Settings.h"
#include "vantro/store/Retention.h"

#include <QLocale>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

constexpr int week = 7;
constexpr int month = 30;
constexpr int quarter = 90;
constexpr int year = 365;

QString inFigures(int count)
{
    return QLocale().toString(count);
}

} // namespace

PrivacySettings::PrivacySettings(Parts parts) : parts_(std::move(parts))
{
    connect(&parts_.defaults, &UserDefaults::changed, this, &PrivacySettings::refresh);
    refresh();
}

void PrivacySettings::refresh()
{
    try {
        stored_ = parts_.stored();
        problem_.clear();
    } catch (const Error& error) {
        problem_ = error.localizedDescription();
    }
    Q_EMIT changed();
}

std::optional<int> PrivacySettings::days() const
{
    return Retention::daysFrom(parts_.defaults.get(setting::keepHistory));
}

/// A command can set any number of days.
std::vector<std::optional<int>> PrivacySettings::choices() const
{
    std::vector<std::optional<int>> all{std::nullopt, year, quarter, month, week, 0};
    if (std::ranges::find(all, days()) == all.end())
        all.insert(all.end() - 1, days());
    return all;
}

QStringList PrivacySettings::spans() const
{
    QStringList names;
    for (const auto& each : choices())
        names << (!each           ? tr("For ever")
                  : *each == 0    ? tr("Not at all")
                  : *each == year ? tr("One year")
                                  : tr("%1 days").arg(*each));
    return names;
}

int PrivacySettings::span() const
{
    const auto all = choices();
    return static_cast<int>(std::ranges::find(all, days()) - all.begin());
}

void PrivacySettings::setSpan(int index)
{
    const auto wanted = choices().at(static_cast<std::size_t>(index));
    const auto set = [this, wanted] {
        parts_.defaults.set(setting::keepHistory, Retention::textOf(wanted));
    };
    const int older = wanted ? parts_.countOlder(*wanted) : 0;
    if (older == 0)
        set();
    else
        parts_.confirm(tr("Delete Older Dictations"),
                       tr("Dictations that are older than that: %1. They will be deleted now and cannot be had back.")
                           .arg(inFigures(older)),
                       [self = QPointer<PrivacySettings>(this), set] {
                           if (self)
                               set();
                       });
    Q_EMIT changed(); // until the answer is there, what is set stays
}

QString PrivacySettings::stored() const
{
    return tr("Dictations: %1. Notes: %2. Together %3, in %4.")
        .arg(inFigures(stored_.dictations), inFigures(stored_.notes), QLocale().formattedDataSize(stored_.bytes),
             stored_.folder);
}

void PrivacySettings::clearAll()
{
    parts_.confirm(tr("Clear All"),
                   tr("Dictations: %1. Notes: %2. They will be deleted, with all summaries, and cannot be had back.")
                       .arg(inFigures(stored_.dictations), inFigures(stored_.notes)),
                   [self = QPointer<PrivacySettings>(this)] {
                       if (self)
                           self->clear();
                   });
}

QCoro::Task<> PrivacySettings::clear()
{
    const QPointer<PrivacySettings> self(this);
    QString problem;
    isClearing_ = true;
    Q_EMIT changed();
    try {
        const auto clearing = parts_.clear();
        co_await clearing;
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self)
        co_return;
    isClearing_ = false;
    refresh();
    problem_ = problem;
    Q_EMIT changed();
}

} // namespace vantro
