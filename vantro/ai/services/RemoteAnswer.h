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
    /// Extracts the text from a provider's response; not a string when it is missing.
    using TextPath = QJsonValue (*)(const QJsonObject& answer);

    /// @p label: prefix of log lines, such as "OpenAI".
    RemoteAnswer(QString label, HttpAnswer answer);

    /// Returns the text of a successful response. Throws RemoteFormatError otherwise, also for an empty text.
    [[nodiscard]] QString text(TextPath path) const;
    /// Throws RemoteFormatError unless the status is 200.
    void check() const;
    [[nodiscard]] int status() const { return answer_.status; }
    [[nodiscard]] const QByteArray& body() const { return answer_.body; }

private:
    [[noreturn]] void refuse() const;

    QString label_;
    HttpAnswer answer_;
};

} // namespace vantro
