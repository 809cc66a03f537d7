#pragma once

#include "vantro/models/TranscriptionModel.h"

#include <QString>

#include <vector>

namespace vantro {

/// The fixed, ordered list of speech models. Built once, immutable afterwards, readable from any thread.
class ModelCatalogue
{
public:
    /// The public repository of the whisper.cpp model files.
    static QString defaultModelHost();

    /// @p modelHost: base URL that serves the files under "/resolve/main/".
    explicit ModelCatalogue(const QString& modelHost = defaultModelHost());

    [[nodiscard]] const std::vector<TranscriptionModel>& models() const { return models_; }
    /// Exact comparison; null when the catalogue has no such entry.
    [[nodiscard]] const TranscriptionModel* find(const QString& name) const;

private:
    std::vector<TranscriptionModel> models_;
};

} // namespace vantro
