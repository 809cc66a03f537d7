#pragma once

#include <QDBusContext>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QSet>

namespace vantro {

/// The desktops' screen savers and lockers on the session bus. A locker that ends without a word is not active any
/// more.
class ScreenSavers final : public QObject, protected QDBusContext
{
    Q_OBJECT
public:
    ScreenSavers();

    [[nodiscard]] bool isAnyActive() const { return !active_.isEmpty(); }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void activeChanged(bool isActive);

private:
    void forget(const QString& sender);

    QDBusServiceWatcher watcher_;
    QSet<QString> active_; ///< their unique names on the bus
};

} // namespace vantro
