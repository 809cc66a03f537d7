#include "base/UserDefaults.h"

#include "base/Logger.h"

#include <QFile>
#include <QStandardPaths>

namespace vantro {

UserDefaults::UserDefaults(const QString& path) : settings_(path, QSettings::IniFormat) {}

QString UserDefaults::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/vantro/vantro.ini");
}

std::optional<QString> UserDefaults::string(const QString& key) const
{
    const QVariant value = settings_.value(key);
    if (value.metaType().id() != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

bool UserDefaults::boolean(const QString& key, bool absent) const
{
    // The INI format keeps no types: a Boolean comes back as the text it was written as.
    const QString text = settings_.value(key).toString();
    if (text == QLatin1String("true"))
        return true;
    if (text == QLatin1String("false"))
        return false;
    return absent;
}

std::optional<qint64> UserDefaults::integer(const QString& key) const
{
    bool ok = false;
    const qint64 value = settings_.value(key).toLongLong(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

std::optional<QByteArray> UserDefaults::data(const QString& key) const
{
    const auto text = string(key);
    return text ? std::optional(text->toUtf8()) : std::nullopt;
}

bool UserDefaults::contains(const QString& key) const
{
    return settings_.contains(key);
}

void UserDefaults::setString(const QString& key, const QString& value)
{
    store(key, value);
}

void UserDefaults::setBoolean(const QString& key, bool value)
{
    store(key, value);
}

void UserDefaults::setInteger(const QString& key, qint64 value)
{
    store(key, value);
}

void UserDefaults::setData(const QString& key, const QByteArray& value)
{
    store(key, QString::fromUtf8(value));
}

void UserDefaults::remove(const QString& key)
{
    settings_.remove(key);
    settings_.sync();
}

void UserDefaults::reload()
{
    settings_.sync();
}

void UserDefaults::store(const QString& key, const QVariant& value)
{
    settings_.setValue(key, value);
    settings_.sync();
    if (settings_.status() != QSettings::NoError) {
        Logger("UserDefaults").error(QStringLiteral("Could not write the settings file %1").arg(settings_.fileName()));
        return;
    }
    QFile::setPermissions(settings_.fileName(), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace vantro
