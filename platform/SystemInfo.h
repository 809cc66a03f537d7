#pragma once

#include <QString>

#include <optional>

namespace vantro {

/// The machine and the system that the program runs on. Texts are for people to read, and empty when unknown. Main
/// thread only.
class SystemInfo
{
public:
    SystemInfo() = default;
    virtual ~SystemInfo() = default;
    SystemInfo(const SystemInfo&) = delete;
    SystemInfo& operator=(const SystemInfo&) = delete;

    /// "Debian GNU/Linux 12 (bookworm), kernel 6.1.0-26-amd64"
    [[nodiscard]] virtual QString operatingSystemVersion() const = 0;
    /// Vendor and model of the computer.
    [[nodiscard]] virtual QString deviceModel() const = 0;
    [[nodiscard]] virtual QString processorName() const = 0;
    /// 0 when unknown.
    [[nodiscard]] virtual quint64 physicalMemoryBytes() const = 0;
    /// What programs could still get without swapping; nullopt when unknown.
    [[nodiscard]] virtual std::optional<quint64> availableMemoryBytes() const = 0;
};

} // namespace vantro
