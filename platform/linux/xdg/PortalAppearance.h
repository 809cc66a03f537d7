#pragma once

#include "platform/DesktopAppearance.h"

#include <QDBusVariant>

namespace vantro {

/// The desktop portal's settings (org.freedesktop.portal.Settings), read asynchronously. All values are nullopt until
/// the answer arrives, or without a portal.
class PortalAppearance final : public DesktopAppearance
{
    Q_OBJECT
public:
    PortalAppearance();

    [[nodiscard]] std::optional<bool> isDark() const override { return isDark_; }
    [[nodiscard]] std::optional<bool> animationsEnabled() const override { return animationsEnabled_; }

private Q_SLOTS:
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

private:
    void take(const QString& space, const QString& key, const QVariant& value);

    std::optional<bool> isDark_;
    std::optional<bool> animationsEnabled_;
};

} // namespace vantro
