#include "base/SettingsFile.h"

#include "base/Logger.h"

#include <QFile>

namespace vantro {

namespace {

bool isWhole(const QByteArray& line)
{
    return line.isEmpty() || line.startsWith(';') || line.startsWith('#') ||
           (line.startsWith('[') && line.endsWith(']')) || line.indexOf('=') > 0;
}

bool isDamaged(const QByteArray& contents)
{
    if (contents.contains('\0'))
        return true;
    for (const QByteArray& line : contents.split('\n')) {
        if (!isWhole(line.trimmed()))
            return true;
    }
    return false;
}

bool isNewer(const QByteArray& contents)
{
    constexpr char key[] = "settingsVersion=";
    for (const QByteArray& line : contents.split('\n')) {
        if (line.startsWith(key))
            return line.mid(sizeof key - 1).trimmed().toInt() > settingsVersion;
    }
    return false;
}

/// The first free name beside @p path, so that earlier backups are not overwritten.
QString freeName(const QString& path, const QString& ending)
{
    QString name = path + ending;
    for (int number = 2; QFile::exists(name); ++number)
        name = path + ending + QLatin1Char('-') + QString::number(number);
    return name;
}

} // namespace

std::optional<KeptAside> keepAsideIfUnusable(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray contents = file.readAll();
    file.close();
    const bool damaged = isDamaged(contents);
    if (!damaged && !isNewer(contents))
        return std::nullopt;
    KeptAside kept{damaged ? KeptAside::Reason::damaged : KeptAside::Reason::newer,
                   freeName(path, damaged ? QStringLiteral(".damaged") : QStringLiteral(".newer"))};
    if (!file.rename(kept.file))
        return std::nullopt;
    Logger("UserDefaults").error(QStringLiteral("The settings file is unusable and was kept as %1").arg(kept.file));
    return kept;
}

} // namespace vantro
