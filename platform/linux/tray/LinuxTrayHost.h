#pragma once

#include "platform/TrayHost.h"

#include <QDBusPendingCall>
#include <QDBusServiceWatcher>

namespace vantro {

class X11Connection;

/// Finds StatusNotifier hosts through their watcher on the session bus, and XEmbed trays through their X selection
/// (System Tray Protocol). Notices hosts that appear later.
class LinuxTrayHost final : public TrayHost
{
    Q_OBJECT
public:
    /// @p connection must outlive this object; null where there is no X11 desktop, and so no XEmbed tray.
    explicit LinuxTrayHost(X11Connection* connection);

    [[nodiscard]] Kind kind() const override { return kind_; }
    [[nodiscard]] bool embedsTranslucent() const override;
    void embed(WindowID window) override;

private Q_SLOTS:
    void askWatcher();

private:
    void setHasNotifierHost(bool hasHost);
    void look();
    [[nodiscard]] bool isConnected() const;
    [[nodiscard]] unsigned long findTrayWindow();

    X11Connection* connection_;
    QDBusServiceWatcher watcher_;
    unsigned long trayWindow_ = 0;     ///< of an XEmbed tray; 0 if there is none
    unsigned long embeddedWindow_ = 0; ///< the window passed to it last
    unsigned long selectionAtom_ = 0;
    unsigned long managerAtom_ = 0;
    bool hasNotifierHost_ = false;
    bool isAsking_ = false;
    Kind kind_ = Kind::none;
};

} // namespace vantro
