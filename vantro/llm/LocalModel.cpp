#include "vantro/llm/LocalModel.h"

#include "base/Settings.h"
#include "vantro/llm/LlamaError.h"

#include <qcoro/qcorofuture.h>

#include <utility>

namespace vantro {

LocalModel::LocalModel(UserDefaults& defaults, AvailableMemory availableMemory, QStringList folders)
    : defaults_(defaults)
    , availableMemory_(std::move(availableMemory))
    , models_(defaults, {}, std::move(folders))
{
}

std::shared_ptr<void> LocalModel::expect(const QString& instruction)
{
    std::shared_ptr<void> use = use_.lock();
    if (!use) {
        use = std::shared_ptr<void>(this, [self = std::weak_ptr(self_)](void*) {
            if (const auto model = self.lock())
                (*model)->giveBack();
        });
        use_ = use;
        expected_.clear();
    }
    if (const auto* model = models_.chosen(); model != nullptr && instruction != expected_) {
        expected_ = instruction;
        std::exchange(readingAhead_, std::stop_source()).request_stop();
        if (loading_.stop_requested())
            loading_ = std::stop_source();
        // Nobody waits for these: the answer finds out by itself what has become of them.
        static_cast<void>(load(*model, loading_.get_token()));
        static_cast<void>(engine_.readAhead(instruction, readingAhead_.get_token()));
    }
    return use;
}

QCoro::Task<QString> LocalModel::answer(LlamaEngine::Request request)
{
    const auto* model = models_.chosen();
    if (model == nullptr)
        throw LlamaError(LlamaError::Kind::notLoaded, LlamaError::tr("there is no language model"));
    // What is left to read is read now, with the priority of something that is waited for.
    readingAhead_.request_stop();
    expected_.clear();
    const QFuture<void> loaded = load(*model, request.stop);
    const QFuture<QString> answered = engine_.answer(std::move(request));
    co_await loaded;
    const QString text = co_await answered;
    co_return text;
}

QFuture<void> LocalModel::load(const TranscriptionModel& model, std::stop_token stop)
{
    return engine_.load(models_.file(model), availableMemory_(), std::move(stop));
}

void LocalModel::giveBack()
{
    loading_.request_stop();
    readingAhead_.request_stop();
    expected_.clear();
    if (!defaults_.get(setting::keepLanguageModelInMemory))
        engine_.unload();
}

} // namespace vantro
