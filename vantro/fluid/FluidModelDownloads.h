#pragma once

#include "base/Logger.h"
#include "vantro/fluid/FluidModelFiles.h"
#include "vantro/models/ModelProviding.h"

namespace vantro {

/// Downloads Parakeet models into the user's models folder.
class FluidModelDownloads final : public ModelProviding
{
public:
    FluidModelDownloads(FileDownloader& downloader, const FluidModelFiles& files);

    [[nodiscard]] QCoro::Task<ModelCheck> check(TranscriptionModel model) override;
    /// Answers the stored file also when it turned out to be no whole model: the next check removes it. Throws
    /// TranscriptionEngineError for an entry without a Fluid configuration, or ModelDownloadError.
    QCoro::Task<QString> downloadModel(TranscriptionModel model, FileDownloader::OnProgress onProgress,
                                       std::stop_token stop) override;

private:
    [[nodiscard]] QFuture<void> start(const TranscriptionModel& model, FileDownloader::OnProgress onProgress,
                                      std::stop_token stop);

    FileDownloader& downloader_;
    const FluidModelFiles& files_;
    Logger logger_{"FluidAsrEngine"};
    SerialExecutor checks_{QStringLiteral("fluid model checks")};
};

} // namespace vantro
