#pragma once

#include "platform/LoginItem.h"

#include <QString>

namespace vantro {

/// An entry in the user's autostart folder (freedesktop.org).
class XdgAutostart final : public LoginItem
{
public:
    /// @p folder: the user's configuration folder; @p program: what is to be started.
    XdgAutostart(const QString& folder, QString program);

    /// The entry may be there and switched off, as desktops' own session settings do it.
    [[nodiscard]] bool isEnabled() const override;
    void setEnabled(bool enabled) override;

private:
    QString file_;
    QString program_;
};

} // namespace vantro
