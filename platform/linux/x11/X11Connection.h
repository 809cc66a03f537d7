#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QSocketNotifier;
// Xlib's names.
struct _XDisplay; // NOLINT(bugprone-reserved-identifier)
union _XEvent;    // NOLINT(bugprone-reserved-identifier)

namespace vantro {

/// The program's X connection, separate from Qt's, for grabs, synthetic keys and other programs' windows. Failed
/// requests are reported through X11ErrorTrap or logged; neither they nor a lost connection end the program. Requires a
/// Qt application object. Main thread only.
class X11Connection : public QObject
{
    Q_OBJECT
public:
    using Listener = std::function<void(_XEvent&)>;

    /// Connects to @p displayName, by default $DISPLAY. Not open if there is no X server.
    explicit X11Connection(const QString& displayName = {});
    ~X11Connection() override;

    /// False if there is no server or the connection has been lost.
    [[nodiscard]] bool isOpen() const;
    /// A sentence for the user that says why isOpen() is false.
    [[nodiscard]] static QString unavailableReason();
    /// Use only while isOpen(). If the connection is lost meanwhile, the pointer stays valid and Xlib calls become
    /// no-ops; null without a server.
    [[nodiscard]] _XDisplay* display() const;
    [[nodiscard]] unsigned long rootWindow() const;
    /// The event type of XKB events; negative without the extension.
    [[nodiscard]] int xkbEventBase() const { return xkbEventBase_; }

    /// Calls @p listener with every event until @p context is destroyed.
    void addListener(QObject* context, Listener listener);
    /// Adds @p mask to the events selected on the root window.
    void selectRootEvents(long mask);
    /// Takes it away again.
    void deselectRootEvents(long mask);

    /// Ends the grab of a hot key that is held down; its release will go to the window in front.
    void ungrabKeyboard();

    /// The key currently remapped to a letter that the layout lacks; 0 if none.
    [[nodiscard]] unsigned borrowedKeyCode() const { return borrowedKeyCode_; }
    void setBorrowedKeyCode(unsigned keyCode) { borrowedKeyCode_ = keyCode; }

Q_SIGNALS:
    /// The connection was lost. Emitted once, from the event loop.
    void lost();
    void keyboardUngrabbed();

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
