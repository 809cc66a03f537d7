#pragma once

#include "vantro/models/ModelProviding.h"
#include "vantro/models/ModelStore.h"

namespace vantro {

class WhisperProviderError : public Error
{
public:
    static WhisperProviderError invalidModelURL(const QString& modelName);

private:
    using Error::Error;
};

/// Downloads whisper models into the store.
class WhisperModelFiles final : public ModelProviding
{
public:
    WhisperModelFiles(FileDownloader& downloader, const ModelStore& store);

    [[nodiscard]] QCoro::Task<ModelCheck> check(TranscriptionModel model) override;
    /// Answers the stored file also when its content turned out to be wrong: it is then not marked as verified, and the
    /// next readiness check removes it. Throws invalidModelURL or ModelDownloadError.
    QCoro::Task<QString> downloadModel(TranscriptionModel model, FileDownloader::OnProgress onProgress,
                                       std::stop_token stop) override;

private:
    FileDownloader& downloader_;
    const ModelStore& store_;
    SerialExecutor checks_{QStringLiteral("model checks")};
};

} // namespace vantro
