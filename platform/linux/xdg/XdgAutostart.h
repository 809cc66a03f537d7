#pragma once

#include "platform/LoginItem.h"

#include <QString>

namespace vantro {

/// An entry in the user's autostart folder (freedesktop.org).
class XdgAutostart final : public LoginItem
{
public:
    /// @p folder: the user's configuration folder; @p program: the executable.
    XdgAutostart(const QString& folder, QString program);

    /// False for an entry that is disabled, as desktops' session settings do.
    [[nodiscard]] bool isEnabled() const override;
    void setEnabled(bool enabled) override;

private:
    QString file_;
    QString program_;
};

} // namespace vantro
