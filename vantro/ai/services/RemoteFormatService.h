#pragma once

#include "base/Logger.h"
#include "base/network/HttpExchange.h"
#include "platform/LanguageRecognizer.h"
#include "vantro/ai/FormatRequestServicing.h"
#include "vantro/ai/providers/KeychainServicing.h"
#include "vantro/ai/providers/RemoteProviderConfig.h"
#include "vantro/ai/services/RemoteAnswer.h"

#include <QJsonObject>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <stop_token>

namespace vantro {

/// What a remote service works with; the objects outlive it.
struct RemoteServiceParts
{
    HttpExchange& http;
    KeychainServicing& keychain;
    const LanguageRecognizer& languages;
    /// Ends what is under way, with an error, when nobody waits for it any more.
    std::stop_token stop = {};
};

/// A hosted language model, asked over HTTP: one request, one answer, no second try. Everything is common to the
/// providers but the address, the headers, the bodies and the place of the text. Throws RemoteFormatError.
class RemoteFormatService : public FormatRequestServicing
{
public:
    static constexpr std::chrono::milliseconds standardTimeout{30'000};
    static constexpr std::chrono::milliseconds verificationTimeout{10'000};

    /// Reads the key and opens the connection.
    void prepare() override;
    /// The connection alone, for when it is not sure yet that it will be needed.
    void preconnect();
    QCoro::Task<QString> format(QString prompt, QString text) override;

    /// Sends the smallest possible request with the key of that account, or the one that the configuration carries.
    QCoro::Task<> verifyCredentials(QString keychainIdentifier);

    [[nodiscard]] const RemoteProviderConfig& config() const { return config_; }

protected:
    RemoteFormatService(RemoteServiceParts parts, RemoteProviderConfig config, std::chrono::milliseconds baseTimeout);

    /// Without the key; throws RemoteFormatError when there is none that can be used.
    [[nodiscard]] virtual QUrl endpoint() const = 0;
    /// Puts @p key where the provider looks for it.
    virtual void authorize(HttpRequest& request, const QString& key) const = 0;
    [[nodiscard]] virtual QJsonObject formatBody(const QString& system, const QString& text) const = 0;
    [[nodiscard]] virtual QJsonObject verificationBody() const = 0;
    [[nodiscard]] virtual RemoteAnswer::TextPath textPath() const = 0;
    /// Log lines of its own before a request is sent.
    virtual void noteRequest() const {}
    /// Log lines of its own about a whole answer. Runs on the network's thread, without the service.
    using AnswerNote = void (*)(const RemoteAnswer& answer);
    [[nodiscard]] virtual AnswerNote formatNote() const { return nullptr; }
    [[nodiscard]] virtual AnswerNote verificationNote() const { return nullptr; }

    /// "[OpenAI] " and @p text.
    [[nodiscard]] QString line(const QString& text) const;
    [[nodiscard]] static const Logger& logger();

private:
    struct KeyRead;

    QCoro::Task<QString> resolveKey(QString keychainIdentifier);
    static QCoro::Task<> readKey(KeychainServicing& keychain, QString account, std::shared_ptr<KeyRead> into);
    QCoro::Task<QString> send(QString key, QJsonObject body, std::chrono::milliseconds timeout,
                              HttpExchange::Reader read);

    RemoteServiceParts parts_;
    RemoteProviderConfig config_;
    std::chrono::milliseconds baseTimeout_;
    std::shared_ptr<KeyRead> keyAhead_; ///< what prepare() has begun to read
};

} // namespace vantro
