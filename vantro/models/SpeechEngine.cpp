#include "vantro/models/SpeechEngine.h"

#include "vantro/models/ModelDownloadError.h"

#include <QStandardPaths>
#include <qcoro/qcorofuture.h>

#include <algorithm>

namespace vantro {

QCoro::Task<> SpeechEngine::download(TranscriptionModel model, FileDownloader::OnProgress onProgress,
                                     std::stop_token stop)
{
    const QFuture<void> stored = startDownload(model, std::move(onProgress), std::move(stop));
    co_await stored;
    const QFuture<ModelCheck> checked = check(model);
    const ModelCheck answer = co_await checked;
    if (!answer.isReady)
        throw ModelDownloadError::wrongContent(answer.problem);
}

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
