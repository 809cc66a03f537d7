#include "vantro/llm/LlamaEngine.h"

#include "asr/accelerator/ProcessorBackend.h"
#include "platform/ThisProcess.h"
#include "vantro/llm/LlamaError.h"
#include "vantro/llm/LlamaModelFile.h"
#include "vantro/llm/LlamaWork.h"
#include "vantro/models/FileVersion.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QStringDecoder>
#include <QThread>

#include <llama.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace vantro {

namespace {

using Tokens = std::vector<llama_token>;

constexpr std::uint32_t tokensAtOnce = 256;
constexpr std::uint32_t tokensAheadAtOnce = 32; ///< so that little is lost when the text comes
constexpr int mostThreads = 8;
constexpr float temperature = 0.2F;
constexpr float leastShare = 0.1F; ///< of the most likely token's probability
constexpr std::uint32_t seed = 1;  ///< the same text has the same answer
/// An answer is about as long as the text; what is longer than this has no end.
constexpr std::size_t answerFloor = 128;

std::size_t longestAnswer(std::size_t textTokens)
{
    return textTokens + textTokens / 2 + answerFloor;
}

class Stopwatch
{
public:
    [[nodiscard]] std::chrono::microseconds elapsed() const
    {
        return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start_);
    }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

struct Free
{
    void operator()(llama_model* model) const { llama_model_free(model); }
    void operator()(llama_context* context) const { llama_free(context); }
    void operator()(llama_sampler* sampler) const { llama_sampler_free(sampler); }
};

template <typename T>
using Owned = std::unique_ptr<T, Free>;

[[noreturn]] void fail(LlamaError::Kind kind, const QString& description)
{
    throw LlamaError(kind, description);
}

void logLlamaLine(ggml_log_level level, const char* text, void* /*userData*/)
{
    static const Logger logger("llama.cpp");
    if (level == GGML_LOG_LEVEL_DEBUG)
        return;
    const QString line = QString::fromUtf8(text).trimmed();
    if (line.size() > 1) // a dot stands for progress
        logger.debug(QStringLiteral("llama[%1]: %2").arg(static_cast<int>(level)).arg(line));
}

/// Text is never read as one of the model's control tokens, which only the frame may have.
enum class Reading { frame, text };

Tokens tokensOf(const llama_vocab* vocabulary, std::string_view text, Reading reading, bool isFirst = false)
{
    const auto size = static_cast<std::int32_t>(text.size());
    Tokens tokens(text.size() + 2);
    const auto count = llama_tokenize(vocabulary, text.data(), size, tokens.data(),
                                      static_cast<std::int32_t>(tokens.size()), isFirst, reading == Reading::frame);
    if (count < 0)
        fail(LlamaError::Kind::textTooLong, LlamaError::tr("the text cannot be divided into tokens"));
    tokens.resize(static_cast<std::size_t>(count));
    return tokens;
}

void append(Tokens& tokens, const Tokens& more)
{
    tokens.insert(tokens.end(), more.begin(), more.end());
}

QByteArray pieceOf(const llama_vocab* vocabulary, llama_token token)
{
    constexpr int usualBytes = 64;
    QByteArray piece(usualBytes, '\0');
    auto size = llama_token_to_piece(vocabulary, token, piece.data(), usualBytes, 0, false);
    if (size < 0) {
        piece.resize(-size);
        size = llama_token_to_piece(vocabulary, token, piece.data(), -size, 0, false);
    }
    piece.resize(std::max(size, 0));
    return piece;
}

/// What the model's template writes before, between and after instruction and text.
struct Frame
{
    std::string beforeInstruction;
    std::string beforeText;
    std::string afterText;
};

Frame frameOf(const llama_model* model)
{
    constexpr const char* instruction = "INSTRUCTION-STANDS-HERE";
    constexpr const char* text = "TEXT-STANDS-HERE";
    constexpr std::array<llama_chat_message, 2> roles{{{"system", instruction}, {"user", text}}};
    const std::string chatTemplate = llama_model_chat_template(model, nullptr);
    std::string written(4096, '\0');
    const auto size = llama_chat_apply_template(chatTemplate.c_str(), roles.data(), roles.size(), true, written.data(),
                                                static_cast<std::int32_t>(written.size()));
    written.resize(static_cast<std::size_t>(std::clamp(size, 0, static_cast<std::int32_t>(written.size()))));
    const auto first = written.find(instruction);
    const auto second = written.find(text);
    if (first == std::string::npos || second == std::string::npos || second < first)
        fail(LlamaError::Kind::unusableFile, LlamaError::tr("its chat template is not known"));
    const auto afterFirst = first + std::string_view(instruction).size();
    Frame frame{written.substr(0, first), written.substr(afterFirst, second - afterFirst),
                written.substr(second + std::string_view(text).size())};
    // A model that may think first is told that it has: a dictation cannot wait for it.
    if (chatTemplate.find("enable_thinking") != std::string::npos)
        frame.afterText += "<think>\n\n</think>\n\n";
    return frame;
}

Owned<llama_sampler> makeSampler()
{
    Owned<llama_sampler> chain(llama_sampler_chain_init(llama_sampler_chain_default_params()));
    llama_sampler_chain_add(chain.get(), llama_sampler_init_min_p(leastShare, 1));
    llama_sampler_chain_add(chain.get(), llama_sampler_init_temp(temperature));
    llama_sampler_chain_add(chain.get(), llama_sampler_init_dist(seed));
    return chain;
}

llama_context_params contextParameters(const LlamaModelFile& file)
{
    llama_context_params parameters = llama_context_default_params();
    parameters.n_ctx = file.context();
    parameters.n_batch = tokensAtOnce;
    parameters.n_ubatch = tokensAtOnce;
    parameters.n_outputs_max = 1;
    parameters.n_threads = parameters.n_threads_batch = std::clamp(QThread::idealThreadCount(), 1, mostThreads);
    parameters.no_perf = true;
    return parameters;
}

/// Runs @p task with low priority. A thread cannot get its priority back, hence one of its own.
template <typename Task>
void runQuietly(Task task)
{
    std::exception_ptr failure;
    std::thread([&] {
        process::lowerPriorityOfThisThread();
        try {
            task();
        } catch (...) {
            failure = std::current_exception();
        }
    }).join();
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace

struct LlamaEngine::Resident
{
    Resident(const LlamaModelFile& header, FileVersion version, LlamaWork& work);

    [[nodiscard]] const llama_vocab* vocabulary() const { return llama_model_get_vocab(model.get()); }
    [[nodiscard]] Tokens beginning(const QString& instruction) const;
    /// How many of @p tokens need not be read again. The last one is read in any case: the next is predicted from it.
    [[nodiscard]] std::size_t knownOf(const Tokens& tokens) const
    {
        return static_cast<std::size_t>(
            std::mismatch(tokens.begin(), tokens.end() - 1, past.begin(), past.end()).first - tokens.begin());
    }
    /// Has @p tokens in the context's memory and nothing after them. All but what is there already is read.
    void read(const Tokens& tokens, const LlamaWork& work, std::size_t atOnce = tokensAtOnce);
    void forgetFrom(std::size_t position);
    [[nodiscard]] bool mustPause() const { return current != nullptr && current->mustPause(); }
    /// What the model writes after @p tokens, to which it is appended up to @p end.
    [[nodiscard]] QString goOn(Tokens tokens, std::size_t end, const Request& request, LlamaWork& work);

    FileVersion file;
    Owned<llama_model> model;
    Owned<llama_context> context;
    Frame frame;
    Tokens past;                        ///< what the context's memory has
    const LlamaWork* current = nullptr; ///< what is computed for
};

LlamaEngine::Resident::Resident(const LlamaModelFile& header, FileVersion version, LlamaWork& work)
    : file(std::move(version))
{
    llama_model_params parameters = llama_model_default_params();
    parameters.progress_callback = LlamaWork::goesOn;
    parameters.progress_callback_user_data = &work;
    parameters.n_gpu_layers = 0;
    model.reset(llama_model_load_from_file(QFile::encodeName(file.path).constData(), parameters));
    if (work.isStopped())
        fail(LlamaError::Kind::stopped, QStringLiteral("stopped"));
    if (!model || llama_model_has_encoder(model.get()) || !llama_model_has_decoder(model.get()))
        fail(LlamaError::Kind::unusableFile, LlamaError::tr("the library refuses it"));
    frame = frameOf(model.get());
    context.reset(llama_init_from_model(model.get(), contextParameters(header)));
    if (!context)
        fail(LlamaError::Kind::tooLittleMemory, LlamaError::tr("there is no memory for its context"));
    llama_set_abort_callback(
        context.get(), [](void* self) { return static_cast<const Resident*>(self)->mustPause(); }, this);
}

Tokens LlamaEngine::Resident::beginning(const QString& instruction) const
{
    Tokens tokens = tokensOf(vocabulary(), frame.beforeInstruction, Reading::frame, true);
    append(tokens, tokensOf(vocabulary(), instruction.toStdString(), Reading::text));
    append(tokens, tokensOf(vocabulary(), frame.beforeText, Reading::frame));
    return tokens;
}

void LlamaEngine::Resident::forgetFrom(std::size_t position)
{
    const auto memory = llama_get_memory(context.get());
    // Some architectures cannot forget a part.
    if (!llama_memory_seq_rm(memory, 0, static_cast<llama_pos>(position), -1)) {
        llama_memory_clear(memory, false);
        position = 0;
    }
    past.resize(position);
}

void LlamaEngine::Resident::read(const Tokens& tokens, const LlamaWork& work, std::size_t atOnce)
{
    current = &work;
    const auto noneAfterwards = qScopeGuard([this] { current = nullptr; });
    forgetFrom(knownOf(tokens));
    while (past.size() < tokens.size()) {
        work.waitForTurn();
        const auto position = past.size();
        const auto count = std::min<std::size_t>(atOnce, tokens.size() - position);
        auto* first = const_cast<llama_token*>(tokens.data() + position);
        const int code = llama_decode(context.get(), llama_batch_get_one(first, static_cast<std::int32_t>(count)));
        if (code == 0)
            past.insert(past.end(), first, first + count);
        else if (code == 2 || work.mustPause())
            forgetFrom(position);
        else
            fail(LlamaError::Kind::generationFailed, LlamaError::tr("the library's code is %1").arg(code));
    }
}

QString LlamaEngine::Resident::goOn(Tokens tokens, std::size_t end, const Request& request, LlamaWork& work)
{
    const Stopwatch stopwatch;
    Figures figures;
    figures.keptTokens = knownOf(tokens);
    figures.readTokens = tokens.size() - figures.keptTokens;
    const auto sampler = makeSampler();
    QStringDecoder decoder(QStringDecoder::Utf8); // a character may be divided between tokens
    QString answer;
    while (true) {
        read(tokens, work);
        const auto next = llama_sampler_sample(sampler.get(), context.get(), -1);
        if (figures.writtenTokens == 0)
            figures.toFirstToken = stopwatch.elapsed();
        if (llama_vocab_is_eog(vocabulary(), next))
            break;
        if (tokens.size() == end)
            fail(LlamaError::Kind::generationFailed, LlamaError::tr("the answer did not end"));
        tokens.push_back(next);
        ++figures.writtenTokens;
        const QString piece = decoder.decode(pieceOf(vocabulary(), next));
        answer += piece;
        if (request.onText && !piece.isEmpty())
            request.onText(piece);
    }
    figures.total = stopwatch.elapsed();
    if (request.figures)
        *request.figures = figures;
    return answer.trimmed();
}

LlamaEngine::LlamaEngine() : executor_(QStringLiteral("llama"))
{
    llama_log_set(logLlamaLine, nullptr);
}

LlamaEngine::~LlamaEngine()
{
    end_.request_stop(); // of what the executor then waits for
}

QFuture<void> LlamaEngine::load(const QString& file, std::optional<std::uint64_t> availableBytes, std::stop_token stop)
{
    return executor_.run([this, file, availableBytes, stop = std::move(stop)] {
        runQuietly([&] { loadNow(file, availableBytes, stop); });
    });
}

QFuture<void> LlamaEngine::readAhead(const QString& instruction, std::stop_token stop)
{
    return executor_.run([this, instruction, stop = std::move(stop)] {
        runQuietly([&] {
            LlamaWork work(turn_, stop, end_.get_token());
            resident().read(resident().beginning(instruction), work, tokensAheadAtOnce);
        });
    });
}

QFuture<QString> LlamaEngine::answer(Request request)
{
    return executor_.run([this, request = std::move(request)] { return answerNow(request); });
}

QFuture<void> LlamaEngine::unload()
{
    return executor_.run([this] { unloadNow(); });
}

LlamaEngine::Resident& LlamaEngine::resident() const
{
    if (!resident_)
        fail(LlamaError::Kind::notLoaded, LlamaError::tr("no model is loaded"));
    return *resident_;
}

void LlamaEngine::loadNow(const QString& file, std::optional<std::uint64_t> availableBytes, const std::stop_token& stop)
{
    const FileVersion version = FileVersion::of(file);
    if (resident_ && resident_->file == version)
        return;
    unloadNow();
    const Stopwatch stopwatch;
    const LlamaModelFile header = LlamaModelFile::read(file);
    if (availableBytes && header.memoryBytes() > *availableBytes)
        fail(LlamaError::Kind::tooLittleMemory, LlamaError::tr("it needs %1 MiB of memory, and %2 are available")
                                                    .arg(header.memoryBytes() >> 20U)
                                                    .arg(*availableBytes >> 20U));
    if (!asr::accelerator::loadProcessorBackend(process::programFile().parent_path()))
        fail(LlamaError::Kind::unusableFile, LlamaError::tr("no ggml module for this processor is beside the program"));
    LlamaWork work(turn_, stop, end_.get_token());
    work.waitForTurn();
    resident_ = std::make_unique<Resident>(header, version, work);
    isResident_ = true;
    logger_.info(QStringLiteral("language model loaded in %1 ms (%2)")
                     .arg(stopwatch.elapsed() / std::chrono::milliseconds(1))
                     .arg(QFileInfo(file).fileName()));
}

QString LlamaEngine::answerNow(const Request& request)
{
    LlamaWork work(turn_, request.stop, end_.get_token());
    Resident& model = resident();
    Tokens tokens = model.beginning(request.instruction);
    const Tokens text = tokensOf(model.vocabulary(), request.text.toStdString(), Reading::text);
    append(tokens, text);
    append(tokens, tokensOf(model.vocabulary(), model.frame.afterText, Reading::frame));
    const std::size_t end = tokens.size() + longestAnswer(text.size());
    if (end > llama_n_ctx(model.context.get()))
        fail(LlamaError::Kind::textTooLong, LlamaError::tr("%1 tokens are too many").arg(tokens.size()));
    return model.goOn(std::move(tokens), end, request, work);
}

void LlamaEngine::unloadNow()
{
    if (!resident_)
        return;
    resident_.reset();
    isResident_ = false;
    process::giveMemoryBack();
}

} // namespace vantro
