#pragma once

#include "base/SerialExecutor.h"
#include "vantro/llm/LanguageModels.h"
#include "vantro/models/ModelKeeper.h"

namespace vantro {

/// Fetches, checks and removes the language models' files. A downloaded file counts as right when it is whole and its
/// SHA-256 is the one that the model host announced for it, which is kept beside it; of a host that announces none,
/// when it is whole.
class LanguageModelKeeper final : public ModelKeeper
{
public:
    /// Both must outlive it.
    LanguageModelKeeper(LanguageModels& models, FileDownloader& downloader);

    [[nodiscard]] TranscriptionEngine kind() const override { return TranscriptionEngine::llama; }
    [[nodiscard]] QString label() const override { return QStringLiteral("llama.cpp"); }
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const override { return models_.status(model); }
    [[nodiscard]] QFuture<ModelCheck> check(const TranscriptionModel& model, Trust trust) override;
    qint64 remove(const TranscriptionModel& model) override { return models_.remove(model); }

protected:
    [[nodiscard]] QFuture<void> startDownload(const TranscriptionModel& model, FileDownloader::OnProgress onProgress,
                                              std::stop_token stop) override;

private:
    LanguageModels& models_;
    FileDownloader& downloader_;
    SerialExecutor checks_{QStringLiteral("language model checks")};
};

} // namespace vantro
