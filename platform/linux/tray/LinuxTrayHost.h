#pragma once

#include "platform/TrayHost.h"

#include <QDBusPendingCall>
#include <QDBusServiceWatcher>

namespace vantro {

class X11Connection;

/// StatusNotifier hosts by their watcher on the session bus, and trays of the older kind by the selection that they own
/// on the X server (System Tray Protocol). A host that comes later is noticed.
class LinuxTrayHost final : public TrayHost
{
    Q_OBJECT
public:
    /// @p connection must outlive this object.
    explicit LinuxTrayHost(X11Connection& connection);

    [[nodiscard]] Kind kind() const override { return kind_; }
    [[nodiscard]] bool embedsTranslucent() const override;
    void embed(WindowID window) override;

private Q_SLOTS:
    void askWatcher();

private:
    void setHasNotifierHost(bool hasHost);
    void look();
    [[nodiscard]] unsigned long findTrayWindow();

    X11Connection& connection_;
    QDBusServiceWatcher watcher_;
    unsigned long trayWindow_ = 0;     ///< of the older kind; 0 for none
    unsigned long embeddedWindow_ = 0; ///< the one that was given to it last
    unsigned long selectionAtom_ = 0;
    unsigned long managerAtom_ = 0;
    bool hasNotifierHost_ = false;
    bool isAsking_ = false;
    Kind kind_ = Kind::none;
};

} // namespace vantro
