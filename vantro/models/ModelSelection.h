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
    /// selectedModel() is @p model until this is called with null; the stored selection stays as it is.
    void prefer(const TranscriptionModel* model) { preferred_ = model; }
    [[nodiscard]] const ModelCatalogue& catalogue() const { return catalogue_; }

private:
    bool adoptReadyModel(const QString& announcement);

    const ModelCatalogue& catalogue_;
    UserDefaults& defaults_;
    IsReady isReady_;
    const TranscriptionModel* preferred_ = nullptr; ///< of the catalogue
};

} // namespace vantro
