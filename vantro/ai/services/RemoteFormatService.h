#pragma once

#include "base/Clock.h"
#include "base/Logger.h"
#include "base/network/HttpExchange.h"
#include "platform/LanguageRecognizer.h"
#include "vantro/ai/FormatRequestServicing.h"
#include "vantro/ai/providers/KeychainServicing.h"
#include "vantro/ai/providers/RemoteProviderConfig.h"
#include "vantro/ai/services/RemoteAnswer.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <optional>
#include <stop_token>

namespace vantro {

/// What a remote service needs; the referenced objects must outlive it.
struct RemoteServiceParts
{
    HttpExchange& http;
    KeychainServicing& keychain;
    const LanguageRecognizer& languages;
    Clock& clock;
    /// Makes pending requests fail at once.
    std::stop_token stop = {};
};

/// A hosted language model, asked over HTTP with a single request and no retry. Subclasses supply what differs between
/// providers: address, headers, bodies and where the text is. Throws RemoteFormatError.
class RemoteFormatService : public FormatRequestServicing
{
public:
    static constexpr std::chrono::milliseconds standardTimeout{30'000};

    /// The key store's user may have to unlock it.
    static constexpr std::chrono::milliseconds keyTimeout{60'000};

    /// Starts reading the key and opens the connection.
    void prepare(const QString& prompt) override;
    /// Opens the connection only, when a request is likely but not certain.
    void preconnect();
    void expectLanguage(const QString& code) override { spokenLanguage_ = code; }
    QCoro::Task<QString> format(QString prompt, QString text) override;

    /// Sends a minimal request, which may take as long as any other, with the key of that account, or the
    /// apiKeyOverride of the configuration.
    QCoro::Task<> verifyCredentials(QString keychainIdentifier);
    /// The models that the provider offers for such requests, sorted. The key is found in the same way.
    QCoro::Task<QStringList> models(QString keychainIdentifier);

    [[nodiscard]] const RemoteProviderConfig& config() const { return config_; }

protected:
    RemoteFormatService(RemoteServiceParts parts, RemoteProviderConfig config, std::chrono::milliseconds baseTimeout);

    /// The address without the key. Throws RemoteFormatError when it is not usable.
    [[nodiscard]] virtual QUrl endpoint() const = 0;
    /// Adds @p key the way the provider expects it.
    virtual void authorize(HttpRequest& request, const QString& key) const = 0;
    [[nodiscard]] virtual QJsonObject formatBody(const QString& system, const QString& text) const = 0;
    [[nodiscard]] virtual QJsonObject verificationBody() const = 0;
    [[nodiscard]] virtual RemoteAnswer::Path contentPath() const = 0;
    /// The address of the list of models, without the key. Throws like endpoint().
    [[nodiscard]] virtual QUrl modelsEndpoint() const = 0;
    /// Their names in the answer.
    using NamesPath = QStringList (*)(const QJsonObject& answer);
    [[nodiscard]] virtual NamesPath modelsPath() const;
    /// Called before a request is sent, for extra log lines.
    virtual void noteRequest() const {}
    /// Called with the complete response, for extra log lines. Runs on the network thread, where the service may be
    /// gone.
    using AnswerNote = void (*)(const RemoteAnswer& answer);
    [[nodiscard]] virtual AnswerNote formatNote() const { return nullptr; }
    [[nodiscard]] virtual AnswerNote verificationNote() const { return nullptr; }

    /// @p text prefixed with "[OpenAI] ".
    [[nodiscard]] QString line(const QString& text) const;
    [[nodiscard]] static const Logger& logger();

private:
    struct KeyRead;

    void refuseStrayAddress() const;
    QCoro::Task<QString> resolveKey(QString keychainIdentifier);
    static QCoro::Task<> readKey(KeychainServicing& keychain, QString account, std::shared_ptr<KeyRead> into);
    /// A GET when @p body is empty.
    QCoro::Task<QString> send(QString key, QUrl url, QJsonObject body, HttpExchange::Reader read);

    RemoteServiceParts parts_;
    RemoteProviderConfig config_;
    std::chrono::milliseconds baseTimeout_;
    QString spokenLanguage_;            ///< may be empty
    std::shared_ptr<KeyRead> keyAhead_; ///< being read since prepare()
};

} // namespace vantro
