#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

class QSocketNotifier;
struct wl_display;
struct wl_interface;
struct wl_registry;
struct wl_seat;

namespace vantro {

/// A connection of the program's own to the compositor, separate from Qt's, for what Qt does not speak: other programs'
/// windows, keys, the clipboard. Requires a Qt application object for its events; a connection without them is driven
/// by its owner. One thread, that which made it.
class WaylandConnection : public QObject
{
    Q_OBJECT
public:
    enum class Events {
        byEventLoop,
        byOwner, ///< through dispatch()
    };

    /// Connects to $WAYLAND_DISPLAY. Not open if there is no compositor.
    explicit WaylandConnection(Events events = Events::byEventLoop);
    ~WaylandConnection() override;

    /// False if there is no compositor or the connection has been lost.
    [[nodiscard]] bool isOpen() const;
    /// A sentence for the user that says why isOpen() is false.
    [[nodiscard]] static QString unavailableReason();
    /// Null only if there was no compositor at the beginning.
    [[nodiscard]] wl_display* display() const { return display_; }
    /// Readable when there are events.
    [[nodiscard]] int descriptor() const;

    [[nodiscard]] bool offers(const char* interface) const;
    /// The compositor's object of this interface, in @p version or what older one it has; null if it offers none. The
    /// caller destroys it.
    [[nodiscard]] void* bind(const wl_interface& interface, std::uint32_t version) const;
    /// The user's keyboard and pointer; null if there is none.
    [[nodiscard]] wl_seat* seat() const { return seat_; }

    /// Waits until the compositor has handled every request. False if it does not within a second, or is gone.
    bool roundTrip();
    /// Sends what waits to be sent, and handles what has come.
    void dispatch();

private:
    struct Global
    {
        std::uint32_t name;
        QByteArray interface;
        std::uint32_t version;
    };
    struct Callbacks;

    bool roundTrip(std::chrono::milliseconds limit);
    [[nodiscard]] bool readUntil(const bool& isDone, std::chrono::steady_clock::time_point giveUp);

    wl_display* display_ = nullptr;
    wl_registry* registry_ = nullptr;
    wl_seat* seat_ = nullptr;
    std::vector<Global> globals_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace vantro
