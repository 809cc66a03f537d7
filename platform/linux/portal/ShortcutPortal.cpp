#include "platform/linux/portal/ShortcutPortal.h"

#include "base/Logger.h"
#include "platform/linux/portal/PortalRequest.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCall>

#include <utility>

namespace vantro {

namespace {

const QString interface = QStringLiteral("GlobalShortcuts");
/// The desktop knows a program without a sandbox, and its user's changes, by this name. It must stay the same.
const QString sessionName = QStringLiteral("vantro");

/// As D-Bus has it: (sa{sv}).
struct Entry
{
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Entry& entry)
{
    argument.beginStructure();
    argument << entry.id << entry.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Entry& entry)
{
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.endStructure();
    return argument;
}

} // namespace

ShortcutPortal::~ShortcutPortal()
{
    unbind();
}

void ShortcutPortal::bind(const QString& keys, const QString& description)
{
    unbind();
    keys_ = keys;
    description_ = description;
    qDBusRegisterMetaType<Entry>();
    qDBusRegisterMetaType<QList<Entry>>();
    followSignals();
    createSession();
}

void ShortcutPortal::unbind()
{
    ++generation_;
    if (!session_.isEmpty())
        QDBusConnection::sessionBus().asyncCall(
            QDBusMessage::createMethodCall(PortalRequest::service(), std::exchange(session_, QString()),
                                           QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Close")));
    givenKeys_.clear();
    setBound(false);
}

/// The keys are part of the name: the desktop keeps its own for a name that it knows.
QVariant ShortcutPortal::wanted() const
{
    const Entry entry{QStringLiteral("dictate ") + keys_,
                      {{QStringLiteral("description"), description_}, {QStringLiteral("preferred_trigger"), keys_}}};
    return QVariant::fromValue(QList<Entry>{entry});
}

/// KDE's first version takes the shortcuts here, later ones when they are bound.
void ShortcutPortal::createSession()
{
    PortalRequest::send(
        *this,
        {interface,
         QStringLiteral("CreateSession"),
         {},
         {{QStringLiteral("session_handle_token"), sessionName}, {QStringLiteral("shortcuts"), wanted()}}},
        [this, generation = generation_](const auto& results) {
            if (results && generation == generation_)
                bindIn(results->value(QStringLiteral("session_handle")).toString());
        });
}

void ShortcutPortal::bindIn(const QString& session)
{
    session_ = session;
    PortalRequest::send(*this,
                        {interface,
                         QStringLiteral("BindShortcuts"),
                         {QVariant::fromValue(QDBusObjectPath(session)), wanted(), QString()},
                         {}},
                        [this, generation = generation_](const auto& results) {
                            if (results && generation == generation_)
                                adopt(*results);
                        });
}

void ShortcutPortal::adopt(const QVariantMap& results)
{
    const auto shortcuts = qdbus_cast<QList<Entry>>(results.value(QStringLiteral("shortcuts")));
    if (!shortcuts.isEmpty())
        givenKeys_ = shortcuts.first().properties.value(QStringLiteral("trigger_description")).toString();
    Logger("ShortcutPortal")
        .info(QStringLiteral("The desktop has bound %1").arg(givenKeys_.isEmpty() ? keys_ : givenKeys_));
    setBound(true);
}

void ShortcutPortal::setBound(bool isBound)
{
    isDown_ = false;
    if (std::exchange(isBound_, isBound) != isBound)
        Q_EMIT boundChanged();
}

void ShortcutPortal::followSignals()
{
    if (std::exchange(isFollowing_, true))
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString portal = QStringLiteral("org.freedesktop.portal.") + interface;
    bus.connect(PortalRequest::service(), PortalRequest::path(), portal, QStringLiteral("Activated"), this,
                SLOT(activate(QDBusObjectPath, QString, qulonglong, QVariantMap)));
    bus.connect(PortalRequest::service(), PortalRequest::path(), portal, QStringLiteral("Deactivated"), this,
                SLOT(deactivate(QDBusObjectPath, QString, qulonglong, QVariantMap)));
}

void ShortcutPortal::activate(const QDBusObjectPath& session, const QString& /*id*/, qulonglong /*timestamp*/,
                              const QVariantMap& /*options*/)
{
    // Some desktops tell again and again while it is held.
    if (session.path() == session_ && !std::exchange(isDown_, true))
        Q_EMIT pressed();
}

void ShortcutPortal::deactivate(const QDBusObjectPath& session, const QString& /*id*/, qulonglong /*timestamp*/,
                                const QVariantMap& /*options*/)
{
    if (session.path() == session_ && std::exchange(isDown_, false))
        Q_EMIT released();
}

} // namespace vantro
