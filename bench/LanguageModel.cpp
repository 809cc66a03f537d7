// Rewriting on this machine: the engine against a bare loop over the library's functions, in turns, with the same
// model, number of threads and tokens. See bench/README.md.
#include "vantro/ai/BuiltInPrompts.h"
#include "vantro/llm/LlamaEngine.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <llama.h>

#include <algorithm>
#include <cstdio>
#include <thread>
#include <vector>

using namespace vantro;

namespace {

constexpr std::size_t bareTokens = 64;

const QString spoken =
    QStringLiteral("um so hello Anna I wanted to say that we meet on Tuesday no wait Wednesday at ten in the office "
                   "and uh please bring the "
                   "report about the new printers because Peter wants to read it before the call with the customers "
                   "and also could you ask "
                   "Maria whether she has time on Friday afternoon for the interview thank you and see you soon");

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values.empty() ? 0 : values[values.size() / 2];
}

double milliseconds(std::chrono::microseconds time)
{
    return static_cast<double>(time.count()) / 1000;
}

/// What the library's own benchmark does: single tokens after one another, without sampling.
class BareLoop
{
public:
    explicit BareLoop(const char* file)
    {
        model_ = llama_model_load_from_file(file, llama_model_default_params());
        auto parameters = llama_context_default_params();
        parameters.n_ctx = 2048;
        parameters.n_threads = parameters.n_threads_batch =
            static_cast<int>(std::min(std::thread::hardware_concurrency(), 8U));
        context_ = llama_init_from_model(model_, parameters);
    }
    ~BareLoop()
    {
        llama_free(context_);
        llama_model_free(model_);
    }
    BareLoop(const BareLoop&) = delete;
    BareLoop& operator=(const BareLoop&) = delete;

    /// Tokens per second after @p before others.
    double run(std::size_t before)
    {
        llama_memory_clear(llama_get_memory(context_), true);
        std::vector<llama_token> prompt(before, 100);
        llama_decode(context_, llama_batch_get_one(prompt.data(), static_cast<int>(prompt.size())));
        QElapsedTimer timer;
        timer.start();
        for (std::size_t i = 0; i < bareTokens; ++i) {
            llama_token token = static_cast<llama_token>(100 + i);
            llama_decode(context_, llama_batch_get_one(&token, 1));
        }
        return static_cast<double>(bareTokens) * 1e9 / static_cast<double>(timer.nsecsElapsed());
    }

private:
    llama_model* model_ = nullptr;
    llama_context* context_ = nullptr;
};

template <typename Result>
Result get(QFuture<Result> future)
{
    future.waitForFinished();
    if constexpr (!std::is_void_v<Result>)
        return future.result();
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc < 2) {
        std::fputs("usage: vantro_bench_llm MODEL.gguf [RUNS]\n", stderr);
        return 2;
    }
    const int runs = argc > 2 ? std::atoi(argv[2]) : 5;
    const QString prompt = *builtInPrompt(ProcessingMode::Grammar);
    LlamaEngine engine;
    QElapsedTimer timer;
    timer.start();
    get(engine.load(QString::fromLocal8Bit(argv[1])));
    const auto loadMs = timer.restart();
    get(engine.readAhead(prompt));
    const auto promptMs = timer.elapsed();
    BareLoop bare(argv[1]);
    std::vector<double> first;
    std::vector<double> ours;
    std::vector<double> library;
    QString answer;
    for (int run = 0; run < runs; ++run) {
        const auto figures = std::make_shared<LlamaEngine::Figures>();
        answer = get(engine.answer({prompt, spoken, {}, {}, figures}));
        first.push_back(milliseconds(figures->toFirstToken));
        ours.push_back(static_cast<double>(figures->writtenTokens) * 1000 /
                       milliseconds(figures->total - figures->toFirstToken));
        library.push_back(bare.run(figures->keptTokens + figures->readTokens));
        std::fprintf(stderr, "kept %zu, read %zu, wrote %zu tokens\n", figures->keptTokens, figures->readTokens,
                     figures->writtenTokens);
        get(engine.readAhead(prompt + QStringLiteral("."))); // so that the text is read anew
    }
    std::printf("%s\n", qUtf8Printable(answer));
    std::printf("{\"load_ms\": %lld, \"prompt_ms\": %lld, \"first_token_ms\": %.0f, \"tokens_per_s\": %.1f, "
                "\"library_tokens_per_s\": %.1f, \"ratio\": %.3f}\n",
                static_cast<long long>(loadMs), static_cast<long long>(promptMs), median(first), median(ours),
                median(library), median(ours) / median(library));
    return 0;
}
