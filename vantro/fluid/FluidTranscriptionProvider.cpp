#include "vantro/fluid/FluidTranscriptionProvider.h"

#include "base/Settings.h"
#include "vantro/text/TextReplacer.h"

#include <utility>

namespace vantro {

namespace {

std::vector<TranscribedToken> tokensOf(const asr::ASRResult& result)
{
    std::vector<TranscribedToken> tokens;
    if (result.tokenTimings) {
        for (const asr::TokenTiming& timing : *result.tokenTimings)
            tokens.push_back(
                {QString::fromStdString(timing.token), timing.startTime, timing.endTime, timing.confidence});
    }
    return tokens;
}

} // namespace

FluidTranscriptionProvider::FluidTranscriptionProvider(FluidAsrEngine& engine, const FluidModelFiles& files,
                                                       UserDefaults& defaults, const VocabularySettings& vocabulary)
    : engine_(engine)
    , files_(files)
    , defaults_(defaults)
    , vocabulary_(vocabulary)
{
}

FluidModelSource FluidTranscriptionProvider::source(const TranscriptionModel& model) const
{
    const FluidModel& fluid = model.fluidModel.value();
    return {fluid.repository, fluid.isMultilingual ? asr::AsrModelVersion::v3 : asr::AsrModelVersion::v2,
            files_.find(model)};
}

void FluidTranscriptionProvider::prepare(const TranscriptionModel& model)
{
    engine_.prepare(source(model));
}

QCoro::Task<QString> FluidTranscriptionProvider::transcribe(TranscriptionRequest request)
{
    FluidAsrEngine::Request work;
    work.label = request.recordingID;
    work.model = source(request.model);
    work.language = languageHint(request);
    work.samples = std::move(request.samples);
    work.onProgress = std::move(request.onProgress);
    const asr::ASRResult result = co_await engine_.transcribe(std::move(work));
    if (request.onTokens)
        request.onTokens(tokensOf(result));
    co_return TextReplacer::applyReplacements(QString::fromStdString(result.text).trimmed(),
                                              vocabulary_.textReplacements());
}

/// The multilingual model works in one language at a time and does not recognise which.
std::optional<asr::Language> FluidTranscriptionProvider::languageHint(const TranscriptionRequest& request) const
{
    if (!request.model.fluidModel.value().isMultilingual)
        return std::nullopt;
    const QString code = request.language.value_or(defaults_.get(setting::selectedLanguage));
    return asr::languageFromCode(code.toStdString()).value_or(asr::Language::english);
}

void FluidTranscriptionProvider::cancel()
{
    engine_.stop();
}

void FluidTranscriptionProvider::dictationEnded() {}

} // namespace vantro
