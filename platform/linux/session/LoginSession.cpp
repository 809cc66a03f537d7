#include "platform/linux/session/LoginSession.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

const QString service = QStringLiteral("org.freedesktop.login1");
const QString managerPath = QStringLiteral("/org/freedesktop/login1");
const QString manager = QStringLiteral("org.freedesktop.login1.Manager");
const QString session = QStringLiteral("org.freedesktop.login1.Session");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

/// A request that no locker answers must not keep the user from dictating.
constexpr auto lockerPatience = 5s;

/// Calls @p received with the answer, while @p context exists, unless it is an error.
template <typename Value, typename Receive>
void call(QObject* context, const QString& path, const QString& interface, const QString& method,
          const QVariantList& arguments, Receive received)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(message), context);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, context, [answer, received] {
        answer->deleteLater();
        const QDBusPendingReply<Value> reply = *answer;
        if (!reply.isError())
            received(reply.value());
    });
}

class Inhibitor final : public QObject, public SessionState::SleepDelay
{
public:
    Inhibitor()
    {
        const QVariantList arguments{QStringLiteral("sleep"), QStringLiteral("vantro"),
                                     QCoreApplication::translate("LoginSession", "A dictation is being recorded."),
                                     QStringLiteral("delay")};
        call<QDBusUnixFileDescriptor>(this, managerPath, manager, QStringLiteral("Inhibit"), arguments,
                                      [this](const QDBusUnixFileDescriptor& lock) { lock_ = lock; });
    }

private:
    QDBusUnixFileDescriptor lock_; ///< closing it lets the machine sleep
};

} // namespace

LoginSession::LoginSession()
{
    lockRequest_.setSingleShot(true);
    lockRequest_.setInterval(lockerPatience);
    connect(&lockRequest_, &QTimer::timeout, this, &LoginSession::changed);
    QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return;
    bus.connect(service, managerPath, manager, QStringLiteral("PrepareForSleep"), this, SLOT(prepareForSleep(bool)));
    findSession();
}

std::unique_ptr<SessionState::SleepDelay> LoginSession::delaySleep() const
{
    return std::make_unique<Inhibitor>();
}

/// The desktop may have been started outside its session, by the user's service manager, which knows the session's
/// number.
void LoginSession::findSession()
{
    const QString number = qEnvironmentVariable("XDG_SESSION_ID");
    const bool isNamed = !number.isEmpty();
    call<QDBusObjectPath>(
        this, managerPath, manager, isNamed ? QStringLiteral("GetSession") : QStringLiteral("GetSessionByPID"),
        {isNamed ? QVariant(number) : QVariant::fromValue(static_cast<uint>(QCoreApplication::applicationPid()))},
        [this](const QDBusObjectPath& path) { follow(path); });
}

/// A virtual desktop started from a session is not that session: the screen of the latter may be locked meanwhile.
void LoginSession::follow(const QDBusObjectPath& path)
{
    call<QVariantMap>(
        this, path.path(), properties, QStringLiteral("GetAll"), {session}, [this, path](const QVariantMap& values) {
            const QString display = values.value(QStringLiteral("Display")).toString();
            if (!display.isEmpty() && display != qEnvironmentVariable("DISPLAY").section(u'.', 0, 0))
                return;
            QDBusConnection bus = QDBusConnection::systemBus();
            const auto listen = [&](const QString& interface, const char* signal, const char* slot) {
                bus.connect(service, path.path(), interface, QLatin1String(signal), this, slot);
            };
            listen(session, "Lock", SLOT(lockRequested()));
            listen(session, "Unlock", SLOT(unlockRequested()));
            listen(properties, "PropertiesChanged", SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
            take(values);
        });
}

void LoginSession::prepareForSleep(bool begins)
{
    isAsleep_ = begins;
    Q_EMIT changed();
}

void LoginSession::lockRequested()
{
    lockRequest_.start();
    Q_EMIT changed();
}

void LoginSession::unlockRequested()
{
    lockRequest_.stop();
    isLocked_ = false;
    Q_EMIT changed();
}

void LoginSession::propertiesChanged(const QString& interface, const QVariantMap& changed, const QStringList&)
{
    if (interface == session)
        take(changed);
}

void LoginSession::take(const QVariantMap& values)
{
    isActive_ = values.value(QStringLiteral("Active"), isActive_).toBool();
    if (values.contains(QStringLiteral("LockedHint"))) {
        isLocked_ = values.value(QStringLiteral("LockedHint")).toBool();
        lockRequest_.stop();
    }
    Q_EMIT changed();
}

} // namespace vantro
