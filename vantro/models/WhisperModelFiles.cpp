#include "vantro/models/WhisperModelFiles.h"

#include "vantro/models/ModelHost.h"

#include <qcoro/qcorofuture.h>

#include <utility>

namespace vantro {

WhisperProviderError WhisperProviderError::invalidModelURL(const QString& modelName)
{
    return WhisperProviderError(QStringLiteral("Model \"%1\" has no valid download URL.").arg(modelName));
}

WhisperModelFiles::WhisperModelFiles(FileDownloader& downloader, const ModelStore& store)
    : downloader_(downloader)
    , store_(store)
{
}

QCoro::Task<ModelCheck> WhisperModelFiles::check(TranscriptionModel model)
{
    if (store_.isVerified(model))
        co_return ModelCheck(true, QString());
    const QFuture<ModelCheck> answer = checks_.run([this, model] { return store_.check(model); });
    co_return co_await answer;
}

QCoro::Task<QString> WhisperModelFiles::downloadModel(TranscriptionModel model, FileDownloader::OnProgress onProgress,
                                                      std::stop_token stop)
{
    const auto url = ModelHost::usable(model.url);
    if (!url)
        throw WhisperProviderError::invalidModelURL(model.name);
    TransferRequest request;
    request.url = *url;
    request.destination = store_.ownFile(model);
    request.sha1 = model.hash;
    request.isThere = [store = store_, model] {
        return store.isReady(model);
    };
    request.onStored = [store = store_, model] {
        store.markIfRight(model);
    };
    const QFuture<void> stored = downloader_.download(std::move(request), std::move(onProgress), std::move(stop));
    co_await stored;
    co_return store_.modelFile(model);
}

} // namespace vantro
