#pragma once

#include "base/UserDefaults.h"
#include "vantro/llm/LanguageModels.h"
#include "vantro/llm/LlamaEngine.h"

#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace vantro {

/// The chosen language model of this machine: decides when it is loaded and when its memory is given back. Main thread.
class LocalModel
{
public:
    /// Of the machine's memory, what could be had without swapping; nullopt when unknown.
    using AvailableMemory = std::function<std::optional<quint64>()>;

    /// @p folders: see LanguageModels.
    LocalModel(UserDefaults& defaults, AvailableMemory availableMemory, QStringList folders = {});

    [[nodiscard]] LanguageModels& models() { return models_; }
    [[nodiscard]] const LanguageModels& models() const { return models_; }
    [[nodiscard]] LlamaEngine& engine() { return engine_; }

    /// Loads the model in the background and reads @p instruction, if there is a model and memory for it. It stays
    /// loaded until all that this has returned is gone, or for ever with the setting "keepLanguageModelInMemory".
    [[nodiscard]] std::shared_ptr<void> expect(const QString& instruction);
    /// Loads the model if need be. Throws LlamaError; notLoaded when there is no model.
    QCoro::Task<QString> answer(LlamaEngine::Request request);

private:
    [[nodiscard]] QFuture<void> load(const TranscriptionModel& model, std::stop_token stop);
    void giveBack();

    UserDefaults& defaults_;
    AvailableMemory availableMemory_;
    LanguageModels models_;
    LlamaEngine engine_;
    QString expected_;         ///< the instruction read ahead
    std::stop_source loading_; ///< ahead
    std::stop_source readingAhead_;
    std::weak_ptr<void> use_;
    std::shared_ptr<LocalModel*> self_ = std::make_shared<LocalModel*>(this); ///< for uses that outlive it
};

} // namespace vantro
