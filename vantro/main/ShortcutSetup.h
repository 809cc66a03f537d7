#pragma once

#include <QString>
#include <QStringList>

namespace vantro {

class KeyboardShortcuts;
class Windows;

/// Decides on the dictation shortcut when the program is started. Main thread.
class ShortcutSetup
{
public:
    /// Both must outlive this object.
    ShortcutSetup(KeyboardShortcuts& shortcuts, Windows& windows);

    /// Sets @p wanted. If that is empty, keeps the stored shortcut; without one, which means the first start, proposes
    /// or asks for one and opens the onboarding.
    void settle(const QString& wanted);
    /// Handles the arguments of a second start: sets the shortcut, or brings a window to the front if there is none.
    void handOver(const QStringList& arguments);

private:
    void use(const QString& text);
    void propose();

    KeyboardShortcuts& shortcuts_;
    Windows& windows_;
};

} // namespace vantro
