#pragma once

#include "base/Logger.h"
#include "base/SerialExecutor.h"
#include "vantro/llm/Turn.h"

#include <QFuture>
#include <QString>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace vantro {

/// Runs a language model in this process, at most one at a time, with llama.cpp. Calls may come from any thread; they
/// run in order on the engine's own, and callers await their futures, which throw LlamaError. Loading and reading
/// ahead run with low priority.
class LlamaEngine
{
public:
    struct Figures
    {
        std::size_t keptTokens = 0; ///< of the beginning, in memory since an earlier request
        std::size_t readTokens = 0;
        std::size_t writtenTokens = 0;
        std::chrono::microseconds toFirstToken{0};
        std::chrono::microseconds total{0};
    };

    struct Request
    {
        QString instruction;                             ///< the system's role
        QString text;                                    ///< the user's role
        std::function<void(const QString&)> onText = {}; ///< each piece of the answer, on the engine's thread
        std::stop_token stop = {};                       ///< ends the answer within a token
        std::shared_ptr<Figures> figures = {};           ///< gets what it took; may be null
    };

    LlamaEngine();
    /// Stops what is under way.
    ~LlamaEngine();
    LlamaEngine(const LlamaEngine&) = delete;
    LlamaEngine& operator=(const LlamaEngine&) = delete;

    /// A no-op when this file is loaded and has not been replaced since. Throws tooLittleMemory before anything is
    /// loaded if it needs more than @p availableBytes, where that is known. The model before is gone in any case.
    [[nodiscard]] QFuture<void> load(const QString& file, std::optional<std::uint64_t> availableBytes = {},
                                     std::stop_token stop = {});
    /// Reads an instruction that is expected, so that answer() has only the text to read.
    [[nodiscard]] QFuture<void> readAhead(const QString& instruction, std::stop_token stop = {});
    /// The model's answer to an instruction and a text, trimmed. What is equal at the beginning to what was read before
    /// is not read again.
    [[nodiscard]] QFuture<QString> answer(Request request);
    QFuture<void> unload();
    /// False while a first model is still being loaded.
    [[nodiscard]] bool holdsModel() const { return isResident_; }

    /// Whoever recognises speech takes it: the model rests meanwhile.
    [[nodiscard]] Turn& turn() { return turn_; }

private:
    struct Resident;

    void loadNow(const QString& file, std::optional<std::uint64_t> availableBytes, const std::stop_token& stop);
    [[nodiscard]] QString answerNow(const Request& request);
    void unloadNow();
    [[nodiscard]] Resident& resident() const;

    Logger logger_{"LlamaEngine"};
    Turn turn_;
    std::stop_source end_;
    std::unique_ptr<Resident> resident_;   ///< worker thread only
    std::atomic<bool> isResident_ = false; ///< whether it has a value
    SerialExecutor executor_;              ///< last: its destructor waits for work that uses the other members
};

} // namespace vantro
