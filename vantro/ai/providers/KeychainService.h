#pragma once

#include "platform/SecretStore.h"
#include "vantro/ai/providers/KeychainServicing.h"

namespace vantro {

/// API keys in the desktop's store of secrets.
class KeychainService final : public KeychainServicing
{
public:
    explicit KeychainService(SecretStore& store);

    QCoro::Task<> save(QString key, QString account) override;
    QCoro::Task<std::optional<QString>> read(QString account) override;
    QCoro::Task<> remove(QString account) override;
    QCoro::Task<QStringList> accounts() override;

private:
    SecretStore& store_;
};

} // namespace vantro
