#pragma once

#include "platform/WindowID.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace vantro {

class WaylandConnection;

/// The windows on the desktop, the program's own included, as the compositor tells of them. Main thread only.
class WaylandToplevels : public QObject
{
    Q_OBJECT
public:
    struct Toplevel
    {
        WindowID id = 0; ///< never that of another window, nor one that Qt gives
        QString appId;
        QString title;
        bool isActivated = false;
    };

    /// By whichever protocol the compositor has; null if it has none. @p connection must outlive the result.
    [[nodiscard]] static std::unique_ptr<WaylandToplevels> of(WaylandConnection& connection);

    /// The protocol's name.
    [[nodiscard]] virtual QString way() const = 0;
    /// Asks the compositor to give it the keyboard.
    virtual void activate(WindowID id) = 0;

    /// The one that has the keyboard; nullopt while a panel, a menu of the desktop or a locker has it.
    [[nodiscard]] std::optional<Toplevel> activated() const;
    [[nodiscard]] std::optional<Toplevel> find(WindowID id) const;
    /// By its program and title; of several, any.
    [[nodiscard]] std::optional<Toplevel> find(const QString& appId, const QString& title) const;

Q_SIGNALS:
    void changed();

protected:
    /// The compositor's object for a window, and what it has told.
    struct Window
    {
        void* handle = nullptr;
        Toplevel pending; ///< until it says that it has told everything
        Toplevel present;
    };

    WaylandToplevels();

    Window& add(void* handle);
    [[nodiscard]] Window& windowOf(const void* handle);
    /// The object of a window; null if it is gone.
    [[nodiscard]] void* handleOf(WindowID id) const;
    void remove(const void* handle);
    [[nodiscard]] const std::vector<std::unique_ptr<Window>>& windows() const { return windows_; }

private:
    std::vector<std::unique_ptr<Window>> windows_;
    WindowID lastId_;
};

} // namespace vantro
