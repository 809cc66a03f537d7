#include "platform/linux/pulse/PulseServerWatch.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

namespace vantro {

namespace {

QString sessionSocket()
{
    const QString folder = qEnvironmentVariable("PULSE_RUNTIME_PATH");
    if (!folder.isEmpty())
        return folder + QStringLiteral("/native");
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QStringLiteral("/pulse/native");
}

} // namespace

PulseServerWatch::PulseServerWatch(const QString& server) : socket_(socketPath(server))
{
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] {
        watchNearestFolder();
        if (mayBeThere())
            Q_EMIT appeared();
    });
}

std::optional<QString> PulseServerWatch::socketPath(const QString& server)
{
    if (server.isEmpty())
        return sessionSocket();
    // One or more addresses, optionally prefixed with a machine ID: "{id}unix:/path tcp:host".
    static const QRegularExpression local(QStringLiteral("(?:^|\\s)(?:\\{[^}]*\\})?(?:unix:)?(/\\S+)"));
    const QRegularExpressionMatch match = local.match(server);
    return match.hasMatch() ? std::optional(match.captured(1)) : std::nullopt;
}

bool PulseServerWatch::mayBeThere() const
{
    return !socket_ || QFileInfo::exists(*socket_);
}

void PulseServerWatch::start()
{
    if (socket_)
        watchNearestFolder();
}

void PulseServerWatch::stop()
{
    if (!watcher_.directories().isEmpty())
        watcher_.removePaths(watcher_.directories());
}

// The socket's folder may be created and removed by the server.
void PulseServerWatch::watchNearestFolder()
{
    QString folder = QFileInfo(*socket_).path();
    while (!QFileInfo::exists(folder) && folder != QDir::rootPath())
        folder = QFileInfo(folder).path();
    if (watcher_.directories() == QStringList{folder})
        return;
    stop();
    watcher_.addPath(folder);
}

} // namespace vantro
