#pragma once

#include <QString>
#include <QStringList>
#include <qcoro/qcorotask.h>

#include <optional>

namespace vantro {

/// A store of API keys, one per account. Main thread, never blocks it. Everything throws KeychainError.
class KeychainServicing
{
public:
    virtual ~KeychainServicing() = default;

    /// Replaces the account's key.
    virtual QCoro::Task<> save(QString key, QString account) = 0;
    /// Nullopt when the account has none.
    virtual QCoro::Task<std::optional<QString>> read(QString account) = 0;
    /// Throws itemNotFound when the account has none.
    virtual QCoro::Task<> remove(QString account) = 0;
    /// Every account that has a key.
    virtual QCoro::Task<QStringList> accounts() = 0;
};

} // namespace vantro
