#pragma once

#include "vantro/models/testing/FakeSpeechEngine.h"

#include <QPromise>
#include <qcoro/qcorofuture.h>

#include <memory>
#include <stop_token>
#include <utility>
#include <vector>

namespace vantro {

/// A speech engine that answers when the test says so.
class SlowProvider final : public doubles::FakeSpeechEngine
{
public:
    using FakeSpeechEngine::FakeSpeechEngine;

    QCoro::Task<QString> prepare(TranscriptionModel) override
    {
        ++prepared;
        co_return whyUnusable;
    }
    [[nodiscard]] ModelStatus status(const TranscriptionModel&) const override { return {state, {}, false, 0, -1}; }
    QCoro::Task<QString> transcribe(TranscriptionRequest request) override
    {
        sampleCount = request.samples.size();
        stop = request.stop;
        isAhead = request.isAhead;
        const auto answer = std::make_shared<QPromise<QString>>();
        answer->start();
        answer_ = answer;
        const std::stop_callback onStop(request.stop, [this, answer, isAhead = isAhead] {
            if (isAhead && answer_ == answer)
                fail(QStringLiteral("stopped"));
        });
        const QFuture<QString> answered = answer->future();
        co_return co_await answered;
    }
    bool hear(const UnfinishedRecording& recording) override
    {
        heard.emplace_back(recording.samples.size(), recording.mayHaveEnded);
        onWords = recording.onWords;
        return keepsUp;
    }
    void hurry() override { ++hurried; }
    [[nodiscard]] std::size_t aheadLimit() const override { return limit; }
    void dictationEnded() override { ++ended; }

    [[nodiscard]] bool isAsked() const { return answer_ != nullptr; }
    void answer(const QString& text)
    {
        const auto answer = std::exchange(answer_, nullptr);
        // A text of its own in memory, as engines make them, so that memory checkers see what becomes of it.
        answer->addResult(QString(text.constData(), text.size()));
        answer->finish();
    }
    void fail(const QString& why) { fail(Error(why)); }
    template <typename Exception>
    void fail(const Exception& error)
    {
        const auto answer = std::exchange(answer_, nullptr);
        answer->setException(std::make_exception_ptr(error));
        answer->finish();
    }

    ModelStatus::State state = ModelStatus::State::ready;
    QString whyUnusable;
    int prepared = 0;
    int ended = 0;
    std::size_t sampleCount = 0;
    std::size_t limit = 0;
    bool keepsUp = false;
    std::vector<std::pair<std::size_t, bool>> heard; ///< numbers of samples, and whether speech had paused
    std::function<void(const QString&)> onWords;
    int hurried = 0;
    // Of the latest request.
    std::stop_token stop;
    bool isAhead = false;

private:
    std::shared_ptr<QPromise<QString>> answer_;
};

} // namespace vantro
