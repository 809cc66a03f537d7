#include "tests/ai/services/ChatServer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include <gtest/gtest.h>

namespace vantro {

namespace {

QStringList arguments(const QString& folder, ChatServer::Transport transport)
{
    QStringList arguments{QStringLiteral("--folder"), folder};
    if (transport != ChatServer::Transport::http)
        arguments << QStringLiteral("--certificate")
                  << (transport == ChatServer::Transport::https ? QStringLiteral("valid")
                                                                : QStringLiteral("selfsigned"));
    return arguments;
}

} // namespace

ChatServer::ChatServer(Transport transport)
    : transport_(transport)
    , process_(QStringLiteral("ai/services/chatserver.py"), arguments(folder_.path(), transport),
               folder_.filePath(QStringLiteral("port")))
{
    answer({});
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
        .arg(host, process_.port());
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
    return ServerProcess::contents(folder_.filePath(QStringLiteral("log")));
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
