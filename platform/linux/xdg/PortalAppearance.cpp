#include "platform/linux/xdg/PortalAppearance.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QMap>

namespace vantro {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString gnomeInterface = QStringLiteral("org.gnome.desktop.interface");

enum ColorScheme : uint { noPreference, preferDark, preferLight };

} // namespace

PortalAppearance::PortalAppearance()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this, SLOT(settingChanged(QDBusMessage)));
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("ReadAll"));
    call << QStringList{appearance, gnomeInterface};
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        if (answer->isError() || answer->reply().signature() != QLatin1String("a{sa{sv}}"))
            return;
        QMap<QString, QVariantMap> spaces;
        answer->reply().arguments().first().value<QDBusArgument>() >> spaces;
        for (auto space = spaces.cbegin(); space != spaces.cend(); ++space) {
            for (auto entry = space->cbegin(); entry != space->cend(); ++entry)
                take(space.key(), entry.key(), entry.value());
        }
    });
}

void PortalAppearance::settingChanged(const QDBusMessage& signal)
{
    const QVariantList arguments = signal.arguments();
    if (arguments.size() > 2)
        take(arguments[0].toString(), arguments[1].toString(), arguments[2].value<QDBusVariant>().variant());
}

void PortalAppearance::take(const QString& space, const QString& key, const QVariant& value)
{
    if (space == appearance && key == QLatin1String("color-scheme")) {
        const uint scheme = value.toUInt();
        isDark_ = scheme == preferDark    ? std::optional(true)
                  : scheme == preferLight ? std::optional(false)
                                          : std::nullopt;
    } else if (space == gnomeInterface && key == QLatin1String("enable-animations")) {
        animationsEnabled_ = value.toBool();
    } else {
        return;
    }
    Q_EMIT changed();
}

} // namespace vantro
