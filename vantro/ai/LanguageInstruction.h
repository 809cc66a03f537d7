#pragma once

#include "platform/LanguageRecognizer.h"

#include <QString>

namespace vantro {

/// What is appended to a prompt so that the language model answers in the language of @p transcript; English when none
/// is recognised. Begins with an empty line. Any thread.
QString languageInstruction(const LanguageRecognizer& recognizer, const QString& transcript);

} // namespace vantro
