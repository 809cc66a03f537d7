#pragma once

#include <QByteArray>

#include <poll.h>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace vantro {

/// Bytes on their way to programs that paste, each at the pace of the one that reads. One thread.
class ClipboardTransfers
{
public:
    ClipboardTransfers() = default;
    ~ClipboardTransfers();
    ClipboardTransfers(const ClipboardTransfers&) = delete;
    ClipboardTransfers& operator=(const ClipboardTransfers&) = delete;

    /// Takes @p descriptor over. Calls @p taken once all has been read.
    void send(int descriptor, const QByteArray& bytes, std::function<void()> taken);
    /// What to wait for; to be followed by proceed().
    void addTo(std::vector<pollfd>& waiting) const;
    void proceed();

private:
    struct Transfer
    {
        int descriptor;
        QByteArray bytes;
        qsizetype sent;
        std::function<void()> taken;
    };

    [[nodiscard]] static bool isOver(Transfer& transfer);

    std::vector<Transfer> transfers_;
};

/// Reads a pipe to its end and closes it. nullopt if that takes until @p giveUp or is more than @p mostBytes.
[[nodiscard]] std::optional<QByteArray> readToEnd(int descriptor, std::chrono::steady_clock::time_point giveUp,
                                                  qsizetype mostBytes);

} // namespace vantro
