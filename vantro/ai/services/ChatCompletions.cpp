#include "vantro/ai/services/ChatCompletions.h"

#include <QJsonArray>

namespace vantro {

namespace {

QJsonObject message(const QString& role, const QString& content)
{
    return {{QStringLiteral("role"), role}, {QStringLiteral("content"), content}};
}

} // namespace

void ChatCompletions::authorize(HttpRequest& request, const QString& key) const
{
    request.headers.emplace_back("Authorization", "Bearer " + key.toLatin1());
}

QJsonObject ChatCompletions::formatBody(const QString& system, const QString& text) const
{
    QJsonArray messages;
    messages.append(message(QStringLiteral("system"), system));
    messages.append(message(QStringLiteral("user"), text));
    QJsonObject body{{QStringLiteral("model"), config().model},
                     {QStringLiteral("messages"), messages},
                     {QStringLiteral("stream"), false}};
    addParameters(body);
    return body;
}

QJsonObject ChatCompletions::verificationBody() const
{
    QJsonArray messages;
    messages.append(message(QStringLiteral("user"), QStringLiteral("test")));
    QJsonObject body{{QStringLiteral("model"), config().model}, {QStringLiteral("messages"), messages}};
    addParameters(body);
    return body;
}

void ChatCompletions::addParameters(QJsonObject& body) const
{
    QJsonObject members{{QStringLiteral("temperature"), 0.3},
                        {QStringLiteral("frequency_penalty"), 0},
                        {QStringLiteral("presence_penalty"), 0}};
    // Parameters set by the user replace all the defaults.
    if (config().parameters)
        members = config().parameters->requestMembers();
    for (auto member = members.constBegin(); member != members.constEnd(); ++member)
        body.insert(member.key(), member.value());
}

RemoteAnswer::Path ChatCompletions::contentPath() const
{
    return [](const QJsonObject& answer) {
        const QJsonObject choice = answer.value(QLatin1String("choices")).toArray().at(0).toObject();
        return RemoteAnswer::Content{choice.value(QLatin1String("message")).toObject().value(QLatin1String("content")),
                                     choice.value(QLatin1String("finish_reason")).toString()};
    };
}

} // namespace vantro
