#include "platform/linux/tray/LinuxTrayHost.h"

#include "platform/linux/x11/X11Connection.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <X11/Xlib.h>

#include <string>
#include <utility>

namespace vantro {

namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

} // namespace

LinuxTrayHost::LinuxTrayHost(X11Connection& connection) : connection_(connection)
{
    if (connection_.isOpen()) {
        Display* const display = connection_.display();
        const std::string selection = "_NET_SYSTEM_TRAY_S" + std::to_string(DefaultScreen(display));
        selectionAtom_ = XInternAtom(display, selection.c_str(), False);
        managerAtom_ = XInternAtom(display, "MANAGER", False);
        // A tray announces itself to the root window.
        connection_.selectRootEvents(StructureNotifyMask);
        connection_.addListener(this, [this](XEvent& event) {
            if (event.type == ClientMessage && event.xclient.message_type == managerAtom_)
                look();
        });
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        watcher_.setConnection(bus);
        watcher_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
        watcher_.addWatchedService(watcherService);
        connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &LinuxTrayHost::askWatcher);
        connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, [this] { setHasNotifierHost(false); });
        // A watcher may be there before anything that shows icons is.
        for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
            bus.connect(watcherService, watcherPath, watcherService, QLatin1String(signal), this, SLOT(askWatcher()));
        askWatcher();
    }
    look();
}

void LinuxTrayHost::askWatcher()
{
    if (std::exchange(isAsking_, true))
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(
        watcherService, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << watcherService << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        isAsking_ = false;
        setHasNotifierHost(!answer->isError() &&
                           answer->reply().arguments().value(0).value<QDBusVariant>().variant().toBool());
    });
}

void LinuxTrayHost::setHasNotifierHost(bool hasHost)
{
    hasNotifierHost_ = hasHost;
    look();
}

void LinuxTrayHost::look()
{
    const bool isEmbedding = connection_.isOpen() && XGetSelectionOwner(connection_.display(), selectionAtom_) != None;
    // Until the watcher has answered it is unknown whether the better kind is there.
    const Kind kind = hasNotifierHost_            ? Kind::statusNotifier
                      : isEmbedding && !isAsking_ ? Kind::embedding
                                                  : Kind::none;
    if (std::exchange(kind_, kind) != kind)
        Q_EMIT kindChanged();
}

} // namespace vantro
