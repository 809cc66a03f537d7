#include "vantro/ai/services/RemoteFormatService.h"

#include "base/network/NetworkError.h"
#include "vantro/ai/LanguageInstruction.h"
#include "vantro/ai/providers/KeychainError.h"
#include "vantro/ai/services/RemoteFormatError.h"

#include <QFuture>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPromise>
#include <qcoro/qcorofuture.h>

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

const QString nameSeparator = QStringLiteral("\n");

constexpr qsizetype loggedKeyCharacters = 10;

QString beginOf(const QString& key)
{
    return key.left(loggedKeyCharacters) + QStringLiteral("...");
}

/// Whether @p key may go into a header or an address. Anything else was pasted by mistake, and a line break would
/// inject headers.
bool isPrintable(const QString& key)
{
    return std::ranges::all_of(key, [](QChar c) { return c > QLatin1Char(' ') && c < QChar(0x7f); });
}

std::exception_ptr keyStoreHangs()
{
    return std::make_exception_ptr(
        KeychainError(KeychainError::Kind::serviceMissing,
                      RemoteFormatError::tr("the key store does not answer. Unlock it, or log in anew.")));
}

} // namespace

/// A key being read from the key store. May outlive the service.
struct RemoteFormatService::KeyRead
{
    KeyRead() { promise.start(); }

    /// Later ones change nothing.
    void settle(const std::optional<QString>& key, const std::exception_ptr& failure)
    {
        if (std::exchange(isSettled, true))
            return;
        if (failure)
            promise.setException(failure);
        else
            promise.addResult(key);
        promise.finish();
    }

    bool isSettled = false;

    QPromise<std::optional<QString>> promise;
};

RemoteFormatService::RemoteFormatService(RemoteServiceParts parts, RemoteProviderConfig config,
                                         std::chrono::milliseconds baseTimeout)
    : parts_(parts)
    , config_(std::move(config))
    , baseTimeout_(baseTimeout)
{
}

const Logger& RemoteFormatService::logger()
{
    static const Logger logger("RemoteFormatService");
    return logger;
}

QString RemoteFormatService::line(const QString& text) const
{
    return QStringLiteral("[%1] ").arg(rawValue(config_.provider)) + text;
}

void RemoteFormatService::prepare(const QString& /*prompt*/)
{
    if (!config_.apiKeyOverride && !keyAhead_) {
        keyAhead_ = std::make_shared<KeyRead>();
        readKey(parts_.keychain, config_.keychainIdentifierOverride.value_or(QString()), keyAhead_);
    }
    preconnect();
}

void RemoteFormatService::preconnect()
{
    try {
        parts_.http.preconnect(endpoint());
    } catch (const RemoteFormatError&) {
        // The request itself will report it.
    }
}

QCoro::Task<QString> RemoteFormatService::format(QString prompt, QString text)
{
    refuseStrayAddress();
    const QString system = prompt + languageInstruction(parts_.languages, text, spokenLanguage_);
    const QString key = co_await resolveKey(config_.keychainIdentifierOverride.value_or(QString()));
    const QJsonObject body = formatBody(system, text);
    const HttpExchange::Reader read = [label = rawValue(config_.provider), path = contentPath(),
                                       note = formatNote()](const HttpAnswer& answer) {
        const RemoteAnswer remote(label, answer);
        if (note != nullptr)
            note(remote);
        return remote.text(path);
    };
    co_return co_await send(key, endpoint(), body, read);
}

QCoro::Task<> RemoteFormatService::verifyCredentials(QString keychainIdentifier)
{
    refuseStrayAddress();
    const QString key = co_await resolveKey(keychainIdentifier);
    const QJsonObject body = verificationBody();
    const HttpExchange::Reader read = [label = rawValue(config_.provider),
                                       note = verificationNote()](const HttpAnswer& answer) {
        const RemoteAnswer remote(label, answer);
        if (note != nullptr)
            note(remote);
        remote.check();
        return QString();
    };
    co_await send(key, endpoint(), body, read);
}

QCoro::Task<QStringList> RemoteFormatService::models(QString keychainIdentifier)
{
    refuseStrayAddress();
    const QString key = co_await resolveKey(keychainIdentifier);
    const HttpExchange::Reader read = [label = rawValue(config_.provider),
                                       path = modelsPath()](const HttpAnswer& answer) {
        const RemoteAnswer remote(label, answer);
        remote.check();
        const QStringList names = path(QJsonDocument::fromJson(remote.body()).object());
        if (names.isEmpty()) {
            remote.requireWhole();
            throw RemoteFormatError(RemoteFormatError::Kind::invalidResponse);
        }
        return names.join(nameSeparator);
    };
    const QJsonObject noBody;
    const QString names = co_await send(key, modelsEndpoint(), noBody, read);
    QStringList sorted = names.split(nameSeparator);
    sorted.sort(Qt::CaseInsensitive);
    co_return sorted;
}

RemoteFormatService::NamesPath RemoteFormatService::modelsPath() const
{
    return [](const QJsonObject& answer) {
        QStringList names;
        const QJsonArray entries = answer.value(QLatin1String("data")).toArray();
        for (const auto& entry : entries) {
            const QString name = entry.toObject().value(QLatin1String("id")).toString().simplified();
            if (!name.isEmpty())
                names << name;
        }
        return names;
    };
}

/// Whoever has entered his company's gateway does not want it bypassed.
void RemoteFormatService::refuseStrayAddress() const
{
    const QString address = config_.customBaseURL.value_or(QString());
    if (config_.provider != RemoteProviderType::Custom && !address.isEmpty() &&
        QUrl(address).host() != endpoint().host())
        throw RemoteFormatError::strayAddress(displayName(config_.provider), address);
}

QCoro::Task<> RemoteFormatService::readKey(KeychainServicing& keychain, QString account, std::shared_ptr<KeyRead> into)
{
    try {
        const std::optional<QString> key = co_await keychain.read(account);
        into->settle(key, nullptr);
    } catch (...) {
        into->settle(std::nullopt, std::current_exception());
    }
}

QCoro::Task<QString> RemoteFormatService::resolveKey(QString keychainIdentifier)
{
    std::optional<QString> key = config_.apiKeyOverride;
    if (key) {
        logger().debug(line(QStringLiteral("Using API key from modal: ") + beginOf(*key)));
    } else {
        // A key read ahead serves one request only.
        auto reading = std::exchange(keyAhead_, nullptr);
        if (!reading || keychainIdentifier != config_.keychainIdentifierOverride) {
            reading = std::make_shared<KeyRead>();
            readKey(parts_.keychain, keychainIdentifier, reading);
        }
        const QFuture<std::optional<QString>> answer = reading->promise.future();
        QObject waiting; // ends the limit when it goes out of scope
        parts_.clock.callAfter(keyTimeout, &waiting, [reading] { reading->settle({}, keyStoreHangs()); });
        const std::stop_callback onStop(parts_.stop, [reading] {
            reading->settle({}, std::make_exception_ptr(RemoteFormatError::networkError(QString())));
        });
        key = co_await answer;
        if (key && !key->isEmpty())
            logger().debug(line(QStringLiteral("Using API key from keychain: ") + beginOf(*key)));
    }
    if (!key || key->isEmpty()) {
        logger().error(line(QStringLiteral("No API key found in keychain")));
        throw RemoteFormatError(RemoteFormatError::Kind::notConfigured);
    }
    if (!isPrintable(*key))
        throw RemoteFormatError(RemoteFormatError::Kind::invalidCredentials);
    co_return *key;
}

QCoro::Task<QString> RemoteFormatService::send(QString key, QUrl url, QJsonObject body, HttpExchange::Reader read)
{
    HttpRequest request;
    request.url = std::move(url);
    if (!body.isEmpty())
        request.body = QJsonDocument(body).toJson(QJsonDocument::Compact);
    request.timeout = baseTimeout_;
    authorize(request, key);
    noteRequest();
    logger().info(line(QStringLiteral("Request: model=%1, %2 bytes, members %3")
                           .arg(config_.model)
                           .arg(request.body.size())
                           .arg(body.keys().join(QStringLiteral(", ")))));
    try {
        co_return co_await parts_.http.send(request, read, parts_.stop);
    } catch (const NetworkError& error) {
        if (error.kind() == NetworkError::Kind::notHttp) {
            logger().error(line(QStringLiteral("Invalid response type")));
            throw RemoteFormatError(RemoteFormatError::Kind::invalidResponse);
        }
        throw RemoteFormatError::networkError(error.localizedDescription());
    }
}

} // namespace vantro
