#pragma once

#include <QObject>

namespace vantro {

class HotKeyManager;
class KeyboardShortcuts;

/// Hands the key events of the program's own windows to the shortcuts before the windows see them. Needs the Qt Gui
/// application object, for as long as it exists. Main thread only.
class RawKeyMonitor : public QObject
{
    Q_OBJECT
public:
    /// Both outlive the monitor.
    RawKeyMonitor(KeyboardShortcuts& shortcuts, const HotKeyManager& hotKeys);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    KeyboardShortcuts& shortcuts_;
    const HotKeyManager& hotKeys_;
};

} // namespace vantro
