#include "vantro/models/ModelKeeper.h"

#include "vantro/models/ModelDownloadError.h"

#include <qcoro/qcorofuture.h>

#include <utility>

namespace vantro {

QCoro::Task<> ModelKeeper::download(TranscriptionModel model, FileDownloader::OnProgress onProgress,
                                    std::stop_token stop)
{
    const QFuture<void> stored = startDownload(model, std::move(onProgress), std::move(stop));
    co_await stored;
    const QFuture<ModelCheck> checked = check(model);
    const ModelCheck answer = co_await checked;
    if (!answer.isReady)
        throw ModelDownloadError::wrongContent(answer.problem);
}

} // namespace vantro
