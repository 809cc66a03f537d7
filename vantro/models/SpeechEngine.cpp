#include "vantro/models/SpeechEngine.h"

#include <QStandardPaths>

#include <algorithm>

namespace vantro {

SpeechEngine& SpeechEngines::of(const TranscriptionModel& model) const
{
    return **std::ranges::find(engines_, model.engine, &SpeechEngine::kind);
}

QStringList modelFolders()
{
    QStringList folders{QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)};
    folders << QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation) << QStringLiteral("/usr/share");
    folders.removeDuplicates();
    for (QString& folder : folders)
        folder += QStringLiteral("/vantro/models");
    return folders;
}

} // namespace vantro
