#include "vantro/ai/services/GeminiService.h"

#include <QJsonArray>

#include <utility>

namespace vantro {

namespace {

QJsonArray contents(const QString& text)
{
    QJsonArray parts;
    parts.append(QJsonObject{{QStringLiteral("text"), text}});
    QJsonArray contents;
    contents.append(QJsonObject{{QStringLiteral("parts"), parts}});
    return contents;
}

} // namespace

GeminiService::GeminiService(RemoteServiceParts parts, RemoteProviderConfig config, const ProviderHosts& hosts,
                             std::chrono::milliseconds baseTimeout)
    : RemoteFormatService(parts, std::move(config), baseTimeout)
    , host_(hosts.gemini)
{
}

QUrl GeminiService::endpoint() const
{
    const QByteArray model = QUrl::toPercentEncoding(config().model);
    return QUrl(host_ + QStringLiteral("/v1beta/models/%1:generateContent").arg(QString::fromLatin1(model)));
}

QUrl GeminiService::modelsEndpoint() const
{
    return QUrl(host_ + QStringLiteral("/v1beta/models?pageSize=1000"));
}

void GeminiService::authorize(HttpRequest& request, const QString& key) const
{
    const QString others = request.url.query();
    request.url.setQuery((others.isEmpty() ? others : others + QLatin1Char('&')) + QStringLiteral("key=") +
                         QString::fromLatin1(QUrl::toPercentEncoding(key)));
}

QJsonObject GeminiService::formatBody(const QString& system, const QString& text) const
{
    const QString whole = QStringLiteral("System: ") + system + QStringLiteral("\n\nUser: ") + text;
    return {{QStringLiteral("contents"), contents(whole)},
            {QStringLiteral("generationConfig"), QJsonObject{{QStringLiteral("temperature"), 0.3}}}};
}

QJsonObject GeminiService::verificationBody() const
{
    return {{QStringLiteral("contents"), contents(QStringLiteral("test"))},
            {QStringLiteral("generationConfig"), QJsonObject{{QStringLiteral("maxOutputTokens"), 1}}}};
}

/// Those that generate text; others embed it or make pictures.
RemoteFormatService::NamesPath GeminiService::modelsPath() const
{
    return [](const QJsonObject& answer) {
        QStringList names;
        const QJsonArray entries = answer.value(QLatin1String("models")).toArray();
        for (const QJsonValue& entry : entries) {
            const QJsonObject model = entry.toObject();
            const QJsonArray methods = model.value(QLatin1String("supportedGenerationMethods")).toArray();
            if (methods.contains(QStringLiteral("generateContent")))
                names << model.value(QLatin1String("name")).toString().simplified().section(QLatin1Char('/'), -1);
        }
        return names;
    };
}

RemoteAnswer::Path GeminiService::contentPath() const
{
    return [](const QJsonObject& answer) {
        const QJsonObject candidate = answer.value(QLatin1String("candidates")).toArray().at(0).toObject();
        const QJsonArray parts =
            candidate.value(QLatin1String("content")).toObject().value(QLatin1String("parts")).toArray();
        return RemoteAnswer::Content{parts.at(0).toObject().value(QLatin1String("text")),
                                     candidate.value(QLatin1String("finishReason")).toString()};
    };
}

} // namespace vantro
