#pragma once

#include "vantro/cli/Command.h"

namespace vantro {

/// What may stand at a place of the command line.
struct Candidate
{
    QString text;
    QString description; ///< one line; may be empty
};

/// What may take the place of the last of @p words, which may be empty, after "vantro". Only what begins with it, in
/// the order of the help; empty where a file or a text of one's own is expected.
[[nodiscard]] std::vector<Candidate> completions(const std::vector<Command>& commands, const QStringList& words);

/// The places of completions() whose candidates are names: "models select", "shortcuts set".
[[nodiscard]] QStringList completedPlaces();

} // namespace vantro
