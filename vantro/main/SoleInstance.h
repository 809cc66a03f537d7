#pragma once

#include "base/FileLock.h"

#include <QLocalServer>
#include <QStringList>

#include <functional>
#include <optional>

class QLocalSocket;

namespace vantro {

/// Keeps a user from running two programs that fight for the shortcut, the settings and the history, also where no
/// session bus could tell: a lock that the kernel lets go of when its process ends, however that ends. A socket beside
/// it takes what a second start has to say. Main thread.
class SoleInstance
{
public:
    /// Called with the arguments of a program that was started a second time.
    using HandOver = std::function<void(const QStringList&)>;

    /// @p folder: for the lock and the socket, the user's own. Empty, or one that cannot be written to, guards nothing.
    SoleInstance(const QString& folder, HandOver handOver);
    ~SoleInstance();
    SoleInstance(const SoleInstance&) = delete;
    SoleInstance& operator=(const SoleInstance&) = delete;

    /// The user's runtime folder.
    static QString standardFolder();

    /// False when another process is the one; from then on holder() tells which.
    [[nodiscard]] bool claim();
    /// For people: "process 42 on display :0"; what is known of it.
    [[nodiscard]] QString holder() const;
    /// Tells the one that runs what this one was started with. False when it does not answer within seconds.
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
