#pragma once

#include "base/Logger.h"
#include "base/network/HttpMessages.h"

#include <QJsonObject>
#include <QString>

#include <functional>

namespace vantro {

/// A provider's response. Any thread.
class RemoteAnswer
{
public:
    /// What a provider's response says.
    struct Content
    {
        QJsonValue text; ///< not a string when it is missing
        QString end;     ///< the provider's word for why the text ends; may be empty
    };
    using Path = Content (*)(const QJsonObject& answer);

    /// @p label: prefix of log lines, such as "OpenAI".
    RemoteAnswer(QString label, HttpAnswer answer);

    /// Returns the text of a successful response as it stands there. Throws RemoteFormatError when there is none, and
    /// AnswerSetAside when it is empty, or the provider says that it is not the whole.
    [[nodiscard]] QString text(Path path) const;
    /// Throws RemoteFormatError unless the status is 200.
    void check() const;
    /// Throws NetworkError if the connection was lost within the body.
    void requireWhole() const;
    [[nodiscard]] int status() const { return answer_.status; }
    [[nodiscard]] const QByteArray& body() const { return answer_.body; }

private:
    [[noreturn]] void refuse() const;

    QString label_;
    HttpAnswer answer_;
};

} // namespace vantro
