#pragma once

#include "base/SerialExecutor.h"
#include "vantro/models/SpeechEngine.h"

namespace vantro::doubles {

/// An engine with scripted downloads and checks; transcribes to an empty text.
class FakeSpeechEngine : public SpeechEngine
{
public:
    explicit FakeSpeechEngine(TranscriptionEngine kind = TranscriptionEngine::whisper) : kind_(kind) {}

    std::function<void(const FileDownloader::OnProgress&)> fetch;
    ModelCheck answer{true, {}};
    bool isLoaded = false;

    [[nodiscard]] TranscriptionEngine kind() const override { return kind_; }
    [[nodiscard]] QString label() const override { return QStringLiteral("Fake"); }
    [[nodiscard]] ModelStatus status(const TranscriptionModel& /*model*/) const override { return {}; }
    [[nodiscard]] QFuture<ModelCheck> check(const TranscriptionModel& /*model*/, Trust /*trust*/) override
    {
        return executor_.run([this] { return answer; });
    }
    qint64 remove(const TranscriptionModel& /*model*/) override { return 0; }
    [[nodiscard]] std::optional<TranscriptionModel> describe(const QString& /*file*/) const override { return {}; }

    QCoro::Task<QString> prepare(TranscriptionModel /*model*/) override { co_return QString(); }
    QCoro::Task<QString> transcribe(TranscriptionRequest /*request*/) override { co_return QString(); }
    void dictationEnded() override {}
    [[nodiscard]] bool holdsModel() const override { return isLoaded; }
    void unload() override { isLoaded = false; }

protected:
    [[nodiscard]] QFuture<void> startDownload(const TranscriptionModel& /*model*/,
                                              FileDownloader::OnProgress onProgress, std::stop_token /*stop*/) override
    {
        return executor_.run([this, onProgress] { fetch(onProgress); });
    }

private:
    TranscriptionEngine kind_;
    SerialExecutor executor_{QStringLiteral("fake engine")};
};

} // namespace vantro::doubles
