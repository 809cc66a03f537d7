#pragma once

#include "vantro/cli/Command.h"
#include "vantro/store/AudioFolder.h"
#include "vantro/store/CoreDataStack.h"
#include "vantro/store/TranscriptionExport.h"

#include <functional>
#include <optional>

namespace vantro {

/// What the history and notes commands work on. Throws StoreError when the store cannot be opened.
struct HistorySession
{
    HistorySession() { store.loadPersistentStores(); }

    [[nodiscard]] AudioFolder audio() const { return AudioFolder(store.persistentContainer().path()); }

    SystemClock clock;
    CoreDataStack store{clock};
};

/// Calls @p visit for the newest @p limit dictations (0: all) that match @p filter, newest first. Throws StoreError.
void forEachTranscription(const CoreDataStack& store, const HistoryFilter& filter, int limit,
                          const std::function<void(const Transcription&)>& visit);

/// The same, to be called.
Transcriptions transcriptionsOf(const CoreDataStack& store, const HistoryFilter& filter, int limit);

/// The first 8 characters of an id, for display.
QString shortIdentity(const QUuid& id);
/// Parses "2026-11-01", "2026-11-01T10:00", "today", "yesterday" or "7d" (days ago).
std::optional<QDateTime> momentFrom(const QString& text, const QDateTime& now);

/// What is told when a word is not the beginning of exactly one id: noted for translation, with %1 for the word.
struct IdentityTexts
{
    const char* several;
    const char* none;
};
extern const IdentityTexts dictationTexts;
extern const IdentityTexts noteTexts;

/// Returns the ids that begin with @p words, as found by @p find. Throws CommandError when one matches none or several.
std::vector<QUuid> identitiesFrom(const QStringList& words, const IdentityTexts& texts,
                                  const std::function<std::vector<QUuid>(const QString&, int limit)>& find);
/// Whether the user agrees: with --yes, or by answering @p question. Reports a refusal. Throws CommandError when there
/// is no terminal to ask on.
bool isConfirmed(const QString& question, const CommandCall& call);

} // namespace vantro
