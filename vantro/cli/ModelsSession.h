#pragma once

#include "vantro/app/Speech.h"

namespace vantro {

/// What the commands about models work on.
struct ModelsSession
{
    explicit ModelsSession(const QString& modelHost) : speech(defaults, vocabulary, modelHost) {}

    /// An entry by its name, by its file's name, or by the beginning of its name when no other begins so; null else.
    [[nodiscard]] const TranscriptionModel* find(const QString& text) const;
    [[nodiscard]] bool isSelected(const TranscriptionModel& model) const;

    UserDefaults defaults{UserDefaults::standardPath()};
    VocabularySettings vocabulary{defaults};
    Speech speech;
};

/// "vantro models list".
int listModels(const ModelsSession& session, bool json);
/// "vantro models download": shows the progress on standard error, Ctrl-C keeps what was fetched.
int downloadModel(const ModelsSession& session, const TranscriptionModel& model, bool json);

} // namespace vantro
