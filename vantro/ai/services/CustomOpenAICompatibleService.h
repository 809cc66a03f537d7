#pragma once

#include "vantro/ai/services/ChatCompletions.h"

namespace vantro {

/// Any server with OpenAI's chat completions API, at an address given by the user.
class CustomOpenAICompatibleService final : public ChatCompletions
{
public:
    CustomOpenAICompatibleService(RemoteServiceParts parts, RemoteProviderConfig config,
                                  std::chrono::milliseconds baseTimeout = standardTimeout);

protected:
    [[nodiscard]] QUrl endpoint() const override;
    [[nodiscard]] QUrl modelsEndpoint() const override;
    void noteRequest() const override;
    [[nodiscard]] AnswerNote formatNote() const override;
    [[nodiscard]] AnswerNote verificationNote() const override;

private:
    [[nodiscard]] QUrl addressOf(const QString& resource) const;
};

} // namespace vantro
