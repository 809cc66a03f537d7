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
    /// Grabs the key combination under @p id; Num Lock and Caps Lock are ignored. Throws HotKeyError when another
    /// program holds it, no key has @p keyCode, or there is no display.
    virtual void registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) = 0;
    virtual void unregisterHotKey(std::uint32_t id) = 0;

    /// By which facility of the desktop it works at the moment, for reports; not translated.
    [[nodiscard]] virtual QString way() const { return {}; }

    /// What the user has to do so that the combination also works while another program has the keyboard, pressed or,
    /// with @p isHeld, for as long as it is held: a sentence, then lines to copy. nullopt where registering it is all.
    [[nodiscard]] virtual std::optional<QString> howToBind(std::uint32_t /*keyCode*/, std::uint32_t /*modifiers*/,
                                                           bool /*isHeld*/) const
    {
        return std::nullopt;
    }

    /// The stored code of the key @p nativeScanCode from a window system event: its unmodified symbol, or in a layout
    /// without Latin letters, the letter it has in another layout. nullopt for modifiers, for keys without a symbol,
    /// and without a display.
    [[nodiscard]] virtual std::optional<std::uint32_t> keyCodeOf(std::uint32_t nativeScanCode) const = 0;

Q_SIGNALS:
    /// Emitted once per physical press; auto-repeat is filtered out.
    void hotKeyPressed(std::uint32_t id);
    void hotKeyReleased(std::uint32_t id);
    /// A registered hot key has stopped working, because another program owns its keys after a layout change, the keys
    /// no longer exist, or the display is gone. @p reason is a sentence for the user. A held key is released first.
    void hotKeyLost(std::uint32_t id, const QString& reason);
    /// Another key while a hot key is held down. No other program sees it.
    void otherKeyPressed(std::uint32_t keyCode);
    void otherKeyReleased(std::uint32_t keyCode);
    /// The layout has changed: what could not be registered may work now.
    void keyboardChanged();
};

} // namespace vantro
