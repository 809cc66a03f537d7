#pragma once

#include "platform/linux/wayland/WaylandToplevels.h"

struct org_kde_plasma_window_management;

namespace vantro {

/// By KDE's own protocol, which its compositor has for programs whose desktop entry asks for it.
class PlasmaToplevels final : public WaylandToplevels
{
    Q_OBJECT
public:
    [[nodiscard]] static bool areOffered(const WaylandConnection& connection);

    /// Only if they are offered.
    explicit PlasmaToplevels(WaylandConnection& connection);
    ~PlasmaToplevels() override;

    [[nodiscard]] QString way() const override { return QStringLiteral("plasma-window-management"); }
    void activate(WindowID id) override;

private:
    struct Callbacks;

    WaylandConnection& connection_;
    org_kde_plasma_window_management* management_;
};

} // namespace vantro
