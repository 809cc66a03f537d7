#pragma once

#include "base/FileLock.h"

#include <QLocalServer>
#include <QStringList>

#include <functional>
#include <optional>

class QLocalSocket;

namespace vantro {

/// Prevents a second instance, which would compete for the shortcut, the settings and the history. Works without a
/// session bus: uses a file lock, which the kernel releases when the process ends, and a socket for the arguments of a
/// second start. Main thread.
class SoleInstance
{
public:
    /// Called with the arguments of a second start.
    using HandOver = std::function<void(const QStringList&)>;

    /// @p folder: the user's own, for the lock and the socket. If it is empty or not writable, nothing is prevented.
    SoleInstance(const QString& folder, HandOver handOver);
    ~SoleInstance();
    SoleInstance(const SoleInstance&) = delete;
    SoleInstance& operator=(const SoleInstance&) = delete;

    /// The user's runtime folder.
    static QString standardFolder();

    /// False when another process is running; holder() then says which.
    [[nodiscard]] bool claim();
    /// For display: "process 42 on display :0"; empty when unknown.
    [[nodiscard]] QString holder() const;
    /// Passes @p arguments to the running instance. False when it does not answer within 5 s. Blocks.
    [[nodiscard]] bool handOver(const QStringList& arguments) const;

private:
    void tellWhoHoldsIt();
    void listen();
    void receive(QLocalSocket& socket);

    QString lockPath_;
    QString socketPath_;
    HandOver handOver_;
    std::optional<FileLock> lock_;
    QLocalServer server_;
};

} // namespace vantro
