#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>

#include <optional>

namespace vantro {

/// Signals when a sound server's socket appears in the file system. Event-driven.
class PulseServerWatch : public QObject
{
    Q_OBJECT
public:
    /// @p server: an address as in PULSE_SERVER; empty for the session's server.
    explicit PulseServerWatch(const QString& server);

    void start();
    void stop();
    /// Whether connecting may succeed; always true for a server without a local socket.
    [[nodiscard]] bool mayBeThere() const;

    /// The first local socket in @p server; nullopt for remote servers.
    static std::optional<QString> socketPath(const QString& server);

Q_SIGNALS:
    void appeared();

private:
    void watchNearestFolder();

    std::optional<QString> socket_;
    QFileSystemWatcher watcher_;
};

} // namespace vantro
