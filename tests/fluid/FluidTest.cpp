#include "base/Settings.h"
#include "tests/fluid/FluidFixture.h"
#include "vantro/fluid/TailCoverage.h"

#include <QTest>

using namespace vantro;

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
    for (const std::vector<float> part = recording("long-02.flac"); minutes.size() < std::size_t{16'000} * 300;)
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
