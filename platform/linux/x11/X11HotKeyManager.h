#pragma once

#include "platform/HotKeyManager.h"

#include <QString>

#include <compare>
#include <cstdint>
#include <optional>
#include <set>
#include <vector>

union _XEvent; // NOLINT(bugprone-reserved-identifier)

namespace vantro {

class X11Connection;
class X11Keymap;

/// Implements hot keys as grabs on the root window. A combination is bound to the keys with its symbol in the active
/// layout, else in another layout of the user, else (for letters, if no layout is Latin) to the key at its US position.
/// Rebinds when the layout changes. Where keyboards have different layouts, the layout of the one that is pressed
/// counts.
class X11HotKeyManager final : public HotKeyManager
{
    Q_OBJECT
public:
    /// @p connection must outlive the manager.
    explicit X11HotKeyManager(X11Connection& connection);
    ~X11HotKeyManager() override;

    void registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) override;
    void unregisterHotKey(std::uint32_t id) override;
    [[nodiscard]] QString way() const override { return QStringLiteral("key grab"); }
    [[nodiscard]] std::optional<std::uint32_t> keyCodeOf(std::uint32_t nativeScanCode) const override;

private:
    struct Grab
    {
        unsigned key = 0;
        unsigned modifiers = 0;
        friend auto operator<=>(const Grab&, const Grab&) = default;
    };
    struct HotKey
    {
        std::uint32_t id = 0;
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        std::vector<Grab> grabs;
        /// Where keyboards other than the one in use have the same combination. Needed when one of them is pressed,
        /// which is noticed too late to grab anything.
        std::vector<Grab> elsewhere;
    };
    struct Held
    {
        unsigned key = 0;
        std::uint32_t id = 0;
        bool isReleaseHeard = true; ///< false: the next press may be a new one
    };

    void handleEvent(_XEvent& event);
    void keyPressed(unsigned key, unsigned state);
    void keyReleased(unsigned key);
    void rebind();
    void connectionLost();

    /// Looks up where @p hotKey's keys are now.
    void locate(HotKey& hotKey) const;
    void grab(const HotKey& hotKey);
    [[nodiscard]] bool isMeant(const HotKey& hotKey, const Grab& pressed) const;
    [[nodiscard]] std::vector<Grab> resolve(const X11Keymap& keymap, const HotKey& hotKey) const;
    void grab(const std::vector<Grab>& wanted);
    void release(const std::vector<Grab>& unwanted);
    [[nodiscard]] bool isWanted(const Grab& grab) const;
    /// Why @p hotKey has no effect (another program, or the keyboard), as a sentence for the user.
    [[nodiscard]] std::optional<QString> whyNotBound(const HotKey& hotKey) const;

    X11Connection& connection_;
    std::vector<HotKey> hotKeys_;
    std::set<Grab> grabs_;
    std::vector<Held> held_;
    bool rebindPending_ = false;
};

} // namespace vantro
