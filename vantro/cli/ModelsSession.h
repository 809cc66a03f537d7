#pragma once

#include "vantro/app/Speech.h"

namespace vantro {

/// What the model commands work on.
struct ModelsSession
{
    explicit ModelsSession(const QString& modelHost) : speech(defaults, vocabulary, modelHost) {}

    /// Finds a model as the user calls it; otherwise null.
    [[nodiscard]] const TranscriptionModel* find(const QString& text) const;
    /// Whether it looks for the user's words, and is not selected for itself.
    [[nodiscard]] bool isForWords(const TranscriptionModel& model) const;
    [[nodiscard]] bool isSelected(const TranscriptionModel& model) const;

    UserDefaults defaults{UserDefaults::standardPath()};
    VocabularySettings vocabulary{defaults};
    Speech speech;
};

/// "vantro models list".
int listModels(const ModelsSession& session, bool json);
/// "vantro models download": shows the progress on standard error; Ctrl-C keeps the part already downloaded.
int downloadModel(const ModelsSession& session, const TranscriptionModel& model, bool json);

} // namespace vantro
