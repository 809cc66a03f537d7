// Which words of a transcript are replaced by the user's terms.
#include "asr/BKTree.h"
#include "asr/CtcKeywordSpotter.h"
#include "asr/Spelling.h"
#include "asr/VocabularyRescorer.h"
#include "tests/asr/AsrTestSupport.h"

#include <gtest/gtest.h>

#include <cctype>
#include <chrono>
#include <cstdio>
#include <map>
#include <random>
#include <set>

using namespace vantro::asr;
using namespace vantro::asr::testing;

namespace {

const std::vector<std::string> testTerms = {"Kubernetes", "Postgres", "Grafana", "Zephyria", "Terraform",
                                            "Kibana",     "Ansible",  "Mirakon", "Redis",    "Tensora",
                                            "Lumenor",    "Bravio",   "Nextra",  "Pandoro",  "Dravix",
                                            "Quillon",    "Velora",   "Solvane", "Sentrix",  "Fenwick"};

/// A recording as both models hear it.
struct Heard
{
    std::string file;
    ASRResult plain;
    CtcLogProbabilities logProbs;
};

class Rescored : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        model = CtcModel::load(dataFolder() / "parakeet-micro-ctc.gguf", moduleFolders());
        const auto spotter = std::make_shared<CtcKeywordSpotter>(model);
        AsrManager manager;
        manager.initialize(loadMicro());
        for (const Expectation& expected : expectations()) {
            const std::vector<float> samples = recording(expected.file);
            WindowPool pool(model->network(), {2, false, {}, {}});
            CtcSpotting spotting(spotter, pool);
            spotting.append(samples);
            pool.hurry();
            heard.push_back({expected.file, transcribe(manager, samples), spotting.finish({})});
        }
    }
    static void TearDownTestSuite()
    {
        model.reset();
        heard.clear();
    }
    static const Heard& of(const std::string& file) { return *std::ranges::find(heard, file, &Heard::file); }
    static VocabularyRescorer rescorerFor(const std::vector<std::string>& texts,
                                          const VocabularyRescorer::Configuration& configuration = {})
    {
        std::vector<CustomVocabularyTerm> terms;
        for (const std::string& text : texts)
            terms.emplace_back().text = text;
        return {model, tokenised(std::move(terms), model->tokenizer()), configuration};
    }
    static RescoreOutput rescore(const VocabularyRescorer& rescorer, const Heard& recorded, float bias = 2)
    {
        VocabularyRescorer::Parameters parameters;
        parameters.contextBiasingWeight = bias;
        return rescorer.rescore(recorded.plain.text, *recorded.plain.tokenTimings, recorded.logProbs, parameters);
    }
    static std::string textWith(const std::vector<std::string>& terms, const std::string& file, float bias = 2)
    {
        return rescore(rescorerFor(terms), of(file), bias).text;
    }

    static std::shared_ptr<const CtcModel> model;
    static std::vector<Heard> heard;
};

std::shared_ptr<const CtcModel> Rescored::model;
std::vector<Heard> Rescored::heard;

/// Syllables, so that they can be said.
std::vector<std::string> randomNames(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    const std::string vowels = "aeiou";
    const std::string consonants = "bcdfghjklmnprstvwz";
    std::vector<std::string> names;
    while (names.size() < count) {
        const std::size_t length = 4 + random() % 9;
        std::string name;
        for (bool isVowel = random() % 2 == 0; name.size() < length; isVowel = !isVowel)
            name += isVowel ? vowels[random() % vowels.size()] : consonants[random() % consonants.size()];
        name.front() = static_cast<char>(std::toupper(name.front()));
        names.push_back(name);
    }
    return names;
}

} // namespace

TEST_F(Rescored, TermsThatWereSaidAreWrittenAndNothingElseIsChanged)
{
    const std::map<std::string, std::string> corrected = {{"term-03.flac", "Redis is very difficult."},
                                                          {"term-05.flac", "Is Lumenor."},
                                                          {"term-06.flac", "Quillon is very expensive."}};
    const VocabularyRescorer rescorer = rescorerFor(testTerms);
    for (const Heard& recorded : heard) {
        const RescoreOutput output = rescore(rescorer, recorded);
        const auto expected = corrected.find(recorded.file);
        EXPECT_EQ(output.text, expected == corrected.end() ? recorded.plain.text : expected->second) << recorded.file;
        EXPECT_EQ(output.wasModified, expected != corrected.end()) << recorded.file;
        for (const ConsideredTerm& place : output.considered)
            std::printf("%s: %s <- %s, similarity %.2f, %.1f to %.1f%s\n", recorded.file.c_str(), place.term.c_str(),
                        place.heard.c_str(), static_cast<double>(place.similarity),
                        static_cast<double>(place.scoreBefore), static_cast<double>(place.scoreAfter),
                        place.isReplaced ? ": replaced" : "");
    }
    EXPECT_EQ(rescore(rescorer, of("term-04.flac"), 4).text, "Can you restart Tensora this morning?");
}

TEST_F(Rescored, AThousandNamesThatNobodySaidReplaceNothing)
{
    for (const unsigned seed : {1U, 2U, 3U}) {
        const VocabularyRescorer rescorer = rescorerFor(randomNames(1'000, seed));
        for (const Heard& recorded : heard) {
            const RescoreOutput output = rescore(rescorer, recorded);
            EXPECT_EQ(output.text, recorded.plain.text) << recorded.file;
            for (const ConsideredTerm& place : output.replacements)
                std::printf("%s <- %s, similarity %.2f, %.1f to %.1f, bias %.1f\n", place.term.c_str(),
                            place.heard.c_str(), static_cast<double>(place.similarity),
                            static_cast<double>(place.scoreBefore), static_cast<double>(place.scoreAfter),
                            static_cast<double>(place.bias));
        }
    }
}
