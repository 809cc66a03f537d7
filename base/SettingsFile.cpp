#include "base/SettingsFile.h"

#include "base/Logger.h"

#include <QFile>

namespace vantro {

std::optional<KeptAside> keepAside(const QString& path, KeptAside::Reason reason)
{
    const QString ending = reason == KeptAside::Reason::damaged ? QStringLiteral(".damaged") : QStringLiteral(".newer");
    // The first free name, so that earlier backups are not overwritten.
    KeptAside kept{reason, path + ending};
    for (int number = 2; QFile::exists(kept.file); ++number)
        kept.file = path + ending + QLatin1Char('-') + QString::number(number);
    if (!QFile::copy(path, kept.file))
        return std::nullopt;
    Logger("UserDefaults").error(QStringLiteral("The settings file cannot be read whole and is kept as ") + kept.file);
    return kept;
}

} // namespace vantro
