#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>

#include <optional>

namespace vantro {

/// Tells when a sound server's socket appears in the file system. Costs nothing while nothing happens there.
class PulseServerWatch : public QObject
{
    Q_OBJECT
public:
    /// @p server: an address as PULSE_SERVER has it; empty for the session's own server.
    explicit PulseServerWatch(const QString& server);

    void start();
    void stop();
    /// Whether trying to connect can be of use: always for a server that has no socket here.
    [[nodiscard]] bool mayBeThere() const;

    /// The first local socket that @p server names; nothing for servers on other machines.
    static std::optional<QString> socketPath(const QString& server);

Q_SIGNALS:
    void appeared();

private:
    void watchNearestFolder();

    std::optional<QString> socket_;
    QFileSystemWatcher watcher_;
};

} // namespace vantro
