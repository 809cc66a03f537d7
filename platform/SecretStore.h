#pragma once

#include "base/Error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <qcoro/qcorotask.h>

#include <optional>

namespace vantro {

/// Why a secret could not be stored or read. The description says what to install, start or unlock.
class SecretStoreError : public Error
{
public:
    enum class Kind {
        unavailable, ///< no such service in this session
        locked,      ///< locked, or the user declined to unlock it
        failed,      ///< the service returned an error
    };

    SecretStoreError(Kind kind, const QString& description) : Error(description), kind_(kind) {}

    [[nodiscard]] Kind kind() const { return kind_; }

private:
    Kind kind_;
};

/// The desktop's secret store: small encrypted items, one per account. Main thread; operations are asynchronous and
/// throw SecretStoreError.
class SecretStore
{
public:
    virtual ~SecretStore() = default;

    /// Replaces the account's secret; may prompt the user to unlock the store. @p label is shown by the desktop's
    /// password manager.
    virtual QCoro::Task<> store(QString account, QString label, QByteArray secret) = 0;
    /// nullopt if the account has none. May prompt the user to unlock the store.
    virtual QCoro::Task<std::optional<QByteArray>> read(QString account) = 0;
    /// Returns false if there was nothing to remove. May prompt the user to unlock the store.
    virtual QCoro::Task<bool> remove(QString account) = 0;
    /// The accounts that have a secret. Never prompts: a locked store is an error.
    virtual QCoro::Task<QStringList> accounts() = 0;
};

} // namespace vantro
