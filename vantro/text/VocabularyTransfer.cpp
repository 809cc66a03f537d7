#include "vantro/text/VocabularyTransfer.h"

#include "base/Error.h"
#include "vantro/text/ListFile.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

namespace vantro {

namespace {

/// Calls @p import; what goes wrong is told with the file's name.
template <typename Import>
ImportedEntries toldOf(const QString& path, const Import& import)
{
    try {
        return import();
    } catch (const Error& error) {
        QString reason = error.localizedDescription();
        if (reason.endsWith(QLatin1Char('.')))
            reason.chop(1);
        if (!reason.startsWith(path))
            reason.prepend(path + QStringLiteral(": "));
        throw Error(QCoreApplication::translate("VocabularyTransfer", "%1. The list is unchanged").arg(reason));
    }
}

} // namespace

ImportedEntries importWords(const QString& path, ListFormat format, VocabularySettings& settings)
{
    return toldOf(path, [&] {
        const std::vector<VocabularyWord> words = readVocabulary(readListFile(path), format);
        const qsizetype added = settings.addVocabularyWords(words);
        return ImportedEntries{settings.customVocabulary().size() - added, added, std::ssize(words) - added};
    });
}

ImportedEntries importReplacements(const QString& path, ListFormat format, VocabularySettings& settings)
{
    return toldOf(path, [&] {
        std::vector<TextReplacement> read = readReplacements(readListFile(path), format);
        const std::size_t count = read.size();
        const std::size_t added = settings.addReplacements(std::move(read));
        return ImportedEntries{static_cast<qsizetype>(settings.textReplacements().size() - added),
                               static_cast<qsizetype>(added), static_cast<qsizetype>(count - added)};
    });
}

} // namespace vantro
