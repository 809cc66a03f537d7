#pragma once

#include "vantro/text/VocabularyFile.h"
#include "vantro/text/VocabularySettings.h"

#include <QString>

namespace vantro {

/// What the import of a file has brought.
struct ImportedEntries
{
    qsizetype before = 0; ///< entries of the list until then
    qsizetype added = 0;
    qsizetype known = 0; ///< entries of the file that the list had already
};

/// Adds the entries of @p path ("-" for standard input) that the list does not have yet. All or none: throws Error,
/// which names the file, says what is wrong and where, and that the list is unchanged. Main thread.
ImportedEntries importWords(const QString& path, ListFormat format, VocabularySettings& settings);
ImportedEntries importReplacements(const QString& path, ListFormat format, VocabularySettings& settings);

} // namespace vantro
