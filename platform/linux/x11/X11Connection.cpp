#include "platform/linux/x11/X11Connection.h"

#include "base/Logger.h"
#include "platform/linux/x11/X11ErrorTrap.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSocketNotifier>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>

#include <algorithm>
#include <cstdlib>
#include <mutex>
#include <utility>

namespace vantro {

struct X11Connection::State
{
    X11Connection* owner = nullptr;
    Display* display = nullptr;
    X11ErrorTrap* trap = nullptr;
    bool lost = false;

    void failed(const XErrorEvent& error)
    {
        if (trap != nullptr && !trap->first_)
            trap->first_ = error.error_code;
        else if (trap == nullptr)
            Logger("X11Connection")
                .debug(
                    QStringLiteral("Request %1 failed with X error %2").arg(error.request_code).arg(error.error_code));
    }

    // Xlib's error handlers are per process, so a per-process registry tells our connections from others. Previous
    // handlers (Qt's among them) still receive all other errors.
    class Registry
    {
    public:
        void add(State* state)
        {
            const std::scoped_lock lock(mutex_);
            if (states_.empty()) {
                previousError_ = XSetErrorHandler(onError);
                previousIoError_ = XSetIOErrorHandler(onIoError);
            }
            states_.push_back(state);
        }

        void remove(State* state)
        {
            const std::scoped_lock lock(mutex_);
            std::erase(states_, state);
            if (!states_.empty())
                return;
            XSetErrorHandler(previousError_);
            XSetIOErrorHandler(previousIoError_);
        }

        State* find(Display* display)
        {
            const std::scoped_lock lock(mutex_);
            const auto found = std::ranges::find(states_, display, &State::display);
            return found != states_.end() ? *found : nullptr;
        }

        static Registry& instance()
        {
            static Registry registry;
            return registry;
        }

    private:
        static int onError(Display* display, XErrorEvent* error)
        {
            if (State* const state = instance().find(display); state != nullptr) {
                state->failed(*error);
                return 0;
            }
            return instance().previousError_ != nullptr ? instance().previousError_(display, error) : 0;
        }

        static int onIoError(Display* display)
        {
            if (instance().find(display) != nullptr)
                return 0;
            return instance().previousIoError_ != nullptr ? instance().previousIoError_(display) : 0;
        }

        std::mutex mutex_;
        std::vector<State*> states_;
        XErrorHandler previousError_ = nullptr;
        XIOErrorHandler previousIoError_ = nullptr;
    };

    // Called from within the Xlib call that detected the error, which then fails.
    static void onIoErrorExit(Display*, void* data)
    {
        auto* const state = static_cast<State*>(data);
        if (std::exchange(state->lost, true))
            return;
        QMetaObject::invokeMethod(
            state->owner, [owner = state->owner] { owner->close(); }, Qt::QueuedConnection);
    }
};

X11Connection::X11Connection(const QString& displayName) : state_(std::make_unique<State>())
{
    state_->owner = this;
    const QByteArray name = displayName.toLocal8Bit();
    int opcode = 0;
    int errorBase = 0;
    int major = XkbMajorVersion;
    int minor = XkbMinorVersion;
    state_->display = XOpenDisplay(name.isEmpty() ? nullptr : name.constData());
    if (state_->display == nullptr)
        return;
    State::Registry::instance().add(state_.get());
    XSetIOErrorExitHandler(state_->display, &State::onIoErrorExit, state_.get());
    if (XkbQueryExtension(state_->display, &opcode, &xkbEventBase_, &errorBase, &major, &minor) == 0)
        xkbEventBase_ = -1;

    notifier_ = std::make_unique<QSocketNotifier>(ConnectionNumber(state_->display), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &X11Connection::dispatchPending);
    // Any round trip may move events into Xlib's queue, where the socket notifier does not see them.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &X11Connection::dispatchPending);
}

X11Connection::~X11Connection()
{
    if (state_->display == nullptr)
        return;
    notifier_.reset();
    XCloseDisplay(state_->display);
    State::Registry::instance().remove(state_.get());
}

bool X11Connection::isOpen() const
{
    return state_->display != nullptr && !state_->lost;
}

QString X11Connection::unavailableReason()
{
    return QCoreApplication::translate("X11Connection", "There is no connection to an X server. Start vantro inside a "
                                                        "graphical session, with DISPLAY set.");
}

Display* X11Connection::display() const
{
    return state_->display;
}

unsigned long X11Connection::rootWindow() const
{
    return state_->display != nullptr ? DefaultRootWindow(state_->display) : 0;
}

void X11Connection::addListener(QObject* context, Listener listener)
{
    listeners_.push_back({context, std::move(listener)});
}

void X11Connection::selectRootEvents(long mask)
{
    rootEventMask_ |= mask;
    if (isOpen())
        XSelectInput(state_->display, rootWindow(), rootEventMask_);
}

void X11Connection::deselectRootEvents(long mask)
{
    rootEventMask_ &= ~mask;
    if (isOpen())
        XSelectInput(state_->display, rootWindow(), rootEventMask_);
}

void X11Connection::ungrabKeyboard()
{
    XUngrabKeyboard(state_->display, CurrentTime);
    Q_EMIT keyboardUngrabbed();
}

void X11Connection::dispatchPending()
{
    std::erase_if(listeners_, [](const Subscription& subscription) { return subscription.context == nullptr; });
    while (isOpen() && XPending(state_->display) > 0) {
        XEvent event;
        XNextEvent(state_->display, &event);
        if (!isOpen())
            break;
        if (event.type == MappingNotify)
            XRefreshKeyboardMapping(&event.xmapping);
        const auto current = listeners_;
        for (const Subscription& subscription : current) {
            if (subscription.context != nullptr)
                subscription.listener(event);
        }
    }
}

void X11Connection::close()
{
    notifier_.reset();
    Logger("X11Connection").error(QStringLiteral("The connection to the X server was lost"));
    Q_EMIT lost();
}

X11ErrorTrap::X11ErrorTrap(X11Connection& connection) : connection_(connection), outer_(connection.state_->trap)
{
    // Flush errors of earlier requests.
    if (connection_.isOpen())
        XSync(connection_.display(), False);
    connection_.state_->trap = this;
}

X11ErrorTrap::~X11ErrorTrap()
{
    std::ignore = sync();
    connection_.state_->trap = outer_;
}

std::optional<X11ErrorTrap::ErrorCode> X11ErrorTrap::sync()
{
    if (connection_.isOpen())
        XSync(connection_.display(), False);
    if (!connection_.isOpen())
        return connectionLost;
    return std::exchange(first_, std::nullopt);
}

} // namespace vantro
