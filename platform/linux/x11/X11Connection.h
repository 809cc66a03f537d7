#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QSocketNotifier;
// The X library's own names.
struct _XDisplay; // NOLINT(bugprone-reserved-identifier)
union _XEvent;    // NOLINT(bugprone-reserved-identifier)

namespace vantro {

/// The program's own connection to the X server, apart from Qt's: grabs, synthesised keys and other programs' windows.
/// Requests that fail are reported where they were made (X11ErrorTrap) or logged; neither they nor the end of the
/// connection end the program. Needs the Qt application object. Main thread only.
class X11Connection : public QObject
{
    Q_OBJECT
public:
    using Listener = std::function<void(_XEvent&)>;

    /// Connects to @p displayName, or to $DISPLAY when it is empty. Without an X server the object exists and is not
    /// open.
    explicit X11Connection(const QString& displayName = {});
    ~X11Connection() override;

    /// False when there was no server and once the connection has been lost.
    [[nodiscard]] bool isOpen() const;
    /// A sentence for the user that says why isOpen() is false.
    [[nodiscard]] static QString unavailableReason();
    /// To be used while isOpen(). A connection that is lost in the middle of a function stays valid for Xlib, whose
    /// calls then do nothing; without a server it is null.
    [[nodiscard]] _XDisplay* display() const;
    [[nodiscard]] unsigned long rootWindow() const;
    /// The event type of keyboard extension events; negative when the server lacks the extension.
    [[nodiscard]] int xkbEventBase() const { return xkbEventBase_; }

    /// Calls @p listener with every event until @p context is destroyed.
    void addListener(QObject* context, Listener listener);
    /// Adds to what the root window's changes tell; each adapter asks for what it needs.
    void selectRootEvents(long mask);

    /// The key that stands in for a letter which the layout lacks, while it does; 0 otherwise.
    [[nodiscard]] unsigned borrowedKeyCode() const { return borrowedKeyCode_; }
    void setBorrowedKeyCode(unsigned keyCode) { borrowedKeyCode_ = keyCode; }

Q_SIGNALS:
    /// The server is gone or has cut the connection. Emitted once, from the event loop.
    void lost();

private:
    struct Subscription
    {
        QPointer<QObject> context;
        Listener listener;
    };

    void dispatchPending();
    void close();

    struct State;
    std::unique_ptr<State> state_;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::vector<Subscription> listeners_;
    int xkbEventBase_ = -1;
    long rootEventMask_ = 0;
    unsigned borrowedKeyCode_ = 0;

    friend class X11ErrorTrap;
};

} // namespace vantro
