#pragma once

#include "vantro/ai/FormatRequestServicing.h"

#include <QStringList>

#include <memory>

namespace vantro {

/// "vantro notes [list | show | add | delete | summarize]": the notes of each day. @p arguments: what follows the
/// command's name. @p service: the language model that condenses notes, as Notes mode uses it, with its instruction;
/// without one there is no "summarize". Answers the process's exit code.
int runNotes(const QStringList& arguments, std::shared_ptr<FormatRequestServicing> service = nullptr,
             const QString& summaryPrompt = {});

} // namespace vantro
