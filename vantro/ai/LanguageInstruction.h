#pragma once

#include "platform/LanguageRecognizer.h"

#include <QString>

namespace vantro {

/// The sentence appended to a prompt so that the model answers in the language of @p transcript, or in English when
/// nobody knows it. Starts with an empty line. @p spoken: what the speech engine has heard or the user has set, as a
/// code; may be empty. Any thread.
QString languageInstruction(const LanguageRecognizer& recognizer, const QString& transcript,
                            const QString& spoken = {});

} // namespace vantro
