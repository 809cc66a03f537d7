#pragma once

#include "vantro/store/Entities.h"
#include "vantro/store/PersistentContainer.h"

#include <vector>

namespace vantro {

// Changes of many dictations, each all or nothing. On the thread of the container; throw StoreError.

/// The keys of those that exist, newest first.
[[nodiscard]] std::vector<qint64> transcriptionKeys(const PersistentContainer& container,
                                                    const std::vector<QUuid>& ids);
/// Oldest first.
[[nodiscard]] std::vector<Transcription> transcriptionRows(const PersistentContainer& container,
                                                           const std::vector<qint64>& keys);
/// Unknown keys are ignored. Returns what was deleted, newest first.
std::vector<Transcription> deleteTranscriptionRows(const PersistentContainer& container,
                                                   const std::vector<qint64>& keys);
/// Brings back what was deleted, to its place in time. What is there already stays as it is.
void restoreTranscriptionRows(const PersistentContainer& container, const std::vector<Transcription>& rows);

} // namespace vantro
