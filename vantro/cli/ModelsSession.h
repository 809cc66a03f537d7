#pragma once

#include "vantro/fluid/FluidModelFiles.h"
#include "vantro/models/ModelSelection.h"
#include "vantro/models/ModelStore.h"

namespace vantro {

/// What the commands about models work on.
struct ModelsSession
{
    explicit ModelsSession(const QString& modelHost)
        : catalogue(ModelHost::address(defaults, modelHost))
        , selection(catalogue, defaults, [this](const auto& model) { return check(model).isReady; })
    {
    }

    /// An entry by its name, by its file's name, or by the beginning of its name when no other begins so; null else.
    [[nodiscard]] const TranscriptionModel* find(const QString& text) const;
    [[nodiscard]] bool isSelected(const TranscriptionModel& model) const;
    // The same questions for the models of both engines, as ModelStore and FluidModelFiles answer them.
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const;
    [[nodiscard]] ModelCheck check(const TranscriptionModel& model,
                                   ModelStore::Trust trust = ModelStore::Trust::markers) const;
    qint64 remove(const TranscriptionModel& model) const;
    qint64 removeAllExcept(const TranscriptionModel& keep) const;
    [[nodiscard]] qint64 bytesUsed() const;

    UserDefaults defaults{UserDefaults::standardPath()};
    ModelCatalogue catalogue;
    ModelStore store = ModelStore::standard();
    FluidModelFiles fluidFiles{store.folders()};
    ModelSelection selection;
};

/// "vantro models list".
int listModels(const ModelsSession& session, bool json);
/// "vantro models download": shows the progress on standard error, Ctrl-C keeps what was fetched.
int downloadModel(ModelsSession& session, const TranscriptionModel& model, bool json);

} // namespace vantro
