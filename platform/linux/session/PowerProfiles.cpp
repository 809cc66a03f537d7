#include "platform/linux/session/PowerProfiles.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace vantro {

namespace {

struct Daemon
{
    const char* name; ///< of the service and of its interface
    const char* path;
};

constexpr Daemon daemons[] = {{"org.freedesktop.UPower.PowerProfiles", "/org/freedesktop/UPower/PowerProfiles"},
                              {"net.hadess.PowerProfiles", "/net/hadess/PowerProfiles"}};

const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace

PowerProfiles::PowerProfiles()
{
    QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return;
    for (const Daemon& daemon : daemons) {
        const QString name = QLatin1String(daemon.name);
        const QString path = QLatin1String(daemon.path);
        bus.connect(name, path, propertiesInterface, QStringLiteral("PropertiesChanged"), this,
                    SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
        QDBusMessage question =
            QDBusMessage::createMethodCall(name, path, propertiesInterface, QStringLiteral("GetAll"));
        question.setArguments({name});
        question.setAutoStartService(false); // one that does not run has no profile to follow
        auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
        connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
            answer->deleteLater();
            const QDBusPendingReply<QVariantMap> reply = *answer;
            if (!reply.isError())
                take(reply.value());
        });
    }
}

void PowerProfiles::propertiesChanged(const QString& /*interface*/, const QVariantMap& changed, const QStringList&)
{
    take(changed);
}

void PowerProfiles::take(const QVariantMap& values)
{
    const auto profile = values.constFind(QStringLiteral("ActiveProfile"));
    if (profile != values.constEnd())
        isSaving_ = profile->toString() == QLatin1String("power-saver");
}

} // namespace vantro
