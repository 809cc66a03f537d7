#include "platform/linux/secretservice/SecretServiceStore.h"

#include "platform/linux/secretservice/SecretServiceSession.h"

#include <qcoro/qcorofuture.h>

#include <utility>

namespace vantro {

SecretServiceStore::SecretServiceStore(const QString& service)
    : service_(service.toUtf8())
    , end_(g_cancellable_new(), [](GCancellable* end) { g_object_unref(end); })
{
}

SecretServiceStore::~SecretServiceStore()
{
    g_cancellable_cancel(end_.get());
}

QCoro::Task<> SecretServiceStore::store(QString account, QString label, QByteArray secret)
{
    const QFuture<void> done = worker_.run([service = service_, end = end_, account, label, secret] {
        SecretServiceSession(service, end.get()).store(account.toUtf8(), label.toUtf8(), secret);
    });
    co_await done;
}

QCoro::Task<std::optional<QByteArray>> SecretServiceStore::read(QString account)
{
    const QFuture<std::optional<QByteArray>> secret = worker_.run([service = service_, end = end_, account] {
        return SecretServiceSession(service, end.get()).read(account.toUtf8());
    });
    co_return co_await secret;
}

QCoro::Task<bool> SecretServiceStore::remove(QString account)
{
    const QFuture<bool> removed = worker_.run([service = service_, end = end_, account] {
        return SecretServiceSession(service, end.get()).remove(account.toUtf8());
    });
    co_return co_await removed;
}

QCoro::Task<QStringList> SecretServiceStore::accounts()
{
    const QFuture<QStringList> names =
        worker_.run([service = service_, end = end_] { return SecretServiceSession(service, end.get()).accounts(); });
    co_return co_await names;
}

} // namespace vantro
