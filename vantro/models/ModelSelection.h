#pragma once

#include "base/UserDefaults.h"
#include "vantro/models/ModelCatalogue.h"

#include <functional>

namespace vantro {

/// The user's choice of model; chooses one for a new installation. Main thread.
class ModelSelection
{
public:
    using IsReady = std::function<bool(const TranscriptionModel&)>;

    /// @p isReady: whether a model is downloaded and usable.
    ModelSelection(const ModelCatalogue& catalogue, UserDefaults& defaults, IsReady isReady);

    /// The selected entry. A new installation adopts a model that is already present, else the default; each happens at
    /// most once, so that a later choice is never overwritten.
    [[nodiscard]] const TranscriptionModel& selectedModel();
    /// The stored selection, without choosing one; null if there is none.
    [[nodiscard]] const TranscriptionModel* stored() const;
    void select(const TranscriptionModel& model);

private:
    bool adoptReadyModel(const QString& announcement);

    const ModelCatalogue& catalogue_;
    UserDefaults& defaults_;
    IsReady isReady_;
};

} // namespace vantro
