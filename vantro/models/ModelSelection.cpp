#include "vantro/models/ModelSelection.h"

#include "base/Logger.h"
#include "base/Settings.h"

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

constexpr QLatin1String defaultModel("small - default");

} // namespace

ModelSelection::ModelSelection(const ModelCatalogue& catalogue, UserDefaults& defaults, IsReady isReady)
    : catalogue_(catalogue)
    , defaults_(defaults)
    , isReady_(std::move(isReady))
{
}

const TranscriptionModel* ModelSelection::stored() const
{
    const auto name = defaults_.stored(setting::selectedModelName);
    return name ? catalogue_.find(*name) : nullptr;
}

const TranscriptionModel& ModelSelection::selectedModel()
{
    if (preferred_ != nullptr)
        return *preferred_;
    if (const auto* model = stored())
        return *model;
    if (!defaults_.get(setting::selectedModelAdoptedFromCache)) {
        defaults_.set(setting::selectedModelAdoptedFromCache, true);
        if (!defaults_.contains(setting::selectedModelName.key))
            adoptReadyModel(QStringLiteral("Adopted cached model as selection: "));
    }
    if (!defaults_.get(setting::selectedModelDefaultedOnce)) {
        defaults_.set(setting::selectedModelDefaultedOnce, true);
        if (!defaults_.contains(setting::selectedModelName.key) &&
            !adoptReadyModel(QStringLiteral("Adopted cached model as default selection: "))) {
            defaults_.set(setting::selectedModelName, defaultModel);
            printLine(QStringLiteral("Defaulted new installation to whisper small"));
        }
    }
    // A stored name that is no longer in the catalogue is kept; the default model is used instead.
    const auto* model = stored();
    return model != nullptr ? *model : *catalogue_.find(defaultModel);
}

void ModelSelection::select(const TranscriptionModel& model)
{
    defaults_.set(setting::selectedModelName, model.name);
}

bool ModelSelection::adoptReadyModel(const QString& announcement)
{
    const auto& models = catalogue_.models();
    const auto ready = std::ranges::find_if(models, isReady_);
    if (ready == models.end())
        return false;
    select(*ready);
    printLine(announcement + ready->name);
    return true;
}

} // namespace vantro
