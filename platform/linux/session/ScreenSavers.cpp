#include "platform/linux/session/ScreenSavers.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace vantro {

namespace {

/// They differ in the interface and in nothing else.
constexpr const char* interfaces[] = {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver",
                                      "org.cinnamon.ScreenSaver", "org.mate.ScreenSaver", "org.xfce.ScreenSaver"};

} // namespace

ScreenSavers::ScreenSavers()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    watcher_.setConnection(bus);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, &ScreenSavers::forget);
    // From whomever, at whatever path: each desktop has its own, and looking for an owner would wait for the bus.
    for (const char* const interface : interfaces)
        bus.connect({}, {}, QLatin1String(interface), QStringLiteral("ActiveChanged"), this, SLOT(activeChanged(bool)));
}

void ScreenSavers::activeChanged(bool isActive)
{
    const QString sender = message().service();
    if (!isActive) {
        forget(sender);
    } else if (!active_.contains(sender)) {
        active_.insert(sender);
        watcher_.addWatchedService(sender);
        Q_EMIT changed();
    }
}

void ScreenSavers::forget(const QString& sender)
{
    watcher_.removeWatchedService(sender);
    if (active_.remove(sender))
        Q_EMIT changed();
}

} // namespace vantro
