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

using Spans = std::vector<std::optional<int>>;

/// A command can set any number of days.
Spans spansWith(std::optional<int> days)
{
    Spans all{std::nullopt, year, quarter, month, week, 0};
    if (std::ranges::find(all, days) == all.end())
        all.insert(all.end() - 1, days);
    return all;
}

QStringList namesOf(const Spans& spans)
{
    QStringList names;
    for (const auto& each : spans)
        names << (!each           ? PrivacySettings::tr("For ever")
                  : *each == 0    ? PrivacySettings::tr("Not at all")
                  : *each == year ? PrivacySettings::tr("One year")
                                  : PrivacySettings::tr("%1 days").arg(*each));
    return names;
}

template <typename Value>
int placeOf(const Value& value, const std::vector<Value>& all)
{
    return static_cast<int>(std::ranges::find(all, value) - all.begin());
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

QStringList PrivacySettings::spans() const
{
    return namesOf(spansWith(days()));
}

int PrivacySettings::span() const
{
    return placeOf(days(), spansWith(days()));
}

QStringList PrivacySettings::recordingSpans() const
{
    return namesOf(spansWith(recordingDays()));
}

int PrivacySettings::recordingSpan() const
{
    return placeOf(recordingDays(), spansWith(recordingDays()));
}

void PrivacySettings::setRecordingSpan(int index)
{
    limitRecordings(spansWith(recordingDays()).at(static_cast<std::size_t>(index)),
                    parts_.defaults.get(setting::keepRecordingsMegabytes));
}

std::vector<qint64> PrivacySettings::sizes() const
{
    std::vector<qint64> all{100, 500, 1'000, 5'000, 20'000};
    const qint64 set = parts_.defaults.get(setting::keepRecordingsMegabytes);
    if (std::ranges::find(all, set) == all.end())
        all.insert(std::ranges::lower_bound(all, set), set);
    return all;
}

QStringList PrivacySettings::recordingSizes() const
{
    constexpr qint64 gigabyte = 1'000;
    QStringList names;
    for (const qint64 megabytes : sizes())
        names << (megabytes % gigabyte == 0 ? tr("%1 GB").arg(megabytes / gigabyte) : tr("%1 MB").arg(megabytes));
    return names;
}

int PrivacySettings::recordingSize() const
{
    return placeOf(parts_.defaults.get(setting::keepRecordingsMegabytes), sizes());
}

void PrivacySettings::setRecordingSize(int index)
{
    limitRecordings(recordingDays(), sizes().at(static_cast<std::size_t>(index)));
}

void PrivacySettings::limitRecordings(std::optional<int> days, qint64 megabytes)
{
    const auto set = [this, days, megabytes] {
        parts_.defaults.change([&] {
            parts_.defaults.set(setting::keepRecordings, Retention::textOf(days));
            parts_.defaults.set(setting::keepRecordingsMegabytes, megabytes);
        });
    };
    const int beyond = parts_.countBeyond(days, megabytes);
    if (beyond == 0)
        set();
    else
        parts_.confirm(
            tr("Delete Recordings"),
            tr("Recordings beyond that: %1. They will be deleted now and cannot be restored. The texts stay.")
                .arg(inFigures(beyond)),
            [self = QPointer<PrivacySettings>(this), set] {
                if (self)
                    set();
            });
    Q_EMIT changed(); // until the answer is there, what is set stays
}

std::optional<int> PrivacySettings::recordingDays() const
{
    return Retention::daysFrom(parts_.defaults.get(setting::keepRecordings));
}

void PrivacySettings::setSpan(int index)
{
    const auto wanted = spansWith(days()).at(static_cast<std::size_t>(index));
    const auto set = [this, wanted] {
        parts_.defaults.set(setting::keepHistory, Retention::textOf(wanted));
    };
    const int older = wanted ? parts_.countOlder(*wanted) : 0;
    if (older == 0)
        set();
    else
        parts_.confirm(tr("Delete Older Dictations"),
                       tr("Dictations that are older than that: %1. They will be deleted now and cannot be restored.")
                           .arg(inFigures(older)),
                       [self = QPointer<PrivacySettings>(this), set] {
                           if (self)
                               set();
                       });
    Q_EMIT changed(); // until the answer is there, what is set stays
}

QString PrivacySettings::stored() const
{
    return tr("Dictations: %1. Notes: %2. Recordings: %3. Together %4, in %5.")
        .arg(inFigures(stored_.dictations), inFigures(stored_.notes), inFigures(stored_.recordings),
             QLocale().formattedDataSize(stored_.bytes), stored_.folder);
}

void PrivacySettings::clearAll()
{
    parts_.confirm(tr("Clear All"),
                   tr("Dictations: %1. Notes: %2. They will be deleted, with all recordings and summaries, and cannot "
                      "be had back.")
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
