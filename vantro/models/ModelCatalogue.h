#pragma once

#include "vantro/models/ModelHost.h"
#include "vantro/models/TranscriptionModel.h"

#include <QString>

#include <vector>

namespace vantro {

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

private:
    std::vector<TranscriptionModel> models_;
};

} // namespace vantro
