#pragma once

#include "vantro/models/FileDownloader.h"
#include "vantro/models/ModelStatus.h"
#include "vantro/models/TranscriptionModel.h"

#include <QFuture>
#include <qcoro/qcorotask.h>

#include <stop_token>

namespace vantro {

/// Keeps the files of one engine's models: finds, fetches, checks and removes them. Main thread; long operations run on
/// threads of its own.
class ModelKeeper
{
public:
    virtual ~ModelKeeper() = default;

    /// Identifies the models it keeps.
    [[nodiscard]] virtual TranscriptionEngine kind() const = 0;
    /// The engine's name in the log.
    [[nodiscard]] virtual QString label() const = 0;

    /// Reads at most a file's header.
    [[nodiscard]] virtual ModelStatus status(const TranscriptionModel& model) const = 0;
    /// Whether @p model is present and valid. Removes the user's copy if it is invalid, never another one.
    [[nodiscard]] virtual QFuture<ModelCheck> check(const TranscriptionModel& model, Trust trust = Trust::markers) = 0;
    /// Fetches and checks @p model. Throws ModelDownloadError, or Error when its URL is unusable.
    QCoro::Task<> download(TranscriptionModel model, FileDownloader::OnProgress onProgress, std::stop_token stop);
    /// Removes the user's copy and any partial download; returns the number of bytes freed. Throws Error while it is
    /// being downloaded or when it cannot be removed.
    virtual qint64 remove(const TranscriptionModel& model) = 0;

protected:
    /// Does not validate the stored file; check() does.
    [[nodiscard]] virtual QFuture<void> startDownload(const TranscriptionModel& model,
                                                      FileDownloader::OnProgress onProgress, std::stop_token stop) = 0;
};

} // namespace vantro
