// What the four services send, and where they find the answer, against a real server.
#include "tests/ai/services/FormatTestSupport.h"
#include "vantro/ai/services/LocalFormatError.h"

#include <QJsonArray>
#include <QMutex>
#include <QRegularExpression>

using namespace vantro;

namespace {

QJsonObject json(const char* text)
{
    return QJsonDocument::fromJson(text).object();
}

QJsonObject bodyOf(const QJsonObject& request)
{
    return QJsonDocument::fromJson(request.value(QLatin1String("body")).toString().toUtf8()).object();
}

QString header(const QJsonObject& request, const QString& name)
{
    const QJsonObject headers = request.value(QLatin1String("headers")).toObject();
    for (auto entry = headers.constBegin(); entry != headers.constEnd(); ++entry) {
        if (entry.key().compare(name, Qt::CaseInsensitive) == 0)
            return entry.value().toString();
    }
    return {};
}

/// Collects what is logged while it lives.
class LogWatch
{
public:
    LogWatch()
    {
        lines() = QString();
        former_ = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
            static QMutex lock;
            const QMutexLocker locker(&lock);
            lines() += text + QLatin1Char('\n');
        });
    }
    ~LogWatch() { qInstallMessageHandler(former_); }

    static QString& lines()
    {
        static QString collected;
        return collected;
    }

private:
    QtMessageHandler former_;
};

} // namespace

class FormatServices : public FormatTest
{
protected:
    /// The one request that @p type sends for the standard text.
    QJsonObject requestOf(const RemoteProviderConfig& config)
    {
        const auto before = server.requests().size();
        format(config);
        const auto requests = server.requests();
        EXPECT_EQ(requests.size(), before + 1);
        return requests.isEmpty() ? QJsonObject() : requests.last();
    }

    QJsonObject verificationOf(RemoteProviderType type)
    {
        server.answer({});
        const Outcome verified = outcome(service(config(type))->verifyCredentials(account));
        EXPECT_EQ(verified.description(), QString());
        return server.requests().last();
    }
};

TEST_F(FormatServices, OpenAIIsAskedForAChatCompletion)
{
    languages.code = QStringLiteral("de");
    const QJsonObject request = requestOf(config(RemoteProviderType::OpenAI));
    EXPECT_EQ(request.value(QLatin1String("method")), QStringLiteral("POST"));
    EXPECT_EQ(request.value(QLatin1String("path")), QStringLiteral("/v1/chat/completions"));
    EXPECT_EQ(header(request, QStringLiteral("Content-Type")), QStringLiteral("application/json"));
    EXPECT_EQ(header(request, QStringLiteral("Authorization")), QStringLiteral("Bearer ") + key);
    EXPECT_EQ(header(request, QStringLiteral("Cookie")), QString());
    EXPECT_EQ(bodyOf(request), json(R"({"model": "model-1", "stream": false, "temperature": 0.3,
        "frequency_penalty": 0, "presence_penalty": 0, "messages": [
        {"role": "system", "content": "Be brief.\n\nCRITICAL: Respond ONLY in Deutsch. Do not translate or switch to any other language."},
        {"role": "user", "content": "hello wörld"}]})"));

    const QJsonObject check = verificationOf(RemoteProviderType::OpenAI);
    EXPECT_EQ(check.value(QLatin1String("path")), QStringLiteral("/v1/chat/completions"));
    EXPECT_EQ(header(check, QStringLiteral("Authorization")), QStringLiteral("Bearer ") + key);
    EXPECT_EQ(bodyOf(check), json(R"({"model": "model-1", "temperature": 0.3, "frequency_penalty": 0,
        "presence_penalty": 0, "messages": [{"role": "user", "content": "test"}]})"));
}

TEST_F(FormatServices, ParametersReplaceTheDefaultsAndEmptyTextsAreLeftOut)
{
    const auto membersWith = [this](RemoteProviderType type, const ModelRequestParameters& parameters) {
        RemoteProviderConfig wanted = config(type);
        wanted.parameters = parameters;
        QJsonObject body = bodyOf(requestOf(wanted));
        for (const char* common : {"model", "messages", "stream"})
            body.remove(QLatin1String(common));
        return body;
    };
    ModelRequestParameters parameters;
    EXPECT_EQ(membersWith(RemoteProviderType::OpenAI, parameters), QJsonObject());
    parameters.serviceTier = QString();
    parameters.reasoningEffort = QString();
    parameters.maxCompletionTokens = 900;
    EXPECT_EQ(membersWith(RemoteProviderType::OpenAI, parameters), json(R"({"max_completion_tokens": 900})"));
    parameters = {.maxTokens = 100,
                  .maxCompletionTokens = std::nullopt,
                  .temperature = 0.0,
                  .topP = 0.9,
                  .serviceTier = QStringLiteral("priority"),
                  .reasoningEffort = QStringLiteral("minimal")};
    const QJsonObject all = json(R"({"max_tokens": 100, "temperature": 0, "top_p": 0.9, "service_tier": "priority",
        "reasoning_effort": "minimal"})");
    EXPECT_EQ(membersWith(RemoteProviderType::OpenAI, parameters), all);
    EXPECT_EQ(membersWith(RemoteProviderType::Custom, parameters), all);
    EXPECT_EQ(membersWith(RemoteProviderType::Anthropic, parameters).value(QLatin1String("temperature")),
              QJsonValue::Undefined);
    EXPECT_EQ(membersWith(RemoteProviderType::Gemini, parameters).value(QLatin1String("generationConfig")),
              json(R"({"temperature": 0.3})"));
}

TEST_F(FormatServices, ACustomServerIsAskedTheSameBelowItsOwnAddress)
{
    const QJsonObject openAI = requestOf(config(RemoteProviderType::OpenAI));
    RemoteProviderConfig custom = config(RemoteProviderType::Custom);
    custom.customBaseURL = server.url() + QStringLiteral("/llm/v1");
    const QJsonObject request = requestOf(custom);
    EXPECT_EQ(request.value(QLatin1String("path")), QStringLiteral("/llm/v1/chat/completions"));
    EXPECT_EQ(header(request, QStringLiteral("Authorization")), QStringLiteral("Bearer ") + key);
    EXPECT_EQ(bodyOf(request), bodyOf(openAI));
    EXPECT_EQ(bodyOf(verificationOf(RemoteProviderType::Custom)), bodyOf(verificationOf(RemoteProviderType::OpenAI)));
}

TEST_F(FormatServices, AnthropicIsAskedForAMessage)
{
    const QJsonObject request = requestOf(config(RemoteProviderType::Anthropic));
    EXPECT_EQ(request.value(QLatin1String("method")), QStringLiteral("POST"));
    EXPECT_EQ(request.value(QLatin1String("path")), QStringLiteral("/v1/messages"));
    EXPECT_EQ(header(request, QStringLiteral("Content-Type")), QStringLiteral("application/json"));
    EXPECT_EQ(header(request, QStringLiteral("x-api-key")), key);
    EXPECT_EQ(header(request, QStringLiteral("anthropic-version")), QStringLiteral("2023-06-01"));
    EXPECT_EQ(header(request, QStringLiteral("Authorization")), QString());
    EXPECT_EQ(bodyOf(request), json(R"({"model": "model-1", "max_tokens": 4096,
        "system": "Be brief.\n\nCRITICAL: Respond ONLY in English.",
        "messages": [{"role": "user", "content": "hello wörld"}]})"));
    EXPECT_EQ(bodyOf(verificationOf(RemoteProviderType::Anthropic)),
              json(R"({"model": "model-1", "max_tokens": 1, "messages": [{"role": "user", "content": "test"}]})"));
}

TEST_F(FormatServices, GeminiIsAskedToGenerateContentWithTheKeyInTheQuery)
{
    store.secrets[account] = "AIza+/=&x";
    const QJsonObject request = requestOf(config(RemoteProviderType::Gemini));
    EXPECT_EQ(request.value(QLatin1String("method")), QStringLiteral("POST"));
    EXPECT_EQ(request.value(QLatin1String("path")),
              QStringLiteral("/v1beta/models/model-1:generateContent?key=AIza%2B%2F%3D%26x"));
    EXPECT_EQ(header(request, QStringLiteral("Authorization")), QString());
    EXPECT_EQ(bodyOf(request), json(R"({"generationConfig": {"temperature": 0.3}, "contents": [{"parts": [
        {"text": "System: Be brief.\n\nCRITICAL: Respond ONLY in English.\n\nUser: hello wörld"}]}]})"));
    EXPECT_EQ(bodyOf(verificationOf(RemoteProviderType::Gemini)),
              json(R"({"generationConfig": {"maxOutputTokens": 1}, "contents": [{"parts": [{"text": "test"}]}]})"));
}

TEST_F(FormatServices, TheTextComesFromEachProvidersOwnPlace)
{
    const auto textOf = [this](RemoteProviderType type, const char* body) {
        server.answer({{QStringLiteral("body"), QString::fromUtf8(body)}});
        return format(type).text;
    };
    const QString text = QStringLiteral("Grüße");
    const char* chat = R"({"choices": [{"message": {"content": "Grüße"}}, {"message": {"content": "no"}}]})";
    EXPECT_EQ(textOf(RemoteProviderType::OpenAI, chat), text);
    EXPECT_EQ(textOf(RemoteProviderType::Custom, chat), text);
    EXPECT_EQ(textOf(RemoteProviderType::Anthropic, R"({"content": [{"type": "text", "text": "Grüße"}]})"), text);
    EXPECT_EQ(textOf(RemoteProviderType::Gemini,
                     R"({"candidates": [{"content": {"parts": [{"text": "Grüße"}, {"text": "no"}]}}]})"),
              text);
}

TEST_F(FormatServices, AKeyIsShownByItsFirstTenCharactersOnly)
{
    const LogWatch log;
    for (const auto type : allRemoteProviderTypes)
        format(type);
    RemoteProviderConfig typed = config(RemoteProviderType::Gemini);
    typed.apiKeyOverride = QStringLiteral("typed-0123456789");
    format(typed);
    EXPECT_TRUE(server.requests().last().value(QLatin1String("path")).toString().endsWith(*typed.apiKeyOverride));
    typed.apiKeyOverride = QStringLiteral("short");
    format(typed);
    store.secrets.clear();
    format(RemoteProviderType::Anthropic);

    const QString lines = LogWatch::lines();
    for (const char* label : {"OpenAI", "Anthropic", "Gemini", "Custom"}) {
        const QString name = QLatin1String(label);
        EXPECT_TRUE(lines.contains(QStringLiteral("[%1] Using API key from keychain: sk-0123456...\n").arg(name)));
        EXPECT_TRUE(lines.contains(QStringLiteral("[%1] Request: model=model-1").arg(name)));
    }
    EXPECT_TRUE(lines.contains(QStringLiteral("[Gemini] Using API key from modal: typed-0123...\n")));
    EXPECT_TRUE(lines.contains(QStringLiteral("[Gemini] Using API key from modal: short...\n")));
    EXPECT_TRUE(lines.contains(QStringLiteral("[Anthropic] No API key found in keychain\n")));
    EXPECT_TRUE(lines.contains(QStringLiteral("[Custom] Base URL: %1/v1\n").arg(server.url())));
    EXPECT_TRUE(lines.contains(QStringLiteral("[Custom] HTTP Status: 200\n")));
    EXPECT_FALSE(lines.contains(key.left(11))) << lines.toStdString();
    EXPECT_FALSE(lines.contains(QStringLiteral("typed-01234"))) << lines.toStdString();
    EXPECT_FALSE(lines.contains(QStringLiteral("hello"))) << "nor is what was said";
}

TEST_F(FormatServices, AnOpenedConnectionIsUsedForAllRequests)
{
    server.answerChat(QStringLiteral("text"));
    const auto first = service(config(RemoteProviderType::Custom));
    first->prepare({});
    // At once, while the connection is on its way. The key that was read for a dictation is the dictation's; the next
    // one reads it anew.
    EXPECT_EQ(outcome(first->format({}, {})).text, QStringLiteral("text"));
    EXPECT_EQ(format().text, QStringLiteral("text"));
    EXPECT_EQ(server.connections(), 1) << server.logText().toStdString();
    store.secrets.clear();
    EXPECT_EQ(format().kind(), RemoteFormatError::Kind::notConfigured);
    EXPECT_EQ(server.requests().size(), 2);
}

TEST_F(FormatServices, TheModesConfigurationChoosesTheService)
{
    const FormatServiceFactory factory(providers, local, parts);
    ProviderConfiguration provider = providers.configurations().front();
    provider.providerType = RemoteProviderType::Custom;
    provider.customBaseURL = server.url() + QStringLiteral("/v1");
    providers.update(provider);
    store.secrets[provider.keychainAccount()] = "first";
    ProviderConfiguration twin = provider;
    twin.id = QUuid::createUuid();
    providers.add(twin);
    store.secrets[twin.keychainAccount()] = "second";
    server.answerChat(QStringLiteral("text"));
    const auto ask = [&](const ModeConfiguration& mode) {
        return outcome(factory.make(ProcessingMode::Email, mode)->format({}, QStringLiteral("a")));
    };
    const auto isUnavailable = [](const Outcome& result) {
        return result.description() ==
               QStringLiteral("Please download a language model under Settings, Models to use local processing");
    };

    EXPECT_EQ(ask({false, provider.id}).text, QStringLiteral("text"));
    EXPECT_EQ(header(server.requests().last(), QStringLiteral("Authorization")), QStringLiteral("Bearer first"));
    EXPECT_EQ(ask({false, twin.id}).text, QStringLiteral("text"));
    EXPECT_EQ(header(server.requests().last(), QStringLiteral("Authorization")), QStringLiteral("Bearer second"));

    EXPECT_TRUE(isUnavailable(ask({true, provider.id})));
    EXPECT_TRUE(isUnavailable(ask({false, std::nullopt})));
    EXPECT_TRUE(isUnavailable(ask({false, QUuid::createUuid()})));
    provider.isEnabled = false;
    providers.update(provider);
    EXPECT_TRUE(isUnavailable(ask({false, provider.id}))) << "nothing goes to a provider that is switched off";
    EXPECT_EQ(server.requests().size(), 2);
}

TEST_F(FormatServices, TheModelsOfAProviderAreListedSorted)
{
    const auto joined = [](QCoro::Task<QStringList> task) -> QCoro::Task<QString> {
        const QStringList names = co_await task;
        co_return names.join(QLatin1Char(' '));
    };
    const QJsonObject openAI = json(R"({"data":[{"id":"small"},{"id":"Large"},{"id":"medium\n"},{"id":7}]})");
    const QJsonObject gemini = json(R"({"models":[
        {"name":"models/flash","supportedGenerationMethods":["countTokens","generateContent"]},
        {"name":"models/embedding","supportedGenerationMethods":["embedContent"]}]})");
    for (const auto& [type, path, answer, names] :
         {std::tuple(RemoteProviderType::OpenAI, "/v1/models", openAI, "Large medium small"),
          std::tuple(RemoteProviderType::Anthropic, "/v1/models?limit=1000", openAI, "Large medium small"),
          std::tuple(RemoteProviderType::Custom, "/v1/models", openAI, "Large medium small"),
          std::tuple(RemoteProviderType::Gemini, "/v1beta/models?pageSize=1000&key=", gemini, "flash")}) {
        server.answer({{QStringLiteral("body"), QString::fromUtf8(QJsonDocument(answer).toJson())}});
        const Outcome listed = outcome(joined(service(config(type))->models(account)));
        EXPECT_EQ(listed.text, QLatin1String(names)) << listed.description().toStdString();
        const QJsonObject request = server.requests().last();
        EXPECT_EQ(request.value(QLatin1String("method")).toString(), QStringLiteral("GET"));
        EXPECT_TRUE(request.value(QLatin1String("path")).toString().startsWith(QLatin1String(path)))
            << request.value(QLatin1String("path")).toString().toStdString();
        EXPECT_TRUE(QJsonDocument(request).toJson().contains(key.toUtf8())) << "with the key";
    }
    server.answer({{QStringLiteral("body"), QStringLiteral("<html>")}});
    EXPECT_EQ(outcome(joined(service(config(RemoteProviderType::Custom))->models(account))).kind(),
              RemoteFormatError::Kind::invalidResponse);
    server.answer({{QStringLiteral("status"), 401}});
    EXPECT_EQ(outcome(joined(service(config(RemoteProviderType::OpenAI))->models(account))).kind(),
              RemoteFormatError::Kind::invalidCredentials);
}
