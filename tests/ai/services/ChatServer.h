#pragma once

#include "tests/ServerProcess.h"

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

namespace vantro {

/// chatserver.py: a provider that answers as the test says and remembers what it was asked.
class ChatServer
{
public:
    enum class Transport { http, https, httpsThatNobodyTrusts };

    /// Waits until connections are accepted.
    explicit ChatServer(Transport transport = Transport::http);

    /// What is answered from now on: the fields of its Answer.
    void answer(const QJsonObject& answer);
    /// A success with this text in the shape of chat completions.
    void answerChat(const QString& text);

    /// "http://127.0.0.1:PORT"
    [[nodiscard]] QString url() const;
    /// The same server by another name of this machine.
    [[nodiscard]] QString url(const QString& host) const;
    /// The certificate that makes it trusted.
    [[nodiscard]] QString authority() const { return folder_.filePath(QStringLiteral("authority.pem")); }
    /// Each with method, path, headers, body and connection.
    [[nodiscard]] QList<QJsonObject> requests() const;
    [[nodiscard]] qsizetype connections() const;
    /// Everything that the server has noted.
    [[nodiscard]] QString logText() const;

private:
    [[nodiscard]] QList<QJsonObject> log() const;

    QTemporaryDir folder_;
    Transport transport_;
    ServerProcess process_;
};

} // namespace vantro
