#include "tests/ai/services/ChatServer.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include <gtest/gtest.h>

namespace vantro {

namespace {

constexpr int startTimeoutMs = 20'000;

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

ChatServer::ChatServer(Transport transport) : transport_(transport)
{
    answer({});
    QStringList arguments{qEnvironmentVariable("VANTRO_SOURCE_DIR") +
                              QStringLiteral("/tests/ai/services/chatserver.py"),
                          QStringLiteral("--folder"), folder_.path()};
    if (transport != Transport::http)
        arguments << QStringLiteral("--certificate")
                  << (transport == Transport::https ? QStringLiteral("valid") : QStringLiteral("selfsigned"));
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
    process_.start(QStringLiteral("/usr/bin/python3"), arguments);
    const QDeadlineTimer deadline(startTimeoutMs);
    while (port_.isEmpty() && !deadline.hasExpired() && !process_.waitForFinished(10))
        port_ = QString::fromUtf8(contents(folder_.filePath(QStringLiteral("port"))));
    EXPECT_FALSE(port_.isEmpty()) << "the server does not start";
}

ChatServer::~ChatServer()
{
    process_.kill();
    process_.waitForFinished();
}

void ChatServer::answer(const QJsonObject& answer)
{
    QSaveFile file(folder_.filePath(QStringLiteral("answer.json")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(answer).toJson());
    EXPECT_TRUE(file.commit());
}

void ChatServer::answerChat(const QString& text)
{
    const QJsonObject message{{QStringLiteral("content"), text}};
    QJsonArray choices;
    choices.append(QJsonObject{{QStringLiteral("message"), message}});
    const QJsonDocument body(QJsonObject{{QStringLiteral("choices"), choices}});
    answer({{QStringLiteral("body"), QString::fromUtf8(body.toJson())}});
}

QString ChatServer::url() const
{
    return url(QStringLiteral("127.0.0.1"));
}

QString ChatServer::url(const QString& host) const
{
    return (transport_ == Transport::http ? QStringLiteral("http://%1:%2") : QStringLiteral("https://%1:%2"))
        .arg(host, port_);
}

QList<QJsonObject> ChatServer::log() const
{
    QList<QJsonObject> entries;
    for (const QByteArray& line : logText().toUtf8().split('\n')) {
        if (!line.isEmpty())
            entries << QJsonDocument::fromJson(line).object();
    }
    return entries;
}

QString ChatServer::logText() const
{
    return QString::fromUtf8(contents(folder_.filePath(QStringLiteral("log"))));
}

QList<QJsonObject> ChatServer::requests() const
{
    QList<QJsonObject> requests = log();
    requests.removeIf([](const QJsonObject& entry) { return !entry.contains(QLatin1String("method")); });
    return requests;
}

qsizetype ChatServer::connections() const
{
    return log().size() - requests().size();
}

} // namespace vantro
