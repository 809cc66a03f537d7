// Rewriting on this machine, as a mode asks for it, with the small real model that scripts/get-language-model fetches.
#include "base/Settings.h"
#include "tests/ai/services/FormatTestSupport.h"
#include "vantro/ai/services/LocalFormatError.h"
#include "vantro/models/PartFile.h"

#include <QFile>
#include <QStandardPaths>

using namespace vantro;

namespace {

const QString prompt = QStringLiteral("Correct the grammar of the text. Just return the text.");
const QString text = QStringLiteral("um so tell Anna we meet on Tuesday");

std::optional<LocalFormatError::Kind> kindOf(const Outcome& outcome)
{
    try {
        if (outcome.failure)
            std::rethrow_exception(outcome.failure);
    } catch (const LocalFormatError& error) {
        return error.kind();
    }
    return {};
}

class LocalFormat : public FormatTest
{
protected:
    void addModel()
    {
        const QString model = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                              QStringLiteral("/vantro-build/models/SmolLM2-135M-Instruct.Q4_1.gguf");
        if (!QFile::exists(model))
            GTEST_SKIP() << "the small language model is not there: run scripts/get-language-model";
        local.models().add(model);
    }

    [[nodiscard]] std::shared_ptr<FormatRequestServicing> localService(std::stop_token stop = {})
    {
        return FormatServiceFactory(providers, local, parts).make(ProcessingMode::Email, {true}, std::move(stop));
    }
    /// What the model writes, whether it comes to an end or not: so small a one may not.
    QString written(const std::shared_ptr<FormatRequestServicing>& by)
    {
        const auto pieces = std::make_shared<QString>(); // the model may outlive the wait
        by->listen([pieces](const QString& piece) { *pieces += piece; });
        const Outcome result = outcome(by->format(prompt, text));
        EXPECT_TRUE(result.text.isEmpty() || result.text == pieces->trimmed());
        return *pieces;
    }
    Outcome rewrite(const QString& what, std::stop_token stop = {})
    {
        return outcome(localService(std::move(stop))->format(prompt, what));
    }
};

} // namespace

TEST_F(LocalFormat, SaysWhatIsMissing)
{
    using Kind = LocalFormatError::Kind;
    EXPECT_EQ(kindOf(rewrite(text)), Kind::appleIntelligenceNotEnabled);
    const QString file = local.models().file(local.models().models().front());
    PartFile part(file);
    {
        const auto lock = part.tryLock();
        part.begin({{}, {}, {}, 100});
        part.append("GGUF", 4);
        EXPECT_EQ(kindOf(rewrite(text)), Kind::modelNotReady) << "it is being downloaded";
        part.settle();
    }
    EXPECT_EQ(kindOf(rewrite(text)), Kind::modelUnavailable) << "it is no model";
}

TEST_F(LocalFormat, RewritesWithoutAnyServerAndTellsWhatItWrites)
{
    ASSERT_NO_FATAL_FAILURE(addModel());
    if (IsSkipped())
        return;
    const auto service = localService();
    service->prepare(prompt);
    EXPECT_FALSE(written(service).isEmpty());
    // Whoever has chosen nobody gets this machine.
    EXPECT_FALSE(written(FormatServiceFactory(providers, local, parts).make(ProcessingMode::Email, {})).isEmpty());
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(LocalFormat, KeepsTheMeaningOfItsErrorsAndRecovers)
{
    using Kind = LocalFormatError::Kind;
    ASSERT_NO_FATAL_FAILURE(addModel());
    if (IsSkipped())
        return;
    availableMemory = 1'000'000;
    EXPECT_EQ(kindOf(rewrite(text)), Kind::generationFailed);
    EXPECT_TRUE(rewrite(text).description().contains(QLatin1String("memory")));
    availableMemory.reset();
    EXPECT_EQ(kindOf(rewrite(QStringLiteral("word ").repeated(6000))), Kind::contextWindowExceeded);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(kindOf(rewrite(text, stop.get_token())), Kind::generationFailed);
    EXPECT_FALSE(written(localService()).isEmpty());
}

TEST_F(LocalFormat, GivesTheMemoryBackAfterUseUnlessToldToKeepIt)
{
    ASSERT_NO_FATAL_FAILURE(addModel());
    if (IsSkipped())
        return;
    auto expected = local.expect(prompt);
    EXPECT_TRUE(waitFor([&] { return local.engine().holdsModel(); })) << "it loads while the user speaks";
    auto second = local.expect(prompt + QStringLiteral(" Be brief."));
    expected.reset();
    EXPECT_TRUE(local.engine().holdsModel());
    second.reset();
    EXPECT_TRUE(waitFor([&] { return !local.engine().holdsModel(); }));

    defaults.set(setting::keepLanguageModelInMemory, true);
    EXPECT_FALSE(written(localService()).isEmpty());
    local.engine().readAhead(prompt).waitForFinished(); // whatever has been asked for is done then
    EXPECT_TRUE(local.engine().holdsModel());
}
