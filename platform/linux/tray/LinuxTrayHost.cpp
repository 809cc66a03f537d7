#include "platform/linux/tray/LinuxTrayHost.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11ErrorTrap.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QGuiApplication>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstring>
#include <memory>
#include <string>
#include <utility>

namespace vantro {

namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
constexpr long requestDock = 0; // System Tray Protocol
constexpr int depthWithAlpha = 32;

} // namespace

LinuxTrayHost::LinuxTrayHost(X11Connection* connection) : connection_(connection)
{
    if (isConnected()) {
        Display* const display = connection_->display();
        const std::string selection = "_NET_SYSTEM_TRAY_S" + std::to_string(DefaultScreen(display));
        selectionAtom_ = XInternAtom(display, selection.c_str(), False);
        managerAtom_ = XInternAtom(display, "MANAGER", False);
        // A new tray sends MANAGER to the root window.
        connection_->selectRootEvents(StructureNotifyMask);
        connection_->addListener(this, [this](XEvent& event) {
            if (event.type == ReparentNotify && event.xreparent.window == embeddedWindow_ &&
                event.xreparent.parent != connection_->rootWindow())
                Q_EMIT embedded(embeddedWindow_);
            const bool hasCome = event.type == ClientMessage && event.xclient.message_type == managerAtom_;
            const bool hasGone = event.type == DestroyNotify && event.xdestroywindow.window == trayWindow_;
            if (hasCome || hasGone)
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
        // A watcher may exist without any host.
        for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
            bus.connect(watcherService, watcherPath, watcherService, QLatin1String(signal), this, SLOT(askWatcher()));
        askWatcher();
    }
    look();
}

bool LinuxTrayHost::isConnected() const
{
    return connection_ != nullptr && connection_->isOpen();
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
    const unsigned long formerTray = std::exchange(trayWindow_, findTrayWindow());
    // The preferred kind is unknown until the watcher has answered.
    const Kind kind = hasNotifierHost_                 ? Kind::statusNotifier
                      : trayWindow_ != 0 && !isAsking_ ? Kind::embedding
                                                       : Kind::none;
    const bool isReplaced = kind == Kind::embedding && trayWindow_ != formerTray;
    if (std::exchange(kind_, kind) != kind || isReplaced)
        Q_EMIT kindChanged();
}

unsigned long LinuxTrayHost::findTrayWindow()
{
    if (!isConnected())
        return 0;
    Display* const display = connection_->display();
    const X11ErrorTrap trap(*connection_); // the owner may disappear at any time
    const Window owner = XGetSelectionOwner(display, selectionAtom_);
    if (owner != None)
        XSelectInput(display, owner, StructureNotifyMask);
    return owner;
}

bool LinuxTrayHost::embedsTranslucent() const
{
    if (!isConnected() || trayWindow_ == 0)
        return false;
    Display* const display = connection_->display();
    const X11ErrorTrap trap(*connection_);
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, trayWindow_, XInternAtom(display, "_NET_SYSTEM_TRAY_VISUAL", False), 0, 1, False,
                       XA_VISUALID, &type, &format, &count, &rest, &data);
    const std::unique_ptr<unsigned char, int (*)(void*)> holder(data, XFree);
    if (type != XA_VISUALID || format != 32 || count != 1)
        return false;
    XVisualInfo wanted = {};
    std::memcpy(&wanted.visualid, data, sizeof wanted.visualid);
    int found = 0;
    const std::unique_ptr<XVisualInfo, int (*)(void*)> visual(XGetVisualInfo(display, VisualIDMask, &wanted, &found),
                                                              XFree);
    return found == 1 && visual->depth == depthWithAlpha;
}

void LinuxTrayHost::embed(WindowID window)
{
    const auto* const application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (application == nullptr || !isConnected() || trayWindow_ == 0)
        return;
    // Sync Qt's connection, which created the window: the server must know it before the tray does.
    if (!embedsTranslucent())
        XSetWindowBackgroundPixmap(application->display(), window, ParentRelative);
    XSync(application->display(), False);

    Display* const display = connection_->display();
    const X11ErrorTrap trap(*connection_);
    embeddedWindow_ = window;
    XSelectInput(display, window, StructureNotifyMask);
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = trayWindow_;
    event.xclient.message_type = XInternAtom(display, "_NET_SYSTEM_TRAY_OPCODE", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = CurrentTime;
    event.xclient.data.l[1] = requestDock;
    event.xclient.data.l[2] = static_cast<long>(window);
    XSendEvent(display, trayWindow_, False, NoEventMask, &event);
    XFlush(display);
}

} // namespace vantro
