#include "vantro/ai/services/CustomOpenAICompatibleService.h"

#include "vantro/ai/providers/ProviderForm.h"
#include "vantro/ai/services/RemoteFormatError.h"

#include <utility>

namespace vantro {

namespace {

constexpr qsizetype loggedAnswerBytes = 4'096;

void noteAnswer(const Logger& logger, const RemoteAnswer& answer)
{
    logger.info(QStringLiteral("[Custom] HTTP Status: %1").arg(answer.status()));
    // Contains what the user said, hence debug level only.
    logger.debug(QStringLiteral("[Custom] Response: ") + QString::fromUtf8(answer.body().left(loggedAnswerBytes)));
}

} // namespace

CustomOpenAICompatibleService::CustomOpenAICompatibleService(RemoteServiceParts parts, RemoteProviderConfig config,
                                                             std::chrono::milliseconds baseTimeout)
    : ChatCompletions(parts, std::move(config), baseTimeout)
{
}

QUrl CustomOpenAICompatibleService::endpoint() const
{
    return addressOf(QStringLiteral("/chat/completions"));
}

QUrl CustomOpenAICompatibleService::modelsEndpoint() const
{
    return addressOf(QStringLiteral("/models"));
}

QUrl CustomOpenAICompatibleService::addressOf(const QString& resource) const
{
    const QString text = ProviderForm::baseOf(config().customBaseURL.value_or(QString())) + resource;
    if (!ProviderForm::isUsableUrl(text)) {
        logger().error(line(QStringLiteral("Invalid URL: ") + text));
        throw RemoteFormatError(RemoteFormatError::Kind::notConfigured);
    }
    return QUrl(text);
}

void CustomOpenAICompatibleService::noteRequest() const
{
    logger().info(line(QStringLiteral("Base URL: ") + config().customBaseURL.value_or(QString())));
    logger().info(line(QStringLiteral("Model: ") + config().model));
}

RemoteFormatService::AnswerNote CustomOpenAICompatibleService::formatNote() const
{
    return [](const RemoteAnswer& answer) {
        noteAnswer(logger(), answer);
    };
}

RemoteFormatService::AnswerNote CustomOpenAICompatibleService::verificationNote() const
{
    return formatNote();
}

} // namespace vantro
