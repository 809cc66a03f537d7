#pragma once

#include "platform/linux/wayland/WaylandToplevels.h"

struct zwlr_foreign_toplevel_manager_v1;

namespace vantro {

/// By the protocol of wlroots.
class WlrToplevels final : public WaylandToplevels
{
    Q_OBJECT
public:
    [[nodiscard]] static bool areOffered(const WaylandConnection& connection);

    /// Only if they are offered.
    explicit WlrToplevels(WaylandConnection& connection);
    ~WlrToplevels() override;

    [[nodiscard]] QString way() const override { return QStringLiteral("foreign-toplevel"); }
    void activate(WindowID id) override;

private:
    struct Callbacks;

    WaylandConnection& connection_;
    zwlr_foreign_toplevel_manager_v1* manager_;
};

} // namespace vantro
