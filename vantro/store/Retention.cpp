#include "vantro/store/Retention.h"

#include "base/Logger.h"
#include "base/Settings.h"

#include <utility>

namespace vantro {

namespace {

constexpr std::chrono::hours aDay{24};
const auto forever = QLatin1String("forever");
const auto never = QLatin1String("never");

} // namespace

Retention::Retention(UserDefaults& defaults, HistoryJobs& jobs, Clock& clock)
    : defaults_(defaults)
    , jobs_(jobs)
    , clock_(clock)
{
}

void Retention::start()
{
    // Queued: who changes a setting does not expect the store to change meanwhile.
    const auto follow = [this](const QString& key) {
        if (key == setting::keepHistory.key)
            deleteOld();
    };
    connect(&defaults_, &UserDefaults::changed, this, follow, Qt::QueuedConnection);
    enforceDaily();
}

void Retention::enforceDaily()
{
    deleteOld();
    clock_.callAfter(aDay, this, [this] { enforceDaily(); });
}

std::optional<int> Retention::daysFrom(const QString& text)
{
    if (text == never)
        return 0;
    bool isNumber = false;
    const int days = text.toInt(&isNumber);
    return isNumber && days > 0 ? std::optional(days) : std::nullopt;
}

QString Retention::textOf(std::optional<int> days)
{
    return !days ? forever : *days == 0 ? never : QString::number(*days);
}

bool Retention::isKeeping() const
{
    return !isPrivate_ && daysFrom(defaults_.get(setting::keepHistory)) != 0;
}

void Retention::setPrivate(bool on)
{
    if (std::exchange(isPrivate_, on) != on)
        Q_EMIT privateChanged();
}

QDateTime Retention::limit(std::optional<int> days) const
{
    return days ? clock_.wallClock().addDays(-*days) : QDateTime();
}

QCoro::Task<> Retention::deleteOld()
{
    const QDateTime moment = limit(daysFrom(defaults_.get(setting::keepHistory)));
    if (!moment.isValid())
        co_return;
    try {
        const auto deleting = jobs_.removeBefore(moment);
        const int count = co_await deleting;
        if (count > 0)
            Logger("Retention").info(QStringLiteral("%1 old dictations deleted").arg(count));
    } catch (const Error& error) {
        Logger("Retention").error(QStringLiteral("Old dictations not deleted: ") + error.localizedDescription());
    }
}

} // namespace vantro
