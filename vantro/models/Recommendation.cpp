#include "vantro/models/Recommendation.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <memory>

namespace vantro {

namespace {

using Seconds = std::chrono::duration<double>;

/// Of the tiny model for ten seconds on one processor of 2021.
constexpr Seconds tinyWork(1.7);
constexpr Seconds patience(4);
constexpr double shareOfMemory = 0.25;
constexpr double bytesPerGB = 1e9;

struct Cost
{
    const char* begins;
    double timesTiny;
};

/// By the multiplications of encoder and decoder.
constexpr std::array costs{Cost{"tiny", 1},   Cost{"base", 2},    Cost{"small", 6}, Cost{"large-v3-turbo", 30},
                           Cost{"large", 45}, Cost{"Parakeet", 2}};

bool parakeetKnows(const QString& language)
{
    static const QStringList known =
        QStringLiteral("bg hr cs da nl en et fi fr de el hu it lv lt mt pl pt ro sk sl es sv ru uk")
            .split(QLatin1Char(' '));
    return known.contains(language);
}

bool knows(const TranscriptionModel& model, const QString& language)
{
    if (model.supportedLanguages == SupportedLanguages::english)
        return language == QLatin1String("en");
    return model.engine == TranscriptionEngine::whisper || parakeetKnows(language);
}

bool fits(const TranscriptionModel& model, const Machine& machine)
{
    return machine.memoryBytes == 0 ||
           model.ramUsage * bytesPerGB <= static_cast<double>(machine.memoryBytes) * shareOfMemory;
}

} // namespace

Seconds expectedWait(const TranscriptionModel& model, const Machine& machine)
{
    const auto cost = std::ranges::find_if(
        costs, [&](const Cost& each) { return model.name.startsWith(QLatin1String(each.begins)); });
    return tinyWork * (cost != costs.end() ? cost->timesTiny : 1) / std::max(machine.processors, 1);
}

const TranscriptionModel& recommended(const std::vector<TranscriptionModel>& models, const Machine& machine,
                                      const QString& language,
                                      const std::function<bool(const TranscriptionModel&)>& isReady)
{
    const TranscriptionModel* best = nullptr;
    const TranscriptionModel* fastest = nullptr;
    for (const TranscriptionModel& model : models) {
        if (!knows(model, language) || (model.engine == TranscriptionEngine::fluid && !isReady(model)))
            continue;
        if (fastest == nullptr || expectedWait(model, machine) < expectedWait(*fastest, machine))
            fastest = &model;
        if (fits(model, machine) && expectedWait(model, machine) <= patience &&
            (best == nullptr || model.accuracy > best->accuracy))
            best = &model;
    }
    return best != nullptr ? *best : fastest != nullptr ? *fastest : models.front();
}

const TranscriptionModel* recommendedRewriter(const std::vector<TranscriptionModel>& models, const Machine& machine)
{
    auto found = std::ranges::find_if(models, [&](const TranscriptionModel& model) { return fits(model, machine); });
    if (found == models.end())
        found = std::ranges::min_element(models, {}, &TranscriptionModel::ramUsage);
    return found != models.end() ? std::to_address(found) : nullptr;
}

} // namespace vantro
