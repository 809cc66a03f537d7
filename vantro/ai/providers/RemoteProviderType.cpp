#include "vantro/ai/providers/RemoteProviderType.h"

namespace vantro {

QString rawValue(RemoteProviderType type)
{
    switch (type) {
    case RemoteProviderType::OpenAI:
        return QStringLiteral("OpenAI");
    case RemoteProviderType::Anthropic:
        return QStringLiteral("Anthropic");
    case RemoteProviderType::Gemini:
        return QStringLiteral("Gemini");
    case RemoteProviderType::Custom:
        return QStringLiteral("Custom");
    }
    Q_UNREACHABLE();
}

QString displayName(RemoteProviderType type)
{
    switch (type) {
    case RemoteProviderType::Gemini:
        return QStringLiteral("Google Gemini");
    case RemoteProviderType::Custom:
        return QStringLiteral("Custom (OpenAI-compatible)");
    default:
        return rawValue(type);
    }
}

QString keyPage(RemoteProviderType type)
{
    switch (type) {
    case RemoteProviderType::OpenAI:
        return QStringLiteral("https://platform.openai.com/api-keys");
    case RemoteProviderType::Anthropic:
        return QStringLiteral("https://console.anthropic.com/settings/keys");
    case RemoteProviderType::Gemini:
        return QStringLiteral("https://aistudio.google.com/apikey");
    case RemoteProviderType::Custom:
        break;
    }
    return {};
}

std::optional<RemoteProviderType> remoteProviderType(const QString& name)
{
    for (const RemoteProviderType type : allRemoteProviderTypes) {
        if (name.compare(rawValue(type), Qt::CaseInsensitive) == 0 ||
            name.compare(displayName(type), Qt::CaseInsensitive) == 0)
            return type;
    }
    return std::nullopt;
}

} // namespace vantro
