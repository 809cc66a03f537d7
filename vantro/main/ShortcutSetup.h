#pragma once

#include <QString>
#include <QStringList>

namespace vantro {

class KeyboardShortcuts;
class Windows;

/// Which shortcut begins a dictation, as the program's starts decide it. Main thread.
class ShortcutSetup
{
public:
    /// Both outlive this object.
    ShortcutSetup(KeyboardShortcuts& shortcuts, Windows& windows);

    /// At the start: takes @p wanted, keeps the stored shortcut when that is empty, and proposes or asks for one when
    /// there is none, which is a user's first start.
    void settle(const QString& wanted);
    /// What a second start was started with: a shortcut to take; nothing brings the windows forward.
    void handOver(const QStringList& arguments);

private:
    void use(const QString& text);
    void propose();

    KeyboardShortcuts& shortcuts_;
    Windows& windows_;
};

} // namespace vantro
