#pragma once

#include "base/SerialExecutor.h"
#include "platform/SecretStore.h"

#include <memory>

typedef struct _GCancellable GCancellable; // NOLINT(modernize-use-using): GLib's own declaration

namespace vantro {

/// The Secret Service of the session bus (GNOME Keyring, KWallet, KeePassXC), through libsecret. Secrets lie in its
/// default collection. The service is asked on a thread of its own, because a prompt takes as long as its user; the
/// main thread's event loop need not be GLib's.
class SecretServiceStore final : public SecretStore
{
public:
    /// @p service tells this program's secrets from those of others, as "com.vantro.app".
    explicit SecretServiceStore(const QString& service);
    /// Ends an open prompt.
    ~SecretServiceStore() override;

    QCoro::Task<> store(QString account, QString label, QByteArray secret) override;
    QCoro::Task<std::optional<QByteArray>> read(QString account) override;
    QCoro::Task<bool> remove(QString account) override;
    QCoro::Task<QStringList> accounts() override;

private:
    QByteArray service_;
    std::shared_ptr<GCancellable> end_;
    SerialExecutor worker_{QStringLiteral("vantro keys")};
};

} // namespace vantro
