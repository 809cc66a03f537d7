#pragma once

#include "base/UserDefaults.h"
#include "vantro/store/HistoryJobs.h"

#include <QObject>

#include <optional>

namespace vantro {

/// How long dictations stay in the history, and whether new ones get there. Notes stay until they are deleted. Main
/// thread.
class Retention final : public QObject
{
    Q_OBJECT
public:
    /// All outlive this object.
    Retention(UserDefaults& defaults, HistoryJobs& jobs, Clock& clock);

    /// From now on deletes what is older: at once, once a day, and when the setting changes.
    void start();

    /// Days of the setting "keepHistory": nullopt is for ever, 0 never.
    [[nodiscard]] static std::optional<int> daysFrom(const QString& text);
    [[nodiscard]] static QString textOf(std::optional<int> days);

    /// Whether a dictation that ends now is stored.
    [[nodiscard]] bool isKeeping() const;
    /// Until the process ends, or it is taken back, no dictation is stored.
    [[nodiscard]] bool isPrivate() const { return isPrivate_; }
    void setPrivate(bool on);
    /// What is older is deleted with @p days; invalid when nothing is.
    [[nodiscard]] QDateTime limit(std::optional<int> days) const;

Q_SIGNALS:
    void privateChanged();

private:
    QCoro::Task<> deleteOld();
    void enforceDaily();

    UserDefaults& defaults_;
    HistoryJobs& jobs_;
    Clock& clock_;
    bool isPrivate_ = false;
};

} // namespace vantro
