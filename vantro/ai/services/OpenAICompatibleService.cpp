#include "vantro/ai/services/OpenAICompatibleService.h"

#include <utility>

namespace vantro {

OpenAICompatibleService::OpenAICompatibleService(RemoteServiceParts parts, RemoteProviderConfig config,
                                                 const ProviderHosts& hosts, std::chrono::milliseconds baseTimeout)
    : ChatCompletions(parts, std::move(config), baseTimeout)
    , host_(hosts.openAI)
{
}

QUrl OpenAICompatibleService::endpoint() const
{
    return QUrl(host_ + QStringLiteral("/v1/chat/completions"));
}

QUrl OpenAICompatibleService::modelsEndpoint() const
{
    return QUrl(host_ + QStringLiteral("/v1/models"));
}

RemoteFormatService::AnswerNote OpenAICompatibleService::verificationNote() const
{
    return [](const RemoteAnswer& answer) {
        logger().info(QStringLiteral("[OpenAI] Response code from OpenAI: %1").arg(answer.status()));
    };
}

} // namespace vantro
