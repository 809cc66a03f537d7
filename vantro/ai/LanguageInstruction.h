#pragma once

#include "platform/LanguageRecognizer.h"

#include <QString>

namespace vantro {

/// The sentence appended to a prompt so that the model answers in the language of @p transcript, or in English when the
/// language is not recognised. Starts with an empty line. Any thread.
QString languageInstruction(const LanguageRecognizer& recognizer, const QString& transcript);

} // namespace vantro
