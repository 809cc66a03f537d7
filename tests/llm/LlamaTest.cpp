// The engine with a real model, which scripts/get-language-model fetches. It is too small to rewrite well: what it says
// is not looked at, only how it comes.
#include "vantro/llm/LlamaEngine.h"
#include "vantro/llm/LlamaError.h"
#include "vantro/llm/LlamaModelFile.h"

#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <future>

using namespace vantro;

namespace {

const QString instruction =
    QStringLiteral("You are an assistant. Correct grammar and punctuation of the user's text. Just return the text.");
const QString text = QStringLiteral("um so tell Anna we meet on Tuesday no wait Wednesday");

qint64 residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() * 4096 : 0;
}

template <typename Result>
Result get(QFuture<Result> future)
{
    future.waitForFinished();
    if constexpr (!std::is_void_v<Result>)
        return future.result();
}

template <typename Result>
std::optional<LlamaError::Kind> failureOf(QFuture<Result> future)
{
    try {
        get(std::move(future));
    } catch (const LlamaError& error) {
        EXPECT_FALSE(error.localizedDescription().isEmpty());
        return error.kind();
    }
    return {};
}

class Llama : public ::testing::Test
{
protected:
    void SetUp() override
    {
        model = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                QStringLiteral("/vantro-build/models/SmolLM2-135M-Instruct.Q4_1.gguf");
        if (!QFile::exists(model))
            GTEST_SKIP() << "the small language model is not there: run scripts/get-language-model";
    }

    [[nodiscard]] QString copyOf(qint64 firstBytes, const char* replaced = "", const char* by = "") const
    {
        QFile whole(model);
        QFile part(folder.filePath(QStringLiteral("part.gguf")));
        EXPECT_TRUE(whole.open(QIODevice::ReadOnly) && part.open(QIODevice::WriteOnly));
        part.write(whole.read(firstBytes).replace(replaced, by));
        return part.fileName();
    }

    QString model;
    const QTemporaryDir folder;
    LlamaEngine engine;
};

} // namespace

TEST_F(Llama, WritesAnAnswerPieceByPieceAndTheSameOneEachTime)
{
    get(engine.load(model));
    QString pieces;
    const QString answer = get(engine.answer({instruction, text, [&](const QString& piece) {
                                                  pieces += piece;
                                              }}));
    EXPECT_GT(answer.size(), 10);
    EXPECT_EQ(pieces.trimmed(), answer);
    EXPECT_FALSE(answer.contains(QLatin1String("<|"))) << qPrintable(answer);
    EXPECT_EQ(get(engine.answer({instruction, text})), answer);
    get(engine.unload());
    get(engine.load(model));
    EXPECT_EQ(get(engine.answer({instruction, text})), answer) << "what was read before has changed the answer";
}

TEST_F(Llama, ReadsAnInstructionOnceAndTheTextOnlyAsText)
{
    get(engine.load(model));
    get(engine.readAhead(instruction));
    const auto figures = std::make_shared<LlamaEngine::Figures>();
    const auto ask = [&](const QString& asked) {
        get(engine.answer({instruction, asked, {}, {}, figures}));
        return figures->readTokens;
    };
    const auto first = ask(text);
    EXPECT_GT(figures->keptTokens, 20U);
    EXPECT_LT(first, 30U);
    EXPECT_GT(figures->writtenTokens, 3U);
    ask(QStringLiteral("see you at five"));
    EXPECT_GT(figures->keptTokens, 20U);

    const auto plain = ask(QStringLiteral("so"));
    EXPECT_GT(ask(QStringLiteral("so<|im_end|>")), plain + 3) << "a control token of the model came out of the text";
}

TEST_F(Llama, StopsWithinATokenAndAnswersAfterwards)
{
    get(engine.load(model));
    std::stop_source stop;
    int pieces = 0;
    const auto stopAtThird = [&](const QString&) {
        if (++pieces == 3)
            stop.request_stop();
    };
    EXPECT_EQ(failureOf(engine.answer({instruction, text, stopAtThird, stop.get_token()})), LlamaError::Kind::stopped);
    EXPECT_EQ(pieces, 3);

    const QString whole = get(engine.answer({instruction, text}));
    EXPECT_FALSE(whole.isEmpty());
    std::stop_source early;
    early.request_stop();
    EXPECT_EQ(failureOf(engine.answer({instruction, text, {}, early.get_token()})), LlamaError::Kind::stopped);
    EXPECT_EQ(get(engine.answer({instruction, text})), whole);

    get(engine.unload());
    EXPECT_EQ(failureOf(engine.load(model, {}, early.get_token())), LlamaError::Kind::stopped);
    EXPECT_FALSE(engine.holdsModel());
}

TEST_F(Llama, RestsWhileSpeechIsRecognised)
{
    get(engine.load(model));
    const QString undisturbed = get(engine.answer({instruction, text}));
    get(engine.unload());
    get(engine.load(model));

    // Taken in the middle of an answer, which goes on as if nothing had been.
    std::shared_ptr<void> recognition;
    std::promise<void> taken;
    int pieces = 0;
    const auto answer = engine.answer({instruction, text, [&](const QString&) {
                                           if (++pieces == 2) {
                                               recognition = engine.turn().take();
                                               taken.set_value();
                                           }
                                       }});
    taken.get_future().wait();
    EXPECT_FALSE(answer.isFinished());
    EXPECT_EQ(pieces, 2);
    recognition.reset();
    EXPECT_EQ(get(answer), undisturbed);

    // Nobody waits for ever.
    recognition = engine.turn().take();
    std::stop_source stop;
    const auto waiting = engine.answer({instruction, text, {}, stop.get_token()});
    stop.request_stop();
    EXPECT_EQ(failureOf(waiting), LlamaError::Kind::stopped);
    std::ignore = engine.answer({instruction, text}); // the engine's end stops it
}

TEST_F(Llama, RefusesWhatItCannotUseAndGoesOn)
{
    EXPECT_EQ(failureOf(engine.answer({instruction, text})), LlamaError::Kind::notLoaded);
    const auto unusable = LlamaError::Kind::unusableFile;
    const qint64 size = QFile(model).size();
    EXPECT_EQ(failureOf(engine.load(folder.filePath(QStringLiteral("none.gguf")))), unusable);
    EXPECT_EQ(failureOf(engine.load(copyOf(0))), unusable);
    EXPECT_EQ(failureOf(engine.load(copyOf(1000))), unusable);
    EXPECT_EQ(failureOf(engine.load(copyOf(size - 4096))), unusable);
    EXPECT_EQ(failureOf(engine.load(copyOf(size, "chat_template", "chit_template"))), unusable);
    EXPECT_EQ(failureOf(engine.load(copyOf(size, "llama.block_count", "llama.block_kount"))), unusable);

    const auto needed = LlamaModelFile::read(model).memoryBytes();
    EXPECT_GT(needed, static_cast<std::uint64_t>(size));
    EXPECT_EQ(failureOf(engine.load(model, needed - 1)), LlamaError::Kind::tooLittleMemory);
    EXPECT_FALSE(engine.holdsModel());

    get(engine.load(model, needed));
    const QString endless = QStringLiteral("word ").repeated(6000);
    EXPECT_EQ(failureOf(engine.answer({instruction, endless})), LlamaError::Kind::textTooLong);
    EXPECT_FALSE(get(engine.answer({instruction, text})).isEmpty());
}

TEST_F(Llama, EndsAnAnswerThatDoesNotEnd)
{
    get(engine.load(model));
    const QString counting = QStringLiteral("Write all numbers from one to one thousand, one in each line.");
    EXPECT_EQ(failureOf(engine.answer({counting, QStringLiteral("Go on to one thousand: 1\n2\n3\n4\n5\n6")})),
              LlamaError::Kind::generationFailed);
}

TEST_F(Llama, GivesItsMemoryBack)
{
    get(engine.load(model));
    get(engine.answer({instruction, text}));
    const qint64 before = residentBytes();
    get(engine.unload());
    EXPECT_FALSE(engine.holdsModel());
    EXPECT_LT(residentBytes(), before - QFile(model).size());
}
