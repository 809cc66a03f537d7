#pragma once

#include "vantro/models/ModelHost.h"
#include "vantro/models/TranscriptionModel.h"

#include <QString>

#include <vector>

namespace vantro {

/// As a user may call one of @p models: by name, short name, file name or the unambiguous beginning of one of the first
/// two, in any case; otherwise null.
[[nodiscard]] const TranscriptionModel* match(const std::vector<TranscriptionModel>& models, const QString& text);

/// The fixed, ordered list of speech models; only the host that serves them may change. Main thread.
class ModelCatalogue
{
public:
    /// @p modelHost: base URL that serves the files under "/resolve/main/"; see ModelHost.
    explicit ModelCatalogue(const QString& modelHost = ModelHost::publicAddress());

    /// Updates the URLs; pointers to entries stay valid.
    void setHost(const QString& modelHost);

    [[nodiscard]] const std::vector<TranscriptionModel>& models() const { return models_; }
    /// Exact comparison; null when the catalogue has no such entry.
    [[nodiscard]] const TranscriptionModel* find(const QString& name) const;

    /// See vantro::match().
    [[nodiscard]] const TranscriptionModel* match(const QString& text) const { return vantro::match(models_, text); }
    /// The model that looks for the user's words beside a Parakeet model. It is not among models() because it
    /// transcribes nothing by itself. Its URL is unusable where no host is known to serve it.
    [[nodiscard]] const TranscriptionModel& boostingModel() const { return boostingModel_; }

private:
    std::vector<TranscriptionModel> models_;
    TranscriptionModel boostingModel_;
};

/// A name that needs no quotes, such as "parakeet-v3" or "small".
[[nodiscard]] QString shortName(const TranscriptionModel& model);

} // namespace vantro
