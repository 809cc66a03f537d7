#pragma once

#include "base/Logger.h"
#include "base/network/HttpMessages.h"

#include <QJsonObject>
#include <QString>

#include <functional>

namespace vantro {

/// Reads what a provider answers. Any thread.
class RemoteAnswer
{
public:
    /// Where a provider's answer has the text; not a string when it is not there.
    using TextPath = QJsonValue (*)(const QJsonObject& answer);

    /// @p label begins each log line: "OpenAI".
    RemoteAnswer(QString label, HttpAnswer answer);

    /// The text of a success; throws RemoteFormatError for anything else, an empty text included.
    [[nodiscard]] QString text(TextPath path) const;
    /// Throws RemoteFormatError unless it is a success, whatever its body.
    void check() const;
    [[nodiscard]] int status() const { return answer_.status; }
    [[nodiscard]] const QByteArray& body() const { return answer_.body; }

private:
    [[noreturn]] void refuse() const;

    QString label_;
    HttpAnswer answer_;
};

} // namespace vantro
