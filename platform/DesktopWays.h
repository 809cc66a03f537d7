#pragma once

#include <QString>
#include <QStringList>

namespace vantro {

/// By which facility of the running desktop each part of a dictation but its shortcut is done, for reports. Names are
/// not translated; one is empty where the desktop offers nothing.
struct DesktopWays
{
    QString desktop = {}; ///< "X11", "Wayland (sway)"
    QString clipboard = {};
    QString paste = {};
    QString panel = {};
    QString windows = {}; ///< what tells which window the user is in
    /// What does not work here as it should, in sentences for the user.
    QStringList missing = {};
};

} // namespace vantro
