#pragma once

#include "vantro/ai/providers/ProviderHosts.h"
#include "vantro/ai/services/RemoteFormatService.h"

namespace vantro {

/// Anthropic's Messages API.
class AnthropicService final : public RemoteFormatService
{
public:
    static inline const QString standardVersion = QStringLiteral("2023-06-01");

    AnthropicService(RemoteServiceParts parts, RemoteProviderConfig config, const ProviderHosts& hosts = {},
                     std::chrono::milliseconds baseTimeout = standardTimeout,
                     const QString& anthropicVersion = standardVersion);

protected:
    [[nodiscard]] QUrl endpoint() const override;
    [[nodiscard]] QUrl modelsEndpoint() const override;
    void authorize(HttpRequest& request, const QString& key) const override;
    [[nodiscard]] QJsonObject formatBody(const QString& system, const QString& text) const override;
    [[nodiscard]] QJsonObject verificationBody() const override;
    [[nodiscard]] RemoteAnswer::Path contentPath() const override;

private:
    QString host_;
    QString anthropicVersion_;
};

} // namespace vantro
