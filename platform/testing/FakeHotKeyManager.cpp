#include "platform/testing/FakeHotKeyManager.h"

#include <algorithm>

namespace vantro::doubles {

void FakeHotKeyManager::registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers)
{
    const Combination combination{keyCode, modifiers};
    if (const auto refused = refused_.find(combination); refused != refused_.end())
        throw HotKeyError(refused->second);
    registered_[id] = combination;
    idsEverUsed_.push_back(id);
}

void FakeHotKeyManager::unregisterHotKey(std::uint32_t id)
{
    registered_.erase(id);
    std::erase(held_, id);
}

void FakeHotKeyManager::press(Combination combination)
{
    std::vector<std::uint32_t> ids;
    for (const auto& [id, own] : registered_) {
        if (own == combination)
            ids.push_back(id);
    }
    held_ = ids;
    for (const auto id : ids)
        Q_EMIT hotKeyPressed(id);
}

void FakeHotKeyManager::release(Combination combination)
{
    std::vector<std::uint32_t> ids;
    for (const auto id : held_) {
        if (registered_.contains(id) && registered_[id] == combination)
            ids.push_back(id);
    }
    held_.clear();
    for (const auto id : ids)
        Q_EMIT hotKeyReleased(id);
}

void FakeHotKeyManager::strike(Combination combination)
{
    press(combination);
    release(combination);
}

void FakeHotKeyManager::lose(Combination combination, const QString& reason)
{
    const auto current = registered_;
    for (const auto& [id, own] : current) {
        if (own == combination)
            Q_EMIT hotKeyLost(id, reason);
    }
}

bool FakeHotKeyManager::isRegistered(Combination combination) const
{
    return std::ranges::any_of(registered_, [&](const auto& entry) { return entry.second == combination; });
}

} // namespace vantro::doubles
