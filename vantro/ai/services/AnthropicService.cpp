#include "vantro/ai/services/AnthropicService.h"

#include <QJsonArray>

#include <utility>

namespace vantro {

namespace {

constexpr int maxTokens = 4'096;

QJsonArray userMessage(const QString& text)
{
    QJsonArray messages;
    messages.append(QJsonObject{{QStringLiteral("role"), QStringLiteral("user")}, {QStringLiteral("content"), text}});
    return messages;
}

} // namespace

AnthropicService::AnthropicService(RemoteServiceParts parts, RemoteProviderConfig config, const ProviderHosts& hosts,
                                   std::chrono::milliseconds baseTimeout, const QString& anthropicVersion)
    : RemoteFormatService(parts, std::move(config), baseTimeout)
    , host_(hosts.anthropic)
    , anthropicVersion_(anthropicVersion)
{
}

QUrl AnthropicService::endpoint() const
{
    return QUrl(host_ + QStringLiteral("/v1/messages"));
}

QUrl AnthropicService::modelsEndpoint() const
{
    return QUrl(host_ + QStringLiteral("/v1/models?limit=1000"));
}

void AnthropicService::authorize(HttpRequest& request, const QString& key) const
{
    request.headers.emplace_back("x-api-key", key.toLatin1());
    request.headers.emplace_back("anthropic-version", anthropicVersion_.toLatin1());
}

QJsonObject AnthropicService::formatBody(const QString& system, const QString& text) const
{
    return {{QStringLiteral("model"), config().model},
            {QStringLiteral("max_tokens"), maxTokens},
            {QStringLiteral("system"), system},
            {QStringLiteral("messages"), userMessage(text)}};
}

QJsonObject AnthropicService::verificationBody() const
{
    return {{QStringLiteral("model"), config().model},
            {QStringLiteral("max_tokens"), 1},
            {QStringLiteral("messages"), userMessage(QStringLiteral("test"))}};
}

RemoteAnswer::Path AnthropicService::contentPath() const
{
    return [](const QJsonObject& answer) {
        const QJsonArray blocks = answer.value(QLatin1String("content")).toArray();
        return RemoteAnswer::Content{blocks.at(0).toObject().value(QLatin1String("text")),
                                     answer.value(QLatin1String("stop_reason")).toString()};
    };
}

} // namespace vantro
