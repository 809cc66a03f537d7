#include "vantro/fluid/FluidModelDownloads.h"

#include "vantro/fluid/ProgressGate.h"
#include "vantro/models/ModelHost.h"
#include "vantro/models/WhisperModelFiles.h"

#include <qcoro/qcorofuture.h>

#include <memory>
#include <utility>

namespace vantro {

FluidModelDownloads::FluidModelDownloads(FileDownloader& downloader, const FluidModelFiles& files)
    : downloader_(downloader)
    , files_(files)
{
}

QCoro::Task<ModelCheck> FluidModelDownloads::check(TranscriptionModel model)
{
    const QFuture<ModelCheck> answer = checks_.run([this, model] { return files_.check(model); });
    co_return co_await answer;
}

QCoro::Task<QString> FluidModelDownloads::downloadModel(TranscriptionModel model, FileDownloader::OnProgress onProgress,
                                                        std::stop_token stop)
{
    const QFuture<void> stored = start(model, std::move(onProgress), std::move(stop));
    co_await stored;
    co_return files_.find(model);
}

// Not inside the coroutine: GCC 12 destroys a lambda's captures twice when it is a temporary of a co_await expression.
QFuture<void> FluidModelDownloads::start(const TranscriptionModel& model, FileDownloader::OnProgress onProgress,
                                         std::stop_token stop)
{
    if (!model.fluidModel)
        throw WhisperProviderError::invalidModelURL(model.name);
    const auto url = ModelHost::usable(model.fluidModel->url);
    if (!url)
        throw WhisperProviderError::invalidModelURL(model.name);
    TransferRequest request;
    request.url = *url;
    request.destination = files_.ownFile(model);
    // No digest is published: the file's name, which tells version and precision, says what a part belongs to.
    request.sha1 = model.fluidModel->file;
    request.isThere = [files = files_, model] {
        return files.check(model).isReady;
    };
    const auto report = [this, id = model.fluidModel->repository, gate = std::make_shared<ProgressGate>(),
                         onProgress = std::move(onProgress)](const DownloadProgress& progress) {
        if (const auto percent = gate->pass(progress.fraction()))
            logger_.info(QStringLiteral("Fluid download %1: %2% [%3]")
                             .arg(id)
                             .arg(*percent)
                             .arg(progress.statusText.value_or(QStringLiteral("downloading"))));
        onProgress(progress);
    };
    return downloader_.download(std::move(request), report, std::move(stop));
}

} // namespace vantro
