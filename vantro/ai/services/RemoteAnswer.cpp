#include "vantro/ai/services/RemoteAnswer.h"

#include "base/PlainText.h"
#include "vantro/ai/services/RemoteFormatError.h"

#include <QJsonDocument>

#include <algorithm>
#include <array>
#include <utility>

namespace vantro {

namespace {

constexpr int success = 200;
constexpr int unauthorized = 401;
constexpr int tooManyRequests = 429;

const Logger& logger()
{
    static const Logger logger("RemoteFormatService");
    return logger;
}

/// Recognises the message that the text exceeds the context window; there is no common code for it.
bool tellsOfContextLength(const QByteArray& body)
{
    static constexpr std::array signs{
        "context_length_exceeded",              // OpenAI's code
        "maximum context length",               // OpenAI, vLLM, Ollama
        "prompt is too long",                   // Anthropic
        "exceed context limit",                 // Anthropic: text and answer together
        "exceeds the maximum number of tokens", // Gemini
        "exceed_context_size",                  // llama.cpp's type
        "exceeds the available context size",   // llama.cpp
        "max context length",                   // Ollama: "prompt too long; exceeded max context length"
        "greater than the context length",      // LM Studio
    };
    const QByteArray text = body.toLower();
    return std::ranges::any_of(signs, [&text](const char* sign) { return text.contains(sign); });
}

} // namespace

RemoteAnswer::RemoteAnswer(QString label, HttpAnswer answer) : label_(std::move(label)), answer_(std::move(answer)) {}

QString RemoteAnswer::text(TextPath path) const
{
    check();
    const QJsonValue value = path(QJsonDocument::fromJson(answer_.body).object());
    QString text = withoutControlCharacters(value.toString());
    // An empty text means that the model used up its tokens on reasoning.
    if (text.trimmed().isEmpty())
        throw RemoteFormatError(RemoteFormatError::Kind::invalidResponse);
    return text;
}

void RemoteAnswer::check() const
{
    if (answer_.status == success)
        return;
    if (answer_.status == tooManyRequests)
        throw RemoteFormatError(RemoteFormatError::Kind::rateLimitExceeded);
    if (answer_.status == unauthorized)
        throw RemoteFormatError(RemoteFormatError::Kind::invalidCredentials);
    refuse();
}

void RemoteAnswer::refuse() const
{
    if (answer_.status < 400 || answer_.status > 499)
        throw RemoteFormatError::apiError(answer_.status, std::nullopt);
    const QJsonValue error = QJsonDocument::fromJson(answer_.body).object().value(QLatin1String("error"));
    const QJsonValue message = error.toObject().value(QLatin1String("message"));
    logger().error(QStringLiteral("[%1] Error: %2").arg(label_, message.toString()));
    if (tellsOfContextLength(answer_.body))
        throw RemoteFormatError(RemoteFormatError::Kind::contextWindowExceeded);
    throw RemoteFormatError::apiError(answer_.status,
                                      message.isString() ? std::optional(message.toString()) : std::nullopt);
}

} // namespace vantro
