// What becomes of the user's words and replacements.
#include "tests/fluid/FluidFixture.h"

#include <algorithm>
#include <mutex>

using namespace vantro;

namespace {

/// What is logged while it lives.
class LogWatch
{
public:
    LogWatch()
        : former_(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
            const std::lock_guard guard(lock);
            lines << text;
        }))
    {
        const std::lock_guard guard(lock);
        lines.clear();
    }
    ~LogWatch() { qInstallMessageHandler(former_); }
    LogWatch(const LogWatch&) = delete;
    LogWatch& operator=(const LogWatch&) = delete;

    [[nodiscard]] qsizetype count(const char* text) const
    {
        const std::lock_guard guard(lock);
        return lines.filter(QLatin1String(text)).size();
    }

private:
    static inline std::mutex lock;
    static inline QStringList lines;
    QtMessageHandler former_;
};

class FluidVocabularyTest : public Fluid
{
protected:
    static constexpr const char* boostingFile = "parakeet-tdt_ctc-110m-q8_0.gguf";

    /// What the provider writes, and what became of the user's words.
    std::pair<QString, VocabularyReport> written(const char* file, const QString& id = QStringLiteral("r"))
    {
        VocabularyReport report;
        TranscriptionRequest request{id, recording(file), entry("Parakeet v2 (Fluid, English)"), {}, {}};
        request.onVocabulary = [&report](const VocabularyReport& found) {
            report = found;
        };
        const QString text = QCoro::waitFor(provider.transcribe(std::move(request)));
        return {text, report};
    }
};

} // namespace

TEST_F(FluidVocabularyTest, TheUsersReplacementsAreAppliedToWhatWasSaid)
{
    install("ggml-parakeet-tdt-0.6b-v3-q8_0.bin", "parakeet-micro-tdt-q8_0.bin");
    vocabulary.addReplacement(QStringLiteral("peter"), QStringLiteral("Pjotr"));
    TranscriptionRequest request{QString(), recording("sentence-02.flac"), entry("Parakeet v3 (Fluid)"), {}, {}, {}};
    EXPECT_EQ(QCoro::waitFor(provider.transcribe(std::move(request))), QStringLiteral("Good morning, Pjotr."));
}

TEST_F(FluidVocabularyTest, TheUsersWordsAreWrittenWhereTheyWereSaid)
{
    install("ggml-parakeet-tdt-0.6b-v2-q8_0.bin");
    install(boostingFile, "parakeet-micro-ctc.gguf");
    EXPECT_EQ(written("term-03.flac").second.way, VocabularyReport::Way::none);
    vocabulary.setVocabulary({QStringLiteral("Quillon"), QStringLiteral("Redis")});
    vocabulary.addReplacement(QStringLiteral("redis"), QStringLiteral("Valkey"));
    const auto [text, report] = written("term-03.flac");
    EXPECT_EQ(text, QStringLiteral("Valkey is very difficult.")) << "replacements come after";
    const auto replaced = std::ranges::find(report.places, true, &VocabularyPlace::isReplaced);
    ASSERT_NE(replaced, report.places.end());
    EXPECT_EQ(replaced->term, QStringLiteral("Redis"));
    EXPECT_EQ(replaced->heard, QStringLiteral("Red is"));
    EXPECT_EQ(written("term-06.flac").first, QStringLiteral("Quillon is very expensive."));
    for (const char* file : {"silence.flac", "noise.flac"})
        EXPECT_TRUE(written(file).first.isEmpty());
}

TEST_F(FluidVocabularyTest, APipelineLastsAsLongAsItsTermsTheirOrderAndItsModel)
{
    install("model.bin");
    install(boostingFile, "parakeet-micro-ctc.gguf");
    const LogWatch log;
    const auto transcribeWith = [&](std::vector<asr::CustomVocabularyTerm> terms) {
        FluidAsrEngine::Request request{
            QStringLiteral("r"), recording("term-03.flac"), source(QStringLiteral("a")), {}, {}};
        request.vocabulary = {std::move(terms), folder.filePath(QLatin1String(boostingFile))};
        return QCoro::waitFor(engine.transcribe(std::move(request)));
    };
    const auto a = vocabularyTerm(QStringLiteral("Redis"));
    const auto b = vocabularyTerm(QStringLiteral("Quillon"));
    transcribeWith({});
    EXPECT_EQ(log.count("Loading vocabulary boosting pipeline"), 0);
    transcribeWith({a, b});
    transcribeWith({a, b});
    EXPECT_EQ(log.count("Loading vocabulary boosting pipeline"), 1);
    transcribeWith({b, a});
    EXPECT_EQ(log.count("Loading vocabulary boosting pipeline (2 terms)"), 2);
    EXPECT_EQ(log.count("CTC keyword spotting finished in"), 3);
    EXPECT_EQ(log.count("Vocabulary boosting applied 1 replacement(s)"), 3);
    EXPECT_EQ(log.count("vocabulary off"), 1);
    EXPECT_EQ(log.count("vocabulary on"), 3);
    transcribeWith({b, vocabularyTerm(QStringLiteral("Redis"), {QStringLiteral("red us")})});
    EXPECT_EQ(log.count("Loading vocabulary boosting pipeline"), 3);
    engine.unload();
    transcribeWith({b, a});
    EXPECT_EQ(log.count("Loading vocabulary boosting pipeline"), 4);
    // A failed one is built again.
    const auto emoji = vocabularyTerm(QStringLiteral("\U0001F389"));
    EXPECT_EQ(transcribeWith({emoji}).skipped,
              QStringLiteral("None of the vocabulary terms could be tokenized for boosting."));
    EXPECT_EQ(transcribeWith({emoji}).result.text, "Red is is very difficult.");
    EXPECT_EQ(log.count("Loading vocabulary boosting pipeline"), 6);
    EXPECT_EQ(log.count("Vocabulary boosting skipped: None of the vocabulary terms could be tokenized for boosting."),
              2);
}

TEST_F(FluidVocabularyTest, WithoutAUsableModelThereIsThePlainText)
{
    install("ggml-parakeet-tdt-0.6b-v2-q8_0.bin");
    vocabulary.setVocabulary({QStringLiteral("Redis")});
    const auto expectPlain = [&] {
        const auto [text, report] = written("term-03.flac");
        EXPECT_EQ(text, QStringLiteral("Red is is very difficult."));
        EXPECT_FALSE(report.problem.isEmpty());
        EXPECT_EQ(provider.boostingProblem(), report.problem);
    };
    expectPlain();
    install(boostingFile, "parakeet-micro-tdt.bin");
    EXPECT_FALSE(files.check(catalogue.boostingModel()).isReady);
    expectPlain();
    install(boostingFile, "parakeet-micro-ctc.gguf");
    EXPECT_TRUE(files.check(catalogue.boostingModel()).isReady);
    QFile model(folder.filePath(QLatin1String(boostingFile)));
    ASSERT_TRUE(model.resize(model.size() - 100));
    expectPlain();
    model.remove();
    install(boostingFile, "parakeet-micro-ctc.gguf");
    EXPECT_EQ(written("term-03.flac").first, QStringLiteral("Redis is very difficult."));
    EXPECT_TRUE(provider.boostingProblem().isEmpty());
}

TEST_F(FluidVocabularyTest, WordsAreFoundInARecordingThatIsHeardWhileItIsMade)
{
    install("ggml-parakeet-tdt-0.6b-v2-q8_0.bin");
    install(boostingFile, "parakeet-micro-ctc.gguf");
    vocabulary.setVocabulary({QStringLiteral("Redis"), QStringLiteral("Kubernetes")});
    const TranscriptionModel model = entry("Parakeet v2 (Fluid, English)");
    EXPECT_TRUE(QCoro::waitFor(provider.prepare(model)).isEmpty());
    // Long enough for several windows of both models, with a term in the first and the last.
    std::vector<float> speech = recording("term-03.flac");
    speech.resize(speech.size() + 8'000);
    for (const char* file : {"long-01.flac", "term-03.flac"}) {
        const std::vector<float> part = recording(file);
        speech.insert(speech.end(), part.begin(), part.end());
    }
    const QString id = QStringLiteral("audio-1");
    for (std::size_t count = 0; count < speech.size(); count += 20'000)
        provider.hear({id, model, std::span(speech).first(count), count % 60'000 == 0, [](const QString&) {
                       }});
    provider.hurry();
    const auto textOf = [&](const QString& recordingID) {
        TranscriptionRequest request{recordingID, speech, model, {}, {}};
        return QCoro::waitFor(provider.transcribe(std::move(request)));
    };
    const QString live = textOf(id);
    EXPECT_EQ(live, textOf(QStringLiteral("audio-2")));
    EXPECT_TRUE(live.startsWith(QStringLiteral("Redis is very difficult."))) << live.toStdString();
    EXPECT_TRUE(live.endsWith(QStringLiteral("Redis is very difficult."))) << live.toStdString();
}

TEST_F(FluidVocabularyTest, ACancelEndsTheSearchForWordsToo)
{
    install("model.bin");
    install(boostingFile, "parakeet-micro-ctc.gguf");
    std::vector<float> minutes;
    for (const std::vector<float> part = recording("long-02.flac"); minutes.size() < std::size_t{16'000} * 300;)
        minutes.insert(minutes.end(), part.begin(), part.end());
    std::stop_source stop;
    const auto request = [&](std::vector<float> samples, std::stop_token token) {
        FluidAsrEngine::Request made{QStringLiteral("r"), std::move(samples), source(QStringLiteral("a")), {}, {},
                                     std::move(token)};
        made.vocabulary = {{vocabularyTerm(QStringLiteral("Redis"))}, folder.filePath(QLatin1String(boostingFile))};
        return made;
    };
    auto work = request(std::move(minutes), stop.get_token());
    work.onProgress = [&](float) {
        stop.request_stop();
    };
    EXPECT_EQ(outcome(engine.transcribe(std::move(work))), asr::ASRError::Kind::processingFailed);
    EXPECT_EQ(QCoro::waitFor(engine.transcribe(request(recording("term-03.flac"), {}))).result.text,
              "Redis is very difficult.");
}
