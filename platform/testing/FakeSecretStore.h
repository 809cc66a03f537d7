#pragma once

#include "platform/SecretStore.h"

#include <map>

namespace vantro::doubles {

/// Secrets in memory, with an optional fault.
class FakeSecretStore final : public SecretStore
{
public:
    std::map<QString, QByteArray> secrets;
    std::optional<SecretStoreError> fault;

    QCoro::Task<> store(QString account, QString /*label*/, QByteArray secret) override
    {
        check();
        secrets[account] = secret;
        co_return;
    }

    QCoro::Task<std::optional<QByteArray>> read(QString account) override
    {
        check();
        const auto found = secrets.find(account);
        co_return found != secrets.end() ? std::optional(found->second) : std::nullopt;
    }

    QCoro::Task<bool> remove(QString account) override
    {
        check();
        co_return secrets.erase(account) > 0;
    }

    QCoro::Task<QStringList> accounts() override
    {
        check();
        QStringList names;
        for (const auto& [account, secret] : secrets)
            names << account;
        co_return names;
    }

private:
    void check() const
    {
        if (fault)
            throw SecretStoreError(*fault);
    }
};

} // namespace vantro::doubles
