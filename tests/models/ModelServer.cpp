#include "tests/models/ModelServer.h"

#include <QDeadlineTimer>
#include <QFile>

#include <gtest/gtest.h>

namespace vantro {

namespace {

constexpr int startTimeoutMs = 20'000;

QString contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

ModelServer::ModelServer(const QString& folder, const QString& fault) : folder_(folder)
{
    const QString portFile = folder + QStringLiteral("/port");
    QFile::remove(portFile);
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
    process_.start(QStringLiteral("/usr/bin/python3"),
                   {qEnvironmentVariable("VANTRO_SOURCE_DIR") + QStringLiteral("/tests/models/modelserver.py"), folder,
                    QStringLiteral("--port-file"), portFile, QStringLiteral("--requests"),
                    folder + QStringLiteral("/requests"), QStringLiteral("--fault"), fault});
    const QDeadlineTimer deadline(startTimeoutMs);
    while (port_.isEmpty() && !deadline.hasExpired() && !process_.waitForFinished(10))
        port_ = contents(portFile);
    EXPECT_FALSE(port_.isEmpty()) << "the model server does not start";
}

ModelServer::~ModelServer()
{
    process_.kill();
    process_.waitForFinished();
}

QString ModelServer::url(const QString& file) const
{
    return QStringLiteral("http://127.0.0.1:%1/resolve/main/%2").arg(port_, file);
}

QStringList ModelServer::requests() const
{
    return contents(folder_ + QStringLiteral("/requests")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace vantro
