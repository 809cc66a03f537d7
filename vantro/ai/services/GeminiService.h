#pragma once

#include "vantro/ai/providers/ProviderHosts.h"
#include "vantro/ai/services/RemoteFormatService.h"

namespace vantro {

/// Google's generateContent. Never log or show its address: it contains the key.
class GeminiService final : public RemoteFormatService
{
public:
    GeminiService(RemoteServiceParts parts, RemoteProviderConfig config, const ProviderHosts& hosts = {},
                  std::chrono::milliseconds baseTimeout = standardTimeout);

protected:
    [[nodiscard]] QUrl endpoint() const override;
    [[nodiscard]] QUrl modelsEndpoint() const override;
    [[nodiscard]] NamesPath modelsPath() const override;
    void authorize(HttpRequest& request, const QString& key) const override;
    [[nodiscard]] QJsonObject formatBody(const QString& system, const QString& text) const override;
    [[nodiscard]] QJsonObject verificationBody() const override;
    [[nodiscard]] RemoteAnswer::Path contentPath() const override;

private:
    QString host_;
};

} // namespace vantro
