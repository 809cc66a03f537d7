#pragma once

#include "vantro/ai/providers/ProviderHosts.h"
#include "vantro/ai/services/ChatCompletions.h"

namespace vantro {

/// OpenAI's own service.
class OpenAICompatibleService final : public ChatCompletions
{
public:
    OpenAICompatibleService(RemoteServiceParts parts, RemoteProviderConfig config, const ProviderHosts& hosts = {},
                            std::chrono::milliseconds baseTimeout = standardTimeout);

protected:
    [[nodiscard]] QUrl endpoint() const override;
    [[nodiscard]] QUrl modelsEndpoint() const override;
    [[nodiscard]] AnswerNote verificationNote() const override;

private:
    QString host_;
};

} // namespace vantro
