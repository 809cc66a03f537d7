#pragma once

#include "platform/SecretStore.h"
#include "vantro/ai/providers/KeychainServicing.h"

namespace vantro {

/// Keeps API keys in the desktop's secret store.
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
