#include "asr/CtcModel.h"

#include "asr/ASRError.h"
#include "asr/GgufFile.h"

#include <new>

namespace vantro::asr {

namespace {

constexpr std::size_t headTensors = 4;

} // namespace

std::shared_ptr<const CtcModel> CtcModel::load(const std::filesystem::path& file,
                                               std::span<const std::filesystem::path> moduleFolders, kernels::Level cap)
{
    loadProcessorModule(moduleFolders);
    try {
        const GgufFile source(file);
        return std::shared_ptr<const CtcModel>(new CtcModel(source, cap));
    } catch (const std::bad_alloc&) {
        throw ASRError(ASRError::Kind::modelLoadFailed, "out of memory");
    }
}

CtcModel::CtcModel(const GgufFile& file, kernels::Level cap)
    : preprocessor_(file)
    , encoder_(file, cap)
    , weights_(headTensors, Weights::Place::file, cap)
    , head_(weights_.linear(file, "ctc_decoder.weight", "ctc_decoder.bias"))
    , tokenizer_(file.pieces(), file.scores(), file.unknownPiece())
    , blankId_(file.encoderParameters().vocabularySize)
{
    weights_.load(file);
}

} // namespace vantro::asr
