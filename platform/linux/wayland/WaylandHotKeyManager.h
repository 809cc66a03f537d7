#pragma once

#include "platform/HotKeyManager.h"
#include "platform/linux/portal/ShortcutPortal.h"

#include <QTimer>

#include <vector>

namespace vantro {

class WaylandKeymap;

/// What is registered works in the program's own windows, to which compositors give the keys anyway. For everywhere
/// else the desktop's portal is asked for the combinations that do not type; where there is none, the user binds
/// a command in the desktop's settings.
class WaylandHotKeyManager final : public HotKeyManager
{
    Q_OBJECT
public:
    /// @p keymap must outlive the manager.
    explicit WaylandHotKeyManager(const WaylandKeymap& keymap);

    void registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) override;
    void unregisterHotKey(std::uint32_t id) override;
    [[nodiscard]] QString way() const override;
    [[nodiscard]] std::optional<QString> howToBind(std::uint32_t keyCode, std::uint32_t modifiers,
                                                   bool isHeld) const override;
    [[nodiscard]] std::optional<std::uint32_t> keyCodeOf(std::uint32_t nativeScanCode) const override;

private:
    struct HotKey
    {
        std::uint32_t id = 0;
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
    };

    void askPortal();

    const WaylandKeymap& keymap_;
    std::vector<HotKey> hotKeys_;      ///< for the portal
    std::vector<std::uint32_t> asked_; ///< which of them it has been asked for
    ShortcutPortal portal_;
    QTimer askSoon_; ///< combinations are also registered for a moment, as a trial
};

} // namespace vantro
