#include "tests/asr/AsrTestSupport.h"

#include "vantro/sound/AudioFile.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace vantro::asr::testing {

std::filesystem::path dataFolder()
{
    return std::filesystem::path(std::getenv("VANTRO_SOURCE_DIR")) / "tests/data/parakeet";
}

std::vector<std::filesystem::path> moduleFolders()
{
    return {std::filesystem::read_symlink("/proc/self/exe").parent_path()};
}

std::vector<float> recording(const std::string& name)
{
    return AudioFile::read(QString::fromStdString((dataFolder() / "recordings" / name).string())).samples;
}

std::vector<Expectation> expectations()
{
    std::ifstream file(dataFolder() / "expected.tsv");
    std::string line;
    std::getline(file, line); // names of the columns
    std::vector<Expectation> result;
    while (std::getline(file, line)) {
        std::istringstream columns(line);
        std::vector<std::string> fields;
        for (std::string field; std::getline(columns, field, '\t');)
            fields.push_back(field);
        fields.resize(8);
        Expectation expectation{fields[0], fields[5], {}};
        std::istringstream tokens(fields[6]);
        char colon = 0;
        for (Expectation::Token token{}; tokens >> token.id >> colon >> token.frame >> colon >> token.duration;)
            expectation.tokens.push_back(token);
        result.push_back(expectation);
    }
    return result;
}

std::shared_ptr<const AsrModels> loadMicro(const std::string& variant, AsrModelVersion version, kernels::Level cap)
{
    return AsrModels::load(dataFolder() / variant, version, moduleFolders(), cap);
}

ASRResult transcribe(AsrManager& manager, const std::vector<float>& samples, const AsrManager::Options& options)
{
    TdtDecoderState state;
    return manager.transcribe(samples, state, options);
}

std::optional<ASRError::Kind> errorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const ASRError& error) {
        return error.kind();
    }
    return std::nullopt;
}

} // namespace vantro::asr::testing
