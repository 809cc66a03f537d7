// The engine behind the catalogue's Parakeet entries, with the small real model under their files' names.
#include "base/Settings.h"
#include "tests/asr/AsrTestSupport.h"
#include "vantro/fluid/FluidTranscriptionProvider.h"
#include "vantro/fluid/TailCoverage.h"
#include "vantro/models/ModelCatalogue.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <qcoro/qcorotask.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <mutex>

using namespace vantro;
using namespace vantro::asr::testing;

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

class Fluid : public ::testing::Test
{
protected:
    void install(const char* name, const char* variant = "parakeet-micro-tdt.bin") const
    {
        ASSERT_TRUE(QFile::copy(QString::fromStdString((dataFolder() / variant).string()),
                                folder.filePath(QLatin1String(name))));
    }
    [[nodiscard]] TranscriptionModel entry(const char* name) const { return *catalogue.find(QLatin1String(name)); }
    [[nodiscard]] FluidModelSource source(const QString& id, const char* file = "model.bin") const
    {
        return {id, asr::AsrModelVersion::v2, folder.filePath(QLatin1String(file))};
    }
    /// QCoro::waitFor does not return from a task that throws.
    template <typename T>
    static std::optional<asr::ASRError::Kind> outcome(QCoro::Task<T> task)
    {
        return QCoro::waitFor([](QCoro::Task<T> awaited) -> QCoro::Task<std::optional<asr::ASRError::Kind>> {
            std::optional<asr::ASRError::Kind> kind;
            try {
                co_await awaited;
            } catch (const asr::ASRError& error) {
                kind = error.kind();
            }
            co_return kind;
        }(std::move(task)));
    }

    QTemporaryDir folder;
    ModelCatalogue catalogue;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    VocabularySettings vocabulary{defaults};
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
    FluidModelFiles files{{folder.path()}};
    FluidAsrEngine engine{moduleFolders()};
    FileDownloader downloader;
    FluidTranscriptionProvider provider{engine, files, downloader, defaults, vocabulary, catalogue.boostingModel()};
};

} // namespace

TEST_F(Fluid, WritesWhatIsSaidWithTheTimesOfItsTokens)
{
    install("parakeet-tdt-0.6b-v3-q8_0.bin", "parakeet-micro-tdt-q8_0.bin");
    std::vector<TranscribedToken> tokens;
    TranscriptionRequest request{QStringLiteral("one"),
                                 recording("sentence-01.flac"),
                                 entry("Parakeet v3 (Fluid)"),
                                 {},
                                 {},
                                 [&](const auto& found) {
                                     tokens = found;
                                 }};
    EXPECT_EQ(QCoro::waitFor(provider.transcribe(std::move(request))), QStringLiteral("Can you show me the plan?"));
    ASSERT_EQ(tokens.size(), 12U);
    EXPECT_EQ(tokens[1].piece, QStringLiteral("\u2581you"));
    EXPECT_LT(tokens.back().start.count(), 2.1);
    EXPECT_GT(tokens.back().end, tokens.front().end);

    for (const char* name : {"silence.flac", "noise.flac"}) {
        TranscriptionRequest quiet{QStringLiteral("two"), recording(name), entry("Parakeet v3 (Fluid)"), {}, {}, {}};
        EXPECT_TRUE(QCoro::waitFor(provider.transcribe(std::move(quiet))).isEmpty()) << name;
    }
}

TEST_F(Fluid, TheLanguageSettingLimitsTheMultilingualModelOnly)
{
    install("parakeet-tdt-0.6b-v3-f16.bin");
    install("ggml-parakeet-tdt-0.6b-v2.bin");
    const auto text = [&](const char* model, std::optional<QString> language) {
        TranscriptionRequest request{QString(), recording("sentence-01.flac"), entry(model), language, {}, {}};
        return QCoro::waitFor(provider.transcribe(std::move(request)));
    };
    const QString said = QStringLiteral("Can you show me the plan?");
    defaults.set(setting::selectedLanguage, QStringLiteral("uk"));
    EXPECT_NE(text("Parakeet v3 (Fluid)", {}), said);
    EXPECT_EQ(text("Parakeet v3 (Fluid)", QStringLiteral("auto")), said);
    EXPECT_EQ(text("Parakeet v3 (Fluid)", QStringLiteral("ja")), said);
    EXPECT_EQ(text("Parakeet v2 (Fluid, English)", {}), said);
}

TEST_F(Fluid, CallersShareALoadAndAModelGivesWayOnlyToOneThatIsReady)
{
    install("model.bin");
    QFile(folder.filePath(QStringLiteral("foreign.bin"))).open(QIODevice::WriteOnly);
    auto first = engine.load(source(QStringLiteral("a")));
    auto second = engine.load(source(QStringLiteral("a")));
    const auto manager = QCoro::waitFor(std::move(first));
    EXPECT_EQ(manager, QCoro::waitFor(std::move(second)));
    EXPECT_EQ(outcome(engine.load(source(QStringLiteral("b"), "foreign.bin"))), asr::ASRError::Kind::modelLoadFailed);
    EXPECT_EQ(outcome(engine.load(source(QStringLiteral("b"), "missing.bin"))), asr::ASRError::Kind::modelLoadFailed);
    EXPECT_FALSE(QCoro::waitFor(engine.prepare(source(QStringLiteral("b"), "missing.bin"))).isEmpty());
    EXPECT_EQ(manager, QCoro::waitFor(engine.load(source(QStringLiteral("a")))));

    // Two loads that overlap: the one that ends last stays.
    auto third = engine.load(source(QStringLiteral("c")));
    auto fourth = engine.load(source(QStringLiteral("d")));
    QCoro::waitFor(std::move(third));
    const auto last = QCoro::waitFor(std::move(fourth));
    EXPECT_EQ(last, QCoro::waitFor(engine.load(source(QStringLiteral("d")))));
}

TEST_F(Fluid, AReplacedFileIsLoadedAnewAndAnUnloadedModelGivesItsMemoryBack)
{
    install("model.bin");
    std::weak_ptr<asr::AsrManager> former = QCoro::waitFor(engine.load(source(QStringLiteral("a"))));
    EXPECT_FALSE(former.expired());
    ASSERT_TRUE(QFile::remove(folder.filePath(QStringLiteral("model.bin"))));
    install("model.bin", "parakeet-micro-tdt-q8_0.bin");
    std::weak_ptr<asr::AsrManager> newer = QCoro::waitFor(engine.load(source(QStringLiteral("a"))));
    EXPECT_TRUE(former.expired());
    EXPECT_FALSE(newer.expired());
    EXPECT_TRUE(engine.holdsModel());

    engine.unload();
    EXPECT_FALSE(engine.holdsModel());
    EXPECT_TRUE(QTest::qWaitFor([&] { return newer.expired(); }, 10'000));

    // Also when it was still being loaded; who waits for it gets it nevertheless.
    auto late = engine.load(source(QStringLiteral("a")));
    EXPECT_TRUE(engine.holdsModel());
    engine.unload();
    EXPECT_NE(QCoro::waitFor(std::move(late)), nullptr);
    EXPECT_FALSE(engine.holdsModel());
}

TEST_F(Fluid, ACancelReachesARequestWhoseModelIsStillLoadedOrThatWaitsForItsTurn)
{
    install("model.bin");
    const auto begin = [&](const std::stop_source& stop) {
        return engine.transcribe(
            {QStringLiteral("r"), recording("long-02.flac"), source(QStringLiteral("a")), {}, {}, stop.get_token()});
    };
    std::stop_source first;
    auto loading = begin(first);
    first.request_stop();
    EXPECT_EQ(outcome(std::move(loading)), asr::ASRError::Kind::processingFailed);

    std::stop_source second;
    std::stop_source third;
    auto running = begin(second);
    auto waiting = begin(third);
    third.request_stop();
    EXPECT_EQ(outcome(std::move(waiting)), asr::ASRError::Kind::processingFailed);
    // A later request neither revives a cancelled one nor is cancelled with it.
    auto next = begin({});
    EXPECT_FALSE(QCoro::waitFor(std::move(next)).result.text.empty());
    EXPECT_FALSE(QCoro::waitFor(std::move(running)).result.text.empty());
}

TEST_F(Fluid, AFileIsRecognisedForWhatItIs)
{
    install("named-by-the-user.bin");
    const auto model = FluidModelFiles::describe(folder.filePath(QStringLiteral("named-by-the-user.bin")));
    ASSERT_TRUE(model);
    EXPECT_EQ(files.find(*model), folder.filePath(QStringLiteral("named-by-the-user.bin")));
    EXPECT_FALSE(FluidModelFiles::describe(QStringLiteral("/etc/hostname")));
    EXPECT_TRUE(files.find(entry("Parakeet v3 (Fluid)")).isEmpty());
}

TEST_F(Fluid, ADamagedFileIsNotReadyAndTheCheckRemovesIt)
{
    const TranscriptionModel model = entry("Parakeet v3 (Fluid)");
    install("ggml-parakeet-tdt-0.6b-v3-q8_0.bin");
    EXPECT_EQ(files.status(model).state, ModelStatus::State::ready);

    QFile file(files.ownFile(model));
    ASSERT_TRUE(file.resize(file.size() / 2));
    EXPECT_EQ(files.status(model).state, ModelStatus::State::unchecked);
    EXPECT_TRUE(file.exists());
    EXPECT_FALSE(files.check(model).isReady);
    EXPECT_FALSE(file.exists());
}

TEST(FluidReports, TheTranscriptsReachDecidesWhetherATailIsMissing)
{
    const auto isSuspicious = [](double seconds, std::vector<double> ends) {
        asr::ASRResult result;
        result.tokenTimings.emplace();
        for (const double end : ends)
            result.tokenTimings->push_back({"x", 0, asr::Seconds(0), asr::Seconds(end), 1});
        return TailCoverage::of(static_cast<std::size_t>(seconds * 16'000), result).isSuspicious();
    };
    EXPECT_TRUE(isSuspicious(10, {2, 8.4, 3}));
    EXPECT_FALSE(isSuspicious(10, {2, 8.6, 3}));
    EXPECT_TRUE(isSuspicious(10, {}));
    EXPECT_FALSE(isSuspicious(0, {}));
    EXPECT_FALSE(isSuspicious(10, {11}));
}

TEST_F(Fluid, ACancelInTheMiddleOfALongRecordingEndsItAndTheNextOneIsWritten)
{
    install("model.bin");
    std::stop_source stop;
    const auto request = [&](std::vector<float> samples, std::function<void(float)> onProgress, std::stop_token token) {
        return FluidAsrEngine::Request{QStringLiteral("r"),   std::move(samples), source(QStringLiteral("a")), {},
                                       std::move(onProgress), std::move(token)};
    };
    std::vector<float> minutes;
    for (const std::vector<float> part = recording("long-02.flac"); minutes.size() < 16'000 * 300;)
        minutes.insert(minutes.end(), part.begin(), part.end());
    float last = 0;
    const auto stopSoon = [&](float fraction) {
        last = fraction;
        stop.request_stop();
    };
    auto stopped = engine.transcribe(request(std::move(minutes), stopSoon, stop.get_token()));
    EXPECT_EQ(outcome(std::move(stopped)), asr::ASRError::Kind::processingFailed);
    EXPECT_LT(last, 0.2F) << "it went on";
    auto next = engine.transcribe(request(recording("sentence-02.flac"), {}, {}));
    EXPECT_EQ(QCoro::waitFor(std::move(next)).result.text, "Good morning, Peter.");
}

TEST_F(Fluid, ARecordingThatIsHeardWhileItIsMadeGetsTheTextOfTheWhole)
{
    install("ggml-parakeet-tdt-0.6b-v3-q8_0.bin", "parakeet-micro-tdt-q8_0.bin");
    vocabulary.addReplacement(QStringLiteral("plan"), QStringLiteral("map"));
    const TranscriptionModel model = entry("Parakeet v3 (Fluid)");
    const std::vector<float> speech = recording("sentence-01.flac");
    const QString id = QStringLiteral("audio-1");
    QStringList words;
    const auto hear = [&](std::size_t count, bool mayHaveEnded) {
        return provider.hear({id, model, std::span(speech).first(count), mayHaveEnded, [&](const QString& text) {
                                  words << text;
                              }});
    };
    EXPECT_FALSE(hear(3'200, false)) << "nothing is loaded yet";
    EXPECT_TRUE(QCoro::waitFor(provider.prepare(model)).isEmpty());
    EXPECT_TRUE(hear(9'600, false));
    EXPECT_TRUE(hear(9'600, true));
    EXPECT_TRUE(hear(speech.size(), true)) << "the user went on";
    provider.hurry();
    EXPECT_TRUE(QTest::qWaitFor([&] { return words.contains(QStringLiteral("Can you show me the map?")); }, 60'000));

    const auto textOf = [&](const QString& recordingID, std::vector<float> samples) {
        TranscriptionRequest request{recordingID, std::move(samples), model, {}, {}, {}};
        return QCoro::waitFor(provider.transcribe(std::move(request)));
    };
    auto longer = speech;
    longer.resize(longer.size() + 8'000, 0.0F);
    const QString whole = textOf(QStringLiteral("audio-2"), longer);
    EXPECT_EQ(textOf(id, longer), whole) << "what came after the last look";
    EXPECT_EQ(textOf(id, {speech.begin(), speech.begin() + 9'600}),
              textOf({}, {speech.begin(), speech.begin() + 9'600}))
        << "less than was heard is another recording";
    provider.dictationEnded();
    EXPECT_EQ(textOf(id, longer), whole);
}

TEST_F(Fluid, TheUsersReplacementsAreAppliedToWhatWasSaid)
{
    install("ggml-parakeet-tdt-0.6b-v3-q8_0.bin", "parakeet-micro-tdt-q8_0.bin");
    vocabulary.addReplacement(QStringLiteral("peter"), QStringLiteral("Pjotr"));
    TranscriptionRequest request{QString(), recording("sentence-02.flac"), entry("Parakeet v3 (Fluid)"), {}, {}, {}};
    EXPECT_EQ(QCoro::waitFor(provider.transcribe(std::move(request))), QStringLiteral("Good morning, Pjotr."));
}

TEST_F(Fluid, TheUsersWordsAreWrittenWhereTheyWereSaid)
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

TEST_F(Fluid, APipelineLastsAsLongAsItsTermsTheirOrderAndItsModel)
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

TEST_F(Fluid, WithoutAUsableModelThereIsThePlainText)
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

TEST_F(Fluid, WordsAreFoundInARecordingThatIsHeardWhileItIsMade)
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

TEST_F(Fluid, ACancelEndsTheSearchForWordsToo)
{
    install("model.bin");
    install(boostingFile, "parakeet-micro-ctc.gguf");
    std::vector<float> minutes;
    for (const std::vector<float> part = recording("long-02.flac"); minutes.size() < 16'000 * 300;)
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
