#pragma once

#include "vantro/ai/services/RemoteFormatService.h"

namespace vantro {

/// OpenAI's chat completions API, which many servers offer.
class ChatCompletions : public RemoteFormatService
{
protected:
    using RemoteFormatService::RemoteFormatService;

    void authorize(HttpRequest& request, const QString& key) const override;
    [[nodiscard]] QJsonObject formatBody(const QString& system, const QString& text) const override;
    [[nodiscard]] QJsonObject verificationBody() const override;
    [[nodiscard]] RemoteAnswer::Path contentPath() const override;

private:
    void addParameters(QJsonObject& body) const;
};

} // namespace vantro
