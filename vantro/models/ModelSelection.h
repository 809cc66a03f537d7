#pragma once

#include "base/UserDefaults.h"
#include "vantro/models/ModelCatalogue.h"

#include <functional>

namespace vantro {

/// Which catalogue entry the user has chosen; settles it once for a new installation. Main thread.
class ModelSelection
{
public:
    using IsReady = std::function<bool(const TranscriptionModel&)>;

    /// @p isReady: whether a model is downloaded and usable on this machine.
    ModelSelection(const ModelCatalogue& catalogue, UserDefaults& defaults, IsReady isReady);

    /// The selected entry. A new installation first adopts a model that is already there, else gets the default; both
    /// happen at most once, so that a later choice is never overwritten.
    [[nodiscard]] const TranscriptionModel& selectedModel();
    /// The entry that has been selected so far, without settling anything; null when there is none.
    [[nodiscard]] const TranscriptionModel* stored() const;
    void select(const TranscriptionModel& model);

private:
    bool adoptReadyModel(const QString& announcement);

    const ModelCatalogue& catalogue_;
    UserDefaults& defaults_;
    IsReady isReady_;
};

} // namespace vantro
