// Presses a shortcut many times on a real X server. Prints one line per press: the microseconds from the key event to
// the shortcut's handler, and to a bare X client that only waits for it.
#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "platform/KeyCode.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11HotKeyManager.h"
#include "tests/desktop/DesktopUser.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <X11/Xlib.h>

#include <cstdio>
#include <cstdlib>

using namespace vantro;

namespace {

constexpr unsigned placeF9 = 75;
constexpr unsigned placeF10 = 76;
constexpr std::uint32_t keyF9 = 101;

qint64 microseconds(const QElapsedTimer& time)
{
    return time.nsecsElapsed() / 1000;
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const int runs = argc > 1 ? std::atoi(argv[1]) : 100;
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(QStringLiteral("vantro.ini")));
    NotificationCenter notifications;
    X11Connection connection;
    X11HotKeyManager hotKeys(connection);
    KeyboardShortcuts shortcuts(hotKeys, defaults, notifications);
    shortcuts.setShortcut(KeyboardShortcuts::Name::openModal, KeyboardShortcuts::Shortcut({keyF9}, 0));
    QObject owner;
    QElapsedTimer time;
    qint64 oursUs = -1;
    int releases = 0;
    const auto down =
        shortcuts.onKeyDown(KeyboardShortcuts::Name::openModal, owner, [&] { oursUs = microseconds(time); });
    const auto up = shortcuts.onKeyUp(KeyboardShortcuts::Name::openModal, owner, [&] { ++releases; });

    Display* const other = XOpenDisplay(nullptr);
    XGrabKey(other, placeF10, 0, DefaultRootWindow(other), False, GrabModeAsync, GrabModeAsync);
    XSync(other, False);
    desktop::DesktopUser user;
    for (int run = 0; run < runs; ++run) {
        oursUs = -1;
        time.start();
        user.press(placeF9);
        if (!desktop::eventually([&] { return oursUs >= 0; }))
            return EXIT_FAILURE;
        user.release(placeF9);
        if (!desktop::eventually([&] { return releases == run + 1; }))
            return EXIT_FAILURE;

        XEvent event;
        time.start();
        user.press(placeF10);
        XNextEvent(other, &event);
        const qint64 theirsUs = microseconds(time);
        user.release(placeF10);
        XNextEvent(other, &event);
        std::printf("%lld %lld\n", static_cast<long long>(oursUs), static_cast<long long>(theirsUs));
    }
    XCloseDisplay(other);
    return EXIT_SUCCESS;
}
