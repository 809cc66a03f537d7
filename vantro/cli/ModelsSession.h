#pragma once

#include "vantro/models/ModelSelection.h"
#include "vantro/models/ModelStore.h"

namespace vantro {

/// What the commands about models work on.
struct ModelsSession
{
    explicit ModelsSession(const QString& modelHost)
        : catalogue(ModelHost::address(defaults, modelHost))
        , selection(catalogue, defaults, [this](const auto& model) { return store.isReady(model); })
    {
    }

    /// An entry by its name, by its file's name, or by the beginning of its name when no other begins so; null else.
    [[nodiscard]] const TranscriptionModel* find(const QString& text) const;
    [[nodiscard]] bool isSelected(const TranscriptionModel& model) const;
    /// Whether this installation can run @p model at all.
    [[nodiscard]] static bool hasEngine(const TranscriptionModel& model)
    {
        return model.engine == TranscriptionEngine::whisper;
    }

    UserDefaults defaults{UserDefaults::standardPath()};
    ModelCatalogue catalogue;
    ModelStore store = ModelStore::standard();
    ModelSelection selection;
};

/// "vantro models list".
int listModels(const ModelsSession& session, bool json);
/// "vantro models download": shows the progress on standard error, Ctrl-C keeps what was fetched.
int downloadModel(ModelsSession& session, const TranscriptionModel& model, bool json);

} // namespace vantro
