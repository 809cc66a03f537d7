#pragma once

#include "platform/HotKeyManager.h"

#include <QtGlobal>

#include <cstdint>

namespace vantro {

/// A registered hot key; unregisters when destroyed. Main thread.
class SystemHotKey
{
public:
    /// As a shortcut is stored, so the numbers may be anything. Throws HotKeyError. @p hotKeys must outlive this
    /// object.
    SystemHotKey(HotKeyManager& hotKeys, qint64 keyCode, qint64 modifiers);
    ~SystemHotKey() { hotKeys_.unregisterHotKey(id_); }
    SystemHotKey(const SystemHotKey&) = delete;
    SystemHotKey& operator=(const SystemHotKey&) = delete;

    /// Never used again, so that a late event of a hot key that is gone cannot reach another.
    [[nodiscard]] std::uint32_t id() const { return id_; }

private:
    HotKeyManager& hotKeys_;
    std::uint32_t id_;
};

} // namespace vantro
