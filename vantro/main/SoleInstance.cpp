#include "vantro/main/SoleInstance.h"

#include "base/Error.h"
#include "base/Logger.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QStandardPaths>

#include <sys/stat.h>

#include <chrono>
#include <utility>

namespace vantro {

namespace {

/// A program that has just started may still be busy.
constexpr std::chrono::milliseconds answerLimit{5000};
/// Runtime folders may be swept of files that have not been touched for hours, except those with the sticky bit.
constexpr mode_t notToBeSwept = S_ISVTX;
const QByteArray understood = "understood\n";

/// Empty, and so impossible to open, when there is no folder.
QString pathIn(const QString& folder, const QString& name)
{
    return folder.isEmpty() ? QString() : folder + QLatin1Char('/') + name;
}

} // namespace

SoleInstance::SoleInstance(const QString& folder, HandOver handOver)
    : lockPath_(pathIn(folder, QStringLiteral("vantro.lock")))
    , socketPath_(pathIn(folder, QStringLiteral("vantro.socket")))
    , handOver_(std::move(handOver))
{
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] {
        while (QLocalSocket* const socket = server_.nextPendingConnection()) {
            QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            QObject::connect(socket, &QLocalSocket::readyRead, socket, [this, socket] { receive(*socket); });
        }
    });
}

SoleInstance::~SoleInstance() = default;

QString SoleInstance::standardFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

bool SoleInstance::claim()
{
    try {
        lock_ = FileLock::tryTake(lockPath_);
    } catch (const Error& error) {
        Logger("SoleInstance")
            .error(QStringLiteral("A second instance cannot be detected: ") + error.localizedDescription());
        return true;
    }
    if (!lock_)
        return false;
    chmod(QFile::encodeName(lockPath_).constData(), S_IRUSR | S_IWUSR | notToBeSwept);
    tellWhoHoldsIt();
    listen();
    return true;
}

void SoleInstance::tellWhoHoldsIt()
{
    QFile file(lockPath_);
    const QString text = QStringLiteral("process %1 on display %2\n")
                             .arg(QCoreApplication::applicationPid())
                             .arg(qEnvironmentVariable("DISPLAY"));
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.flush())
        Logger("SoleInstance").error(QStringLiteral("%1: %2").arg(lockPath_, file.errorString()));
}

QString SoleInstance::holder() const
{
    QFile file(lockPath_);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readLine()).trimmed() : QString();
}

void SoleInstance::listen()
{
    QLocalServer::removeServer(socketPath_); // left by a crash, since the lock is ours
    if (!server_.listen(socketPath_))
        Logger("SoleInstance").error(QStringLiteral("%1: %2").arg(socketPath_, server_.errorString()));
}

void SoleInstance::receive(QLocalSocket& socket)
{
    if (!socket.canReadLine())
        return;
    QStringList arguments;
    const QJsonArray values = QJsonDocument::fromJson(socket.readLine()).array();
    for (const auto& value : values)
        arguments << value.toString();
    socket.write(understood);
    handOver_(arguments);
}

bool SoleInstance::handOver(const QStringList& arguments) const
{
    const auto limit = static_cast<int>(answerLimit.count());
    QLocalSocket socket;
    socket.connectToServer(socketPath_);
    if (!socket.waitForConnected(limit))
        return false;
    socket.write(QJsonDocument(QJsonArray::fromStringList(arguments)).toJson(QJsonDocument::Compact) + '\n');
    return socket.waitForReadyRead(limit) && socket.readLine() == understood;
}

} // namespace vantro
