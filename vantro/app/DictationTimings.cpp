#include "vantro/app/DictationTimings.h"

namespace vantro {

QJsonObject DictationTimings::toJson() const
{
    QJsonObject object{{QStringLiteral("engine_us"), static_cast<qint64>(engine.count())}};
    const auto add = [&object](const QString& name, const std::optional<Clock::Instant>& instant) {
        if (instant) {
            const auto time = std::chrono::duration_cast<std::chrono::microseconds>(instant->time_since_epoch());
            object.insert(name, static_cast<qint64>(time.count()));
        }
    };
    add(QStringLiteral("shortcut_us"), shortcut);
    add(QStringLiteral("first_sample_us"), firstSample);
    add(QStringLiteral("stopped_us"), stopped);
    add(QStringLiteral("text_ready_us"), textReady);
    add(QStringLiteral("pasted_us"), pasted);
    return object;
}

} // namespace vantro
