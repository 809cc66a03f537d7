#pragma once

#include "platform/DesktopAppearance.h"

#include <QDBusMessage>

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
    // The signal's arguments: namespace, key, value. Qt connects no slot that takes types of D-Bus until some were
    // sent.
    void settingChanged(const QDBusMessage& signal);

private:
    void take(const QString& space, const QString& key, const QVariant& value);

    std::optional<bool> isDark_;
    std::optional<bool> animationsEnabled_;
};

} // namespace vantro
