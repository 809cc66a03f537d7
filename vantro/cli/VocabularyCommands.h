#pragma once

#include <QStringList>

namespace vantro {

/// "vantro replacements" and "vantro vocabulary": what is written differently, and the words the engine is told of.
/// Both answer an ExitCode.
int runReplacements(const QStringList& arguments);
int runVocabulary(const QStringList& arguments);

} // namespace vantro
