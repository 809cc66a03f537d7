#include "platform/linux/portal/ShortcutPortal.h"

#include "base/Logger.h"
#include "platform/linux/portal/PortalRequest.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCall>

#include <algorithm>
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

/// The desktop keeps its own keys for a name that it knows, so that other keys are another name.
QString idOf(const ShortcutPortal::Shortcut& shortcut)
{
    return QStringLiteral("vantro ") + shortcut.keys;
}

} // namespace

ShortcutPortal::ShortcutPortal()
    : watcher_(PortalRequest::service(), QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForUnregistration)
{
    connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, &ShortcutPortal::bindAgain);
}

ShortcutPortal::~ShortcutPortal()
{
    blockSignals(true);
    unbind();
}

void ShortcutPortal::bind(std::vector<Shortcut> shortcuts)
{
    unbind();
    shortcuts_ = std::move(shortcuts);
    if (shortcuts_.empty())
        return;
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
    setBound(false);
}

/// The portal has ended, and its next call starts it. One that had refused is left in peace.
void ShortcutPortal::bindAgain()
{
    ++generation_;
    session_.clear();
    if (!isBound_)
        return;
    setBound(false);
    mayTryAgain_ = true;
    createSession();
}

QVariant ShortcutPortal::wanted() const
{
    QList<Entry> entries;
    for (const Shortcut& shortcut : shortcuts_)
        entries.push_back({idOf(shortcut),
                           {{QStringLiteral("description"), shortcut.description},
                            {QStringLiteral("preferred_trigger"), shortcut.keys}}});
    return QVariant::fromValue(entries);
}

std::optional<std::uint32_t> ShortcutPortal::numberOf(const QString& id) const
{
    const auto found = std::ranges::find(shortcuts_, id, idOf);
    return found != shortcuts_.end() ? std::optional(found->number) : std::nullopt;
}

/// KDE's first version takes the shortcuts here, later ones when they are bound. After the portal has ended it refuses
/// once, since it still has the session of before, which it then closes.
void ShortcutPortal::createSession()
{
    PortalRequest::send(
        *this,
        {interface,
         QStringLiteral("CreateSession"),
         {},
         {{QStringLiteral("session_handle_token"), sessionName}, {QStringLiteral("shortcuts"), wanted()}}},
        [this, generation = generation_](const auto& results) {
            if (generation != generation_)
                return;
            const bool mayTryAgain = std::exchange(mayTryAgain_, false);
            if (results)
                bindIn(results->value(QStringLiteral("session_handle")).toString());
            else if (mayTryAgain)
                createSession();
        });
}

/// Only what the desktop has not given yet: KDE opens its settings for whoever asks.
void ShortcutPortal::bindIn(const QString& session)
{
    session_ = session;
    ask(QStringLiteral("ListShortcuts"), {}, [this](const QVariantMap& present) {
        if (numbersIn(present).size() == shortcuts_.size())
            adopt(present);
        else
            ask(QStringLiteral("BindShortcuts"), {wanted(), QString()},
                [this](const auto& results) { adopt(results); });
    });
}

/// Within the session.
void ShortcutPortal::ask(const QString& method, const QVariantList& arguments,
                         std::function<void(const QVariantMap&)> answered)
{
    PortalRequest::send(
        *this, {interface, method, QVariantList{QVariant::fromValue(QDBusObjectPath(session_))} + arguments, {}},
        [this, generation = generation_, answered = std::move(answered)](const auto& results) {
            if (results && generation == generation_)
                answered(*results);
        });
}

std::set<std::uint32_t> ShortcutPortal::numbersIn(const QVariantMap& results) const
{
    std::set<std::uint32_t> numbers;
    for (const Entry& given : qdbus_cast<QList<Entry>>(results.value(QStringLiteral("shortcuts")))) {
        if (const auto number = numberOf(given.id))
            numbers.insert(*number);
    }
    return numbers;
}

void ShortcutPortal::adopt(const QVariantMap& results)
{
    const Logger logger("ShortcutPortal");
    for (const Entry& given : qdbus_cast<QList<Entry>>(results.value(QStringLiteral("shortcuts"))))
        logger.info(QStringLiteral("The desktop gives %1 for %2")
                        .arg(given.properties.value(QStringLiteral("trigger_description")).toString(), given.id));
    setBound(true);
}

void ShortcutPortal::setBound(bool isBound)
{
    for (const std::uint32_t number : std::exchange(down_, {}))
        Q_EMIT released(number); // nobody else will tell
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
                SLOT(activate(QDBusMessage)));
    bus.connect(PortalRequest::service(), PortalRequest::path(), portal, QStringLiteral("Deactivated"), this,
                SLOT(deactivate(QDBusMessage)));
}

std::optional<std::uint32_t> ShortcutPortal::numberIn(const QDBusMessage& signal) const
{
    const QVariantList arguments = signal.arguments();
    const bool isOurs = arguments.size() > 1 && arguments[0].value<QDBusObjectPath>().path() == session_;
    return isOurs ? numberOf(arguments[1].toString()) : std::nullopt;
}

void ShortcutPortal::activate(const QDBusMessage& signal)
{
    // Some desktops tell again and again while it is held.
    const auto number = numberIn(signal);
    if (number && down_.insert(*number).second)
        Q_EMIT pressed(*number);
}

void ShortcutPortal::deactivate(const QDBusMessage& signal)
{
    const auto number = numberIn(signal);
    if (number && down_.erase(*number) > 0)
        Q_EMIT released(*number);
}

} // namespace vantro
