#include "asr/AsrModels.h"

#include "asr/ASRError.h"
#include "asr/ModelFile.h"

#include <new>

namespace vantro::asr {

std::shared_ptr<const AsrModels> AsrModels::load(const std::filesystem::path& file, AsrModelVersion version,
                                                 std::span<const std::filesystem::path> moduleFolders,
                                                 kernels::Level cap)
{
    loadProcessorModule(moduleFolders);
    try {
        ModelFile model(file);
        const Hyperparameters& parameters = model.hyperparameters();
        AsrModelConfiguration configuration{version, parameters.vocabularySize, parameters.stateSize,
                                            parameters.maxSymbolsPerStep, model.durations()};
        return std::make_shared<const AsrModels>(AsrModels{Encoder(model, cap), Preprocessor(model),
                                                           Decoder(model, cap), JointDecision(model, cap),
                                                           std::move(configuration), model.pieces()});
    } catch (const std::bad_alloc&) {
        throw ASRError(ASRError::Kind::modelLoadFailed, "out of memory");
    }
}

std::optional<AsrModelVersion> parakeetVersionOf(const std::filesystem::path& file)
{
    constexpr std::int32_t multilingualVocabulary = 8'192;
    const auto parameters = ModelFile::headerOf(file);
    if (!parameters)
        return std::nullopt;
    return parameters->vocabularySize >= multilingualVocabulary ? AsrModelVersion::v3 : AsrModelVersion::v2;
}

} // namespace vantro::asr
