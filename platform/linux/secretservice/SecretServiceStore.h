#pragma once

#include "base/SerialExecutor.h"
#include "platform/SecretStore.h"

#include <memory>

typedef struct _GCancellable GCancellable; // NOLINT(modernize-use-using): GLib's own declaration

namespace vantro {

/// The session's Secret Service (GNOME Keyring, KWallet, KeePassXC) through libsecret, using its default collection.
/// Runs on a worker thread, because prompts wait for the user and the main thread's event loop may not be GLib's.
class SecretServiceStore final : public SecretStore
{
public:
    /// @p service identifies this program's secrets, e.g. "com.vantro.app".
    explicit SecretServiceStore(const QString& service);
    /// Cancels an open prompt.
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
