#include "vantro/ai/providers/KeychainService.h"

#include "vantro/ai/providers/KeychainError.h"

#include <QCoreApplication>
#include <QStringDecoder>
#include <QStringEncoder>

namespace vantro {

namespace {

KeychainError keychainError(const SecretStoreError& error)
{
    const bool isMissing = error.kind() != SecretStoreError::Kind::failed;
    return {isMissing ? KeychainError::Kind::serviceMissing : KeychainError::Kind::unexpectedStatus,
            error.localizedDescription()};
}

} // namespace

KeychainService::KeychainService(SecretStore& store) : store_(store) {}

QCoro::Task<> KeychainService::save(QString key, QString account)
{
    QStringEncoder encode(QStringEncoder::Utf8);
    const QByteArray secret = encode(key);
    if (encode.hasError() || secret.isEmpty())
        throw KeychainError(KeychainError::Kind::encodingFailed);
    const QString label = QCoreApplication::translate("KeychainService", "vantro API key (%1)").arg(account);
    try {
        co_await store_.store(account, label, secret);
    } catch (const SecretStoreError& error) {
        throw keychainError(error);
    }
}

QCoro::Task<std::optional<QString>> KeychainService::read(QString account)
{
    std::optional<QByteArray> secret;
    try {
        secret = co_await store_.read(account);
    } catch (const SecretStoreError& error) {
        throw keychainError(error);
    }
    if (!secret)
        co_return std::nullopt;
    if (secret->isEmpty())
        throw KeychainError(KeychainError::Kind::invalidData);
    QStringDecoder decode(QStringDecoder::Utf8);
    const QString key = decode(*secret);
    if (decode.hasError())
        throw KeychainError(KeychainError::Kind::decodingFailed);
    co_return key;
}

QCoro::Task<> KeychainService::remove(QString account)
{
    bool isRemoved = false;
    try {
        isRemoved = co_await store_.remove(account);
    } catch (const SecretStoreError& error) {
        throw keychainError(error);
    }
    if (!isRemoved)
        throw KeychainError(KeychainError::Kind::itemNotFound);
}

QCoro::Task<QStringList> KeychainService::accounts()
{
    try {
        co_return co_await store_.accounts();
    } catch (const SecretStoreError& error) {
        throw keychainError(error);
    }
}

} // namespace vantro
