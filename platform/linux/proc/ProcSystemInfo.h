#pragma once

#include "platform/SystemInfo.h"

namespace vantro {

/// Reads /etc/os-release (man 5 os-release), /proc and /sys on every call.
class ProcSystemInfo final : public SystemInfo
{
public:
    /// @p root: the folder that contains etc, proc and sys.
    explicit ProcSystemInfo(QString root = QStringLiteral("/"));

    [[nodiscard]] QString operatingSystemVersion() const override;
    [[nodiscard]] QString deviceModel() const override;
    [[nodiscard]] QString processorName() const override;
    [[nodiscard]] quint64 physicalMemoryBytes() const override;
    [[nodiscard]] std::optional<quint64> availableMemoryBytes() const override;

private:
    [[nodiscard]] QString contents(const QString& path) const;
    /// The first value of @p key in the "key: value" lines of @p path.
    [[nodiscard]] QString value(const QString& path, const QString& key, QChar separator) const;
    /// A line of /proc/meminfo in bytes.
    [[nodiscard]] std::optional<quint64> memory(const QString& key) const;

    QString root_;
};

} // namespace vantro
