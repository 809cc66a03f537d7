#pragma once

#include "platform/HotKeyManager.h"

#include <QString>

#include <map>
#include <vector>

namespace vantro::doubles {

/// Hot keys pressed by a test; combinations can be refused as if taken by another program.
class FakeHotKeyManager final : public HotKeyManager
{
    Q_OBJECT
public:
    struct Combination
    {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        friend auto operator<=>(const Combination&, const Combination&) = default;
    };

    void registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) override;
    void unregisterHotKey(std::uint32_t id) override;
    /// Scan codes equal key codes on this keyboard.
    [[nodiscard]] std::optional<std::uint32_t> keyCodeOf(std::uint32_t nativeScanCode) const override
    {
        return nativeScanCode;
    }

    /// Makes registering @p combination throw HotKeyError with @p reason.
    void refuse(Combination combination, const QString& reason) { refused_[combination] = reason; }
    void allow(Combination combination) { refused_.erase(combination); }

    /// Simulates the keyboard; a no-op for unregistered combinations. A release reaches the hot keys that received the
    /// press and are still registered.
    void press(Combination combination);
    void release(Combination combination);
    /// A press and a release.
    void strike(Combination combination);
    /// Another program takes @p combination over, as after a layout change.
    void lose(Combination combination, const QString& reason);

    [[nodiscard]] bool isRegistered(Combination combination) const;
    [[nodiscard]] std::size_t count() const { return registered_.size(); }
    [[nodiscard]] const std::vector<std::uint32_t>& idsEverUsed() const { return idsEverUsed_; }

private:
    std::map<std::uint32_t, Combination> registered_;
    std::map<Combination, QString> refused_;
    std::vector<std::uint32_t> held_;
    std::vector<std::uint32_t> idsEverUsed_;
};

} // namespace vantro::doubles
