#pragma once

#include <QByteArray>
#include <QStringList>

// GLib has members named like Qt's keywords, hence QT_NO_KEYWORDS.
#include <libsecret/secret.h>

#include <memory>
#include <optional>
#include <vector>

namespace vantro {

struct ObjectRelease
{
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename T>
using ObjectPointer = std::unique_ptr<T, ObjectRelease>;

/// A session with the Secret Service, opened for each operation because libsecret's cache of collections and sessions
/// goes stale when the service is locked or restarted. Blocks; throws SecretStoreError.
class SecretServiceSession
{
public:
    SecretServiceSession(QByteArray service, GCancellable* cancellable);

    void store(const QByteArray& account, const QByteArray& label, const QByteArray& secret);
    [[nodiscard]] std::optional<QByteArray> read(const QByteArray& account);
    bool remove(const QByteArray& account);
    [[nodiscard]] QStringList accounts();

private:
    using Items = std::vector<ObjectPointer<SecretItem>>;

    /// The items of @p account, or all if it is empty.
    [[nodiscard]] Items search(const QByteArray& account);
    /// The same, unlocked.
    [[nodiscard]] Items searchUnlocked(const QByteArray& account);
    [[nodiscard]] ObjectPointer<SecretCollection> defaultCollection();
    [[nodiscard]] bool isLocked();
    void unlockDefaultCollection();
    void unlock(GDBusProxy* lockedObject);

    QByteArray service_;
    GCancellable* cancellable_;
    ObjectPointer<SecretService> connection_;
};

} // namespace vantro
