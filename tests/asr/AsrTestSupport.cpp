#include "tests/asr/AsrTestSupport.h"

#include "vantro/sound/AudioFile.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <limits>
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
        Expectation expectation{fields[0], fields[4], fields[5], fields[7], {}};
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

std::vector<float> reference(const std::string& name)
{
    std::ifstream file(dataFolder() / "numerics" / name, std::ios::binary);
    std::vector<float> values(std::filesystem::file_size(dataFolder() / "numerics" / name) / sizeof(float));
    file.read(reinterpret_cast<char*>(values.data()), static_cast<std::streamsize>(values.size() * sizeof(float)));
    return values;
}

float largestDifference(const std::vector<float>& a, const std::vector<float>& b)
{
    float largest = a.size() == b.size() ? 0 : std::numeric_limits<float>::infinity();
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        largest = std::max(largest, std::abs(a[i] - b[i]));
    return largest;
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
