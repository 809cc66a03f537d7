#pragma once

#include "vantro/models/ModelKeeper.h"
#include "vantro/models/TranscriptionProviding.h"

#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

namespace vantro {

/// One speech engine: its recogniser and its model files. Main thread; long operations run on threads of its own.
/// Everything is created on demand.
class SpeechEngine : public ModelKeeper, public TranscriptionProviding
{
public:
    /// A model for the user's file; nullopt when it belongs to another engine.
    [[nodiscard]] virtual std::optional<TranscriptionModel> describe(const QString& file) const = 0;
};

/// All engines.
class SpeechEngines
{
public:
    /// One per TranscriptionEngine that recognises speech; they must outlive the list. The first whose describe()
    /// accepts a file gets it.
    explicit SpeechEngines(std::vector<SpeechEngine*> engines) : engines_(std::move(engines)) {}

    /// The one that runs @p model.
    [[nodiscard]] SpeechEngine& of(const TranscriptionModel& model) const;
    [[nodiscard]] const std::vector<SpeechEngine*>& all() const { return engines_; }

private:
    std::vector<SpeechEngine*> engines_;
};

/// The folders searched for model files: "vantro/models" below the XDG data folders and /usr/share. The first is the
/// user's own, the only one written to; administrators can install models in the others.
[[nodiscard]] QStringList modelFolders();

} // namespace vantro
