#include "platform/linux/secretservice/SecretServiceSession.h"

#include "platform/SecretStore.h"

#include <QCoreApplication>

#include <utility>

namespace vantro {

namespace {

const SecretSchema* schema()
{
    static const SecretSchema schema = [] {
        SecretSchema made = {};
        made.name = "com.vantro.app.Key";
        made.flags = SECRET_SCHEMA_NONE;
        made.attributes[0] = {"service", SECRET_SCHEMA_ATTRIBUTE_STRING};
        made.attributes[1] = {"account", SECRET_SCHEMA_ATTRIBUTE_STRING};
        return made;
    }();
    return &schema;
}

SecretStoreError lockedError()
{
    return {SecretStoreError::Kind::locked,
            QCoreApplication::translate("wording", "The keyring is locked. Unlock it (Passwords and Keys, "
                                                   "KWalletManager or KeePassXC) and try again.")};
}

SecretStoreError noServiceError()
{
    return {SecretStoreError::Kind::unavailable,
            QCoreApplication::translate("wording",
                                        "No Secret Service is running, so API keys cannot be stored. Install and start "
                                        "GNOME Keyring or KWallet, or enable the Secret Service in KeePassXC.")};
}

SecretStoreError noSessionBusError()
{
    return {SecretStoreError::Kind::unavailable,
            QCoreApplication::translate("wording", "There is no session bus, so the Secret Service cannot be reached. "
                                                   "Log in to a desktop session, or start one with dbus-run-session.")};
}

SecretStoreError failedError(const QString& reason)
{
    return {SecretStoreError::Kind::failed,
            QCoreApplication::translate("wording", "The Secret Service reported an error: %1").arg(reason)};
}

/// Receives a GError; check() throws it as a SecretStoreError.
class Complaint
{
public:
    Complaint() = default;
    ~Complaint() { g_clear_error(&error_); }
    Complaint(const Complaint&) = delete;
    Complaint& operator=(const Complaint&) = delete;

    GError** receiver() { return &error_; }
    void check() const
    {
        if (error_ != nullptr)
            throw toError();
    }

private:
    [[nodiscard]] SecretStoreError toError() const
    {
        if (g_error_matches(error_, SECRET_ERROR, SECRET_ERROR_IS_LOCKED))
            return lockedError();
        if (g_error_matches(error_, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) ||
            g_error_matches(error_, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER) ||
            g_error_matches(error_, G_DBUS_ERROR, G_DBUS_ERROR_SPAWN_SERVICE_NOT_FOUND))
            return noServiceError();
        if (error_->domain == G_IO_ERROR && error_->code != G_IO_ERROR_CANCELLED &&
            error_->code != G_IO_ERROR_DBUS_ERROR && error_->code != G_IO_ERROR_TIMED_OUT)
            return noSessionBusError();
        const std::unique_ptr<GError, decltype(&g_error_free)> copy(g_error_copy(error_), g_error_free);
        g_dbus_error_strip_remote_error(copy.get());
        return failedError(QString::fromUtf8(copy->message));
    }

    GError* error_ = nullptr;
};

using Attributes = std::unique_ptr<GHashTable, decltype(&g_hash_table_unref)>;

Attributes attributes(const QByteArray& service, const QByteArray& account)
{
    GHashTable* table = account.isEmpty() ? secret_attributes_build(schema(), "service", service.constData(), nullptr)
                                          : secret_attributes_build(schema(), "service", service.constData(), "account",
                                                                    account.constData(), nullptr);
    return {table, g_hash_table_unref};
}

} // namespace

SecretServiceSession::SecretServiceSession(QByteArray service, GCancellable* cancellable)
    : service_(std::move(service))
    , cancellable_(cancellable)
{
    Complaint complaint;
    connection_.reset(secret_service_open_sync(SECRET_TYPE_SERVICE, nullptr, SECRET_SERVICE_OPEN_SESSION, cancellable_,
                                               complaint.receiver()));
    complaint.check();
    // By default, GLib exits the process when the session bus closes.
    g_dbus_connection_set_exit_on_close(g_dbus_proxy_get_connection(G_DBUS_PROXY(connection_.get())), FALSE);
}

void SecretServiceSession::store(const QByteArray& account, const QByteArray& label, const QByteArray& secret)
{
    unlockDefaultCollection();
    const Attributes table = attributes(service_, account);
    const std::unique_ptr<SecretValue, void (*)(SecretValue*)> value(
        secret_value_new(secret.constData(), secret.size(), "text/plain"),
        [](SecretValue* held) { secret_value_unref(held); });
    Complaint complaint;
    secret_service_store_sync(connection_.get(), schema(), table.get(), SECRET_COLLECTION_DEFAULT, label.constData(),
                              value.get(), cancellable_, complaint.receiver());
    complaint.check();
}

std::optional<QByteArray> SecretServiceSession::read(const QByteArray& account)
{
    const Items items = searchUnlocked(account);
    if (items.empty())
        return std::nullopt;
    Complaint complaint;
    secret_item_load_secret_sync(items.front().get(), cancellable_, complaint.receiver());
    complaint.check();
    const std::unique_ptr<SecretValue, void (*)(SecretValue*)> value(
        secret_item_get_secret(items.front().get()), [](SecretValue* held) { secret_value_unref(held); });
    if (!value)
        return std::nullopt;
    gsize length = 0;
    const gchar* bytes = secret_value_get(value.get(), &length);
    return QByteArray(bytes, static_cast<qsizetype>(length));
}

bool SecretServiceSession::remove(const QByteArray& account)
{
    const Items items = searchUnlocked(account);
    for (const auto& item : items) {
        Complaint complaint;
        secret_item_delete_sync(item.get(), cancellable_, complaint.receiver());
        complaint.check();
    }
    return !items.empty();
}

QStringList SecretServiceSession::accounts()
{
    // A locked collection looks empty.
    if (isLocked())
        throw lockedError();
    QStringList names;
    for (const auto& item : search({})) {
        const Attributes table(secret_item_get_attributes(item.get()), g_hash_table_unref);
        if (const auto* name = static_cast<const char*>(g_hash_table_lookup(table.get(), "account")))
            names << QString::fromUtf8(name);
    }
    return names;
}

SecretServiceSession::Items SecretServiceSession::search(const QByteArray& account)
{
    const Attributes table = attributes(service_, account);
    Complaint complaint;
    const std::unique_ptr<GList, decltype(&g_list_free)> found(
        secret_service_search_sync(connection_.get(), schema(), table.get(), SECRET_SEARCH_ALL, cancellable_,
                                   complaint.receiver()),
        g_list_free);
    complaint.check();
    Items items;
    for (const GList* node = found.get(); node != nullptr; node = node->next)
        items.emplace_back(SECRET_ITEM(node->data));
    return items;
}

SecretServiceSession::Items SecretServiceSession::searchUnlocked(const QByteArray& account)
{
    Items items = search(account);
    if (items.empty() && isLocked()) {
        unlockDefaultCollection();
        items = search(account);
    }
    for (const auto& item : items) {
        if (secret_item_get_locked(item.get()) != FALSE)
            unlock(G_DBUS_PROXY(item.get()));
    }
    return items;
}

ObjectPointer<SecretCollection> SecretServiceSession::defaultCollection()
{
    Complaint complaint;
    ObjectPointer<SecretCollection> collection(secret_collection_for_alias_sync(
        connection_.get(), SECRET_COLLECTION_DEFAULT, SECRET_COLLECTION_NONE, cancellable_, complaint.receiver()));
    complaint.check();
    return collection;
}

bool SecretServiceSession::isLocked()
{
    const auto collection = defaultCollection();
    return collection && secret_collection_get_locked(collection.get()) != FALSE;
}

void SecretServiceSession::unlockDefaultCollection()
{
    const auto collection = defaultCollection();
    if (collection && secret_collection_get_locked(collection.get()) != FALSE)
        unlock(G_DBUS_PROXY(collection.get()));
}

void SecretServiceSession::unlock(GDBusProxy* lockedObject)
{
    GList objects{lockedObject, nullptr, nullptr};
    GList* unlocked = nullptr;
    Complaint complaint;
    const gint count =
        secret_service_unlock_sync(connection_.get(), &objects, cancellable_, &unlocked, complaint.receiver());
    g_list_free_full(unlocked, g_object_unref);
    complaint.check();
    // libsecret does not treat a dismissed or failed prompt as an error.
    if (count < 1)
        throw lockedError();
}

} // namespace vantro
