#pragma once

#include <QString>
#include <QStringList>
#include <qcoro/qcorotask.h>

#include <optional>

namespace vantro {

/// Where API keys are kept, one for each account. Main thread; no operation blocks it. All throw KeychainError.
class KeychainServicing
{
public:
    virtual ~KeychainServicing() = default;

    /// Replaces the account's key.
    virtual QCoro::Task<> save(QString key, QString account) = 0;
    /// Nothing when there is none.
    virtual QCoro::Task<std::optional<QString>> read(QString account) = 0;
    /// Throws itemNotFound when there is none.
    virtual QCoro::Task<> remove(QString account) = 0;
    /// The accounts that have a key.
    virtual QCoro::Task<QStringList> accounts() = 0;
};

} // namespace vantro
