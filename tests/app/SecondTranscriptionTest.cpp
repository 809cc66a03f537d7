// Kept recordings that are transcribed once more give way to a dictation.
#include "vantro/app/SecondTranscription.h"

#include "tests/app/DictationFixture.h"

using namespace vantro;

TEST_F(DictationTest, EndsAllSecondTranscriptionsThatAreUnderWay)
{
    SecondTranscription second(facade, recorder);
    const QString file =
        qEnvironmentVariable("VANTRO_SOURCE_DIR") + QStringLiteral("/tests/data/en-harvard-spk1-snt1.flac");
    QStringList problems;
    const auto transcribe = [&](const char* model) -> QCoro::Task<> {
        const auto transcribing = second.run(*catalogue.find(QLatin1String(model)), file);
        try {
            co_await transcribing;
        } catch (const Error& error) {
            problems << error.localizedDescription();
        }
    };
    const auto one = transcribe("tiny.en");
    const auto other = transcribe("Parakeet v3 (Fluid)");
    ASSERT_TRUE(waitFor([this] { return provider.isAsked() && neuralProvider.isAsked(); }));

    pressShortcut();
    EXPECT_TRUE(provider.stop.stop_requested());
    EXPECT_TRUE(neuralProvider.stop.stop_requested());
    provider.fail(QStringLiteral("stopped"));
    neuralProvider.fail(QStringLiteral("stopped"));
    EXPECT_TRUE(waitFor([&problems] { return problems.size() == 2; }));
}
