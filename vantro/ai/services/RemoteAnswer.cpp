#include "vantro/ai/services/RemoteAnswer.h"

#include "base/PlainText.h"
#include "base/network/NetworkError.h"
#include "vantro/ai/AnswerSetAside.h"
#include "vantro/ai/services/RemoteFormatError.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

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
        "context window",                       // gateways: "context window exceeded"
        "context_window",
    };
    const QByteArray text = body.toLower();
    return std::ranges::any_of(signs, [&text](const char* sign) { return text.contains(sign); });
}

/// {"error": {"message": "text"}}, {"error": "text"}, {"message": "text"}, {"detail": "text"}, and a list of
/// {"msg": "text"} there.
std::optional<QString> messageOf(const QByteArray& body)
{
    const QJsonObject answer = QJsonDocument::fromJson(body).object();
    const QJsonValue error = answer.value(QLatin1String("error"));
    const QJsonValue detail = answer.value(QLatin1String("detail"));
    for (const QJsonValue& place :
         {error.toObject().value(QLatin1String("message")), error, answer.value(QLatin1String("message")), detail,
          detail.toArray().at(0).toObject().value(QLatin1String("msg"))}) {
        if (place.isString() && !place.toString().trimmed().isEmpty())
            return withoutControlCharacters(place.toString()).simplified();
    }
    return std::nullopt;
}

/// Which of the parameters that are sent beside the text @p message complains of; empty when it is none of them.
QString refusedParameter(const QString& message)
{
    for (const char* name : {"max_completion_tokens", "max_tokens", "frequency_penalty", "presence_penalty",
                             "temperature", "top_p", "service_tier", "reasoning_effort"}) {
        if (message.contains(QLatin1String(name)))
            return QLatin1String(name);
    }
    return {};
}

/// In the words of the known servers.
bool isCutOff(const QString& end)
{
    static const QSet<QString> words{QStringLiteral("length"), QStringLiteral("max_tokens"),
                                     QStringLiteral("model_length"), QStringLiteral("model_context_window_exceeded")};
    return words.contains(end.toLower());
}

bool isRefused(const QString& end)
{
    static const QSet<QString> words{QStringLiteral("content_filter"),
                                     QStringLiteral("refusal"),
                                     QStringLiteral("safety"),
                                     QStringLiteral("recitation"),
                                     QStringLiteral("prohibited_content"),
                                     QStringLiteral("blocklist"),
                                     QStringLiteral("spii")};
    return words.contains(end.toLower());
}

} // namespace

RemoteAnswer::RemoteAnswer(QString label, HttpAnswer answer) : label_(std::move(label)), answer_(std::move(answer)) {}

QString RemoteAnswer::text(Path path) const
{
    check();
    const Content content = path(QJsonDocument::fromJson(answer_.body).object());
    QString text = withoutControlCharacters(content.text.toString());
    // Comes without a text when the model used up its tokens on reasoning.
    if (isCutOff(content.end))
        throw AnswerSetAside(AnswerSetAside::Doubt::cutOff, text);
    if (isRefused(content.end))
        throw AnswerSetAside(AnswerSetAside::Doubt::refused, text);
    if (!content.text.isString()) {
        requireWhole();
        throw RemoteFormatError(RemoteFormatError::Kind::invalidResponse);
    }
    if (text.trimmed().isEmpty())
        throw AnswerSetAside(AnswerSetAside::Doubt::empty, text);
    return text;
}

void RemoteAnswer::requireWhole() const
{
    QJsonParseError error;
    QJsonDocument::fromJson(answer_.body, &error);
    using enum QJsonParseError::ParseError;
    const bool endsEarly =
        error.error == UnterminatedObject || error.error == UnterminatedArray || error.error == UnterminatedString;
    if (endsEarly && !answer_.hasDeclaredLength)
        throw NetworkError::cutOff(answer_.host);
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
    if (!answer_.redirectedTo.isEmpty())
        throw RemoteFormatError::redirected(answer_.status, answer_.redirectedTo);
    if (answer_.status < 400 || answer_.status > 499)
        throw RemoteFormatError::apiError(answer_.status, std::nullopt);
    const std::optional<QString> message = messageOf(answer_.body);
    logger().error(
        QStringLiteral("[%1] Error: %2").arg(label_, message ? *message : QString::fromUtf8(answer_.body.left(200))));
    if (tellsOfContextLength(answer_.body))
        throw RemoteFormatError(RemoteFormatError::Kind::contextWindowExceeded);
    const QString parameter = message ? refusedParameter(*message) : QString();
    if (!parameter.isEmpty())
        throw RemoteFormatError::refusedParameter(answer_.status, *message, parameter);
    throw RemoteFormatError::apiError(answer_.status, message);
}

} // namespace vantro
