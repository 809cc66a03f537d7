// Writes a Parakeet model with 0.6 billion random parameters, or the CTC model with 0.1 billion:
// write-random-parakeet FILE v2|v3|ctc f32|f16|q8_0|q5_0|q4_0
#include "asr/testing/GgufWriter.h"
#include "asr/testing/ModelWriter.h"

#include <cstdio>
#include <exception>
#include <map>
#include <string>

int main(int argc, char** argv)
{
    const std::map<std::string, std::int32_t> vocabularies = {{"v2", 1'024}, {"v3", 8'192}, {"ctc", 0}};
    const std::map<std::string, ggml_type> types = {{"f32", GGML_TYPE_F32},
                                                    {"f16", GGML_TYPE_F16},
                                                    {"q8_0", GGML_TYPE_Q8_0},
                                                    {"q5_0", GGML_TYPE_Q5_0},
                                                    {"q4_0", GGML_TYPE_Q4_0}};
    if (argc != 4 || !vocabularies.contains(argv[2]) || !types.contains(argv[3])) {
        std::fprintf(stderr, "usage: write-random-parakeet FILE v2|v3|ctc f32|f16|q8_0|q5_0|q4_0\n");
        return 2;
    }
    try {
        using namespace vantro::asr::testing;
        if (std::string(argv[2]) == "ctc")
            writeRandomCtcModel(argv[1], hybridShape(), types.at(argv[3]));
        else
            writeRandomModel(argv[1], publishedShape(vocabularies.at(argv[2])), types.at(argv[3]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[1], error.what());
        return 1;
    }
    return 0;
}
