#pragma once

#include "vantro/cli/Command.h"
#include "vantro/models/TranscriptionProviding.h"

#include <QJsonObject>

namespace vantro {

/// The option --ctc-model, which must be a file; empty when not given. Throws CommandError.
QString boostingModelOf(const CommandCall& call);

/// The option --weight, or 1. Throws WrongUsage.
double weightOf(const CommandCall& call);

/// Where a term was looked for, and what spoke for it.
QJsonObject placeAsJson(const VocabularyPlace& place);

/// "vantro vocabulary try".
int tryVocabulary(const CommandCall& call);

} // namespace vantro
