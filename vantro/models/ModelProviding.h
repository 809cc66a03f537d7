#pragma once

#include "vantro/models/FileDownloader.h"
#include "vantro/models/ModelCheck.h"
#include "vantro/models/TranscriptionModel.h"

#include <QString>
#include <qcoro/qcorotask.h>

#include <stop_token>

namespace vantro {

/// The files of one speech engine's models, as the download window, the settings and the command line see them.
class ModelProviding
{
public:
    virtual ~ModelProviding() = default;

    /// Whether @p model is downloaded and right. A file that has to be hashed is hashed on a worker thread.
    [[nodiscard]] virtual QCoro::Task<ModelCheck> check(TranscriptionModel model) = 0;
    /// Fetches @p model and answers where it stands. Throws an Error. @p onProgress: see FileDownloader.
    virtual QCoro::Task<QString> downloadModel(TranscriptionModel model, FileDownloader::OnProgress onProgress,
                                               std::stop_token stop) = 0;
};

} // namespace vantro
