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
        unavailable, ///< there is no such service in this session
        locked,      ///< it is there, but the user has not unlocked it, or has declined to
        failed,      ///< it answered with an error
    };

    SecretStoreError(Kind kind, const QString& description) : Error(description), kind_(kind) {}

    [[nodiscard]] Kind kind() const { return kind_; }

private:
    Kind kind_;
};

/// The desktop's store of secrets: small items, encrypted on the disk, each under the name of an account. Main thread;
/// no operation blocks it. All throw SecretStoreError.
class SecretStore
{
public:
    virtual ~SecretStore() = default;

    /// Replaces what the account had. Asks the user to unlock the store where it is locked. @p label is what the
    /// desktop's own tool for passwords shows.
    virtual QCoro::Task<> store(QString account, QString label, QByteArray secret) = 0;
    /// Nothing when the account has none. Asks the user to unlock the store where it is locked.
    virtual QCoro::Task<std::optional<QByteArray>> read(QString account) = 0;
    /// False when there was nothing to remove. Asks the user to unlock the store where it is locked.
    virtual QCoro::Task<bool> remove(QString account) = 0;
    /// The accounts that have a secret. Asks nobody: a locked store is an error.
    virtual QCoro::Task<QStringList> accounts() = 0;
};

} // namespace vantro
