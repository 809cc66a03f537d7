#pragma once

#include "base/Error.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <optional>

namespace vantro {

class HotKeyError : public Error
{
public:
    using Error::Error;
};

/// System-wide hot keys. Main thread only.
class HotKeyManager : public QObject
{
    Q_OBJECT
public:
    /// Takes the key combination for itself under @p id. Num Lock and Caps Lock do not matter. Throws HotKeyError with
    /// the reason when another program holds it, no key of the keyboard carries @p keyCode, or there is no display.
    virtual void registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) = 0;
    virtual void unregisterHotKey(std::uint32_t id) = 0;

    /// The code that the key numbered @p nativeScanCode in the window system's key events is stored under: what is
    /// printed on it, whatever modifiers are held; in a layout without Latin letters the letter that it has in another.
    /// Nothing for modifiers, for keys that carry nothing, and without a display.
    [[nodiscard]] virtual std::optional<std::uint32_t> keyCodeOf(std::uint32_t nativeScanCode) const = 0;

Q_SIGNALS:
    /// Once per physical press: auto-repeat is filtered out.
    void hotKeyPressed(std::uint32_t id);
    void hotKeyReleased(std::uint32_t id);
    /// A registered hot key has stopped working, for the sentence in @p reason: after a layout change its keys belong
    /// to another program or do not exist, or the display is gone. A key that is held is released first.
    void hotKeyLost(std::uint32_t id, const QString& reason);
};

} // namespace vantro
