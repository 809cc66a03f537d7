#pragma once

#include <QObject>

namespace vantro {

class HotKeyManager;
class KeyboardShortcuts;

/// Passes key events of the program's own windows to the shortcuts before the windows see them. Requires a
/// QGuiApplication for its whole lifetime. Main thread only.
class RawKeyMonitor : public QObject
{
    Q_OBJECT
public:
    /// Both must outlive the monitor.
    RawKeyMonitor(KeyboardShortcuts& shortcuts, const HotKeyManager& hotKeys);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    KeyboardShortcuts& shortcuts_;
    const HotKeyManager& hotKeys_;
};

} // namespace vantro
