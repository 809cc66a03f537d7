#pragma once

#include "vantro/ai/ProcessingMode.h"
#include "vantro/store/Entities.h"
#include "vantro/store/PersistentContainer.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace vantro {

/// Selects dictations.
struct HistoryFilter
{
    QString search; ///< as typed; see SearchQuery
    std::optional<ProcessingMode> mode;
    QDateTime since;            ///< invalid for no limit
    bool isUnrewritten = false; ///< only those whose mode rewrites, but have not been rewritten

    bool operator==(const HistoryFilter&) const = default;
};

/// A dictation as shown in lists.
struct TranscriptionExcerpt
{
    qint64 objectID = 0;
    QUuid id;
    QDateTime created_at;
    QString processingMode;
    QString text; ///< the beginning of Transcription::text()
    bool isFormatted = false;
};

/// Reads ranges of the dictations that pass a filter, newest first. All operations throw StoreError.
class TranscriptionFetch
{
public:
    /// Length of an excerpt in characters.
    static constexpr int excerptLength = 240;

    TranscriptionFetch(const PersistentContainer& container, const HistoryFilter& filter);

    [[nodiscard]] std::vector<Transcription> rows(FetchRange range, int limit) const;
    [[nodiscard]] std::vector<TranscriptionExcerpt> excerpts(FetchRange range, int limit) const;
    [[nodiscard]] int count(FetchRange range) const;
    /// Of all of them.
    [[nodiscard]] std::vector<QUuid> identities() const;

private:
    /// Unordered without a @p limit.
    [[nodiscard]] StoreQuery run(const QString& columns, FetchRange range, std::optional<int> limit) const;

    const PersistentContainer& container_;
    QString from_;
    QString key_;
    QStringList conditions_;
    QVariantList values_;
};

/// What transcriptionFrom() reads, in this order.
inline const QString transcriptionColumns =
    QStringLiteral("pk, id, created_at, processingMode, transcription, formatted, setAside, setAsideReason");
[[nodiscard]] Transcription transcriptionFrom(const StoreQuery& query);

/// The stored form of a date: milliseconds since 1970, or NULL if invalid.
QVariant storedDate(const QDateTime& date);
QDateTime dateFromStored(const QVariant& value);
/// The stored form of a UUID: lower case, without braces.
QString storedIdentity(const QUuid& id);

} // namespace vantro
